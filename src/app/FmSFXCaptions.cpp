// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FmSFXControls.h"
#include "ui/Captions.h"

#include <vector>

namespace tavrel {

namespace {

// A caption that is its own tool tip.
Caption both(const char* control, const BilingualText& text)
{
    return {control, text, text};
}

// For a control that shows an icon or a value.
Caption tip(const char* control, const BilingualText& toolTip)
{
    return {control, {}, toolTip};
}

Caption label(const char* control, const BilingualText& text, const BilingualText& toolTip = {})
{
    return {control, text, toolTip};
}

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Caption> captions()
{
    const BilingualText lineInFile("Line in sounds.txt", "Ligne dans sounds.txt");
    const BilingualText stop("Stop sample", "Stopper le sample");
    const BilingualText probability("Probability", "Probabilité en % que le son soit entendu");
    const BilingualText pitch("", "Hauteur grave/aigu");
    const BilingualText radius("", "Rayon d'écoute");
    const BilingualText fold("Fold or unfold this panel", "Replier ou déplier ce panneau");
    const BilingualText original("The line as it was installed", "La ligne telle qu'elle a été installée");
    const BilingualText modified("The line as it stands now", "La ligne telle qu'elle est maintenant");
    return {
        both("OpLangE", {"English display", "Affichage en Anglais"}),
        both("OpLangF", {"French display", "Affichage en Français"}),
        both("CdHlp", {"Help", "Aide"}),
        both("CdParam", {"Parameters", "Paramètres"}),
        both("CdQuit", {"Quit Tavrel", "Quitter Tavrel"}),

        label("ImPanelW", {"Wad Functions", "Fonctions WAD"}, fold),
        both("CdCopy", {"Generate SFX file", "Générer le fichier SFX"}),
        both("CdLoadSAM", {"Import SAM (samples) file", "Importer le fichier SAM (samples)"}),
        both("CdLoadWAS", {"Import WAS (objects) file", "Importer le fichier WAS (objets)"}),
        both("CdViewWAD", {"View SAM/WAS file", "Voir le fichier SAM/WAS"}),
        both("CdRefW", {"Manage WAD/Letter References", "Gestion des Références WAD/Lettre"}),

        label("ImPanelP", {"PGM Functions", "Fonctions PGM"}, fold),
        both("CdStats", {"Project statistics", "Statistiques Projet"}),
        both("CdSmpCheck",
             {"Check/Visualize a Samples directory", "Contrôler/Visualiser un répertoire Samples"}),
        both("CdImport", {"Import/Restore a backup", "Importer/Restaurer une sauvegarde"}),
        both("CdExport", {"Export/Backup modifications", "Exporter/Sauvegarder les modifications"}),

        label("ImPanelM", {"Modifications", "Modifications"}, fold),
        both("CdValidW", {"Accept values", "Accepter les valeurs"}),
        both("CdRestore", {"Restore original line", "Restaurer la ligne d'origine"}),
        both("CdApply", {"Apply changes to sounds.txt", "Appliquer les modifications à sounds.txt"}),
        both("CdCopyLine", {"Copy line to clipboard", "Copier la ligne dans le presse papiers"}),

        label("ImPanelE", {"Edit Functions", "Fonctions d'édition"}, fold),
        both("CdEdit", {"Open Sounds.txt file", "Ouvrir Sounds.txt"}),
        both("CdShowG", {"Show/Hide #g sounds", "Afficher/Cacher les sons #g"}),

        label("FrSearch", {"Search", "Rechercher"}),
        tip("TxSearch",
            {"Text to look for in the lines (F3: next)", "Texte à chercher dans les lignes (F3 : suivant)"}),
        tip("CdSearch", {"Search", "Recherche"}),
        both("OpDown", {"Down", "Bas"}),
        both("OpUp", {"Up", "Haut"}),
        both("CkCase", {"Upper/Lower Case sensitive", "Respecter la casse"}),
        label("LbID", {"Sound ID", "ID sons"}),
        tip("LiSFX", {"Sounds of sounds.txt; modified ones are marked",
                      "Sons de sounds.txt ; ceux qui sont modifiés sont marqués"}),
        tip("CdPlay2", {"Play sample", "Jouer le sample"}),
        tip("CdStopS2", stop),

        label("ImPanelL", lineInFile, fold),
        label("LbLine", lineInFile),
        tip("TxLine", {"Number of the line in the file", "Numéro de la ligne dans le fichier"}),
        label("LbOrig", {"Original", "Originale"}),
        tip("TxOrig", original),
        label("LbModif", {"Modifyed", "Modifiée"}),
        tip("TxModif", modified),

        label("LbValues", {"Sample Values", "Valeurs Sample"}),
        label("LbVOL", BilingualText::same("VOL"), {"Volume", "Volume"}),
        tip("TxVOL", {"Volume", "Volume"}),
        label("LbPIT", BilingualText::same("PIT"), pitch),
        tip("TxPIT", pitch),
        label("LbRAD", BilingualText::same("RAD"), radius),
        tip("TxRAD", radius),
        label("LbCH", BilingualText::same("CH"), probability),
        tip("TxCH", probability),
        tip("CkP", {"Random Pitch", "Hauteur aléatoire"}),
        tip("CkV", {"Random Volume", "Volume aléatoire"}),
        tip("CkR", {"Random Radius", "Rayon d'écoute aléatoire"}),
        tip("CkL", {"Loop", "Son en boucle"}),

        label("ImPanelS", {"Samples", "Samples"}, fold),
        label("LbNames", {"Samples names", "Noms Samples"}),
        tip("LiSamp", {"Samples of the line", "Samples de la ligne"}),
        label("LbName", {"Name", "Nom"}),
        tip("TxSamp", {"Name of a sample, without .wav", "Nom d'un sample, sans .wav"}),
        tip("CdPlay", {"Play selected sample", "Jouer le sample"}),
        tip("CdStopS", stop),
        tip("CdAddSmp", {"Add sample", "Ajouter le sample"}),
        tip("CdRename", {"Rename selected sample", "Renommer le sample"}),
        tip("CdDelSmp", {"Remove sample", "Retirer le sample"}),
        tip("CdChSamp", {"Choose Sample", "Choisir Sample"}),

        label("ImPanelD", {"WADs", "WADs"}, fold),
        label("LbWADs", {"Allocated WADs (letters)", "WADs (lettres) assignés"}),
        tip("LiWAD", {"Levels that include the sound", "Niveaux qui comprennent le son"}),

        label("ImPanelO", {"Letters - Objects", "Lettres - Objets"}, fold),
        tip("CbTWad", {"The WAD you are working on", "Le WAD sur lequel vous travaillez"}),
        label("LbWAD", {"WAD Name", "Nom du WAD"}),
        tip("TxWAD", {"WAD Name", "Nom du WAD"}),
        label("LbLett", {"Letter", "Lettre"}),
        tip("TxLett", {"Letter", "Lettre"}),
        label("LbTitre", {"Title", "Titre"}),
        tip("TxTitre", {"Title", "Titre"}),
        label("FrLetters", {"Letters/Object", "Lettres/Objets"}),
        tip("CdAddWAD", {"Add Letter or Object", "Ajouter Lettre ou Objet"}),
        tip("CdDel", {"Remove Letter or Object", "Enlever Lettre ou Objet"}),
        tip("CdErase", {"Remove letter from every lines", "Enlever la lettre de toutes les lignes"}),
        label("LbReplacL", {"Replace WAD Letter by...............", "Remplacer la Lettre du WAD par"}),
        tip("TxReplacL", {"Replace letter", "Remplacer la lettre"}),
        tip("CdReplacL", {"Replace letter", "Remplacer la lettre"}),
        label("LbObj", {"Object", "Objet"}),
        tip("TxObj", {"Object", "Objet"}),
        tip("CdObj", {"Show/Hide object selection", "Afficher/Cacher la sélection d'objets"}),
        tip("CdEffObj", {"Erase object name", "Effacer nom d'objet"}),
        both("OpWAD0", {"Samples (.SAM)", "Samples (.SAM)"}),
        both("OpWAD1", {"Objects (.WAS)", "Objets (.WAS)"}),
        tip("LbPath", {"Level editor folder", "Répertoire de l'éditeur de niveaux"}),
    };
}

} // namespace

void showMainWindowCaptions(QWidget& window, Language language)
{
    static const std::vector<Caption> table = captions();
    showCaptions(window, table, language);
}

} // namespace tavrel
