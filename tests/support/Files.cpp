// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Files.h"

#include "demo/DemoFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <stdexcept>

namespace tavrel {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder()
{
    std::random_device random;
    do {
        std::ostringstream name;
        name << "tavrel-test-" << std::hex << random() << random();
        m_path = fs::temp_directory_path() / name.str();
    } while (!fs::create_directory(m_path));
    m_path = fs::canonical(m_path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string readBytes(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeBytes(const fs::path& file, std::string_view bytes)
{
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

std::vector<std::string> namesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().extension() != ".tavrel-lock") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::ranges::sort(names);
    return names;
}

void removeStagedFolders(const fs::path& folder)
{
    for (const std::string& name : namesIn(folder)) {
        if (name.ends_with(".tavrel-new")) {
            fs::remove_all(folder / name);
        }
    }
}

std::map<fs::path, std::string> everyFile(const fs::path& folder)
{
    std::map<fs::path, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".tavrel-lock" && entry.path().extension() != ".lock") {
            files[entry.path()] = entry.is_directory() ? "folder" : readBytes(entry.path());
        }
    }
    return files;
}

int runProgram(fs::path program, const std::vector<fs::path>& arguments, const fs::path& output)
{
    const auto quoted = [](const fs::path& text) {
        return fs::path("\"") += text.native() + fs::path("\"").native();
    };
    fs::path command = quoted(program.make_preferred());
    for (const fs::path& argument : arguments) {
        command += " ";
        command += quoted(argument);
    }
    command += " >";
    command += quoted(output);
    command += " 2>&1";
#ifdef _WIN32
    return _wsystem(quoted(command).c_str()); // the shell takes the outermost quotes away
#else
    return std::system(command.c_str());
#endif
}

std::string withTabs(std::string text)
{
    std::ranges::replace(text, '>', '\t');
    return text;
}

std::string withSamples(const std::string& name, int count)
{
    std::string line = name + "\t";
    for (; count > 0; --count) {
        line += "s ";
    }
    return line;
}

std::string textOf(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

std::string firstDifference(const std::string& text, const std::string& expected)
{
    const auto [at, atExpected] = std::ranges::mismatch(text, expected);
    if (at == text.end() && atExpected == expected.end()) {
        return {};
    }
    const auto position = static_cast<std::size_t>(at - text.begin());
    const std::size_t lineStart = position == 0 ? 0 : text.rfind('\n', position - 1) + 1;
    const auto lineOf = [lineStart](const std::string& whole) {
        return "\"" + whole.substr(lineStart, whole.find('\n', lineStart) - lineStart) + "\"";
    };
    return lineOf(text) + " against " + lineOf(expected);
}

const std::vector<std::string>& stockLines()
{
    static const std::vector<std::string> lines = [] {
        std::vector<std::string> result;
        std::istringstream text(readBytes(dataFolder() / "Tavrel.tos"));
        for (std::string line; std::getline(text, line);) {
            if (line.empty() || line.back() != '\r') {
                throw std::runtime_error("a line of Tavrel.tos does not end with CR LF");
            }
            line.pop_back();
            result.push_back(line);
        }
        return result;
    }();
    return lines;
}

fs::path dataFolder()
{
    return TAVREL_DATA;
}

DemoFolders::DemoFolders()
{
    makeLevelEditorFolder(levelEditor, dataFolder(), DemoSamples::None);
    std::filesystem::remove(creator / "pcwadsfx.exe"); // tests that generate bring a tool of their own
    makeProgramFolder(program, dataFolder(), levelEditor);
}

} // namespace tavrel
