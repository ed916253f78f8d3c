// SPDX-License-Identifier: GPL-3.0-or-later
#include "backup/ExchangeWindow.h"

#include "backup/ExchangeExport.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int margin = 2 * controlGap;

// Where each column of a line begins, in characters. "RN" stands clear of its neighbours.
const std::pair<double, BilingualText> columns[] = {{29, {"Samples", "Samples"}},
                                                    {61, {"VOL", "VOL"}},
                                                    {69, {"P", "P"}},
                                                    {71, {"V", "V"}},
                                                    {72.5, {"RN", "RN"}},
                                                    {75, {"L", "L"}},
                                                    {77, {"CH", "CH"}},
                                                    {85, {"PIT", "PIT"}},
                                                    {93, {"RAD", "RAD"}},
                                                    {101, {"Letters", "Lettres"}}};

} // namespace

ExchangeWindow::ExchangeWindow(QWidget* parent, const ExchangeContext& context, const Look& look)
    : TitledWindow(parent), m_context(context), m_body(new QWidget), m_bodyLayout(new QVBoxLayout(m_body)),
      m_linesRow(new QHBoxLayout), m_counts(named(new QLabel, "LbIndic")), m_lines(new TickList("LiLine")),
      m_buttons(*m_lines, m_context.player),
      m_titles(new ColumnTitles("Label4", *m_lines, [this] { return titlesOfColumns(); })),
      m_withSamples(named(new QCheckBox, "CkSamp")), m_action(look.action),
      m_close(makeButton("CdStop", Glyph::Close)), m_status(new CopyStatus)
{
    setObjectName(look.name);
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    paintWith(*m_lines, m_context.colours.slots[look.linesColourSlot]);
    m_bodyLayout->setContentsMargins(0, 0, 0, 0);
    m_bodyLayout->setSpacing(controlGap);
    auto* const lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addWidget(m_titles);
    lines->addWidget(m_lines, 1);
    m_linesRow->setSpacing(margin);
    m_linesRow->addLayout(lines, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_body, 1);
    content().addWidget(m_status);
    resize(look.size);
    connect(m_buttons.play, &QPushButton::clicked, this, [this] { play(); });
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_lines, &TickList::selectedRowChanged, this, [this] {
        m_buttons.play->setEnabled(m_lines->selectedRow().has_value()); // to stop stays possible
    });
}

QBoxLayout* ExchangeWindow::makeTicksRow(std::initializer_list<QWidget*> further)
{
    QHBoxLayout* const row = rowOf({m_buttons.tickAll, m_buttons.untickAll});
    for (QWidget* const widget : further) {
        row->addWidget(widget);
    }
    row->addStretch(1);
    row->addWidget(m_counts);
    return row;
}

void ExchangeWindow::addButtons()
{
    QHBoxLayout* const row = rowOf({m_buttons.play, m_buttons.stop, m_withSamples, m_action, m_close});
    row->insertSpacing(2, margin);
    row->insertStretch(4, 1);
    m_bodyLayout->addLayout(row);
}

void ExchangeWindow::showCaptions(std::vector<Caption> own, const Title& title)
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const Caption shared[] = {
        both("CdSelect", {"Select all lines", "Selectionner toutes les lignes"}),
        both("CdEfface", {"Unselect all lines", "Décocher toutes les lignes"}),
        both("CdPlay2", {"Play sample", "Jouer le sample"}),
        both("CdStopS2", {"Stop sample", "Stopper le sample"}),
        both("CdStop", {"Close", "Fermer"}),
        {"CdCancelCopy", {"Cancel", "Annuler"}, {"Stop copying the samples", "Arrêter la copie des samples"}},
    };
    own.insert(own.end(), std::begin(shared), std::end(shared));
    tavrel::showCaptions(*this, own, m_context.language);
    setWindowTitle(inLanguage(title));
}

QString ExchangeWindow::inLanguage(const BilingualText& text) const
{
    return tavrel::inLanguage(text, m_context.language);
}

std::vector<ColumnTitle> ExchangeWindow::titlesOfColumns() const
{
    constexpr int blanksBeforeId = 6; // of the first title, which has its own room for the tick
    const double character = QFontMetricsF(m_titles->font()).horizontalAdvance('0');
    const double start = m_lines->textStart();
    std::vector<ColumnTitle> titles = {{start - blanksBeforeId * character, m_titles->text(), true}};
    for (const auto& [column, title] : columns) {
        titles.push_back({start + column * character, inLanguage(title)});
    }
    return titles;
}

void ExchangeWindow::showCounts()
{
    m_counts->setText(inLanguage(countOfLines(m_lines->rows(), m_lines->tickedCount())));
}

void ExchangeWindow::playSample(const std::filesystem::path& folder, std::string_view name)
{
    const Problem problem = PlaySample(m_context.player, folder, name, m_context.dialogs);
    say(problem ? problem->text : BilingualText());
}

void ExchangeWindow::reject()
{
    if (m_body->isEnabled()) {
        TitledWindow::reject();
    } else {
        m_status->cancel->click();
    }
}

} // namespace tavrel
