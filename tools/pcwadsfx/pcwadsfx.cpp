// SPDX-License-Identifier: GPL-3.0-or-later
// Stands in for the level editor's own tool in the tests and in the demo folder. As the real one it is a
// Windows program, stands beside sounds.txt, and leaves NAME.sam and NAME.sfx in its current folder.
//
// The tests tell it how many milliseconds to wait before it writes (TAVREL_TOOL_STARTS_AFTER) and between its
// two files (TAVREL_TOOL_TAKES), or to write nothing (TAVREL_TOOL_IS_BROKEN).
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

bool belongsTo(const std::string& line, const std::string& letter)
{
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        if (word == "#g" || word == "#" + letter) {
            return true;
        }
    }
    return false;
}

bool isValue(const std::string& word)
{
    for (const char* name : {"VOL", "PIT", "RAD", "CH"}) {
        const std::string prefix(name);
        const bool hasNumber = word.find_first_not_of("-0123456789", prefix.size()) == std::string::npos &&
                               word.size() > prefix.size();
        if (word.compare(0, prefix.size(), prefix) == 0 && hasNumber) {
            return true;
        }
    }
    return word.size() == 1 && std::string("PVRNL").find(word) != std::string::npos;
}

// The words between the name and the first value, flag or letter.
std::vector<std::string> samplesOf(const std::string& line)
{
    std::vector<std::string> samples;
    std::istringstream words(line.substr(line.find(':') + 1));
    for (std::string word; words >> word && word[0] != '#' && !isValue(word);) {
        samples.push_back(word);
    }
    return samples;
}

void takeTime(const char* setting)
{
    if (const char* const milliseconds = std::getenv(setting)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(milliseconds)));
    }
}

std::string bytesOf(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        std::cout << "Usage: pcwadsfx NAME LETTER\n";
        return EXIT_FAILURE;
    }
    const std::string name = argv[1];
    std::ifstream sounds("Sounds.txt");
    if (!sounds || std::getenv("TAVREL_TOOL_IS_BROKEN") != nullptr) {
        std::cout << "pcwadsfx: no sounds for " << name << "\n";
        return EXIT_FAILURE;
    }
    std::set<std::string> taken;
    std::string list;
    std::string bank;
    for (std::string line; std::getline(sounds, line);) {
        if (line.find(':') == std::string::npos || !belongsTo(line, argv[2])) {
            continue;
        }
        for (const std::string& sample : samplesOf(line)) {
            if (taken.insert(sample).second) {
                list += sample + ".wav\r\n";
                bank += bytesOf("..\\Samples\\" + sample + ".wav");
            }
        }
    }
    takeTime("TAVREL_TOOL_STARTS_AFTER");
    std::ofstream(name + ".sfx", std::ios::binary) << bank;
    takeTime("TAVREL_TOOL_TAKES");
    std::ofstream(name + ".sam", std::ios::binary) << list;
    std::cout << name << ": " << taken.size() << " samples\n";
    return EXIT_SUCCESS;
}
