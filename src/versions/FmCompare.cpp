// SPDX-License-Identifier: GPL-3.0-or-later
#include "versions/FmCompare.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "ui/BusyPointer.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "versions/CatalogueMerge.h"
#include "versions/DifferenceView.h"
#include "versions/VersionCommands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

const DifferenceSides sides{
    {"Here", "Ici"}, {"There", "Là-bas"}, {"missing here", "absent ici"}, {"missing there", "absent là-bas"}};

// The entry of the chooser that is no kept file.
constexpr int installedSource = 0;

} // namespace

FmCompare::FmCompare(QWidget* parent, const VersionsContext& context,
                     const std::optional<std::filesystem::path>& file)
    : TitledWindow(parent), m_context(context), m_source(makeComboBox("CbSource")),
      m_chooseFile(makeButton("CdFile", Glyph::ChooseFile)), m_path(makeElidedLabel("LbOther")),
      m_threeWays(named(new QCheckBox, "CkThreeWays")), m_shift(makePaperLabel("LbShift")),
      m_view(new DifferenceView(sides, context.colours.slots[versionsColourSlot], context.language)),
      m_tickAll(makeButton("CdSelect", Glyph::Accept)), m_untickAll(makeButton("CdEfface", Glyph::EraseText)),
      m_wholeLine(named(new QRadioButton, "OpWhole")), m_onlyParts(named(new QRadioButton, "OpParts")),
      m_values(named(new QCheckBox, "CkTakeValues")), m_samples(named(new QCheckBox, "CkTakeSamples")),
      m_letters(named(new QCheckBox, "CkTakeLetters")), m_letterMap(named(new QLineEdit, "TxLetterMap")),
      m_take(makeButton("CdTake", Glyph::ImportBackup))
{
    setObjectName("FmCompare");
    setWindowModality(Qt::ApplicationModal);
    setSizeGripEnabled(true);
    m_view->useTicks();
    m_wholeLine->setChecked(true);
    m_values->setChecked(true);
    m_letterMap->setValidator(new CodePageValidator(m_letterMap));
    layOut();
    showCaptions();
    fillSources();
    connectControls();
    if (file) {
        openFile(*file);
        m_view->setFocus();
    } else {
        showNothing();
        m_source->setFocus();
    }
}

QString FmCompare::inLanguage(const BilingualText& text) const
{
    return tavrel::inLanguage(text, m_context.language);
}

QWidget* FmCompare::makeParts()
{
    constexpr int mapWidth = 170;
    auto* const panel = new QWidget;
    auto* const column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    auto* const what =
        rowOf({named(new QLabel, "LbTake"), m_wholeLine, m_onlyParts, m_values, m_samples, m_letters});
    what->addStretch(1);
    column->addLayout(what);
    m_letterMap->setFixedWidth(mapWidth);
    auto* const hint = named(new QLabel, "LbMapHint");
    hint->setProperty("muted", true);
    auto* const map = rowOf({named(new QLabel, "LbMap"), m_letterMap, hint});
    map->addStretch(1);
    column->addLayout(map);
    return panel;
}

void FmCompare::layOut()
{
    constexpr int margin = 2 * controlGap;
    auto* const source = rowOf({named(new QLabel, "LbSource"), m_source, m_chooseFile, m_path});
    source->setStretch(3, 1);
    auto* const who = rowOf({m_threeWays, m_shift});
    who->setStretch(1, 1);
    auto* const buttons = rowOf({m_tickAll, m_untickAll, m_take, makeButton("CdStop", Glyph::Close)});
    buttons->insertStretch(2, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addLayout(source);
    content().addLayout(who);
    content().addWidget(m_view, 1);
    content().addWidget(makeParts());
    content().addLayout(buttons);
    resize(1040, 680);
}

void FmCompare::showCaptions()
{
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"LbSource", {"Compare with", "Comparer avec"}, {}},
        {"CbSource",
         {},
         {"The installed catalogue, or what was kept of this one",
          "Le catalogue installé, ou ce qui a été conservé de celui-ci"}},
        {"CdFile",
         {"Another file...", "Un autre fichier..."},
         {"Any sounds.txt, exchange file or backup",
          "Un sounds.txt quelconque, un fichier d'échange ou une sauvegarde"}},
        {"CkThreeWays",
         {"Who changed it", "Qui l'a modifié"},
         {"Compare both with the installed catalogue, and tick what was changed only there",
          "Comparer les deux avec le catalogue installé, et cocher ce qui n'a été modifié que là-bas"}},
        {"LbTake", {"Take over", "Reprendre"}, {}},
        {"OpWhole",
         {"the whole line", "toute la ligne"},
         {"The ticked lines become those of the other side",
          "Les lignes cochées deviennent celles de l'autre côté"}},
        {"OpParts",
         {"only", "seulement"},
         {"Only these parts of the ticked lines are taken over",
          "Seules ces parties des lignes cochées sont reprises"}},
        {"CkTakeValues",
         {"values and flags", "valeurs et flags"},
         {"VOL, PIT, RAD, CH, P, V, R, N, L", "VOL, PIT, RAD, CH, P, V, R, N, L"}},
        {"CkTakeSamples", {"samples", "samples"}, {"The names of the samples", "Les noms des samples"}},
        {"CkTakeLetters",
         {"letters", "lettres"},
         {"#g and the letters of levels", "#g et les lettres des niveaux"}},
        {"LbMap", {"Letters become", "Lettres à changer"}, {}},
        {"TxLetterMap",
         {},
         {"Their letter, \"=\" and yours; several with commas between them",
          "Leur lettre, « = » et la vôtre ; plusieurs, séparées par des virgules"}},
        {"LbMapHint", {"ab=oa, cd=kx: their #ab is your #oa", "ab=oa, cd=kx : leur #ab est votre #oa"}, {}},
        {"CdSelect",
         {"Tick all shown", "Cocher tout ce qui est affiché"},
         {"Tick every line that the filters show", "Cocher chaque ligne que les filtres montrent"}},
        {"CdEfface",
         {"Untick all shown", "Décocher tout ce qui est affiché"},
         {"Untick every line that the filters show", "Décocher chaque ligne que les filtres montrent"}},
        {"CdTake",
         {"Take over", "Reprendre"},
         {"The ticked lines; nothing is written before you apply the changes",
          "Les lignes cochées ; rien n'est écrit avant d'appliquer les modifications"}},
        {"CdStop", close, close},
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::compare));
}

void FmCompare::fillSources()
{
    m_source->addItem(inLanguage({"The installed catalogue", "Le catalogue installé"}));
    const Result<std::vector<KeptVersion>> kept = listKeptVersions(m_context.places);
    for (const KeptVersion& version : kept ? *kept : std::vector<KeptVersion>()) {
        if (!version.isSet()) {
            m_source->addItem(QString::fromStdString(version.time) + "  " + inLanguage(describe(version)));
            m_kept.push_back(version.path);
        }
    }
    m_source->setCurrentIndex(-1);
    m_source->setPlaceholderText(inLanguage({"(choose)", "(choisir)"}));
    constexpr int widest = 48;
    m_source->setMinimumContentsLength(widest);
    m_source->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void FmCompare::connectControls()
{
    connect(m_source, &QComboBox::activated, this, &FmCompare::chooseSource);
    connect(m_chooseFile, &QPushButton::clicked, this, &FmCompare::chooseFile);
    connect(m_threeWays, &QCheckBox::toggled, this, &FmCompare::compare);
    connect(m_view, &DifferenceView::ticksChanged, this, &FmCompare::showPossibilities);
    connect(m_view, &DifferenceView::chosen, this, [this](std::size_t row) {
        const std::optional<std::size_t> number = m_view->rows()[row].number;
        if (number && m_context.showSound) {
            m_context.showSound(*number);
        }
    });
    connect(m_tickAll, &QPushButton::clicked, this, [this] { m_view->tickShown(true); });
    connect(m_untickAll, &QPushButton::clicked, this, [this] { m_view->tickShown(false); });
    connect(m_wholeLine, &QRadioButton::toggled, this, &FmCompare::showPossibilities);
    for (QCheckBox* const part : {m_values, m_samples, m_letters}) {
        connect(part, &QCheckBox::toggled, this, &FmCompare::showPossibilities);
    }
    connect(m_take, &QPushButton::clicked, this, &FmCompare::takeOver);
    connect(findChild<QPushButton*>("CdStop"), &QPushButton::clicked, this, &QDialog::reject);
}

void FmCompare::chooseSource(int index)
{
    if (index != installedSource) {
        openFile(m_kept[static_cast<std::size_t>(index - installedSource - 1)]);
        return;
    }
    OtherCatalogue installed;
    for (std::size_t number = 0; number < m_context.catalogue.size(); ++number) {
        installed.lines.push_back(m_context.catalogue.originalLine(number));
        installed.numbers.push_back(number);
    }
    m_other = std::move(installed);
    m_path->clear();
    compare();
}

void FmCompare::chooseFile()
{
    const std::optional<std::filesystem::path> file =
        m_context.dialogs.chooseFile({titles::chooseComparedFile,
                                      {"Catalogues, exchange files, backups (*.txt,*.tox,*.tob)",
                                       "Catalogues, fichiers d'échange, sauvegardes (*.txt,*.tox,*.tob)"},
                                      {"*.txt", "*.tox", "*.tob"},
                                      m_context.places.soundsFile.parent_path()});
    if (file) {
        m_source->setCurrentIndex(-1);
        openFile(*file);
    }
}

void FmCompare::openFile(const std::filesystem::path& file)
{
    Result<OtherCatalogue> read = readOtherCatalogue(file);
    if (!read) {
        showNothing();
        m_context.dialogs.show({MessageIcon::Exclamation, titles::compare, read.failure().text});
        return;
    }
    m_other = std::move(*read);
    m_path->setText(QString::fromStdString(displayPath(m_other->file)));
    compare();
}

void FmCompare::showNothing()
{
    m_other.reset();
    m_path->clear();
    compare();
}

void FmCompare::tellWho(DifferenceRow& row) const
{
    switch (outcomeOf(m_context.catalogue.originalLine(*row.number), *row.before, *row.after)) {
    case MergeOutcome::Mine:
        row.remark = {"changed here", "modifié ici"};
        break;
    case MergeOutcome::Theirs:
        row.remark = {"changed there", "modifié là-bas"};
        row.ticked = row.tickable;
        break;
    default:
        row.remark = {"changed on both sides", "modifié des deux côtés"};
    }
}

std::vector<DifferenceRow> FmCompare::rowsOf(const CatalogueComparison& comparison) const
{
    std::vector<DifferenceRow> rows;
    const bool threeWays = m_threeWays->isEnabled() && m_threeWays->isChecked();
    for (const SoundDifference& difference : comparison.differences) {
        const auto& [mine, theirs] = difference.sound;
        DifferenceRow row;
        row.number = mine;
        if (mine) {
            row.before = m_context.catalogue.currentLine(*mine);
        }
        if (theirs) {
            row.after = m_other->lines[*theirs];
            const std::size_t number = m_other->numbers[*theirs];
            row.otherNumber = mine == number ? std::nullopt : std::optional(number);
        }
        row.tickable = mine && theirs && !m_context.catalogue.isProtected(*mine);
        if (threeWays && mine && theirs) {
            tellWho(row);
        }
        if (mine && m_context.catalogue.isProtected(*mine)) {
            row.remark += row.remark.empty() ? "" : ", ";
            row.remark += BilingualText("protected", "protégé");
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

void FmCompare::compare()
{
    const BusyPointer busy;
    // With the installed catalogue on the other side there are two sides alone.
    m_threeWays->setEnabled(m_other && !m_other->file.empty());
    m_differences.clear();
    BilingualText said("Choose what to compare with.", "Choisissez avec quoi comparer.");
    std::vector<DifferenceRow> rows;
    if (m_other) {
        CatalogueComparison comparison = compareCatalogues(currentLinesOf(m_context.catalogue), *m_other);
        rows = rowsOf(comparison);
        said = !rows.empty() ? shiftText(comparison.pairing)
                             : BilingualText("No sound differs.", "Aucun son ne diffère.");
        m_differences = std::move(comparison.differences);
    }
    m_view->setRows(std::move(rows));
    setPaperText(*m_shift, inLanguage(said));
    m_shift->setVisible(!said.empty());
    showPossibilities();
}

void FmCompare::showPossibilities()
{
    const bool whole = m_wholeLine->isChecked();
    for (QCheckBox* const part : {m_values, m_samples, m_letters}) {
        part->setEnabled(!whole);
    }
    m_letterMap->setEnabled(whole || m_letters->isChecked());
    const bool anyPart = m_values->isChecked() || m_samples->isChecked() || m_letters->isChecked();
    m_take->setEnabled((whole || anyPart) && !m_view->tickedRows().empty());
    m_tickAll->setEnabled(m_view->shownRows() > 0);
    m_untickAll->setEnabled(m_view->shownRows() > 0);
}

// Shows a message, and returns no map, for a text that maps no letters.
std::optional<TakenParts> FmCompare::parts()
{
    Result<LetterMap> map =
        m_letterMap->isEnabled() ? parseLetterMap(toCodePage(m_letterMap->text())) : LetterMap();
    if (!map) {
        m_context.dialogs.show({MessageIcon::Exclamation, titles::compare, map.failure().text});
        m_letterMap->setFocus();
        return std::nullopt;
    }
    return TakenParts{m_wholeLine->isChecked(), m_values->isChecked(), m_samples->isChecked(),
                      m_letters->isChecked(), std::move(*map)};
}

void FmCompare::takeOver()
{
    const std::optional<TakenParts> taken = parts();
    if (!taken) {
        return;
    }
    std::vector<TakenLine> lines;
    for (const std::size_t row : m_view->tickedRows()) {
        const auto& [mine, theirs] = m_differences[row].sound;
        lines.push_back({*mine, m_other->lines[*theirs]});
    }
    const TakeRequest request{m_context.catalogue, lines, *taken, m_context.places.samplesFolder,
                              m_other->samplesFolder};
    std::optional<AgreedTake> agreed = confirmTaking(request, m_context.dialogs);
    if (!agreed) {
        return;
    }
    BilingualText step = BilingualText("Take over ", "Reprise de ") + countedLines(agreed->changes.size());
    if (!agreed->samples.empty()) {
        step += BilingualText("; copied samples stay", " ; les samples copiés restent");
    }
    if (!m_context.change(std::move(agreed->changes), step)) {
        return;
    }
    m_tookOver = true;
    std::optional<Message> report;
    if (!agreed->samples.empty()) {
        const BusyPointer busy;
        SilentProgress progress;
        report = copyMissingSamples(agreed->samples, *m_other->samplesFolder, m_context.places.samplesFolder,
                                    progress);
    }
    compare();
    if (report) {
        m_context.dialogs.show(*report);
    }
}

} // namespace tavrel
