// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ObjectTable.h"

#include "base/FailureTexts.h"
#include "catalogue/SoundLine.h"

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t nameWidth = 25;
constexpr std::size_t countWidth = 2;
constexpr std::size_t firstSoundColumn = 29; // 0-based
constexpr std::size_t soundWidth = 3;
constexpr std::size_t soundStep = 4;

std::string_view columns(std::string_view line, std::size_t from, std::size_t width)
{
    return from < line.size() ? line.substr(from, width) : std::string_view();
}

std::size_t numberIn(std::string_view field)
{
    field.remove_prefix(std::min(field.find_first_not_of(' '), field.size()));
    return static_cast<std::size_t>(std::max(0, leadingNumber(field)));
}

std::vector<std::size_t> soundsOf(std::string_view line)
{
    const std::size_t count = std::min(numberIn(columns(line, nameWidth, countWidth)), maximumSoundsOfObject);
    std::vector<std::size_t> sounds;
    for (std::size_t j = 0; j < count; ++j) {
        const std::size_t number = numberIn(columns(line, firstSoundColumn + soundStep * j, soundWidth));
        if (number == 0) {
            break;
        }
        sounds.push_back(number);
    }
    return sounds;
}

bool isLeftOut(std::string_view name)
{
    return name.empty() || name.find('(') != std::string_view::npos ||
           name.find("LOOP") != std::string_view::npos;
}

} // namespace

Result<std::vector<SoundObject>> parseObjectTable(const TextFile& file)
{
    std::vector<SoundObject> objects;
    std::string type;
    std::size_t lineNumber = 0;
    for (const std::string_view line : file.lines()) {
        ++lineNumber;
        if (line.starts_with('*')) {
            type = RTrimBlanks(line.substr(1));
            type.erase(0, std::min(type.find_first_not_of(' '), type.size()));
            continue;
        }
        const std::string_view name = RTrimBlanks(line.substr(0, nameWidth));
        if (isLeftOut(name)) {
            continue;
        }
        if (objects.size() == maximumObjects) {
            return wrongLine(file.path, lineNumber,
                             {"More than 100 objects. The object table is left empty.",
                              "Plus de 100 objets. La table des objets reste vide."});
        }
        objects.push_back({type, std::string(name), soundsOf(line)});
    }
    return objects;
}

} // namespace tavrel
