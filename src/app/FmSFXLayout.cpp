// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmSFXControls.h"
#include "ui/Controls.h"
#include "ui/FoldingPanel.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSizeGrip>

namespace tavrel {

namespace {

constexpr int gap = controlGap;
constexpr int functionColumnWidth = 316;
constexpr int listColumnWidth = 250;
constexpr int tabStop = 8;

// With its caption, in a column of such buttons.
QPushButton* makeRowButton(const char* name, Glyph glyph)
{
    QPushButton* const button = makeButton(name, glyph);
    button->setProperty("row", true);
    return button;
}

// A line of sounds.txt as it stands, TABs at the level editor's stops.
QPlainTextEdit* makeLineView(const char* name)
{
    auto* const view = named(new QPlainTextEdit, name);
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const QFont font = fixedPitchFont();
    view->setFont(font);
    const QFontMetricsF metrics(font);
    view->setTabStopDistance(tabStop * metrics.horizontalAdvance(' '));
    view->document()->setDocumentMargin(3);
    constexpr int frame = 8;
    view->setFixedHeight(static_cast<int>(metrics.lineSpacing()) + frame);
    return view;
}

QVBoxLayout* makeColumn()
{
    auto* const column = new QVBoxLayout;
    column->setSpacing(gap);
    return column;
}

FoldingPanel* addPanel(FmSFXControls& controls, Panel which, const char* titleName, QBoxLayout& column,
                       int stretch = 0)
{
    auto* const panel = new FoldingPanel(titleName, nullptr);
    controls.panels[static_cast<std::size_t>(which)] = panel;
    column.addWidget(panel, stretch);
    return panel;
}

void addTitleControls(FmSFXControls& c, QHBoxLayout& row)
{
    c.OpLangE = named(new QRadioButton, "OpLangE");
    c.OpLangF = named(new QRadioButton, "OpLangF");
    c.CdHlp = makeButton("CdHlp", Glyph::Help);
    c.CdParam = makeButton("CdParam", Glyph::Parameters);
    c.CdQuit = makeButton("CdQuit", Glyph::Quit);
    row.setSpacing(gap);
    for (QRadioButton* const option : {c.OpLangE, c.OpLangF}) {
        row.addWidget(option);
    }
    for (QPushButton* const button : {c.CdHlp, c.CdParam, c.CdQuit}) {
        button->setProperty("frameless", true);
        row.addWidget(button);
    }
    row.addSpacing(gap);
}

void addFunctionPanels(FmSFXControls& c, QVBoxLayout& column)
{
    struct Function
    {
        Panel panel;
        QPushButton* FmSFXControls::*button;
        const char* name;
        Glyph glyph;
    };
    static const Function functions[] = {
        {Panel::WadFunctions, &FmSFXControls::CdCopy, "CdCopy", Glyph::Generate},
        {Panel::WadFunctions, &FmSFXControls::CdLoadSAM, "CdLoadSAM", Glyph::ImportSam},
        {Panel::WadFunctions, &FmSFXControls::CdLoadWAS, "CdLoadWAS", Glyph::ImportWas},
        {Panel::WadFunctions, &FmSFXControls::CdViewWAD, "CdViewWAD", Glyph::ViewWad},
        {Panel::WadFunctions, &FmSFXControls::CdRefW, "CdRefW", Glyph::Register},
        {Panel::ProgramFunctions, &FmSFXControls::CdStats, "CdStats", Glyph::Statistics},
        {Panel::ProgramFunctions, &FmSFXControls::CdSmpCheck, "CdSmpCheck", Glyph::CheckSamples},
        {Panel::ProgramFunctions, &FmSFXControls::CdImport, "CdImport", Glyph::ImportBackup},
        {Panel::ProgramFunctions, &FmSFXControls::CdExport, "CdExport", Glyph::ExportBackup},
        {Panel::Modifications, &FmSFXControls::CdValidW, "CdValidW", Glyph::Accept},
        {Panel::Modifications, &FmSFXControls::CdRestore, "CdRestore", Glyph::RestoreLine},
        {Panel::Modifications, &FmSFXControls::CdApply, "CdApply", Glyph::Apply},
        {Panel::Modifications, &FmSFXControls::CdCopyLine, "CdCopyLine", Glyph::CopyLine},
        {Panel::EditFunctions, &FmSFXControls::CdEdit, "CdEdit", Glyph::OpenFile},
        {Panel::EditFunctions, &FmSFXControls::CdShowG, "CdShowG", Glyph::ShowGlobals},
    };
    addPanel(c, Panel::WadFunctions, "ImPanelW", column);
    addPanel(c, Panel::ProgramFunctions, "ImPanelP", column);
    addPanel(c, Panel::Modifications, "ImPanelM", column);
    addPanel(c, Panel::EditFunctions, "ImPanelE", column);
    for (const Function& function : functions) {
        QPushButton* const button = makeRowButton(function.name, function.glyph);
        c.*function.button = button;
        c.panel(function.panel)->content().addWidget(button);
    }
    column.addStretch(1);
}

void addSearch(FmSFXControls& c, QVBoxLayout& column)
{
    c.TxSearch = named(new QLineEdit, "TxSearch");
    c.TxSearch->setClearButtonEnabled(true);
    c.CdSearch = makeIconButton("CdSearch", Glyph::Search);
    c.OpDown = named(new QRadioButton, "OpDown");
    c.OpUp = named(new QRadioButton, "OpUp");
    c.OpDown->setChecked(true);
    c.CkCase = named(new QCheckBox, "CkCase");
    auto* const directions = rowOf({makeHeading("FrSearch"), c.OpDown, c.OpUp});
    directions->insertStretch(1, 1);
    column.addLayout(directions);
    column.addLayout(rowOf({c.TxSearch, c.CdSearch}));
    column.addWidget(c.CkCase);
}

void addSoundList(FmSFXControls& c, QVBoxLayout& column)
{
    c.LiSFX = named(new QListView, "LiSFX");
    c.LiSFX->setFont(fixedPitchFont());
    c.LiSFX->setUniformItemSizes(true);
    c.LiSFX->setEditTriggers(QAbstractItemView::NoEditTriggers);
    c.LiSFX->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    c.CdPlay2 = makeIconButton("CdPlay2", Glyph::Play);
    c.CdStopS2 = makeIconButton("CdStopS2", Glyph::Stop);
    auto* const head = rowOf({makeHeading("LbID"), c.CdPlay2, c.CdStopS2});
    head->insertStretch(1, 1);
    column.addSpacing(gap);
    column.addLayout(head);
    column.addWidget(c.LiSFX, 1);
}

void addLinePanel(FmSFXControls& c, QVBoxLayout& column)
{
    c.LbLine = named(new QLabel, "LbLine");
    c.TxLine = makeReadOnly("TxLine");
    c.TxLine->setFixedWidth(64);
    c.TxOrig = makeLineView("TxOrig");
    c.TxModif = makeLineView("TxModif");
    QObject::connect(c.TxModif->horizontalScrollBar(), &QScrollBar::valueChanged,
                     c.TxOrig->horizontalScrollBar(), &QScrollBar::setValue);
    QObject::connect(c.TxOrig->horizontalScrollBar(), &QScrollBar::valueChanged,
                     c.TxModif->horizontalScrollBar(), &QScrollBar::setValue);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(4);
    grid->addWidget(named(new QLabel, "LbOrig"), 0, 0);
    grid->addWidget(c.TxOrig, 0, 1);
    grid->addWidget(named(new QLabel, "LbModif"), 1, 0);
    grid->addWidget(c.TxModif, 1, 1);
    auto* const number = rowOf({c.LbLine, c.TxLine});
    number->addStretch(1);
    FoldingPanel* const panel = addPanel(c, Panel::Line, "ImPanelL", column);
    panel->content().addLayout(number);
    panel->content().addLayout(grid);
}

// Not a folding panel: the values are what the window is for.
QWidget* makeValues(FmSFXControls& c)
{
    static constexpr const char* boxNames[] = {"TxVOL", "TxPIT", "TxRAD", "TxCH"};
    static constexpr const char* labelNames[] = {"LbVOL", "LbPIT", "LbRAD", "LbCH"};
    static constexpr const char* flagNames[] = {"CkP", "CkV", "CkR", "CkN", "CkL"};
    auto* const values = new QWidget;
    auto* const layout = new QVBoxLayout(values);
    layout->setContentsMargins(gap, 0, gap, gap);
    layout->setSpacing(gap);
    layout->addWidget(makeHeading("LbValues"));
    auto* const boxes = new QHBoxLayout;
    boxes->setSpacing(gap);
    for (std::size_t i = 0; i < valueBoxCount; ++i) {
        auto* const box = named(new QLineEdit, boxNames[i]);
        box->setFixedWidth(44);
        box->setFont(fixedPitchFont());
        box->setMaxLength(static_cast<int>(maximumLength(static_cast<ValueBox>(i))));
        c.values[i] = box;
        auto* const label = named(new QLabel, labelNames[i]);
        label->setBuddy(box);
        boxes->addWidget(label);
        boxes->addWidget(box);
        boxes->addStretch(1);
    }
    layout->addLayout(boxes);
    auto* const flags = new QHBoxLayout;
    flags->setSpacing(gap);
    for (std::size_t i = 0; i < lineFlagCount; ++i) {
        c.flags[i] = named(new QCheckBox(QString(flagNames[i]).mid(2)), flagNames[i]);
        flags->addWidget(c.flags[i]);
        flags->addStretch(1);
    }
    layout->addLayout(flags);
    return values;
}

void addSamplesPanel(FmSFXControls& c, QVBoxLayout& column)
{
    c.LiSamp = makeFixedPitchList("LiSamp");
    c.TxSamp = named(new QLineEdit, "TxSamp");
    c.CdPlay = makeIconButton("CdPlay", Glyph::Play);
    c.CdStopS = makeIconButton("CdStopS", Glyph::Stop);
    c.CdAddSmp = makeIconButton("CdAddSmp", Glyph::AddItem);
    c.CdRename = makeIconButton("CdRename", Glyph::Rename);
    c.CdDelSmp = makeIconButton("CdDelSmp", Glyph::RemoveItem);
    c.CdChSamp = makeIconButton("CdChSamp", Glyph::ChooseFile);
    FoldingPanel* const panel = addPanel(c, Panel::Samples, "ImPanelS", column, 1);
    auto* const head = rowOf({makeHeading("LbNames"), c.CdPlay, c.CdStopS});
    head->insertStretch(1, 1);
    panel->content().addLayout(head);
    panel->content().addWidget(c.LiSamp, 1);
    panel->content().addLayout(
        rowOf({named(new QLabel, "LbName"), c.TxSamp, c.CdAddSmp, c.CdRename, c.CdDelSmp, c.CdChSamp}));
}

void addWadsPanel(FmSFXControls& c, QVBoxLayout& column)
{
    c.LiWAD = makeFixedPitchList("LiWAD");
    FoldingPanel* const panel = addPanel(c, Panel::Wads, "ImPanelD", column, 1);
    panel->content().addWidget(makeHeading("LbWADs"));
    panel->content().addWidget(c.LiWAD, 1);
}

void addCurrentWad(FmSFXControls& c, QVBoxLayout& column)
{
    c.CbTWad = makeComboBox("CbTWad");
    c.TxWAD = makeReadOnly("TxWAD");
    c.TxLett = makeReadOnly("TxLett");
    c.TxTitre = makeReadOnly("TxTitre");
    c.TxLett->setFixedWidth(44);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(gap);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    grid->addWidget(c.CbTWad, 0, 0, 1, 4);
    grid->addWidget(named(new QLabel, "LbWAD"), 1, 0);
    grid->addWidget(c.TxWAD, 1, 1);
    grid->addWidget(named(new QLabel, "LbLett"), 1, 2);
    grid->addWidget(c.TxLett, 1, 3);
    grid->addWidget(named(new QLabel, "LbTitre"), 2, 0);
    grid->addWidget(c.TxTitre, 2, 1, 1, 3);
    c.PnWad = named(new QWidget, "PnWad");
    c.PnWad->setAttribute(Qt::WA_StyledBackground);
    grid->setContentsMargins(gap, gap, gap, gap);
    c.PnWad->setLayout(grid);
    column.addWidget(c.PnWad);
}

void addLettersPanel(FmSFXControls& c, QVBoxLayout& column)
{
    c.CdAddWAD = makeIconButton("CdAddWAD", Glyph::AddItem);
    c.CdDel = makeIconButton("CdDel", Glyph::RemoveItem);
    c.CdErase = makeIconButton("CdErase", Glyph::EraseLetter);
    c.TxReplacL = named(new QLineEdit, "TxReplacL");
    c.TxReplacL->setFixedWidth(44);
    c.CdReplacL = makeIconButton("CdReplacL", Glyph::ReplaceLetter);
    c.TxObj = makeReadOnly("TxObj");
    c.CdObj = makeIconButton("CdObj", Glyph::ObjectSelection);
    c.CdEffObj = makeIconButton("CdEffObj", Glyph::EraseText);
    c.OpWAD = {named(new QRadioButton, "OpWAD0"), named(new QRadioButton, "OpWAD1")};
    c.OpWAD[0]->setChecked(true);

    FoldingPanel* const panel = addPanel(c, Panel::LettersObjects, "ImPanelO", column);
    addCurrentWad(c, panel->content());
    auto* const letters = rowOf({makeHeading("FrLetters"), c.CdAddWAD, c.CdDel, c.CdErase});
    letters->insertStretch(1, 1);
    panel->content().addLayout(letters);
    auto* const replacing = rowOf({named(new QLabel, "LbReplacL"), c.TxReplacL, c.CdReplacL});
    replacing->insertStretch(1, 1);
    panel->content().addLayout(replacing);
    panel->content().addLayout(rowOf({named(new QLabel, "LbObj"), c.TxObj, c.CdObj, c.CdEffObj}));
    auto* const modes = rowOf({c.OpWAD[0], c.OpWAD[1]});
    modes->addStretch(1);
    panel->content().addLayout(modes);
}

QHBoxLayout* makeLineColumns(FmSFXControls& c)
{
    auto* const samplesColumn = makeColumn();
    samplesColumn->addWidget(makeValues(c));
    addSamplesPanel(c, *samplesColumn);
    samplesColumn->addStretch(0);
    auto* const wadsColumn = makeColumn();
    addWadsPanel(c, *wadsColumn);
    addLettersPanel(c, *wadsColumn);
    wadsColumn->addStretch(0);
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(2 * gap);
    columns->addLayout(samplesColumn, 1);
    columns->addLayout(wadsColumn, 1);
    return columns;
}

void addStatusRow(FmSFXControls& c, QVBoxLayout& content, QWidget& window)
{
    c.LbInfo = makeElidedLabel("LbInfo");
    c.LbPending = makeHeading("LbPending");
    c.LbPath = makeElidedLabel("LbPath");
    c.LbPath->setProperty("muted", true);
    c.PbBusy = named(new QProgressBar, "PbBusy");
    c.PbBusy->setTextVisible(false);
    c.PbBusy->setFixedSize(140, 14);
    c.PbBusy->hide();
    auto* const row = rowOf({c.LbPath, c.LbInfo, c.PbBusy, c.LbPending});
    row->setStretch(0, 1);
    row->setStretch(1, 1);
    row->addWidget(new QSizeGrip(&window), 0, Qt::AlignBottom);
    content.addLayout(row);
}

QWidget* fixedWidthColumn(QVBoxLayout* column, int width)
{
    auto* const holder = new QWidget;
    holder->setFixedWidth(width);
    column->setContentsMargins(0, 0, 0, 0);
    holder->setLayout(column);
    return holder;
}

} // namespace

FmSFXControls layOutMainWindow(QWidget& window, QHBoxLayout& titleRow, QVBoxLayout& content)
{
    FmSFXControls controls;
    addTitleControls(controls, titleRow);

    auto* const functions = makeColumn();
    addFunctionPanels(controls, *functions);
    auto* const sounds = makeColumn();
    addSearch(controls, *sounds);
    addSoundList(controls, *sounds);

    auto* const sound = new QHBoxLayout;
    sound->setSpacing(2 * gap);
    sound->addWidget(fixedWidthColumn(sounds, listColumnWidth));
    sound->addLayout(makeLineColumns(controls), 1);
    // The line runs below list and values, for it is long.
    auto* const work = makeColumn();
    work->addLayout(sound, 1);
    addLinePanel(controls, *work);

    auto* const columns = new QHBoxLayout;
    columns->setSpacing(2 * gap);
    columns->addWidget(fixedWidthColumn(functions, functionColumnWidth));
    columns->addLayout(work, 1);

    content.setContentsMargins(2 * gap, gap, 2 * gap, gap);
    content.setSpacing(gap);
    content.addLayout(columns, 1);
    addStatusRow(controls, content, window);

    // Radio buttons are exclusive among all of one parent; these are three separate choices.
    const auto group = [&window](std::initializer_list<QRadioButton*> options) {
        auto* const buttons = new QButtonGroup(&window);
        for (QRadioButton* const option : options) {
            buttons->addButton(option);
        }
    };
    group({controls.OpLangE, controls.OpLangF});
    group({controls.OpDown, controls.OpUp});
    group({controls.OpWAD[0], controls.OpWAD[1]});
    return controls;
}

} // namespace tavrel
