// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "samples/DoublesRegister.h"
#include "ui/TitledWindow.h"

#include <filesystem>
#include <optional>
#include <span>

class QPushButton;

namespace tavrel {

class TickList;

// Which of the sounds that share samples take part in an import. Accepted when the register was written.
class FmDoub : public TitledWindow
{
    Q_OBJECT

public:
    // Protected sounds never take part, ticked or not; their rows say so.
    FmDoub(QWidget* parent, const std::filesystem::path& programFolder,
           std::span<const std::size_t> protectedNumbers, const ColourScheme& colours, Language language,
           Dialogs& dialogs);

private:
    void layOut();
    void showCaptions(Language language);
    void fillList(std::span<const std::size_t> protectedNumbers, Language language);
    void apply();

    std::optional<DoublesRegister> m_register; // none when it could not be read
    Dialogs& m_dialogs;
    TickList* m_list;
    QPushButton* m_tickAll;
    QPushButton* m_untickAll;
    QPushButton* m_ok;
    QPushButton* m_close;
};

} // namespace tavrel
