// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FunctionPanels.h"

#include "app/FmPaste.h"
#include "base/Counted.h"
#include "base/Titles.h"
#include "catalogue/ChangedLines.h"
#include "catalogue/LineEditor.h"
#include "catalogue/PastedLines.h"
#include "references/WadListImport.h"
#include "ui/Captions.h"
#include "ui/Controls.h"
#include "ui/FoldingPanel.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

// With its caption, in a column of such buttons.
QPushButton* makeRowButton(const char* name, Glyph glyph)
{
    QPushButton* const button = makeButton(name, glyph);
    button->setProperty("row", true);
    return button;
}

// A caption that is its own tool tip.
Caption both(const char* control, const BilingualText& text)
{
    return {control, text, text};
}

} // namespace

FunctionPanels::FunctionPanels(const PanelContext& context, const FunctionDoors& doors)
    : MainPanel(context), m_showChanges(doors.showChanges), m_compare(doors.compare),
      m_generate(makeRowButton("CdCopy", Glyph::Generate)),
      m_importSamples(makeRowButton("CdLoadSAM", Glyph::ImportSam)),
      m_importObjects(makeRowButton("CdLoadWAS", Glyph::ImportWas)),
      m_viewWad(makeRowButton("CdViewWAD", Glyph::ViewWad)),
      m_register(makeRowButton("CdRefW", Glyph::Register)),
      m_statistics(makeRowButton("CdStats", Glyph::Statistics)),
      m_checkSamples(makeRowButton("CdSmpCheck", Glyph::CheckSamples)),
      m_import(makeRowButton("CdImport", Glyph::ImportBackup)),
      m_export(makeRowButton("CdExport", Glyph::ExportBackup)),
      m_accept(makeRowButton("CdValidW", Glyph::Accept)),
      m_restore(makeRowButton("CdRestore", Glyph::RestoreLine)),
      m_backToFile(makeIconButton("CdFileLine", Glyph::BackToFile)),
      m_apply(makeRowButton("CdApply", Glyph::Apply)),
      m_copyLine(makeRowButton("CdCopyLine", Glyph::CopyLine)),
      m_edit(makeRowButton("CdEdit", Glyph::OpenFile)),
      m_globals(makeRowButton("CdShowG", Glyph::ShowGlobals))
{
    layOut();
    connectControls(doors);
    enableLine();
    reloaded();
}

void FunctionPanels::layOut()
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(controlGap);
    const auto add = [&](Panel which, const char* title, std::initializer_list<QPushButton*> buttons) {
        auto* const panel = new FoldingPanel(title, nullptr);
        m_panels[static_cast<std::size_t>(which)] = panel;
        for (QPushButton* const button : buttons) {
            panel->content().addWidget(button);
        }
        column->addWidget(panel);
    };
    add(Panel::WadFunctions, "ImPanelW",
        {m_generate, m_importSamples, m_importObjects, m_viewWad, m_register});
    add(Panel::ProgramFunctions, "ImPanelP", {m_statistics, m_checkSamples, m_import, m_export});
    add(Panel::Modifications, "ImPanelM", {m_accept, m_apply, m_copyLine});
    auto* const restoring = rowOf({m_restore, m_backToFile});
    restoring->setStretch(0, 1);
    panel(Panel::Modifications).content().insertLayout(1, restoring);
    add(Panel::EditFunctions, "ImPanelE", {m_edit, m_globals});
    column->addStretch(1);
}

void FunctionPanels::connectControls(const FunctionDoors& doors)
{
    const std::pair<QPushButton*, std::function<void()>> opened[] = {
        {m_generate, doors.generate},
        {m_importSamples, [import = doors.importList] { import(WadListKind::Samples); }},
        {m_importObjects, [import = doors.importList] { import(WadListKind::Objects); }},
        {m_viewWad, doors.viewWadLists},
        {m_register, doors.openRegister},
        {m_statistics, doors.openStatistics},
        {m_checkSamples, doors.checkSamplesFolder},
        {m_import, doors.openImport},
        {m_export, doors.openExport},
        {m_edit, doors.editSounds},
        {m_globals, doors.showOrHideGlobals},
    };
    for (const auto& [button, open] : opened) {
        connect(button, &QPushButton::clicked, this, open);
    }
    connect(m_accept, &QPushButton::clicked, this, &FunctionPanels::accept);
    connect(m_restore, &QPushButton::clicked, this, &FunctionPanels::restore);
    connect(m_backToFile, &QPushButton::clicked, this, &FunctionPanels::backToFile);
    connect(m_apply, &QPushButton::clicked, this, &FunctionPanels::apply);
    connect(m_copyLine, &QPushButton::clicked, this, &FunctionPanels::copyLines);
}

void FunctionPanels::showLanguage(Language language)
{
    const BilingualText fold("Fold or unfold this panel", "Replier ou déplier ce panneau");
    const Caption captions[] = {
        {"ImPanelW", {"Wad Functions", "Fonctions WAD"}, fold},
        both("CdCopy", {"Generate SFX file", "Générer le fichier SFX"}),
        both("CdLoadSAM", {"Import SAM (samples) file", "Importer le fichier SAM (samples)"}),
        both("CdLoadWAS", {"Import WAS (objects) file", "Importer le fichier WAS (objets)"}),
        both("CdViewWAD", {"View SAM/WAS file", "Voir le fichier SAM/WAS"}),
        both("CdRefW", {"Manage WAD/Letter References", "Gestion des Références WAD/Lettre"}),

        {"ImPanelP", {"PGM Functions", "Fonctions PGM"}, fold},
        both("CdStats", {"Project statistics", "Statistiques Projet"}),
        both("CdSmpCheck",
             {"Check/Visualize a Samples directory", "Contrôler/Visualiser un répertoire Samples"}),
        both("CdImport", {"Import/Restore a backup", "Importer/Restaurer une sauvegarde"}),
        both("CdExport", {"Export/Backup modifications", "Exporter/Sauvegarder les modifications"}),

        {"ImPanelM", {"Modifications", "Modifications"}, fold},
        both("CdValidW", {"Accept values", "Accepter les valeurs"}),
        both("CdRestore", {"Restore original line", "Restaurer la ligne d'origine"}),
        {"CdFileLine", {}, backToFileLabel()},
        both("CdApply", {"Apply changes to sounds.txt", "Appliquer les modifications à sounds.txt"}),
        both("CdCopyLine", {"Copy line to clipboard", "Copier la ligne dans le presse papiers"}),

        {"ImPanelE", {"Edit Functions", "Fonctions d'édition"}, fold},
        both("CdEdit", {"Open Sounds.txt file", "Ouvrir Sounds.txt"}),
        both("CdShowG", {"Show/Hide #g sounds", "Afficher/Cacher les sons #g"}),
    };
    showCaptions(*this, captions, language);
    enableImports(); // their tool tips say more than their captions
}

// Enabling

void FunctionPanels::reloaded()
{
    for (QPushButton* const button : {m_apply, m_generate, m_viewWad, m_register, m_import, m_export}) {
        button->setEnabled(session().isLoaded());
    }
    historyChanged();
}

void FunctionPanels::historyChanged()
{
    enableImports();
    enableLine();
    drawAttention(*m_apply, session().pending());
}

void FunctionPanels::valuesChanged()
{
    drawAttention(*m_accept, selection().edited());
}

void FunctionPanels::enableLine()
{
    const bool editable = selection().canEditLines();
    m_accept->setEnabled(editable);
    m_restore->setEnabled(editable);
    m_copyLine->setEnabled(selection().editor().canEditAny());
    const SoundCatalogue& catalogue = session().catalogue();
    const auto differs = [&catalogue](std::size_t number) {
        return catalogue.lineInFile(number) > 0 && !catalogue.isProtected(number) &&
               catalogue.fileLine(number) != catalogue.currentLine(number);
    };
    m_backToFile->setEnabled(editable && std::ranges::any_of(selection().numbers(), differs));
    valuesChanged();
}

// An import starts from the lines saved for the WAD, so the settings may forbid it once there is work to
// lose.
void FunctionPanels::enableImports()
{
    const bool forbidden =
        !session().settings().loadWadAfterChanges &&
        (session().pending() || hasChangedLines(session().places().program, session().wad().wadName));
    const struct
    {
        QPushButton* button;
        WadListKind kind;
    } imports[] = {{m_importSamples, WadListKind::Samples}, {m_importObjects, WadListKind::Objects}};
    for (const auto& [button, kind] : imports) {
        BilingualText toolTip = importTitle(kind);
        if (forbidden) {
            toolTip += BilingualText::same("\n") + importForbidden();
        }
        button->setEnabled(session().isLoaded() && !forbidden);
        button->setToolTip(inLanguage(toolTip, language()));
    }
}

// Commands

bool FunctionPanels::accept()
{
    return m_accept->isEnabled() && acceptValues();
}

void FunctionPanels::restore()
{
    if (!selection().canEditLines()) {
        return;
    }
    const std::vector<std::size_t> numbers = selection().numbers();
    if (const auto changed = restoreLines(session().catalogue(), numbers, dialogs())) {
        selection().dropValues();
        say(numbers.size() > 1 ? changed->report() : BilingualText());
    }
}

void FunctionPanels::backToFile()
{
    if (selection().canEditLines() && selection().mayLeave(dialogs())) {
        const std::vector<std::size_t> numbers = selection().numbers();
        const SoundsChanged changed = backToFileLines(session().catalogue(), numbers, dialogs());
        say(numbers.size() > 1 ? changed.report() : BilingualText());
    }
}

void FunctionPanels::showGlobalsHidden(bool hidden)
{
    drawAttention(*m_globals, hidden);
}

// The changes can be looked at before the answer.
bool FunctionPanels::confirmApply(const Question& asked)
{
    Question question = asked;
    question.otherChoice = {"Show changes", "Voir les modifications"};
    Answer answer = dialogs().ask(question);
    while (answer == Answer::Other) {
        m_showChanges();
        answer = dialogs().ask(question);
    }
    return answer == Answer::Yes;
}

bool FunctionPanels::apply()
{
    if (!m_apply->isEnabled() || !selection().mayLeave(dialogs())) {
        return false;
    }
    const bool applied =
        session().apply(dialogs(), std::nullopt,
                        {[this](const Question& question) { return confirmApply(question); }, m_compare});
    selection().dropValues();
    say(applied ? BilingualText("[sounds.txt] is written", "[sounds.txt] est écrit") : BilingualText());
    return applied;
}

// The clipboard

// Without the protected lines, as of a single one.
void FunctionPanels::copyLines()
{
    const SoundCatalogue& catalogue = session().catalogue();
    std::string lines;
    std::size_t count = 0;
    for (const std::size_t number : selection().numbers()) {
        if (!catalogue.isProtected(number)) {
            lines += (count == 0 ? "" : "\n") + catalogue.currentLine(number);
            ++count;
        }
    }
    if (count == 0) {
        return;
    }
    QApplication::clipboard()->setText(fromCodePage(lines));
    say(counted(count, {"line copied", "ligne copiée"}, {"lines copied", "lignes copiées"}));
}

void FunctionPanels::pasteLines()
{
    if (!session().isLoaded() || !selection().mayLeave(dialogs())) {
        return;
    }
    const std::vector<std::size_t> numbers = selection().numbers();
    const std::string text = toCodePage(QApplication::clipboard()->text());
    if (const auto changed = tavrel::pasteLines(session().catalogue(), text, numbers, dialogs())) {
        say(changed->report());
    }
}

void FunctionPanels::copyValues()
{
    if (!selection().editor().canEdit()) {
        return;
    }
    const std::size_t number = selection().number().value();
    m_copied = {stepLabel({}, session().catalogue(), number).english.substr(2),
                selection().editor().record()};
    say(BilingualText("Values copied from ", "Valeurs copiées de ") + m_copied->name);
}

void FunctionPanels::pasteValues()
{
    if (!m_copied) {
        say({"No values were copied yet (Ctrl+Shift+C)", "Aucune valeur n'a encore été copiée (Ctrl+Maj+C)"});
        return;
    }
    if (!selection().canEditLines() || !selection().mayLeave(dialogs())) {
        return;
    }
    const std::vector<std::size_t> numbers = selection().numbers();
    FmPaste window(this, m_copied->name, m_copied->line, numbers.size(), m_parts, language());
    if (window.exec() != QDialog::Accepted) {
        return;
    }
    m_parts = window.chosenParts();
    const SoundsChanged changed = editSounds(session().catalogue(), numbers, editTo(m_copied->line, m_parts),
                                             titles::pasteValues, dialogs());
    tellRefused(changed, titles::pasteValues, dialogs());
    say(changed.agreed ? changed.report() : BilingualText());
}

} // namespace tavrel
