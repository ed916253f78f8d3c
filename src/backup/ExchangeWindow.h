// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "backup/ExchangeControls.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "catalogue/SoundCatalogue.h"
#include "references/CurrentWad.h"
#include "settings/Places.h"
#include "ui/Captions.h"
#include "ui/ColumnTitles.h"
#include "ui/TitledWindow.h"

#include <QSize>

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <vector>

class QBoxLayout;
class QCheckBox;

namespace tavrel {

struct ExchangeContext
{
    Language language = Language::English;
    ColourScheme colours;
    Places places;
    CurrentWad wad;
    SoundCatalogue& catalogue;
    Dialogs& dialogs;
    SamplePlayer& player;
};

// What the export and the import window share: lines to tick and to play, whether samples go with them, and a
// bottom line for the copy that is under way.
class ExchangeWindow : public TitledWindow
{
    Q_OBJECT

public:
    // While samples are copied, it stops that instead of closing.
    void reject() override;

protected:
    struct Look
    {
        const char* name = nullptr;
        std::size_t linesColourSlot = 0;
        QPushButton* action = nullptr; // what the window is opened for
        QSize size = {};
    };
    ExchangeWindow(QWidget* parent, const ExchangeContext& context, const Look& look);

    // Own parts go into the body, around the lines and above the buttons.
    QBoxLayout& body() { return *m_bodyLayout; }
    QBoxLayout& linesRow() { return *m_linesRow; }
    // Above the lines: the buttons that tick all and none, the further ones, and how many are ticked.
    QBoxLayout* makeTicksRow(std::initializer_list<QWidget*> further);
    void addButtons();
    // Together with those of the shared parts.
    void showCaptions(std::vector<Caption> own, const Title& title);

    QString inLanguage(const BilingualText& text) const;
    const ExchangeContext& context() const { return m_context; }
    TickList& lines() { return *m_lines; }
    ColumnTitles& columnTitles() { return *m_titles; }
    QCheckBox& withSamples() { return *m_withSamples; }
    QPushButton& action() { return *m_action; }
    void say(const BilingualText& text) const { m_status->showText(text, m_context.language); }
    void showCounts();
    void playSample(const std::filesystem::path& folder, std::string_view name);
    // The body waits while the work copies files.
    template <typename Work>
    auto copying(const Work& work)
    {
        CopyProgress progress(*m_status, *m_body, m_context.language);
        return work(progress);
    }

private:
    // What a press on the button, or Enter in the list, plays.
    virtual void play() = 0;

    std::vector<ColumnTitle> titlesOfColumns() const;

    ExchangeContext m_context;
    QWidget* m_body; // all but the status line
    QBoxLayout* m_bodyLayout;
    QBoxLayout* m_linesRow;
    QLabel* m_counts;
    TickList* m_lines;
    LineButtons m_buttons;
    ColumnTitles* m_titles;
    QCheckBox* m_withSamples;
    QPushButton* m_action;
    QPushButton* m_close;
    CopyStatus* m_status;
};

} // namespace tavrel
