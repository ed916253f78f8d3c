// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SoundCatalogue.h"

#include "base/CodePage.h"
#include "catalogue/SoundLine.h"

#include <algorithm>
#include <stdexcept>

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

void SoundCatalogue::append(std::string currentLine, std::string originalLine, std::size_t lineInFile)
{
    std::string entry = makeListEntry(m_sounds.size(), currentLine);
    m_sounds.push_back({std::move(currentLine), std::move(originalLine), std::move(entry), lineInFile});
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
        sound.current = std::move(text);
        sound.listEntry = makeListEntry(number, sound.current);
        m_pending = true;
    }
}

void SoundCatalogue::markApplied(const FileStamp& stamp)
{
    m_file.stamp = stamp;
    m_pending = false;
    for (std::size_t k = 0; k < m_sounds.size(); ++k) {
        m_sounds[k].lineInFile = k + 1; // lines that are no sounds were not written back
    }
}

} // namespace tavrel
