// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/SampleFormat.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/System.h"
#include "samples/SamplesFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>

namespace tavrel {

namespace {

constexpr std::size_t lookedAt = 40;

// Names are cut or padded to this, then a blank separates them from the marks.
constexpr std::size_t nameWidth = 27;
constexpr std::size_t markWidth = 9;

void appendMark(std::string& row, bool passes, std::string_view failure)
{
    std::string cell(passes ? std::string_view() : failure);
    cell.resize(markWidth, ' ');
    row += cell;
}

} // namespace

SampleFormatVerdict CheckSampleFormatDetailed(const std::filesystem::path& file)
{
    std::array<char, lookedAt> header{};
    if (!system::readStart(file, header)) {
        return {};
    }
    return verdictOf(header);
}

SampleFormatVerdict verdictOf(std::span<const char> start)
{
    std::array<char, lookedAt> header{};
    std::ranges::copy(start.first(std::min(start.size(), lookedAt)), header.begin());
    SampleFormatVerdict verdict;
    verdict.pcm = header[20] == 1;
    verdict.mono = header[22] == 1;
    verdict.rate22050 = header[24] == 0x22 && header[25] == 0x56;
    verdict.plainHeader = std::string_view(&header[36], 4) == "data";
    return verdict;
}

bool CheckSampleFormat(const std::filesystem::path& folder, std::string_view name)
{
    const std::optional<std::filesystem::path> file = findSample(folder, name);
    return file && CheckSampleFormatDetailed(*file).valid();
}

const BilingualText& requiredSampleFormat()
{
    static const BilingualText text("Windows PCM 22050Hz 16bits Mono w/o header informations",
                                    "Windows PCM 22050Hhz 16bits Mono sans informations d'en-tête");
    return text;
}

BilingualText wrongSampleFormat(std::string_view name)
{
    const std::string file = "[" + utf8FromCodePage(name) + ".wav]";
    return BilingualText("The sample " + file + " must be\n",
                         "Le sample " + file + " doit être au format\n") +
           requiredSampleFormat();
}

BilingualText anomalyTitle()
{
    return {"List of wrong samples        ----------- ANOMALIES -----------",
            "Liste des mauvais samples    ----------- ANOMALIES ------------"};
}

BilingualText anomalyColumns()
{
    return {"File name                    Mono     PCM      22050Khz Header",
            "Nom fichier                  Mono     PCM      22050Khz En-tête"};
}

namespace {

std::string nameCell(std::string_view fileName)
{
    std::string cell(fileName.substr(0, fileName.rfind(".wav")));
    cell.resize(nameWidth, ' ');
    return cell + ' ';
}

std::error_code openingError(const std::filesystem::path& file)
{
    errno = 0;
    const std::ifstream stream(file, std::ios::binary);
    return stream ? std::error_code() : std::error_code(errno != 0 ? errno : EIO, std::generic_category());
}

} // namespace

std::string checkedRow(const std::filesystem::path& file, std::string_view fileName,
                       const SampleFormatVerdict& verdict, Language language)
{
    if (verdict == SampleFormatVerdict()) {
        if (const std::error_code error = openingError(file)) {
            return nameCell(fileName) + codePageFromUtf8(errorText(error).in(language)).bytes;
        }
    }
    return anomalyRow(fileName, verdict, language);
}

std::string anomalyRow(std::string_view fileName, const SampleFormatVerdict& verdict, Language language)
{
    std::string row = nameCell(fileName);
    appendMark(row, verdict.mono, "  N");
    appendMark(row, verdict.pcm, " N");
    appendMark(row, verdict.rate22050, "    N");
    // This column says that there is header information, so a failure is a yes.
    appendMark(row, verdict.plainHeader, language == Language::French ? "   O" : "   Y");
    return row;
}

BilingualText anomalyCount(std::size_t rows)
{
    if (rows == 0) {
        return {"No problem found", "Aucun problème rencontré"};
    }
    return BilingualText::same(std::to_string(rows)) +
           BilingualText(" file(s) found", " fichier(s) trouvé(s)");
}

} // namespace tavrel
