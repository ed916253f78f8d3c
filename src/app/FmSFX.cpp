// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmSFX.h"

#include "app/SoundListDelegate.h"
#include "app/SoundListModel.h"
#include "app/StatusProgress.h"
#include "base/Titles.h"
#include "catalogue/ApplyChanges.h"
#include "ui/Colours.h"
#include "ui/FoldingPanel.h"
#include "ui/Text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyle>
#include <QTimer>

namespace tavrel {

namespace {

constexpr QSize usualSize(1272, 712);

constexpr std::array<ValueBox, valueBoxCount> allValueBoxes = {ValueBox::Vol, ValueBox::Pit, ValueBox::Rad,
                                                               ValueBox::Ch};
constexpr std::array<LineFlag, lineFlagCount> allLineFlags = {LineFlag::P, LineFlag::V, LineFlag::R,
                                                              LineFlag::N, LineFlag::L};

// A look that the style sheet knows by this name.
void drawAttention(QPushButton& button, bool wanted)
{
    if (button.property("attention").toBool() != wanted) {
        button.setProperty("attention", wanted);
        button.style()->unpolish(&button);
        button.style()->polish(&button);
    }
}

class Flagged
{
public:
    explicit Flagged(bool& flag) : m_flag(flag), m_before(flag) { m_flag = true; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;
    ~Flagged() { m_flag = m_before; }

private:
    bool& m_flag;
    bool m_before;
};

} // namespace

FmSFX::FmSFX(FmSFXContext context, const StartedSession& session)
    : m_context(std::move(context)), m_settings(session.settings), m_settingsDamaged(session.settingsDamaged),
      m_paths(derivePaths(m_settings.LevelEditorFolder)), m_generation(m_context.batches, m_context.dialogs),
      m_editor(m_catalogue), m_sounds(new SoundListModel(m_catalogue, this)),
      m_controls(layOutMainWindow(*this, titleRow(), content()))
{
    setObjectName("FmSFX");
    m_controls.LiSFX->setModel(m_sounds);
    m_controls.LiSFX->setItemDelegate(new SoundListDelegate(this));
    m_controls.LbPath->setText(fromCodePage(m_settings.LevelEditorFolder));
    connectControls();
    connectLineControls();
    showPanels();
    applyMainColours();
    showLanguage();
    m_leaving.setSingleShot(true);
    m_refusing.setSingleShot(true);
    connect(&m_leaving, &QTimer::timeout, this, &FmSFX::leaveForCurrentRow);
    connect(&m_refusing, &QTimer::timeout, this, &FmSFX::sayWhatIsRefused);
    selectLine(std::nullopt);
    resize(usualSize);
}

void FmSFX::connectControls()
{
    const FmSFXControls& c = m_controls;
    const auto onClick = [this](QPushButton* button, void (FmSFX::*command)()) {
        connect(button, &QPushButton::clicked, this, command);
    };
    onClick(c.CdValidW, &FmSFX::acceptValues);
    onClick(c.CdRestore, &FmSFX::restoreSelectedLine);
    onClick(c.CdApply, &FmSFX::apply);
    onClick(c.CdCopyLine, &FmSFX::copyLine);
    onClick(c.CdEdit, &FmSFX::editSounds);
    onClick(c.CdParam, &FmSFX::openPreferences);
    onClick(c.CdHlp, &FmSFX::showHelp);
    onClick(c.CdShowG, &FmSFX::showOrHideGlobals);
    onClick(c.CdSearch, &FmSFX::search);
    connect(c.CdQuit, &QPushButton::clicked, this, &QWidget::close);
    connect(c.TxSearch, &QLineEdit::returnPressed, this, &FmSFX::search);
    connect(c.LiSFX->selectionModel(), &QItemSelectionModel::currentChanged, this, &FmSFX::currentRowChanged);
    connect(c.LiSFX->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        // Ctrl and a click would take the mark off the line that is still shown.
        QItemSelectionModel& selection = *m_controls.LiSFX->selectionModel();
        if (!selection.hasSelection() && selection.currentIndex().isValid()) {
            selection.select(selection.currentIndex(), QItemSelectionModel::Select);
        }
    });
    connect(c.OpLangF, &QRadioButton::toggled, this,
            [this](bool french) { switchLanguage(french ? Language::French : Language::English); });
    connectLetterControls();
    connectImportControls();
    connectGenerationControls();
    connectExchangeControls();
    for (std::size_t i = 0; i < panelCount; ++i) {
        connect(c.panels[i], &FoldingPanel::openChanged, this,
                [this, i](bool open) { m_settings.panels[i] = open; });
    }
    addShortcut(QKeySequence(Qt::Key_F3), *c.CdSearch);
    addShortcut(QKeySequence::Save, *c.CdApply);
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), *c.CdValidW);
    addShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), *c.CdQuit);
    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        m_controls.TxSearch->setFocus(Qt::ShortcutFocusReason);
        m_controls.TxSearch->selectAll();
    });
}

void FmSFX::addShortcut(const QKeySequence& keys, QPushButton& button)
{
    auto* const shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, &button, &QPushButton::click);
}

void FmSFX::connectLineControls()
{
    for (const ValueBox box : allValueBoxes) {
        QLineEdit* const edit = m_controls.value(box);
        connect(edit, &QLineEdit::textChanged, this, [this, box] { valueChanged(box); });
        connect(edit, &QLineEdit::returnPressed, this, &FmSFX::acceptValues);
    }
    connect(m_controls.value(ValueBox::Pit), &QLineEdit::editingFinished, this, &FmSFX::pitchLeft);
    for (const LineFlag flag : allLineFlags) {
        connect(m_controls.flag(flag), &QCheckBox::toggled, this,
                [this, flag](bool on) { flagChanged(flag, on); });
    }
    connectSampleControls();
}

void FmSFX::showLanguage()
{
    m_context.languageChanged(m_settings.language);
    const QSignalBlocker blocker(m_controls.OpLangF);
    (m_settings.language == Language::French ? m_controls.OpLangF : m_controls.OpLangE)->setChecked(true);
    showMainWindowCaptions(*this, m_settings.language);
    enableImports(); // their tool tips say more than their captions
    m_controls.CbTWad->setPlaceholderText(
        inLanguage({"Choose a WAD", "Choisissez un WAD"}, m_settings.language));
    showInfo(m_info);
    showPending();
    showTitle();
}

void FmSFX::showTitle()
{
    setWindowTitle(inLanguage(titles::mainWindow, m_settings.language) + m_controls.CbTWad->currentText());
}

void FmSFX::showInfo(const BilingualText& text)
{
    m_info = text;
    m_controls.LbInfo->setText(inLanguage(text, m_settings.language));
}

void FmSFX::reject()
{
    // Esc closes the secondary windows, never the program.
}

void FmSFX::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        showTitle();
    }
    TitledWindow::changeEvent(event);
}

// Selecting a line

void FmSFX::currentRowChanged()
{
    if (m_selecting) {
        return;
    }
    if (m_editor.edited()) {
        // The mouse button is still down in the list, or a key repeats: ask once, when that is done with.
        m_leaving.start();
        return;
    }
    selectLine(m_sounds->numberAt(m_controls.LiSFX->currentIndex()));
}

void FmSFX::leaveForCurrentRow()
{
    const std::optional<std::size_t> left = m_editor.selected();
    const auto wanted = [this] { return m_sounds->numberAt(m_controls.LiSFX->currentIndex()); };
    if (m_asking || wanted() == left) {
        return;
    }
    const Flagged asking(m_asking);
    const bool mayLeave = m_editor.mayLeave(m_context.dialogs);
    if (left) {
        m_sounds->refresh(*left);
    }
    if (mayLeave) {
        selectLine(wanted());
    } else {
        const Flagged selecting(m_selecting);
        m_controls.LiSFX->setCurrentIndex(left ? m_sounds->indexOf(*left) : QModelIndex());
        showSelectedLine();
    }
}

void FmSFX::selectFirstLine()
{
    const Flagged selecting(m_selecting);
    const QModelIndex first = m_sounds->index(0);
    m_controls.LiSFX->setCurrentIndex(first);
    m_controls.LiSFX->scrollToTop();
    selectLine(m_sounds->numberAt(first));
}

void FmSFX::selectLine(std::optional<std::size_t> number)
{
    m_editor.select(number);
    m_justAdded.clear();
    showInfo({});
    showSelectedLine();
    m_refusing.start();
}

// What the user may not do with the line that is selected by now.
void FmSFX::sayWhatIsRefused()
{
    const std::optional<std::size_t> number = m_editor.selected();
    if (m_asking || !number) {
        return;
    }
    const Flagged asking(m_asking);
    if (m_catalogue.isProtected(*number)) {
        m_context.dialogs.show(protectedLineRefusal());
    } else {
        warnAboutObject();
    }
}

void FmSFX::showSelectedLine()
{
    fillLineTexts();
    fillValues();
    fillFlags();
    fillSamples();
    fillLetters();
    enableLineControls(m_editor.canEdit()); // last: a box that loses the focus must hold this line's value
    showPending();
}

void FmSFX::enableLineControls(bool enable)
{
    const FmSFXControls& c = m_controls;
    for (QPushButton* const button : {c.CdAddWAD, c.CdDel, c.CdObj}) {
        button->setEnabled(enable);
    }
    enable = enable && m_object.empty();
    for (QWidget* const control : std::initializer_list<QWidget*>{
             c.CdValidW, c.CdRestore, c.CdCopyLine, c.TxSamp, c.CdAddSmp, c.CdDelSmp, c.CdChSamp}) {
        control->setEnabled(enable);
    }
    for (QLineEdit* const box : c.values) {
        box->setEnabled(enable);
    }
    for (QCheckBox* const box : c.flags) {
        box->setEnabled(enable);
    }
}

void FmSFX::fillLineTexts()
{
    const bool shown = m_editor.canEdit();
    const std::size_t number = m_editor.selected().value_or(0);
    m_controls.TxOrig->setPlainText(shown ? fromCodePage(m_catalogue.originalLine(number)) : QString());
    m_controls.TxModif->setPlainText(shown ? fromCodePage(m_catalogue.currentLine(number)) : QString());
    m_controls.TxModif->horizontalScrollBar()->setValue(0);
    m_controls.TxLine->setText(shown ? QString::number(m_catalogue.lineInFile(number)) : QString());
}

void FmSFX::fillValues()
{
    const Flagged filling(m_filling);
    for (const ValueBox box : allValueBoxes) {
        m_controls.value(box)->setText(fromCodePage(m_editor.boxText(box)));
    }
}

void FmSFX::fillFlags()
{
    const Flagged filling(m_filling);
    for (const LineFlag flag : allLineFlags) {
        m_controls.flag(flag)->setChecked(m_editor.hasFlag(flag));
    }
}

void FmSFX::fillSamples()
{
    const SoundLine& record = m_editor.record();
    QStringList names;
    for (std::size_t i = 0; i < record.sampleCount(); ++i) {
        names += fromCodePage(record.Samples[i]);
    }
    const auto shown = std::exchange(m_shownSamples, {m_editor.selected(), names});
    if (shown == m_shownSamples) { // what the user selected and typed there stays
        enableSampleControls();
        return;
    }
    // The list is never seen empty, or its buttons would lose the focus.
    const QSignalBlocker blocker(m_controls.LiSamp);
    m_controls.LiSamp->clear();
    m_controls.LiSamp->addItems(names);
    m_controls.LiSamp->setCurrentRow(0);
    sampleSelected();
}

void FmSFX::fillLetters()
{
    m_controls.LiWAD->clear();
    for (const std::string& entry : letterEntries(m_editor.record(), m_references, m_wad, m_justAdded)) {
        m_controls.LiWAD->addItem(fromCodePage(entry));
    }
}

// After a command changed the selected line.
void FmSFX::refreshLine()
{
    if (const std::optional<std::size_t> number = m_editor.selected()) {
        m_sounds->refresh(*number);
    }
    showInfo({});
    showSelectedLine();
}

void FmSFX::showPending()
{
    const bool pending = m_catalogue.pending();
    enableImports();
    drawAttention(*m_controls.CdApply, pending);
    drawAttention(*m_controls.CdValidW, m_editor.edited());
    m_controls.LbPending->setText(
        pending ? inLanguage({"Modifications not yet applied", "Modifications non encore appliquées"},
                             m_settings.language)
                : QString());
}

// Editing values and flags

void FmSFX::valueChanged(ValueBox box)
{
    if (m_filling) {
        return;
    }
    QLineEdit* const edit = m_controls.value(box);
    const QString typed = edit->text();
    const QString corrected = fromCodePage(m_editor.setValue(box, toCodePage(typed), edit->hasFocus()));
    if (corrected != typed) {
        const Flagged filling(m_filling);
        edit->setText(corrected);
        edit->selectAll(); // the next digit replaces what the correction put there
    }
    showPending();
}

// A sign alone may stand in the pitch only while the user is typing.
void FmSFX::pitchLeft()
{
    QLineEdit* const edit = m_controls.value(ValueBox::Pit);
    if (m_editor.canEdit() && edit->text().startsWith('-')) {
        const Flagged filling(m_filling);
        edit->setText(fromCodePage(m_editor.setValue(ValueBox::Pit, toCodePage(edit->text()), false)));
        showPending();
    }
}

void FmSFX::flagChanged(LineFlag flag, bool on)
{
    if (m_filling) {
        return;
    }
    m_editor.setFlag(flag, on);
    fillFlags();
    showPending();
}

// Commands

void FmSFX::acceptValues()
{
    if (m_editor.accept(m_context.dialogs)) {
        refreshLine();
    }
}

void FmSFX::restoreSelectedLine()
{
    if (!m_editor.canEdit()) {
        return;
    }
    const std::size_t number = *m_editor.selected();
    if (restoreLine(m_catalogue, number, m_context.dialogs)) {
        m_editor.select(number);
        refreshLine();
    }
}

void FmSFX::apply()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    refreshLine();
    const bool applied =
        applyChanges(m_catalogue, {m_context.programFolder, m_wad.wadName}, m_context.dialogs);
    m_wadHasSavedLines.reset();
    refreshLine();
    showInfo(applied ? BilingualText("[sounds.txt] is written", "[sounds.txt] est écrit") : BilingualText());
}

void FmSFX::copyLine()
{
    if (m_editor.canEdit()) {
        QApplication::clipboard()->setText(fromCodePage(m_catalogue.currentLine(*m_editor.selected())));
        showInfo({"Line copied", "Ligne copiée"});
    }
}

void FmSFX::showOrHideGlobals()
{
    if (!m_editor.mayLeave(m_context.dialogs)) {
        return;
    }
    m_showGlobals = !m_showGlobals;
    rebuildList();
}

// Lines may have come into it or left it; the selected one stays selected while it is there.
void FmSFX::rebuildList()
{
    const std::optional<std::size_t> selected = m_editor.selected();
    const Flagged selecting(m_selecting);
    m_sounds->rebuild(m_showGlobals);
    const QModelIndex index = selected ? m_sounds->indexOf(*selected) : QModelIndex();
    if (!index.isValid()) {
        selectFirstLine();
        return;
    }
    m_controls.LiSFX->setCurrentIndex(index);
    m_controls.LiSFX->scrollTo(index);
    m_editor.select(selected);
    showSelectedLine();
}

void FmSFX::search()
{
    const LineSearch wanted{toCodePage(m_controls.TxSearch->text()),
                            m_controls.OpUp->isChecked() ? SearchDirection::Up : SearchDirection::Down,
                            m_controls.CkCase->isChecked()};
    if (wanted.text.empty()) {
        m_controls.TxSearch->setFocus();
        return;
    }
    const std::optional<std::size_t> found =
        fitsCodePage(m_controls.TxSearch->text())
            ? findNextLine(m_catalogue, m_sounds->numbers(), m_editor.selected(), wanted)
            : std::nullopt;
    if (!found) {
        showInfo(BilingualText("No more line with [", "Plus de ligne avec [") +
                 m_controls.TxSearch->text().toStdString() + "]");
        return;
    }
    showInfo({});
    m_controls.LiSFX->setCurrentIndex(m_sounds->indexOf(*found));
    m_controls.LiSFX->scrollTo(m_controls.LiSFX->currentIndex(), QAbstractItemView::PositionAtCenter);
}

} // namespace tavrel
