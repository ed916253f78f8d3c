// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ColourScheme.h"
#include "base/Message.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

struct OpenFileQuestion
{
    Title title;
    BilingualText filterName;           // as it is shown
    std::vector<std::string> fileNames; // the names or patterns the filter lets through
    std::filesystem::path folder;       // where the dialog starts
    std::string proposedName = {};
    bool fileMustExist = true; // else only its folder must
    bool forSaving = false;    // the caller asks before an existing file is replaced
};

// How commands talk to the user. The windows answer with boxes, scripts with the console, tests with a
// prepared conversation.
class Dialogs
{
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    virtual void show(const Message& message) = 0;
    // Closing the box without a choice is Cancel where there is one, else the refusal (No).
    virtual Answer ask(const Question& question) = 0;
    // Empty when the user cancels.
    virtual std::optional<std::filesystem::path> chooseFile(const OpenFileQuestion& question) = 0;
    // Several at once, where that is possible; none when the user cancels.
    virtual std::vector<std::filesystem::path> chooseFiles(const OpenFileQuestion& question)
    {
        const std::optional<std::filesystem::path> file = chooseFile(question);
        return file ? std::vector{*file} : std::vector<std::filesystem::path>();
    }
    // Whether lines that a command has changed wait for the user to apply them. Else that comes at once.
    virtual bool appliesLater() const { return true; }
    // Starts from a colour. Nothing when the user cancels.
    virtual std::optional<ColourValue> chooseColour(ColourValue current) = 0;
};

} // namespace tavrel
