// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundCatalogue.h"

#include "base/CodePage.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tavrel {

namespace {

constexpr std::size_t listedNameWidth = 22;

} // namespace

BilingualText tooManySamples()
{
    return {"A sound line cannot hold more than 50 samples.",
            "Une ligne de son ne peut contenir plus de 50 samples."};
}

SoundCatalogue::SoundCatalogue(File file, bool protectedLinesEditable)
    : m_file(std::move(file)), m_protectedLinesEditable(protectedLinesEditable)
{}

void SoundCatalogue::append(std::string line, std::string originalLine, std::size_t lineInFile)
{
    m_originals.resize(m_sounds.size());
    m_originals.push_back(std::move(originalLine));
    appendUnknown(std::move(line), lineInFile);
}

void SoundCatalogue::appendUnknown(std::string line, std::size_t lineInFile)
{
    const std::size_t number = m_sounds.size();
    std::string entry = makeListEntry(number, line);
    std::string ownOriginal = number < m_originals.size() ? std::string() : line;
    m_fileLines.push_back({line, lineInFile});
    m_sounds.push_back({std::move(line), std::move(entry), std::move(ownOriginal), m_fileLines.size() - 1});
}

const std::string& SoundCatalogue::originalLine(std::size_t number) const
{
    const Sound& sound = m_sounds.at(number);
    return number < m_originals.size() ? m_originals[number] : sound.ownOriginal;
}

const std::string& SoundCatalogue::fileLine(std::size_t number) const
{
    static const std::string none;
    const std::size_t line = m_sounds.at(number).fileLine;
    return line == notInFile ? none : m_fileLines[line].text;
}

std::size_t SoundCatalogue::lineInFile(std::size_t number) const
{
    const std::size_t line = m_sounds.at(number).fileLine;
    return line == notInFile ? 0 : m_fileLines[line].lineInFile;
}

std::optional<std::size_t> SoundCatalogue::fileLineIndex(std::size_t number) const
{
    const std::size_t line = m_sounds.at(number).fileLine;
    return line == notInFile ? std::nullopt : std::optional(line);
}

bool SoundCatalogue::differsFromFile() const
{
    return !std::ranges::equal(m_sounds, m_fileLines, {}, &Sound::current, &FileLine::text);
}

std::string SoundCatalogue::makeListEntry(std::size_t number, std::string_view line) const
{
    constexpr int usualWidth = 3;
    const int width = std::max(usualWidth, static_cast<int>(std::to_string(number).size()));
    std::string name(line.substr(0, line.find(':')).substr(0, listedNameWidth));
    name.resize(listedNameWidth, ' ');
    const std::string shownNumber = FormatValue(static_cast<int>(number), width, ' ');
    return isProtected(number) ? shownNumber + ":     " + lowerCase(name) : shownNumber + ": " + name;
}

bool SoundCatalogue::isGlobal(std::size_t number) const
{
    return currentLine(number).find("#g") != std::string::npos;
}

std::span<const std::size_t> SoundCatalogue::protectedNumbers() const
{
    return m_protectedLinesEditable ? std::span<const std::size_t>() : emptyAndUnsureSounds;
}

bool SoundCatalogue::isProtected(std::size_t number) const
{
    return std::ranges::find(protectedNumbers(), number) != protectedNumbers().end();
}

Problem SoundCatalogue::setCurrentLine(std::size_t number, std::string text)
{
    return setCurrentLines({{number, std::move(text)}});
}

std::optional<BilingualText> SoundCatalogue::refusal(std::string_view text)
{
    if (text.find(':') == std::string_view::npos) {
        return BilingualText("A sound line needs a name that ends with \":\".",
                             "Une ligne de son doit avoir un nom terminé par « : ».");
    }
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) {
        return BilingualText("A sound line cannot hold line ends or bytes of zero.",
                             "Une ligne de son ne peut contenir ni fin de ligne ni octet nul.");
    }
    try {
        ParseSoundLine(text);
    } catch (const std::out_of_range&) {
        return tooManySamples();
    }
    return std::nullopt;
}

Problem SoundCatalogue::setCurrentLines(std::vector<LineChange> changes)
{
    for (const LineChange& change : changes) {
        if (const std::optional<BilingualText> reason = refusal(change.text)) {
            return Failure{*reason};
        }
    }
    for (LineChange& change : changes) {
        replaceLine(change.number, std::move(change.text));
    }
    return std::nullopt;
}

void SoundCatalogue::replaceLine(std::size_t number, std::string text)
{
    Sound& sound = m_sounds.at(number);
    if (sound.current != text) {
        std::string before = std::exchange(sound.current, std::move(text));
        sound.listEntry = makeListEntry(number, sound.current);
        record(LineDelta::Kind::Changed, number, std::move(before), sound.current);
    }
}

Problem SoundCatalogue::putLineIn(std::size_t number, std::string text)
{
    if (const std::optional<BilingualText> reason = refusal(text)) {
        return Failure{*reason};
    }
    insertSound(number, text);
    record(LineDelta::Kind::PutIn, number, {}, std::move(text));
    return std::nullopt;
}

void SoundCatalogue::takeLineOut(std::size_t number)
{
    std::string before = m_sounds.at(number).current;
    eraseSound(number);
    record(LineDelta::Kind::TakenOut, number, std::move(before), {});
}

void SoundCatalogue::repeat(const LineDelta& delta)
{
    switch (delta.kind) {
    case LineDelta::Kind::Changed:
        replaceLine(delta.number, delta.after);
        break;
    case LineDelta::Kind::PutIn:
        insertSound(delta.number, delta.after);
        break;
    case LineDelta::Kind::TakenOut:
        eraseSound(delta.number);
        break;
    }
}

void SoundCatalogue::reverse(const LineDelta& delta)
{
    switch (delta.kind) {
    case LineDelta::Kind::Changed:
        replaceLine(delta.number, delta.before);
        break;
    case LineDelta::Kind::PutIn:
        eraseSound(delta.number);
        break;
    case LineDelta::Kind::TakenOut:
        insertSound(delta.number, delta.before);
        break;
    }
}

void SoundCatalogue::insertSound(std::size_t number, std::string text)
{
    Sound sound{std::move(text), {}, {}, freeFileLineAt(number)};
    sound.ownOriginal = sound.current;
    m_sounds.insert(m_sounds.begin() + static_cast<std::ptrdiff_t>(number), std::move(sound));
    renumberFrom(number);
}

void SoundCatalogue::eraseSound(std::size_t number)
{
    m_sounds.erase(m_sounds.begin() + static_cast<std::ptrdiff_t>(number));
    renumberFrom(number);
}

void SoundCatalogue::renumberFrom(std::size_t number)
{
    for (std::size_t k = number; k < m_sounds.size(); ++k) {
        m_sounds[k].listEntry = makeListEntry(k, m_sounds[k].current);
        if (k >= m_originals.size() && m_sounds[k].ownOriginal.empty()) { // it had an installed one so far
            m_sounds[k].ownOriginal = m_sounds[k].current;
        }
    }
}

std::size_t SoundCatalogue::freeFileLineAt(std::size_t number) const
{
    std::size_t before = number;
    while (before > 0 && m_sounds[before - 1].fileLine == notInFile) {
        --before;
    }
    std::size_t after = number;
    while (after < m_sounds.size() && m_sounds[after].fileLine == notInFile) {
        ++after;
    }
    const std::size_t first = before == 0 ? 0 : m_sounds[before - 1].fileLine + 1;
    const std::size_t end = after == m_sounds.size() ? m_fileLines.size() : m_sounds[after].fileLine;
    return first < end ? first : notInFile;
}

void SoundCatalogue::record(LineDelta::Kind kind, std::size_t number, std::string before,
                            std::string after) const
{
    if (m_recorder.pointer != nullptr) {
        m_recorder.pointer->record({kind, number, std::move(before), std::move(after)});
    }
}

void SoundCatalogue::markApplied(const FileStamp& stamp, const std::vector<std::size_t>& linesInFile)
{
    m_file.stamp = stamp;
    m_fileLines.clear();
    for (std::size_t k = 0; k < m_sounds.size(); ++k) {
        m_sounds[k].fileLine = k;
        m_fileLines.push_back({m_sounds[k].current, linesInFile.at(k)});
    }
}

} // namespace tavrel
