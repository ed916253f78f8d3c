// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Title.h"

// The titles of all windows, file dialogs, questions and messages. The user looks them up in the help, so the
// help names each of them as it stands here.
namespace tavrel::titles {

// The name of something follows.
inline const Title mainWindow = Title::same("Tavrel - ");
inline const Title wadView("SAM/WAS file - ", "Fichier SAM/WAS - ");

inline const Title program = Title::same("Tavrel");
inline const Title programAborted("Program aborted", "Programme annulé");
inline const Title quit("Quit", "Quitter");
inline const Title recovery("Recovery", "Récupération");
inline const Title reviewChanges("Review changes", "Revoir les modifications");
inline const Title help("Help", "Aide");
inline const Title preferences("Preferences", "Préférences");
inline const Title colours("Colors", "Couleurs");
inline const Title defaultColours = Title::same("Colors");
inline const Title selectLevelEditor("Select Level editor", "Choisir l'éditeur de niveaux");

inline const Title soundsFile = Title::same("sounds.txt");
inline const Title soundsText("sounds.txt - Modifications not yet applied",
                              "sounds.txt - Modifications non encore appliquées");
inline const Title notepad("Notepad", "Bloc note");
inline const Title modification = Title::same("Modification");
inline const Title acceptValues("Accept values", "Accepter les valeurs");
inline const Title line("Line", "Ligne");
inline const Title lines("Lines", "Lignes");
inline const Title pasteValues("Paste values", "Coller les valeurs");
inline const Title protectedLine("Select", "Sélection");

inline const Title chooseSample("Choose a Sample", "Choisir un Sample");
inline const Title renameSample("Rename", "Renommer");
inline const Title removeSample("Remove sample", "Retirer un sample");
inline const Title samples = Title::same("Samples");
inline const Title play("Play", "Jouer");
inline const Title checkSamples("Check/Visualize a Samples Directory",
                                "Contrôler/Visualiser un répertoire Samples");
inline const Title selectSamplesFolder("Select a Directory to check",
                                       "Selectionner un Répertoire à contrôler");
inline const Title repairSamples("Repair", "Réparer");
inline const Title putBackOriginals("Put originals back", "Remettre les originaux");
inline const Title addSoundFile("Add a sound file", "Ajouter un fichier son");
inline const Title manageDoubles("Manage doubles", "Gérer les doublons");

inline const Title letter("Letter", "Lettre");
inline const Title addLetter("Add", "Ajouter");
inline const Title addLetterToObject("Add letter", "Ajout lettre");
inline const Title removeLetter("Remove", "Enlever");
inline const Title removeAllLetters("Remove all", "Enlever tout");
inline const Title replaceLetter("Replace", "Remplacer");
inline const Title selectObject("Object selection", "Sélection d'objets");

inline const Title reference("Reference", "Référence");
inline const Title references("Manage Wad/Letter References", "Gestion des Références Wad/Lettre");
inline const Title selectWad("Select a WAD", "Selectionner un WAD");
inline const Title addReference("Add Reference", "Ajouter la Référence");
inline const Title modifyReference("Modify Reference", "Modifier la Référence");
inline const Title modifySelectedReference("Modify reference", "Modifier référence");
inline const Title modifyNoReference("Modify reference", "modifier la référence");
inline const Title deleteReference("Delete reference", "Supprimer la référence");

inline const Title viewWadLists("View SAM/WAS file", "Voir le fichier SAM/WAS");
inline const Title importSamples("Import SAM (samples) file", "Importer le fichier SAM (samples)");
inline const Title importObjects("Import WAS (objects) file", "Importer le fichier WAS (objets)");
inline const Title loadSamples("Load SAM file", "Charger fichier SAM");
inline const Title loadObjects("Load WAS file", "Charger fichier WAS");
inline const Title unknownSamples("List of Unknown Samples", "Liste des Samples inconnus");

inline const Title exportWindow("Export/Backup Modifications", "Exporter/Sauvegarder les Modifications");
inline const Title exportModified("Export only modified lines", "Exporter uniquement les lignes modifiées");
inline const Title exportModifiedAndAdded("Export added and modified lines",
                                          "Exporter les lignes ajoutées et modifiées");
inline const Title saveAllLines("Save all lines", "Sauvegarder toutes les lignes");
inline const Title importWindow("Import/Restore a backup", "Importer/Restaurer une sauvegarde");
inline const Title chooseImportFile("Choose File to Import/Restore",
                                    "Choisir le fichier à Importer/Restaurer");
inline const Title importLines("Import", "Importer");
inline const Title restore("Restore", "Restaurer"); // of a backup or of the defaults

inline const Title checkProject("Check the project", "Contrôler le projet");
inline const Title levels("Levels", "Niveaux");
inline const Title saveList("Save the list", "Enregistrer la liste");

inline const Title generate("Generate SFX", "Générer SFX");
inline const Title statistics = Title::same("Statistiques Projet");
inline const Title restoreDefaults("Restore Original files", "Restaurer les fichiers originaux");

inline const Title compare("Compare catalogues", "Comparer les catalogues");
inline const Title chooseComparedFile("Choose what to compare with", "Choisir avec quoi comparer");
inline const Title versions("Earlier versions", "Versions précédentes");

} // namespace tavrel::titles
