// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FilterBox.h"

#include "app/MainPanel.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

// In the order of the drop-down.
constexpr ReadyFilter readyFilters[] = {
    ReadyFilter::All,        ReadyFilter::Modified, ReadyFilter::Pending,      ReadyFilter::OfWad,
    ReadyFilter::EveryLevel, ReadyFilter::NoLevel,  ReadyFilter::WithFindings, ReadyFilter::MissingSamples};

BilingualText nameOf(ReadyFilter filter)
{
    switch (filter) {
    case ReadyFilter::Modified:
        return {"Modified", "Modifiés"};
    case ReadyFilter::Pending:
        return {"Not yet applied", "Non encore appliqués"};
    case ReadyFilter::OfWad:
        return {"Of the current WAD", "Du WAD actuel"};
    case ReadyFilter::EveryLevel:
        return {"In every level (#g)", "De tous les niveaux (#g)"};
    case ReadyFilter::NoLevel:
        return {"Without a level", "Sans niveau"};
    case ReadyFilter::WithFindings:
        return {"With findings", "Avec des constats"};
    case ReadyFilter::MissingSamples:
        return {"Missing samples", "Samples manquants"};
    case ReadyFilter::All:
        break;
    }
    return {"All sounds", "Tous les sons"};
}

} // namespace

FilterBox::FilterBox() : m_words(named(new QLineEdit, "TxFilter")), m_ready(makeComboBox("CbFilter"))
{
    m_words->setClearButtonEnabled(true);
    selectAllOnClick(*m_words);
    m_words->installEventFilter(this);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    column->addWidget(m_words);
    column->addWidget(m_ready);
    connect(m_words, &QLineEdit::textChanged, this, &FilterBox::tellChange);
    connect(m_words, &QLineEdit::returnPressed, this, &FilterBox::done);
    connect(m_ready, &QComboBox::currentIndexChanged, this, &FilterBox::tellChange);
}

void FilterBox::showLanguage(Language language)
{
    const Caption captions[] = {
        {"TxFilter",
         {},
         {"Filter: words of name, samples and letters, a number, vol>80, pit<0, flag:L",
          "Filtre : mots du nom, des samples et des lettres, un numéro, vol>80, pit<0, flag:L"}},
        {"CbFilter", {}, {"Which sounds are listed", "Quels sons sont listés"}},
    };
    showCaptions(*this, captions, language);
    m_words->setPlaceholderText(inLanguage({"Filter", "Filtre"}, language));
    const QSignalBlocker blocker(m_ready);
    const int chosen = std::max(m_ready->currentIndex(), 0);
    m_ready->clear();
    for (const ReadyFilter filter : readyFilters) {
        m_ready->addItem(inLanguage(nameOf(filter), language));
    }
    m_ready->setCurrentIndex(chosen);
}

void FilterBox::focusWords()
{
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

SoundFilter FilterBox::words() const
{
    return SoundFilter(toCodePage(m_words->text()));
}

void FilterBox::choose(ReadyFilter filter)
{
    {
        const QSignalBlocker words(m_words);
        const QSignalBlocker ready(m_ready);
        m_words->clear();
        const auto place = std::ranges::find(readyFilters, filter);
        m_ready->setCurrentIndex(static_cast<int>(place - std::begin(readyFilters)));
    }
    tellChange();
}

ReadyFilter FilterBox::ready() const
{
    return readyFilters[std::max(m_ready->currentIndex(), 0)];
}

bool FilterBox::clear()
{
    if (m_words->text().isEmpty() && ready() == ReadyFilter::All) {
        return false;
    }
    {
        const QSignalBlocker words(m_words);
        const QSignalBlocker ready(m_ready);
        m_words->clear();
        m_ready->setCurrentIndex(0);
    }
    tellChange();
    return true;
}

void FilterBox::tellChange()
{
    drawAttention(*m_words, !m_words->text().isEmpty());
    drawAttention(*m_ready, ready() != ReadyFilter::All);
    Q_EMIT changed();
}

bool FilterBox::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        Q_EMIT done();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace tavrel
