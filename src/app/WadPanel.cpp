// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/WadPanel.h"

#include "base/Titles.h"
#include "references/LetterCommands.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

// 0x00BBGGRR
constexpr ColourValue wadTextColour = 16576;
constexpr ColourValue chooserColour = 33023;
constexpr ColourValue reminderColour = 192;
constexpr ColourValue greyedColour = 0xC0C0C0;
constexpr int blinkMilliseconds = 500;

} // namespace

WadPanel::WadPanel(const PanelContext& context, bool mayBlink, const Doors& doors)
    : FoldingPanel("ImPanelO", nullptr), MainPanel(context), m_mayBlink(mayBlink),
      m_frame(named(new QWidget, "PnWad")), m_chooser(makeComboBox("CbTWad")),
      m_firstUse(makeButton("CdFirstUse", Glyph::Help)), m_wad(makeReadOnly("TxWAD")),
      m_letter(makeReadOnly("TxLett")), m_title(makeReadOnly("TxTitre")),
      m_add(makeIconButton("CdAddWAD", Glyph::AddItem)), m_remove(makeIconButton("CdDel", Glyph::RemoveItem)),
      m_erase(makeIconButton("CdErase", Glyph::EraseLetter)),
      m_replacement(named(new QLineEdit, "TxReplacL")),
      m_replace(makeIconButton("CdReplacL", Glyph::ReplaceLetter)), m_object(makeReadOnly("TxObj")),
      m_chooseObject(makeIconButton("CdObj", Glyph::ObjectSelection)),
      m_eraseObject(makeIconButton("CdEffObj", Glyph::EraseText)), m_modes{named(new QRadioButton, "OpWAD0"),
                                                                           named(new QRadioButton, "OpWAD1")}
{
    layOut();
    connectControls();
    connect(m_chooseObject, &QPushButton::clicked, this, doors.chooseObject);
    connect(m_firstUse, &QPushButton::clicked, this, doors.explainFirstUse);
    objectChosen();
    remind();
}

void WadPanel::layOut()
{
    constexpr int letterWidth = 44;
    m_letter->setFixedWidth(letterWidth);
    m_replacement->setFixedWidth(letterWidth);
    selectAllOnClick(*m_replacement);
    auto* const modeGroup = new QButtonGroup(this);
    for (QRadioButton* const mode : m_modes) {
        modeGroup->addButton(mode);
        // They show which list was imported last, and nobody can choose it.
        mode->setFocusPolicy(Qt::NoFocus);
        mode->installEventFilter(this);
    }
    m_modes[0]->setChecked(true);

    m_firstUse->hide();
    content().addWidget(makeCurrentWad());
    content().addWidget(m_firstUse);
    auto* const letters = rowOf({makeHeading("FrLetters"), m_add, m_remove, m_erase});
    letters->insertStretch(1, 1);
    content().addLayout(letters);
    auto* const replacing = rowOf({named(new QLabel, "LbReplacL"), m_replacement, m_replace});
    replacing->insertStretch(1, 1);
    content().addLayout(replacing);
    content().addLayout(rowOf({named(new QLabel, "LbObj"), m_object, m_chooseObject, m_eraseObject}));
    auto* const modes = rowOf({named(new QLabel, "LbMode"), m_modes[0], m_modes[1]});
    modes->addStretch(1);
    content().addLayout(modes);
}

QWidget* WadPanel::makeCurrentWad()
{
    auto* const grid = new QGridLayout(m_frame);
    grid->setContentsMargins(controlGap, controlGap, controlGap, controlGap);
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(4);
    grid->setColumnStretch(1, 1);
    grid->addWidget(m_chooser, 0, 0, 1, 4);
    grid->addWidget(named(new QLabel, "LbWAD"), 1, 0);
    grid->addWidget(m_wad, 1, 1);
    grid->addWidget(named(new QLabel, "LbLett"), 1, 2);
    grid->addWidget(m_letter, 1, 3);
    grid->addWidget(named(new QLabel, "LbTitre"), 2, 0);
    grid->addWidget(m_title, 2, 1, 1, 3);
    m_frame->setAttribute(Qt::WA_StyledBackground);
    return m_frame;
}

void WadPanel::connectControls()
{
    connect(m_add, &QPushButton::clicked, this, &WadPanel::addLetter);
    connect(m_remove, &QPushButton::clicked, this, &WadPanel::removeLetter);
    connect(m_erase, &QPushButton::clicked, this, &WadPanel::eraseLetter);
    connect(m_replace, &QPushButton::clicked, this, &WadPanel::replaceLetter);
    m_replacement->setValidator(new CodePageValidator(m_replacement));
    connect(m_replacement, &QLineEdit::returnPressed, this, &WadPanel::replaceLetter);
    connect(m_replacement, &QLineEdit::textChanged, this, &WadPanel::replacementTyped);
    connect(m_eraseObject, &QPushButton::clicked, this, [this] { selection().chooseObjects({}); });
    connect(m_chooser, &QComboBox::activated, this,
            [this] { session().chooseWad(toCodePage(m_chooser->currentText())); });
    m_reminder.setObjectName("TmWAD");
    m_reminder.setInterval(blinkMilliseconds);
    connect(&m_reminder, &QTimer::timeout, this, [this] {
        paint(wadTextColour, m_chooserColour == chooserColour ? reminderColour : chooserColour);
    });
}

void WadPanel::showLanguage(Language language)
{
    const BilingualText replace("Replace letter", "Remplacer la lettre");
    const BilingualText object("Object", "Objet");
    const BilingualText wad("WAD Name", "Nom du WAD");
    const BilingualText letter("Letter", "Lettre");
    const BilingualText title("Title", "Titre");
    const BilingualText samples("Samples (.SAM)", "Samples (.SAM)");
    const BilingualText objects("Objects (.WAS)", "Objets (.WAS)");
    const Caption captions[] = {
        {"ImPanelO",
         {"Letters - Objects", "Lettres - Objets"},
         {"Fold or unfold this panel", "Replier ou déplier ce panneau"}},
        {"CbTWad", {}, {"The WAD you are working on", "Le WAD sur lequel vous travaillez"}},
        {"CdFirstUse",
         {"A first walk", "Bien débuter"},
         {"The help on the way from a WAD to its sound files",
          "L'aide sur le chemin d'un WAD à ses fichiers de sons"}},
        {"LbWAD", wad, {}},
        {"TxWAD", {}, wad},
        {"LbLett", letter, {}},
        {"TxLett", {}, letter},
        {"LbTitre", title, {}},
        {"TxTitre", {}, title},
        {"FrLetters", {"Letters/Object", "Lettres/Objets"}, {}},
        {"CdAddWAD", {}, {"Add Letter or Object", "Ajouter Lettre ou Objet"}},
        {"CdDel", {}, {"Remove Letter or Object", "Enlever Lettre ou Objet"}},
        {"CdErase", {}, {"Remove letter from every lines", "Enlever la lettre de toutes les lignes"}},
        {"LbReplacL", {"Replace WAD Letter by...............", "Remplacer la Lettre du WAD par"}, {}},
        {"TxReplacL", {}, replace},
        {"CdReplacL", {}, replace},
        {"LbObj", object, {}},
        {"TxObj", {}, object},
        {"CdObj", {}, {"Show/Hide object selection", "Afficher/Cacher la sélection d'objets"}},
        {"CdEffObj", {}, {"Erase object name", "Effacer nom d'objet"}},
        {"LbMode", {"Imported", "Importé"}, {}},
        {"OpWAD0", samples,
         samples + BilingualText(": the list that was imported last", " : la dernière liste importée")},
        {"OpWAD1", objects,
         objects + BilingualText(": the list that was imported last", " : la dernière liste importée")},
    };
    showCaptions(*this, captions, language);
    m_chooser->setPlaceholderText(inLanguage({"Choose a WAD", "Choisissez un WAD"}, language));
}

void WadPanel::showImported(WadListKind kind)
{
    m_modes[kind == WadListKind::Samples ? 0 : 1]->setChecked(true);
}

bool WadPanel::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::HoverEnter:
        return true;
    default:
        return FoldingPanel::eventFilter(watched, event);
    }
}

// The current WAD

void WadPanel::reloaded()
{
    fillChooser();
    enable();
}

// The chooser lists the user's own WADs; the built-in references are only there to be read.
void WadPanel::fillChooser()
{
    const ReferenceRegister& references = session().references();
    m_chooser->clear();
    for (std::size_t i = references.userBegin(); i < references.size(); ++i) {
        m_chooser->addItem(fromCodePage(references.at(i).wadName));
    }
    m_firstUse->setVisible(session().isLoaded() && m_chooser->count() == 0);
    showWad();
}

void WadPanel::showWad()
{
    const CurrentWad& wad = session().wad();
    m_chooser->setCurrentIndex(
        wad.wadName.empty() ? -1 : m_chooser->findText(fromCodePage(wad.wadName), Qt::MatchExactly));
    m_wad->setText(fromCodePage(wad.wadName));
    m_letter->setText(fromCodePage(wad.letter));
    m_title->setText(fromCodePage(wad.title));
    remind();
}

void WadPanel::setGreyed(bool greyed)
{
    m_greyed = greyed;
    remind();
}

// The chooser blinks while there is nothing to choose.
void WadPanel::remind()
{
    if (m_greyed) {
        m_reminder.stop();
        paint(greyedColour, greyedColour);
        return;
    }
    paint(wadTextColour, chooserColour);
    if (session().isLoaded() && m_chooser->count() == 0 && m_mayBlink) {
        m_reminder.start();
    } else {
        m_reminder.stop();
    }
}

// The chooser shows its colour by frame and arrow, its text stays readable on every one of them.
void WadPanel::paint(ColourValue text, ColourValue chooser)
{
    m_chooserColour = chooser;
    const QColor captions = text == greyedColour ? colourFrom(text) : theme::text;
    m_frame->setStyleSheet(
        QString("QLabel { color: %1; } QLineEdit { color: %2; } QComboBox { border: 2px solid %3; }")
            .arg(captions.name(), colourFrom(text).name(), colourFrom(chooser).name()));
    m_chooser->setProperty(arrowColourProperty, colourFrom(chooser));
    m_chooser->update();
}

void WadPanel::enable()
{
    const bool editable = selection().editor().canEditAny();
    for (QPushButton* const button : {m_add, m_remove, m_chooseObject}) {
        button->setEnabled(editable);
    }
    for (QWidget* const control : std::initializer_list<QWidget*>{m_erase, m_replacement, m_replace}) {
        control->setEnabled(session().isLoaded());
    }
}

// Letters

void WadPanel::replacementTyped(const QString& typed)
{
    const QString corrected = fromCodePage(correctedLetter(toCodePage(typed)));
    if (corrected != typed) {
        m_replacement->setText(corrected);
    }
    say(hintOnNewLetter(session().catalogue(), toCodePage(corrected)));
}

void WadPanel::addLetter()
{
    SoundCatalogue& catalogue = session().catalogue();
    if (!selection().editor().canEditAny()) {
        return;
    }
    if (!selection().objects().empty()) {
        tell(addLetterToObjects(catalogue, selection().objects(), session().wad(), dialogs()));
        return;
    }
    if (selection().isSeveral()) {
        if (selection().mayLeave(dialogs())) {
            const std::vector<std::size_t> numbers = selection().numbers();
            tell(addLetterToSounds(catalogue, numbers, session().wad(), dialogs()));
        }
        return;
    }
    switch (addLetterToLine(selection().editor(), session().wad(), dialogs())) {
    case AddedLetter::Added:
        say({});
        selection().letterAdded(session().wad().letter);
        break;
    case AddedLetter::SoundOfAllLevels:
        selection().select(std::nullopt);
        break;
    case AddedLetter::Refused:
        break;
    }
}

void WadPanel::removeLetter()
{
    SoundCatalogue& catalogue = session().catalogue();
    if (!selection().objects().empty()) {
        tell(removeLetterFromObjects(catalogue, selection().objects(), session().wad(), dialogs()));
    } else if (selection().isSeveral() && selection().letter()) {
        if (selection().mayLeave(dialogs())) {
            const std::string letter = selection().carriedLetters().at(*selection().letter()).letter;
            const std::vector<std::size_t> numbers = selection().numbers();
            tell(removeLetterFromSounds(catalogue, numbers, letter, dialogs()));
        }
    } else if (removeLetterFromLine(selection().editor(), selection().letter(), dialogs())) {
        say({});
    }
}

void WadPanel::tell(const SoundsChanged& changed)
{
    say(changed.agreed ? changed.report() : BilingualText());
}

void WadPanel::eraseLetter()
{
    if (selection().mayLeave(dialogs())) {
        removeLetterEverywhere(session().catalogue(), session().wad(), dialogs());
    }
}

void WadPanel::replaceLetter()
{
    if (!selection().mayLeave(dialogs())) {
        return;
    }
    const ReplacedLetter result =
        replaceLetterEverywhere(session().catalogue(), session().references(), session().wad(),
                                toCodePage(m_replacement->text()), dialogs());
    if (result == ReplacedLetter::Refused) {
        m_replacement->setFocus();
        return;
    }
    m_replacement->clear();
    if (result == ReplacedLetter::Replaced) {
        if (const Problem problem = session().writeRegister()) {
            dialogs().show({MessageIcon::Exclamation, titles::replaceLetter, problem->text});
        }
        selection().selectFirst();
    }
}

// Objects

void WadPanel::objectChosen()
{
    std::string names;
    for (const std::string& object : selection().objects()) {
        names += (names.empty() ? "" : ", ") + object;
    }
    m_object->setText(fromCodePage(names));
    m_object->setCursorPosition(0);
    m_eraseObject->setEnabled(!names.empty());
    enable();
}

} // namespace tavrel
