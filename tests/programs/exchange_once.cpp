// SPDX-License-Identifier: GPL-3.0-or-later
// Exports all sounds and their samples to a file, or imports that file, without a question. The tests watch
// what its system calls leave behind when they fail.
#include "backup/ExchangeExport.h"
#include "backup/ExchangeImport.h"
#include "catalogue/CatalogueLoading.h"

#include <cstdio>
#include <string_view>

namespace {

int ended(bool well, const std::optional<tavrel::Message>& report)
{
    if (report) {
        std::puts(report->text.english.c_str());
    }
    return well ? 0 : 1;
}

} // namespace

// 0 when all was done, 1 when not, 2 when it could not begin.
int main(int argc, char* argv[])
{
    using namespace tavrel;
    if (argc != 6) {
        std::puts("Usage: exchange_once export|import PROGRAM_FOLDER CREATOR_FOLDER FILE SAMPLES_FOLDER");
        return 2;
    }
    Result<LoadedCatalogue> loaded = loadCatalogue({argv[2], argv[3], false});
    if (!loaded) {
        return 2;
    }
    SilentProgress progress;
    if (std::string_view(argv[1]) == "export") {
        const ExportOutcome outcome =
            saveExport({ExportMode::All, listForExport(loaded->catalogue, ExportMode::All, ""), argv[4], true,
                        argv[5], loaded->catalogue.file().path, argv[2]},
                       progress);
        return ended(outcome.saved, outcome.report);
    }
    const Result<ImportFile> file = readImportFile(argv[4], loaded->catalogue, "oa");
    if (!file) {
        return 2;
    }
    ImportRequest request{*file, {"oasis", "oa", ""}, true, {}, argv[5]};
    for (std::size_t i = 0; i < file->rows(); ++i) {
        const std::vector<std::string> samples = offeredSamples(*file, i);
        request.samples.insert(request.samples.end(), samples.begin(), samples.end());
    }
    const ImportOutcome outcome = applyImport(loaded->catalogue, request, progress);
    return ended(outcome.complete, outcome.report);
}
