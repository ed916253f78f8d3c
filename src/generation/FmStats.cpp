// SPDX-License-Identifier: GPL-3.0-or-later
#include "generation/FmStats.h"

#include "base/FailureTexts.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tavrel {

namespace {

constexpr std::array<const char*, countedEntries> rowNames = {"TG", "GT", "OG", "TR"};

QPushButton* textButton(const char* name, Glyph glyph)
{
    QPushButton* const button = makeButton(name, glyph);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return button;
}

} // namespace

FmStats::FmStats(QWidget* parent, std::filesystem::path script, Dialogs& dialogs)
    : TitledWindow(parent), m_script(std::move(script)), m_dialogs(dialogs)
{
    setObjectName("FmStats");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    showCaptions();
    auto* const start = findChild<QPushButton*>("CdStats");
    start->setFocus();
    connect(start, &QPushButton::clicked, this, &FmStats::count);
    connect(findChild<QPushButton*>("CdAnnul"), &QPushButton::clicked, this, &QDialog::reject);
}

void FmStats::layOut()
{
    constexpr int margin = 2 * controlGap;
    // The titles are one text; in a font of fixed pitch they stand over columns of 20 characters.
    constexpr int columnCharacters = 20;
    const int columnWidth = QFontMetrics(fixedPitchFont()).horizontalAdvance('0') * columnCharacters;
    auto* const titles = named(new QLabel, "LbNiveaux");
    titles->setTextFormat(Qt::PlainText);
    titles->setFont(fixedPitchFont());
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(0);
    grid->setVerticalSpacing(controlGap);
    grid->addWidget(titles, 0, 1, 1, static_cast<int>(columns));
    for (std::size_t row = 0; row < countedEntries; ++row) {
        const int gridRow = static_cast<int>(row) + 1;
        const QByteArray name = rowNames[row];
        auto* const label = named(new QLabel, "Lb" + name);
        label->setContentsMargins(0, 0, margin, 0);
        grid->addWidget(label, gridRow, 0);
        for (std::size_t column = 0; column < columns; ++column) {
            QLineEdit* const field = makeReadOnly("Tx" + name + QByteArray::number(column));
            field->setAlignment(Qt::AlignCenter);
            field->setFixedWidth(columnWidth - margin);
            const int gridColumn = static_cast<int>(column) + 1;
            grid->addWidget(field, gridRow, gridColumn, Qt::AlignHCenter);
            grid->setColumnMinimumWidth(gridColumn, columnWidth);
            m_fields[row][column] = field;
        }
    }
    auto* const buttons =
        rowOf({textButton("CdStats", Glyph::Statistics), textButton("CdAnnul", Glyph::Close)});
    buttons->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addLayout(grid);
    content().addStretch(1);
    content().addLayout(buttons);
}

void FmStats::showCaptions()
{
    const auto both = [](const char* control, const char* text, const char* toolTip) {
        return Caption{control, BilingualText::same(text), BilingualText::same(toolTip)};
    };
    std::vector<Caption> captions = {
        both("LbNiveaux", "     Niveau 1            Niveau 2              Total", ""),
        both("LbTG", "Nombre de Trigger Groups :", ""),
        both("LbGT", "Nombre de Global Triggers :", ""),
        both("LbOG", "Nombre d'Organizer :", ""),
        both("LbTR", "Nombre de Triggers au total :", ""),
        both("CdStats", "Voir les statistiques", "Compter les entrées de script.txt"),
        both("CdAnnul", "Annuler", "Fermer cette fenêtre"),
    };
    tavrel::showCaptions(*this, captions, Language::French);
    static constexpr const char* columnNames[] = {"Niveau 1", "Niveau 2", "Total"};
    for (auto& row : m_fields) {
        for (std::size_t column = 0; column < columns; ++column) {
            row[column]->setToolTip(columnNames[column]);
            row[column]->setAccessibleName(columnNames[column]);
        }
    }
    setWindowTitle(inLanguage(statisticsTitle(), Language::French));
}

void FmStats::count()
{
    const Result<ScriptStatistics> counted = countScriptFile(m_script);
    if (!counted) {
        m_dialogs.show({MessageIcon::Critical, statisticsTitle(), counted.failure().text});
        return;
    }
    fill(0, counted->first);
    if (counted->second) {
        fill(1, *counted->second);
    } else {
        for (auto& row : m_fields) {
            row[1]->clear();
        }
    }
    fill(2, counted->total);
    if (!counted->notices.empty()) {
        m_dialogs.show({MessageIcon::Exclamation, statisticsTitle(), listOf(counted->notices)});
    }
}

void FmStats::fill(std::size_t column, const EntryCounts& counts)
{
    for (std::size_t row = 0; row < countedEntries; ++row) {
        m_fields[row][column]->setText(QString::number(counts[row]));
    }
}

} // namespace tavrel
