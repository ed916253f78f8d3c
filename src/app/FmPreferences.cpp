// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmPreferences.h"

#include "base/Titles.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/Text.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tavrel {

namespace {

constexpr int margin = 2 * controlGap;

// In the order of the panels.
constexpr std::array<const char*, panelCount> panelBoxes = {"CkFctW", "CkFctP", "CkFctM", "CkFctE",
                                                            "CkWADS", "CkLETO", "CkSAMP", "CkPlus"};

// A heading with what belongs to it.
QVBoxLayout* makeGroup(const char* heading, std::initializer_list<QWidget*> controls)
{
    auto* const group = new QVBoxLayout;
    group->setSpacing(controlGap);
    group->addWidget(makeHeading(heading));
    for (QWidget* const control : controls) {
        group->addWidget(control);
    }
    return group;
}

// Options exclude each other within their group, not within the window.
void makeExclusive(QWidget& window, std::initializer_list<QRadioButton*> options)
{
    auto* const group = new QButtonGroup(&window);
    for (QRadioButton* const option : options) {
        group->addButton(option);
    }
}

// NOLINTNEXTLINE(readability-function-size): a table
void showPreferencesCaptions(QWidget& window, Language language)
{
    const BilingualText panel("Show this panel unfolded in the main window",
                              "Afficher ce panneau déplié dans la fenêtre principale");
    const BilingualText notepad("How Notepad opens sounds.txt", "Comment le Bloc note ouvre sounds.txt");
    const Caption captions[] = {
        {"Label1", {"Display options", "Options d'affichage"}, {}},
        {"CkFctW", {"Wad Functions", "Fonctions WAD"}, panel},
        {"CkFctP", {"PGM Functions", "Fonctions PGM"}, panel},
        {"CkFctM", {"Modifications", "Modifications"}, panel},
        {"CkFctE", {"Edit Functions", "Fonctions d'édition"}, panel},
        {"CkWADS", {"WADs", "WADs"}, panel},
        {"CkLETO", {"Letters - Objects", "Lettres - Objets"}, panel},
        {"CkSAMP", {"Samples", "Samples"}, panel},
        {"CkPlus", {"Line in sounds.txt", "Ligne dans sounds.txt"}, panel},
        {"Frame2", {"Notepad running mode", "Mode d'exécution du Bloc note"}, {}},
        {"OpNotPad0", {"Normal", "Normal"}, notepad},
        {"OpNotPad1", {"Maximized", "Maximisé"}, notepad},
        {"Frame1", {"Select Language", "Sélectionnez la Langue"}, {}},
        {"OpLang0", {}, {"English display", "Affichage en Anglais"}},
        {"OpLang1", {}, {"French display", "Affichage en Français"}},
        {"LbDoors", {"Appearance and files", "Apparence et fichiers"}, {}},
        {"LbOptions", {"Safety", "Sécurité"}, {}},
        {"CkEmpty",
         {"Authorize 'empty' and 'unsure' lines to be modified (at your own risk)",
          "Autoriser la modification des lignes 'empty' et 'non utilisées' (à vos risques)"},
         {"The level editor keeps these lines for itself", "L'éditeur de niveaux se réserve ces lignes"}},
        {"CkLoadSAM",
         {"Authorize loading WAD once some modifications are applied",
          "Autoriser le chargement du WAD une fois des modifications apportées"},
         {"Importing a SAM or WAS file puts back the lines saved for the WAD",
          "L'import d'un fichier SAM ou WAS remet les lignes enregistrées pour le WAD"}},
        {"CkComments",
         {"Keep the comments and blank lines of sounds.txt",
          "Conserver les commentaires et lignes vides de sounds.txt"},
         {"They are written back where they stood, and lines that nobody changed stay as they are",
          "Ils sont réécrits à leur place, et les lignes que personne n'a modifiées restent telles quelles"}},
        {"LbEditor", {"Level editor folder", "Répertoire de l'éditeur de niveaux"}, {}},
        {"CdSelLE",
         {"Select Level editor", "Choisir l'éditeur de niveaux"},
         {"Work on the sounds of another level editor folder",
          "Travailler sur les sons d'un autre répertoire d'éditeur de niveaux"}},
        {"CdColor",
         {"Colors", "Couleurs"},
         {"Colors of the lists and texts", "Couleurs des listes et des textes"}},
        {"CdDoub",
         {"Manage doubles", "Gérer les doublons"},
         {"Choose which of the sounds with the same samples take part in an import",
          "Choisir les sons aux mêmes samples qui participent à l'import"}},
        {"CdDefaut",
         {"Restore defaults", "Restaurer défauts"},
         {"Bring back the original files of the level editor",
          "Remettre les fichiers d'origine de l'éditeur de niveaux"}},
        {"CdOK", {"Close", "Fermer"}, {"Apply the options and close", "Appliquer les options et fermer"}},
    };
    showCaptions(window, captions, language);
    window.setWindowTitle(inLanguage(titles::preferences, language));
}

} // namespace

FmPreferences::FmPreferences(QWidget* parent, const ProgramSettings& settings, const Options& options,
                             PreferencesDoors doors)
    : TitledWindow(parent), m_doors(std::move(doors)), m_normalNotepad(named(new QRadioButton, "OpNotPad0")),
      m_maximisedNotepad(named(new QRadioButton, "OpNotPad1")),
      m_english(named(new QRadioButton("English"), "OpLang0")),
      m_french(named(new QRadioButton("Français"), "OpLang1")),
      m_protectedEditable(named(new QCheckBox, "CkEmpty")),
      m_loadAfterChanges(named(new QCheckBox, "CkLoadSAM")),
      m_keepComments(named(new QCheckBox, "CkComments")), m_folder(makeElidedLabel("LbPath")),
      m_selectEditor(makeButton("CdSelLE", Glyph::OpenFile)),
      m_colours(makeButton("CdColor", Glyph::Colours)), m_doubles(makeButton("CdDoub", Glyph::CopyLine)),
      m_restore(makeButton("CdDefaut", Glyph::RestoreLine)), m_ok(makeButton("CdOK", Glyph::Close))
{
    setObjectName("FmPreferences");
    setWindowModality(Qt::ApplicationModal);
    layOut();
    showSettings(settings);
    m_keepComments->setChecked(options.flag(options::keepComments));
    showLanguage(settings.language);
    connect(m_french, &QRadioButton::toggled, this, [this](bool french) {
        const Language language = french ? Language::French : Language::English;
        showLanguage(language);
        m_doors.languageChanged(language);
    });
    connect(m_selectEditor, &QPushButton::clicked, this,
            [this] { showFolder(m_doors.chooseLevelEditor(*this)); });
    connect(m_colours, &QPushButton::clicked, this, [this] { m_doors.openColours(*this); });
    connect(m_doubles, &QPushButton::clicked, this, [this] { m_doors.openDoubles(*this); });
    connect(m_restore, &QPushButton::clicked, this, [this] { m_doors.openRestore(*this); });
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
}

void FmPreferences::layOut()
{
    QVBoxLayout* const panels = makeGroup("Label1", {});
    for (std::size_t i = 0; i < panelCount; ++i) {
        m_panels[i] = named(new QCheckBox, panelBoxes[i]);
        panels->addWidget(m_panels[i]);
    }
    panels->addStretch(1);
    makeExclusive(*this, {m_normalNotepad, m_maximisedNotepad});
    makeExclusive(*this, {m_english, m_french});
    auto* const modes = new QVBoxLayout;
    modes->setSpacing(margin);
    modes->addLayout(makeGroup("Frame1", {m_english, m_french}));
    modes->addLayout(makeGroup("Frame2", {m_normalNotepad, m_maximisedNotepad}));
    modes->addStretch(1);
    QVBoxLayout* const doors = makeGroup("LbDoors", {});
    for (QPushButton* const button : {m_colours, m_doubles, m_restore}) {
        button->setProperty("row", true);
        doors->addWidget(button);
    }
    doors->addStretch(1);
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(4 * margin);
    columns->addLayout(panels, 1);
    columns->addLayout(modes, 1);
    columns->addLayout(doors, 1);
    QHBoxLayout* const editor = rowOf({m_folder, m_selectEditor});
    editor->setStretchFactor(m_folder, 1);
    QHBoxLayout* const closing = rowOf({m_ok});
    closing->insertStretch(0, 1);

    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(margin);
    content().addLayout(columns);
    content().addLayout(makeGroup("LbOptions", {m_protectedEditable, m_loadAfterChanges, m_keepComments}));
    content().addWidget(makeHeading("LbEditor"));
    content().addLayout(editor);
    content().addLayout(closing);
}

void FmPreferences::showSettings(const ProgramSettings& settings)
{
    for (std::size_t i = 0; i < panelCount; ++i) {
        m_panels[i]->setChecked(settings.panels[i]);
    }
    const bool normal = settings.notepadMode == WindowMode::Normal;
    (normal ? m_normalNotepad : m_maximisedNotepad)->setChecked(true);
    (settings.language == Language::French ? m_french : m_english)->setChecked(true);
    m_protectedEditable->setChecked(settings.protectedLinesEditable);
    m_loadAfterChanges->setChecked(settings.loadWadAfterChanges);
    showFolder(settings.LevelEditorFolder);
}

void FmPreferences::showLanguage(Language language)
{
    showPreferencesCaptions(*this, language);
}

void FmPreferences::showFolder(const std::string& folder)
{
    m_folder->setText(fromCodePage(folder));
}

void FmPreferences::storeIn(ProgramSettings& settings, Options& options) const
{
    options.setFlag(options::keepComments, m_keepComments->isChecked());
    settings.protectedLinesEditable = m_protectedEditable->isChecked();
    settings.loadWadAfterChanges = m_loadAfterChanges->isChecked();
    settings.notepadMode = m_normalNotepad->isChecked() ? WindowMode::Normal : WindowMode::Maximised;
    for (std::size_t i = 0; i < panelCount; ++i) {
        settings.panels[i] = m_panels[i]->isChecked();
    }
}

} // namespace tavrel
