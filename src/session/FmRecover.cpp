// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/FmRecover.h"

#include "base/CodePage.h"
#include "base/FailureTexts.h"
#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr std::size_t colourSlot = 1;
constexpr int margin = 2 * controlGap;

QString nameOf(const RecoveredLine& line)
{
    const std::string& text = line.after.empty() ? line.before : line.after;
    const QString number = line.number ? QString::number(*line.number) : QString("-");
    return number.rightJustified(4) + ": " + fromCodePage(text.substr(0, text.find(':')));
}

QString shownTime(std::chrono::sys_seconds time, Language language)
{
    const QLocale locale(language == Language::French ? QLocale::French : QLocale::English);
    return locale.toString(QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count()),
                           QLocale::ShortFormat);
}

// When the last step was done, else when the log began.
std::chrono::sys_seconds lastTime(const RecoveryContent& content)
{
    const std::vector<HistoryStep>& steps = content.track.steps;
    return steps.empty() ? content.header.begun : steps.back().time;
}

} // namespace

FmRecover::FmRecover(QWidget* parent, const FoundRecovery& found, bool isDiscarded, bool isOfThisFile,
                     const ColourScheme& colours, Language language)
    : TitledWindow(parent), m_language(language), m_lines(netChanges(found.content.track)),
      m_what(named(new QLabel, "LbWhat")), m_list(makeFixedPitchList("LiRecover")),
      m_texts(makeTextView("TxRecover")), m_recover(makeButton("CdRecover", Glyph::RestoreLine)),
      m_discard(makeButton("CdDiscard", Glyph::RemoveItem)), m_later(makeButton("CdLater", Glyph::Close))
{
    setObjectName("FmRecover");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    paintWith(*m_list, colours.slots[colourSlot]);
    paintWith(*m_texts, colours.slots[colourSlot]);
    layOut();
    showCaptions(isDiscarded, isOfThisFile, found);
    m_discard->setVisible(!isDiscarded);
    m_recover->setEnabled(isOfThisFile);
    connect(m_list, &QListWidget::currentRowChanged, this, &FmRecover::showLines);
    connect(m_recover, &QPushButton::clicked, this, [this] { choose(Choice::Recover); });
    connect(m_discard, &QPushButton::clicked, this, [this] { choose(Choice::Discard); });
    connect(m_later, &QPushButton::clicked, this, &QDialog::reject);
    fill(found);
    (isOfThisFile ? m_recover : m_later)->setFocus();
}

void FmRecover::layOut()
{
    constexpr int textsHeight = 78;
    m_what->setTextFormat(Qt::PlainText);
    m_what->setWordWrap(true);
    m_texts->setFixedHeight(textsHeight);
    auto* const buttons = rowOf({m_recover, m_discard, m_later});
    buttons->insertStretch(2, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_what);
    content().addWidget(m_list, 1);
    content().addWidget(m_texts);
    content().addLayout(buttons);
    resize(760, 460);
}

void FmRecover::showCaptions(bool isDiscarded, bool isOfThisFile, const FoundRecovery& found)
{
    const Caption captions[] = {
        {"LiRecover",
         {},
         {"Sounds that were changed; the selected one is shown below before and after",
          "Sons modifiés ; celui qui est sélectionné est affiché dessous, avant et après"}},
        {"TxRecover",
         {},
         {"The line as it was in the file, and as it was left",
          "La ligne telle qu'elle était dans le fichier, et "
          "telle qu'elle a été laissée"}},
        {"CdRecover",
         {"Recover", "Récupérer"},
         {"Bring these changes back; they can be undone",
          "Remettre ces modifications ; elles peuvent être annulées"}},
        {"CdDiscard",
         {"Discard", "Abandonner"},
         {"Give these changes up; the last five stay under Recover...",
          "Renoncer à ces modifications ; les cinq dernières restent sous Récupérer..."}},
        {"CdLater",
         {"Later", "Plus tard"},
         {"Leave them for the next start", "Les laisser pour le prochain démarrage"}},
    };
    tavrel::showCaptions(*this, captions, m_language);
    setWindowTitle(inLanguage(titles::recovery, m_language));
    const std::string file = displayPath(found.content.header.sounds);
    const std::string time = shownTime(lastTime(found.content), m_language).toStdString();
    BilingualText what =
        isDiscarded
            ? BilingualText("These changes were given up. The last one is of " + time + ".",
                            "Ces modifications ont été abandonnées. La dernière est du " + time + ".")
            : BilingualText(
                  "Tavrel did not come to its end, and these changes had not been applied. The last one "
                  "is of " +
                      time + ".",
                  "Tavrel ne s'est pas terminé normalement et ces modifications n'avaient pas été "
                  "appliquées. La dernière est du " +
                      time + ".");
    if (!isOfThisFile) {
        what += BilingualText(
                    "\nThey belong to another sounds.txt. Choose its level editor in the parameters to "
                    "bring them back:\n",
                    "\nElles concernent un autre sounds.txt. Choisissez son éditeur de niveaux dans les "
                    "paramètres pour les récupérer :\n") +
                file;
    }
    m_what->setText(inLanguage(what, m_language));
}

void FmRecover::fill(const FoundRecovery& found)
{
    for (const RecoveredLine& line : m_lines) {
        m_list->addItem(nameOf(line));
    }
    if (const std::optional<UnacceptedValues>& values = found.content.values) {
        m_lines.push_back({values->number, {}, values->line});
        m_list->addItem(nameOf(m_lines.back()) +
                        inLanguage({"  (values not accepted)", "  (valeurs non acceptées)"}, m_language));
    }
    m_list->setCurrentRow(0);
}

void FmRecover::showLines()
{
    const int row = m_list->currentRow();
    if (row < 0) {
        m_texts->clear();
        return;
    }
    const RecoveredLine& line = m_lines[static_cast<std::size_t>(row)];
    QStringList texts;
    for (const std::string* const text : {&line.before, &line.after}) {
        if (!text->empty()) {
            texts += fromCodePage(*text);
        }
    }
    m_texts->setPlainText(texts.join('\n'));
}

void FmRecover::choose(Choice choice)
{
    m_choice = choice;
    accept();
}

FmMissed::FmMissed(QWidget* parent, const std::vector<RecoveredLine>& lines, const ColourScheme& colours,
                   Language language)
    : TitledWindow(parent)
{
    setObjectName("FmMissed");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    auto* const what = named(new QLabel, "LbWhat");
    what->setWordWrap(true);
    auto* const texts = makeTextView("TxMissed");
    auto* const copy = makeButton("CdCopy", Glyph::CopyLine);
    auto* const close = makeButton("CdClose", Glyph::Close);
    paintWith(*texts, colours.slots[colourSlot]);
    auto* const buttons = rowOf({copy, close});
    buttons->insertStretch(1, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(what);
    content().addWidget(texts, 1);
    content().addLayout(buttons);
    const Caption captions[] = {
        {"LbWhat",
         {"sounds.txt has changed since, and these lines were not found in it. Copy them to keep them.",
          "sounds.txt a changé depuis et ces lignes n'y ont pas été trouvées. Copiez-les pour les conserver."},
         {}},
        {"TxMissed", {}, {"The lines as they were left", "Les lignes telles qu'elles ont été laissées"}},
        {"CdCopy",
         {"Copy", "Copier"},
         {"Copy the lines to the clipboard", "Copier les lignes dans le presse papiers"}},
        {"CdClose", {"Close", "Fermer"}, {"Close", "Fermer"}},
    };
    showCaptions(*this, captions, language);
    setWindowTitle(inLanguage(titles::recovery, language));
    QStringList text;
    for (const RecoveredLine& line : lines) {
        text += fromCodePage(line.after.empty() ? line.before : line.after);
    }
    texts->setPlainText(text.join("\n"));
    connect(copy, &QPushButton::clicked, this,
            [texts] { QApplication::clipboard()->setText(texts->toPlainText()); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    resize(720, 360);
}

} // namespace tavrel
