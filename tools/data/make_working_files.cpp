// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFile.h"
#include "data/WorkingFiles.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cerr << "Usage: make_working_files TABLES DATA\n";
        return EXIT_FAILURE;
    }
    try {
        for (const tavrel::WorkingFile& file : tavrel::makeWorkingFiles(argv[1])) {
            if (const tavrel::Problem problem =
                    tavrel::writeFileSafely(std::filesystem::path(argv[2]) / file.name, file.bytes)) {
                std::cerr << problem->text.english << '\n';
                return EXIT_FAILURE;
            }
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
