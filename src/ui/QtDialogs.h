// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Dialogs.h"
#include "ui/ColourDialog.h"

#include <QFileDialog>

namespace tavrel {

// Boxes and file dialogs over the window in which the user is working.
class QtDialogs : public Dialogs
{
public:
    void setLanguage(Language language) { m_language = language; }

    void show(const Message& message) override;
    Answer ask(const Question& question) override;
    std::optional<std::filesystem::path> chooseFile(const OpenFileQuestion& question) override;
    std::vector<std::filesystem::path> chooseFiles(const OpenFileQuestion& question) override;
    std::optional<ColourValue> chooseColour(ColourValue current) override;

private:
    std::vector<std::filesystem::path> runFileDialog(const OpenFileQuestion& question,
                                                     QFileDialog::FileMode mode);

    Language m_language = Language::English;
    KeptColours m_keptColours = noKeptColours();
};

} // namespace tavrel
