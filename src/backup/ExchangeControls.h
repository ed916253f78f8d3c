// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"
#include "base/ColourScheme.h"
#include "base/Dialogs.h"
#include "base/Progress.h"
#include "catalogue/SoundCatalogue.h"
#include "references/LetterList.h"
#include "samples/SamplePlayer.h"
#include "settings/Places.h"

#include <QIcon>
#include <QLabel>
#include <QListWidget>

#include <array>
#include <cstddef>
#include <filesystem>
#include <vector>

class QProgressBar;
class QPushButton;

// What the export and the import window are built of.
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

// Rows in fixed columns, each with a tick. Space ticks or unticks all selected rows.
class TickList : public QListWidget
{
    Q_OBJECT

public:
    explicit TickList(const char* name);

    enum class Mark { None, Remark, Refusal };

    // With marks, every row has room for one; a refused row cannot be ticked.
    void useMarks();
    void addRow(const QString& text, Mark mark = Mark::None, const QString& why = {}, bool ticked = true);
    // Whether the row can be ticked stays as it is.
    void mark(std::size_t row, Mark mark, const QString& why);
    void tick(const std::vector<std::size_t>& rows, bool ticked);
    void tickAll(bool ticked);
    bool isTicked(std::size_t row) const;
    std::vector<std::size_t> tickedRows() const;
    std::size_t rows() const { return static_cast<std::size_t>(count()); }
    // The row whose buttons and panels act; none when no row is selected.
    std::optional<std::size_t> selectedRow() const;

    // Where the text of a row that is not scrolled starts, in the list.
    int textStart() const;

Q_SIGNALS:
    void ticksChanged();
    void enterPressed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void setTicked(QListWidgetItem& item, bool ticked);

    bool hasMarks() const { return !m_markIcons[0].isNull(); }

    std::array<QIcon, 3> m_markIcons; // by mark; none without marks
    bool m_changing = false;          // several ticks change, which is told once
};

// The buttons of a list of lines: they tick all of it and play its selected row. What playing means is left
// to the window.
struct LineButtons
{
    LineButtons(TickList& lines, SamplePlayer& player);

    QPushButton* tickAll;
    QPushButton* untickAll;
    QPushButton* play;
    QPushButton* stop;
};

// The titles over the columns of the lines; they scroll with the list.
class ColumnTitles : public QLabel
{
    Q_OBJECT

public:
    ColumnTitles(const char* name, const TickList& list);

    void setLanguage(Language language) { m_language = language; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const TickList& m_list;
    Language m_language = Language::English;
};

// The bottom line of both windows: what is being copied, how far, and a button to stop.
class CopyStatus : public QWidget
{
    Q_OBJECT

public:
    CopyStatus();

    void showText(const BilingualText& text, Language language) const;

    QLabel* info;
    QProgressBar* bar;
    QPushButton* cancel;
};

// While it lives, a copy is under way: the rest of the window waits, the button stops the copy between two
// files.
class CopyProgress : public Progress
{
public:
    CopyProgress(CopyStatus& status, QWidget& rest, Language language);
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;
    ~CopyProgress() override;

    bool show(std::size_t done, std::size_t total) override;
    void say(const BilingualText& text) override;

private:
    CopyStatus& m_status;
    QWidget& m_rest;
    QWidget* m_focusBefore;
    Language m_language;
    QMetaObject::Connection m_connection;
    bool m_cancelled = false;
};

} // namespace tavrel
