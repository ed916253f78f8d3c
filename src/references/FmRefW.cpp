// SPDX-License-Identifier: GPL-3.0-or-later
#include "references/FmRefW.h"

#include "base/CodePage.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "references/LetterCommands.h"
#include "references/LineLetters.h"
#include "references/ShippedTexts.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr std::size_t colourSlot = 2;

// Takes only what the register's file can hold, and selects everything when the focus comes.
class ReferenceBox : public QLineEdit
{
public:
    explicit ReferenceBox(const char* name)
    {
        setObjectName(name);
        setValidator(new CodePageValidator(this));
    }

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        QLineEdit::focusInEvent(event);
        QTimer::singleShot(0, this, &QLineEdit::selectAll); // behind the click that brought the focus
    }
};

BilingualText reach(const SoundCatalogue& catalogue, const std::string& letter)
{
    return counted(linesWithLetter(catalogue, letter), {"line carries #", "ligne porte #"},
                   {"lines carry #", "lignes portent #"}) +
           utf8FromCodePage(letter);
}

} // namespace

FmRefW::FmRefW(QWidget* parent, const FmRefWContext& context)
    : TitledWindow(parent), m_context(context), m_editor(context.editing),
      m_list(makeFixedPitchList("LiRefW")), m_wad(new ReferenceBox("TxWAD")),
      m_letter(new ReferenceBox("TxLett")), m_title(new ReferenceBox("TxTitre")),
      m_info(makePaperLabel("LbInfo")), m_choose(makeIconButton("CdChoix", Glyph::ChooseFile)),
      m_new(makeButton("CdNew", Glyph::AddItem)), m_modify(makeButton("CdMaj", Glyph::Accept)),
      m_delete(makeButton("CdDel", Glyph::RemoveItem)), m_erase(makeButton("CdEfface", Glyph::EraseText)),
      m_stop(makeButton("CdStop", Glyph::Close))
{
    setObjectName("FmRefW");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    paintWith(*m_list, m_context.colours.slots[colourSlot]);
    connectControls();
    showCaptions();
    fillList();
    showInfo();
}

void FmRefW::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_letter->setFixedWidth(56);
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(controlGap);
    grid->setVerticalSpacing(controlGap);
    grid->addWidget(named(new QLabel, "LbWAD"), 0, 0);
    grid->addWidget(m_wad, 0, 1);
    grid->addWidget(m_choose, 0, 2);
    grid->addWidget(named(new QLabel, "LbLett"), 0, 3);
    grid->addWidget(m_letter, 0, 4);
    grid->addWidget(named(new QLabel, "LbTitre"), 1, 0);
    grid->addWidget(m_title, 1, 1, 1, 4);
    auto* const buttons = rowOf({m_new, m_modify, m_delete, m_erase});
    auto* const last = rowOf({m_stop});
    last->insertStretch(0, 1);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addWidget(m_list, 1);
    content().addSpacing(controlGap);
    content().addLayout(grid);
    content().addLayout(buttons);
    content().addWidget(m_info);
    content().addLayout(last);
    resize(680, 560);
}

void FmRefW::connectControls()
{
    connect(m_list, &QListWidget::itemClicked, this, &FmRefW::rowClicked);
    connect(m_list, &QListWidget::itemActivated, this, &FmRefW::rowClicked);
    connect(m_list, &QListWidget::currentRowChanged, this, &FmRefW::rowReached);
    connect(m_choose, &QPushButton::clicked, this, &FmRefW::chooseWad);
    connect(m_new, &QPushButton::clicked, this, &FmRefW::addReference);
    connect(m_modify, &QPushButton::clicked, this, &FmRefW::modifyReference);
    connect(m_delete, &QPushButton::clicked, this, &FmRefW::deleteReference);
    connect(m_erase, &QPushButton::clicked, this, &FmRefW::eraseInputs);
    connect(m_stop, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_letter, &QLineEdit::textChanged, this, &FmRefW::correctLetter);
    m_wad->setMaxLength(longestWadName);
    for (QLineEdit* const box : {m_wad, m_letter, m_title}) {
        connect(box, &QLineEdit::returnPressed, this, &FmRefW::addOrModify);
    }
}

void FmRefW::showCaptions()
{
    const auto both = [](const char* control, const BilingualText& text) {
        return Caption{control, text, text};
    };
    const BilingualText wad("WAD Name", "Nom du WAD");
    const BilingualText letter("Letter", "Lettre");
    const BilingualText title("Title", "Titre");
    const Caption captions[] = {
        both("LbWAD", wad),
        {"TxWAD", {}, wad},
        both("LbLett", letter),
        {"TxLett", {}, letter},
        both("LbTitre", title),
        {"TxTitre", {}, title},
        {"LiRefW",
         {},
         {"WAD, letter and title of each reference", "WAD, lettre et titre de chaque référence"}},
        {"CdChoix", {}, {"Choose WAD", "Choisir le WAD"}},
        both("CdNew", {"Add Reference", "Ajouter la Référence"}),
        both("CdMaj", {"Modify Reference", "Modifier la Référence"}),
        both("CdDel", {"Delete Reference", "Supprimer la Référence"}),
        both("CdEfface", {"Erase inputs", "Effacer les entrées"}),
        both("CdStop", {"Close", "Fermer"}),
    };
    tavrel::showCaptions(*this, captions, m_context.language);
    setWindowTitle(inLanguage(titles::references, m_context.language));
}

void FmRefW::fillList()
{
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    const ReferenceRegister& references = m_context.editing.references;
    for (std::size_t i = 0; i < references.size(); ++i) {
        auto* const item = new QListWidgetItem(shownRow(references.at(i)), m_list);
        if (!ReferenceRegister::isEditable(i)) {
            item->setForeground(mutedColour(m_context.colours.slots[colourSlot]));
        }
    }
}

QString FmRefW::shownRow(const WadReference& reference) const
{
    return fromCodePage(referenceRow({reference.wadName, reference.letter, {}})) +
           inLanguage(shippedText(reference.title), m_context.language);
}

// Once per opening: a message box that goes away must not bring the help message again.
void FmRefW::showEvent(QShowEvent* event)
{
    TitledWindow::showEvent(event);
    if (!std::exchange(m_wasShown, true)) {
        QTimer::singleShot(0, this, &FmRefW::firstShown);
    }
}

void FmRefW::firstShown()
{
    const ReferenceRegister& references = m_context.editing.references;
    const std::string& current = m_context.editing.wad.wadName;
    for (std::size_t i = 0; !current.empty() && i < references.size(); ++i) {
        if (references.at(i).wadName == current) {
            selectRow(static_cast<int>(i));
            m_list->scrollToItem(m_list->currentItem(), QAbstractItemView::PositionAtCenter);
            rowClicked();
            break;
        }
    }
    if (!m_context.newLetter.empty()) {
        eraseInputs();
        m_letter->setText(fromCodePage(m_context.newLetter));
        m_wad->setFocus();
    }
    if (references.size() > references.userBegin()) {
        return;
    }
    m_context.editing.dialogs.show(
        {MessageIcon::Information,
         titles::reference,
         {"Start by adding a new reference of your wad.\n\nClick on the folder icon to select your wad, enter a "
          "letter and a title\nthen click on [Add Reference] button.\nClose the window and select your new wad in "
          "the main window.",
          "Commencez par ajouter une référence à votre wad\n\nCliquez sur le bouton répertoire pour sélectionner "
          "votre wad, puis entrez une lettre et un titre.\nEnsuite, fermez la fenêtre et sélectionnez votre wad "
          "dans la fenêtre principale."}});
    m_wad->setFocus();
}

void FmRefW::selectRow(int row)
{
    const QSignalBlocker blocker(m_list);
    m_list->setCurrentRow(row);
    if (row < 0) {
        m_list->clearSelection();
    }
}

void FmRefW::showFields(const WadReference& fields)
{
    m_wad->setText(fromCodePage(fields.wadName));
    m_letter->setText(fromCodePage(fields.letter));
    m_title->setText(fromCodePage(fields.title));
    showInfo();
}

WadReference FmRefW::typedFields() const
{
    return {toCodePage(m_wad->text()), toCodePage(m_letter->text()), toCodePage(m_title->text())};
}

void FmRefW::rowClicked()
{
    // Ctrl and a click takes the selection away but leaves the row current.
    const int row = m_list->selectedItems().empty() ? -1 : m_list->currentRow();
    const auto index = row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row));
    showFields(m_editor.select(index, true));
    if (!m_editor.selected()) {
        selectRow(-1);
    }
}

// By the arrow keys: built-in rows are passed without a word.
void FmRefW::rowReached()
{
    const int row = m_list->currentRow();
    showFields(m_editor.select(row < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(row)), false));
}

void FmRefW::showFocus()
{
    QLineEdit* const box = m_editor.focus() == ReferenceField::WadName  ? m_wad
                           : m_editor.focus() == ReferenceField::Letter ? m_letter
                           : m_editor.focus() == ReferenceField::Title  ? m_title
                                                                        : nullptr;
    if (box != nullptr) {
        box->setFocus();
    }
}

// How far the letter reaches, or a hint about the one that is being typed.
void FmRefW::showInfo()
{
    const std::string letter = toCodePage(m_letter->text());
    BilingualText text;
    if (letter != m_editor.selectedLetter()) {
        text = hintOnNewLetter(m_context.editing.catalogue, letter);
    }
    if (text.empty() && m_editor.selected()) {
        text = reach(m_context.editing.catalogue, m_editor.selectedLetter());
    }
    setPaperText(*m_info, inLanguage(text, m_context.language));
}

void FmRefW::correctLetter()
{
    const QString corrected = fromCodePage(correctedLetter(toCodePage(m_letter->text())));
    if (corrected != m_letter->text()) {
        m_letter->setText(corrected);
    }
    showInfo();
}

void FmRefW::chooseWad()
{
    const OpenFileQuestion question{titles::selectWad,
                                    {"WAD file (*.WAD)", "fichier WAD (*.WAD)"},
                                    {"*.WAD"},
                                    m_context.editing.wadFolder};
    const std::optional<std::filesystem::path> file = m_context.editing.dialogs.chooseFile(question);
    const std::optional<std::string> name =
        file ? wadNameFromPath(toCodePage(QString::fromStdU16String(file->u16string()))) : std::nullopt;
    if (name) {
        m_wad->setText(fromCodePage(*name));
        if (m_letter->text().isEmpty()) {
            m_letter->setText(fromCodePage(m_editor.freeLetter(*name)));
        }
        m_letter->setFocus();
    }
}

void FmRefW::addReference()
{
    if (m_editor.add(typedFields())) {
        fillList();
        m_list->scrollToBottom();
        selectRow(-1);
        showFields({});
    }
    showFocus();
}

void FmRefW::modifyReference()
{
    const WadReference fields = typedFields();
    const bool replacesLetter = fields.letter != m_editor.selectedLetter();
    const RegisterEditor::Modified result = m_editor.modify(fields);
    if (result == RegisterEditor::Modified::LetterTakenBack) {
        m_letter->setText(fromCodePage(m_editor.selectedLetter()));
    } else if (result == RegisterEditor::Modified::Done) {
        const int row = static_cast<int>(*m_editor.selected());
        m_list->item(row)->setText(shownRow(m_context.editing.references.at(*m_editor.selected())));
        showInfo();
        if (replacesLetter) {
            m_context.letterReplaced();
        }
    }
    showFocus();
}

void FmRefW::deleteReference()
{
    if (m_editor.remove()) {
        fillList();
        selectRow(-1);
        showFields({});
    }
}

void FmRefW::eraseInputs()
{
    selectRow(-1);
    showFields(m_editor.select(std::nullopt, false));
}

// Enter in a field.
void FmRefW::addOrModify()
{
    m_editor.selected() ? modifyReference() : addReference();
}

} // namespace tavrel
