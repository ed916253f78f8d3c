// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/BilingualText.h"

#include <span>

// The titles of all windows, file dialogs, questions and messages. The user looks them up in the help, so the
// help names each of them as it stands here.
namespace tavrel::titles {

// The name of something follows.
inline const BilingualText mainWindow = BilingualText::same("Tavrel - ");
inline const BilingualText wadView("SAM/WAS file - ", "Fichier SAM/WAS - ");

inline const BilingualText program = BilingualText::same("Tavrel");
inline const BilingualText programAborted("Program aborted", "Programme annulé");
inline const BilingualText quit("Quit", "Quitter");
inline const BilingualText recovery("Recovery", "Récupération");
inline const BilingualText reviewChanges("Review changes", "Revoir les modifications");
inline const BilingualText help("Help", "Aide");
inline const BilingualText preferences("Preferences", "Préférences");
inline const BilingualText colours("Colors", "Couleurs");
inline const BilingualText defaultColours = BilingualText::same("Colors");
inline const BilingualText selectLevelEditor("Select Level editor", "Choisir l'éditeur de niveaux");

inline const BilingualText soundsFile = BilingualText::same("sounds.txt");
inline const BilingualText soundsText("sounds.txt - Modifications not yet applied",
                                      "sounds.txt - Modifications non encore appliquées");
inline const BilingualText notepad("Notepad", "Bloc note");
inline const BilingualText modification = BilingualText::same("Modification");
inline const BilingualText acceptValues("Accept values", "Accepter les valeurs");
inline const BilingualText line("Line", "Ligne");
inline const BilingualText lines("Lines", "Lignes");
inline const BilingualText pasteValues("Paste values", "Coller les valeurs");
inline const BilingualText protectedLine("Select", "Sélection");

inline const BilingualText chooseSample("Choose a Sample", "Choisir un Sample");
inline const BilingualText renameSample("Rename", "Renommer");
inline const BilingualText removeSample("Remove sample", "Retirer un sample");
inline const BilingualText samples = BilingualText::same("Samples");
inline const BilingualText play("Play", "Jouer");
inline const BilingualText checkSamples("Check/Visualize a Samples Directory",
                                        "Contrôler/Visualiser un répertoire Samples");
inline const BilingualText selectSamplesFolder("Select a Directory to check",
                                               "Selectionner un Répertoire à contrôler");
inline const BilingualText repairSamples("Repair", "Réparer");
inline const BilingualText putBackOriginals("Put originals back", "Remettre les originaux");
inline const BilingualText addSoundFile("Add a sound file", "Ajouter un fichier son");
inline const BilingualText manageDoubles("Manage doubles", "Gérer les doublons");

inline const BilingualText letter("Letter", "Lettre");
inline const BilingualText addLetter("Add", "Ajouter");
inline const BilingualText addLetterToObject("Add letter", "Ajout lettre");
inline const BilingualText removeLetter("Remove", "Enlever");
inline const BilingualText removeAllLetters("Remove all", "Enlever tout");
inline const BilingualText replaceLetter("Replace", "Remplacer");
inline const BilingualText selectObject("Object selection", "Sélection d'objets");

inline const BilingualText reference("Reference", "Référence");
inline const BilingualText references("Manage Wad/Letter References", "Gestion des Références Wad/Lettre");
inline const BilingualText selectWad("Select a WAD", "Selectionner un WAD");
inline const BilingualText addReference("Add Reference", "Ajouter la Référence");
inline const BilingualText modifyReference("Modify Reference", "Modifier la Référence");
inline const BilingualText modifySelectedReference("Modify reference", "Modifier référence");
inline const BilingualText modifyNoReference("Modify reference", "modifier la référence");
inline const BilingualText deleteReference("Delete reference", "Supprimer la référence");

inline const BilingualText viewWadLists("View SAM/WAS file", "Voir le fichier SAM/WAS");
inline const BilingualText importSamples("Import SAM (samples) file", "Importer le fichier SAM (samples)");
inline const BilingualText importObjects("Import WAS (objects) file", "Importer le fichier WAS (objets)");
inline const BilingualText loadSamples("Load SAM file", "Charger fichier SAM");
inline const BilingualText loadObjects("Load WAS file", "Charger fichier WAS");
inline const BilingualText unknownSamples("List of Unknown Samples", "Liste des Samples inconnus");

inline const BilingualText exportWindow("Export/Backup Modifications",
                                        "Exporter/Sauvegarder les Modifications");
inline const BilingualText exportModified("Export only modified lines",
                                          "Exporter uniquement les lignes modifiées");
inline const BilingualText exportModifiedAndAdded("Export added and modified lines",
                                                  "Exporter les lignes ajoutées et modifiées");
inline const BilingualText saveAllLines("Save all lines", "Sauvegarder toutes les lignes");
inline const BilingualText importWindow("Import/Restore a backup", "Importer/Restaurer une sauvegarde");
inline const BilingualText chooseImportFile("Choose File to Import/Restore",
                                            "Choisir le fichier à Importer/Restaurer");
inline const BilingualText importLines("Import", "Importer");
inline const BilingualText restore("Restore", "Restaurer"); // of a backup or of the defaults

inline const BilingualText checkProject("Check the project", "Contrôler le projet");
inline const BilingualText levels("Levels", "Niveaux");
inline const BilingualText saveList("Save the list", "Enregistrer la liste");

inline const BilingualText generate("Generate SFX", "Générer SFX");
inline const BilingualText statistics = BilingualText::same("Statistiques Projet");
inline const BilingualText restoreDefaults("Restore Original files", "Restaurer les fichiers originaux");

inline const BilingualText compare("Compare catalogues", "Comparer les catalogues");
inline const BilingualText chooseComparedFile("Choose what to compare with", "Choisir avec quoi comparer");
inline const BilingualText versions("Earlier versions", "Versions précédentes");

// NOLINTNEXTLINE(readability-function-size): a table
inline std::span<const BilingualText* const> all()
{
    static constexpr const BilingualText* every[] = {
        &mainWindow,
        &wadView,
        &program,
        &programAborted,
        &quit,
        &recovery,
        &reviewChanges,
        &help,
        &preferences,
        &colours,
        &defaultColours,
        &selectLevelEditor,
        &soundsFile,
        &soundsText,
        &notepad,
        &modification,
        &acceptValues,
        &line,
        &lines,
        &pasteValues,
        &protectedLine,
        &chooseSample,
        &renameSample,
        &removeSample,
        &samples,
        &play,
        &checkSamples,
        &selectSamplesFolder,
        &repairSamples,
        &putBackOriginals,
        &addSoundFile,
        &manageDoubles,
        &letter,
        &addLetter,
        &addLetterToObject,
        &removeLetter,
        &removeAllLetters,
        &replaceLetter,
        &selectObject,
        &reference,
        &references,
        &selectWad,
        &addReference,
        &modifyReference,
        &modifySelectedReference,
        &modifyNoReference,
        &deleteReference,
        &viewWadLists,
        &importSamples,
        &importObjects,
        &loadSamples,
        &loadObjects,
        &unknownSamples,
        &exportWindow,
        &exportModified,
        &exportModifiedAndAdded,
        &saveAllLines,
        &importWindow,
        &chooseImportFile,
        &importLines,
        &restore,
        &checkProject,
        &levels,
        &saveList,
        &generate,
        &statistics,
        &restoreDefaults,
        &compare,
        &chooseComparedFile,
        &versions,
    };
    return every;
}

} // namespace tavrel::titles
