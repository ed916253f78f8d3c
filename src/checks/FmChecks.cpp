// SPDX-License-Identifier: GPL-3.0-or-later
#include "checks/FmChecks.h"

#include "base/Counted.h"
#include "base/Titles.h"
#include "checks/FindingTexts.h"
#include "checks/ListSaving.h"
#include "checks/SeverityIcon.h"
#include "ui/BusyPointer.h"
#include "ui/Captions.h"
#include "ui/Colours.h"
#include "ui/Controls.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tavrel {

namespace {

constexpr std::size_t colourSlot = 1;
constexpr int findingRole = Qt::UserRole;
constexpr Severity severities[] = {Severity::Error, Severity::Warning, Severity::Note};

QLabel* makeWrappedText(const char* name)
{
    auto* const label = named(new QLabel, name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

// While the checks run, the program takes no input but the one that stops them.
class InputGate : public QObject
{
public:
    explicit InputGate(QWidget* open) : m_open(open) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* target, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::Wheel:
        case QEvent::Close:
            return target != m_open && target->isWidgetType();
        default:
            return false;
        }
    }

private:
    QWidget* m_open;
};

// Shows itself when the work lasts.
class WindowProgress : public Progress
{
public:
    WindowProgress(QProgressBar& bar, QPushButton& cancel) : m_bar(bar), m_cancel(cancel), m_gate(&cancel)
    {
        m_watch.start();
        m_cancelling = QObject::connect(&cancel, &QPushButton::clicked, [this] { m_stopped = true; });
    }
    WindowProgress(const WindowProgress&) = delete;
    WindowProgress& operator=(const WindowProgress&) = delete;
    ~WindowProgress() override
    {
        QObject::disconnect(m_cancelling);
        m_bar.hide();
        m_cancel.hide();
    }

    bool show(std::size_t done, std::size_t total) override
    {
        constexpr qint64 patience = 250;
        constexpr qint64 paintingMilliseconds = 40;
        if (m_watch.elapsed() < patience ||
            (m_painted.isValid() && m_painted.elapsed() < paintingMilliseconds)) {
            return !m_stopped;
        }
        m_bar.setRange(0, static_cast<int>(total));
        m_bar.setValue(static_cast<int>(done));
        m_bar.show();
        m_cancel.show();
        QCoreApplication::processEvents();
        m_painted.start();
        return !m_stopped;
    }

private:
    QProgressBar& m_bar;
    QPushButton& m_cancel;
    InputGate m_gate;
    BusyPointer m_pointer;
    QElapsedTimer m_watch;
    QElapsedTimer m_painted;
    QMetaObject::Connection m_cancelling;
    bool m_stopped = false;
};

bool isFile(const Finding& finding)
{
    return finding.fix && std::holds_alternative<FileFix>(finding.fix->action);
}

bool isForRegister(const Finding& finding)
{
    return finding.fix && std::holds_alternative<RegisterFix>(finding.fix->action);
}

// What the fixes of these findings change, for those who decide.
std::string whatChanges(const std::vector<const Finding*>& findings, const SoundCatalogue& catalogue)
{
    return previewOf(linesToReadOtherwise(findings)) + previewOf(changesOf(findings, catalogue), catalogue);
}

// The first lines of a long text.
std::string shortened(const std::string& text)
{
    constexpr int mostLines = 24;
    std::size_t end = 0;
    for (int line = 0; line < mostLines && end != std::string::npos; ++line) {
        end = text.find('\n', end == 0 ? 0 : end + 1);
    }
    return end == std::string::npos || end + 1 >= text.size() ? text : text.substr(0, end + 1) + "...\n";
}

} // namespace

FmChecks::FmChecks(QWidget* parent, ChecksContext context)
    : WatchingWindow(parent, context.language, std::chrono::milliseconds(150)), m_context(std::move(context)),
      m_counts(makeHeading("LbCounts")), m_scope(makeComboBox("CbScope")),
      m_search(named(new QLineEdit, "TxSearch")), m_progress(named(new QProgressBar, "PbChecks")),
      m_cancel(makeButton("CdCancelCheck", Glyph::Close)), m_pages(new QStackedWidget),
      m_tree(named(new QTreeWidget, "LiFindings")), m_emptyTitle(makeHeading("LbEmptyTitle")),
      m_emptyText(makeWrappedText("LbEmptyText")), m_text(makeWrappedText("LbFinding")),
      m_preview(makeTextView("TxPreview")), m_fix(makeButton("CdFix", Glyph::Accept)),
      m_fixAll(makeButton("CdFixAll", Glyph::Apply)), m_show(makeButton("CdShow", Glyph::ToStart)),
      m_copy(makeButton("CdCopyList", Glyph::CopyLine)), m_save(makeButton("CdSave", Glyph::ExportBackup)),
      m_close(makeButton("CdClose", Glyph::Close))
{
    setObjectName("FmChecks");
    layOut();
    paintWith(*m_tree, m_context.colours.slots[colourSlot]);
    paintWith(*m_preview, m_context.colours.slots[colourSlot]);
    connectControls();
    FmChecks::showCaptions(); // no window derives from this one
    showSelected();
    m_tree->setFocus();
}

void FmChecks::layOut()
{
    constexpr int margin = 2 * controlGap;
    m_tree->setColumnCount(3);
    m_tree->setUniformRowHeights(true);
    m_tree->setRootIsDecorated(true);
    m_tree->setIndentation(14);
    m_tree->setIconSize({14, 14});
    m_tree->setAllColumnsShowFocus(true);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    m_tree->header()->setSectionsMovable(false);
    m_tree->setColumnWidth(0, 210);
    m_tree->setColumnWidth(2, 270);
    m_search->setClearButtonEnabled(true);
    m_search->setMaximumWidth(260);
    m_scope->setMinimumWidth(190);
    m_progress->setTextVisible(false);
    m_progress->setFixedSize(120, 14);

    auto* const mark = named(new QLabel, "ImEmpty");
    mark->setPixmap(glyphIcon(Glyph::Accept, QColor(0x8C, 0xC0, 0x74)).pixmap(72, 72));
    auto* const empty = new QWidget;
    auto* const column = new QVBoxLayout(empty);
    column->setSpacing(2 * controlGap);
    column->addStretch(2);
    for (QLabel* const label : {mark, m_emptyTitle, m_emptyText}) {
        label->setAlignment(Qt::AlignCenter);
        column->addWidget(label);
    }
    column->addStretch(3);
    QFont large = m_emptyTitle->font();
    large.setPixelSize(20);
    m_emptyTitle->setFont(large);
    m_pages->addWidget(m_tree);
    m_pages->addWidget(empty);

    auto* const filters = rowOf({m_counts, m_progress, m_cancel, m_scope, m_search});
    filters->insertStretch(1, 1);
    auto* const buttons = rowOf({m_fix, m_fixAll, m_show, m_copy, m_save, m_close});
    buttons->insertStretch(3, 1);
    m_preview->setFixedHeight(74);
    content().setContentsMargins(margin, margin, margin, margin);
    content().setSpacing(controlGap);
    content().addLayout(filters);
    content().addWidget(m_pages, 1);
    content().addWidget(m_text);
    content().addWidget(m_preview);
    content().addLayout(buttons);
    m_progress->hide();
    m_cancel->hide();
    resize(1060, 640);
}

void FmChecks::connectControls()
{
    connect(m_scope, &QComboBox::currentIndexChanged, this, &FmChecks::fill);
    connect(m_search, &QLineEdit::textChanged, this, &FmChecks::fill);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &FmChecks::showSelected);
    activateFrom(*m_tree);
    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, m_search, [this] { m_search->setFocus(); });
    auto* const again = new QShortcut(QKeySequence(Qt::Key_F5), this);
    connect(again, &QShortcut::activated, this, &FmChecks::run);
    connect(m_fix, &QPushButton::clicked, this, &FmChecks::fixSelected);
    connect(m_fixAll, &QPushButton::clicked, this, &FmChecks::fixAllOfKind);
    connect(m_show, &QPushButton::clicked, this, &FmChecks::activate);
    connect(m_copy, &QPushButton::clicked, this, &FmChecks::copyList);
    connect(m_save, &QPushButton::clicked, this, &FmChecks::saveFindings);
    connect(m_close, &QPushButton::clicked, this, &QWidget::close);
}

void FmChecks::showCaptions()
{
    const BilingualText close("Close", "Fermer");
    const Caption captions[] = {
        {"CdCancelCheck", {"Cancel", "Annuler"}, {"End the check here", "Arrêter le contrôle ici"}},
        {"CbScope",
         {},
         {"All findings, or those of the current WAD", "Tous les constats, ou ceux du WAD courant"}},
        {"TxSearch", {}, {"Search in the findings (Ctrl+F)", "Rechercher dans les constats (Ctrl+F)"}},
        {"LiFindings",
         {},
         {"What was found; Enter shows the sound in the main window",
          "Ce qui a été trouvé ; Entrée montre le son dans la fenêtre principale"}},
        {"TxPreview", {}, {"What the fix changes", "Ce que la correction modifie"}},
        {"CdFix", {"Fix", "Corriger"}, {"Do what stands above", "Faire ce qui est indiqué ci-dessus"}},
        {"CdFixAll",
         {"Fix all of this kind", "Corriger tous ceux de ce type"},
         {"Shows what will change, then mends all listed findings of this kind in one step",
          "Montre ce qui change, puis corrige en une étape tous les constats listés de ce type"}},
        {"CdShow",
         {"Show the sound", "Montrer le son"},
         {"Select the sound in the main window (Enter)",
          "Choisir le son dans la fenêtre principale (Entrée)"}},
        {"CdCopyList",
         {"Copy the list", "Copier la liste"},
         {"Copy the list to clipboard", "Copier la liste dans le presse papiers"}},
        {"CdSave",
         {"Save the list...", "Enregistrer la liste..."},
         {"Save the list as a text or a table", "Enregistrer la liste comme texte ou tableau"}},
        {"CdClose", close, close},
    };
    tavrel::showCaptions(*this, captions, language());
    setWindowTitle(in(titles::checkProject));
    m_search->setPlaceholderText(in({"Search", "Rechercher"}));
    m_tree->setHeaderLabels(
        {in({"Sound or file", "Son ou fichier"}), in({"What was found", "Constat"}), in({"Kind", "Type"})});
    showScopes();
}

void FmChecks::showScopes()
{
    const QSignalBlocker quiet(m_scope);
    const bool isOfWad = m_scope->currentIndex() == 1;
    const CurrentWad wad = m_context.wad();
    m_scope->clear();
    m_scope->addItem(in({"The whole project", "Tout le projet"}));
    if (!wad.wadName.empty()) {
        m_scope->addItem(in({"Only the WAD ", "Seulement le WAD "}) + fromCodePage(wad.wadName));
        m_scope->setCurrentIndex(isOfWad ? 1 : 0);
    }
    m_scope->setEnabled(m_scope->count() > 1);
}

void FmChecks::run()
{
    if (m_isRunning) {
        refresh();
        return;
    }
    m_isRunning = true;
    CheckReport report;
    {
        WindowProgress progress(*m_progress, *m_cancel);
        report = m_context.check(progress);
    }
    m_isRunning = false;
    markCurrent();
    if (report.cancelled) {
        m_counts->setText(
            in({"Check not finished (F5 starts it again)", "Contrôle inachevé (F5 le relance)"}));
        return;
    }
    showScopes();
    take(report);
    m_context.checked(report);
}

void FmChecks::take(const CheckReport& report)
{
    const Finding* const before = selected();
    const std::optional<Finding> kept = before == nullptr ? std::nullopt : std::optional(*before);
    const QTreeWidgetItem* const item = m_tree->currentItem();
    const int row = item != nullptr && item->parent() != nullptr
                        ? item->parent()->indexOfChild(const_cast<QTreeWidgetItem*>(item))
                        : 0;
    m_report = report;
    fill();
    if (!kept) {
        return;
    }
    const auto same = std::ranges::find_if(m_report.findings, [&kept](const Finding& finding) {
        return finding.check == kept->check && finding.text == kept->text && finding.sounds == kept->sounds;
    });
    if (same != m_report.findings.end()) {
        selectRow(&*same);
        return;
    }
    // The next one takes the place of what was mended.
    for (int group = 0; group < m_tree->topLevelItemCount(); ++group) {
        QTreeWidgetItem* const heading = m_tree->topLevelItem(group);
        if (heading->data(0, findingRole).toInt() == static_cast<int>(kept->severity)) {
            m_tree->setCurrentItem(heading->child(std::min(row, heading->childCount() - 1)));
        }
    }
}

bool FmChecks::isWanted(const Finding& finding) const
{
    const SoundCatalogue& catalogue = m_context.catalogue();
    if (m_scope->currentIndex() == 1 && !concernsWad(finding, catalogue, m_context.wad())) {
        return false;
    }
    const QString wanted = m_search->text().trimmed();
    const auto has = [&wanted](const QString& text) { return text.contains(wanted, Qt::CaseInsensitive); };
    return wanted.isEmpty() || has(QString::fromStdString(placeOf(finding, catalogue))) ||
           has(in(finding.text)) || has(in(findCheck(finding.check)->title));
}

std::vector<const Finding*> FmChecks::listed() const
{
    std::vector<const Finding*> findings;
    for (const Finding& finding : m_report.findings) {
        if (isWanted(finding)) {
            findings.push_back(&finding);
        }
    }
    return findings;
}

void FmChecks::fill()
{
    QSignalBlocker quiet(m_tree);
    const Finding* const before = selected();
    m_tree->clear();
    QStringList counts;
    for (const Severity severity : severities) {
        fillGroup(severity);
        const auto count = std::ranges::count(m_report.findings, severity, &Finding::severity);
        if (count > 0) {
            counts += in(counted(static_cast<std::size_t>(count), severity));
        }
    }
    m_counts->setText(counts.join(", "));
    m_pages->setCurrentIndex(m_tree->topLevelItemCount() == 0 ? 1 : 0);
    showEmptyPage();
    quiet.unblock();
    selectRow(before);
}

void FmChecks::fillGroup(Severity severity)
{
    QList<QTreeWidgetItem*> rows;
    const SoundCatalogue& catalogue = m_context.catalogue();
    const QIcon icon = severityIcon(severity, m_context.colours.slots[colourSlot]);
    for (std::size_t i = 0; i < m_report.findings.size(); ++i) {
        const Finding& finding = m_report.findings[i];
        if (finding.severity != severity || !isWanted(finding)) {
            continue;
        }
        const QString text = in(finding.text);
        auto* const row = new QTreeWidgetItem(
            {QString::fromStdString(placeOf(finding, catalogue)), text, in(findCheck(finding.check)->title)});
        row->setIcon(0, icon);
        row->setToolTip(1, plainToolTip(text));
        row->setForeground(2, mutedColour(m_context.colours.slots[colourSlot]));
        row->setData(0, findingRole, static_cast<qulonglong>(i));
        rows += row;
    }
    if (rows.empty()) {
        return;
    }
    auto* const heading =
        new QTreeWidgetItem(m_tree, {in(counted(static_cast<std::size_t>(rows.size()), severity))});
    heading->setData(0, findingRole, static_cast<int>(severity));
    QFont bold = m_tree->font();
    bold.setBold(true);
    heading->setFont(0, bold);
    heading->addChildren(rows);
    heading->setFirstColumnSpanned(true);
    heading->setExpanded(true);
}

void FmChecks::showEmptyPage()
{
    const bool isAllWell = m_report.findings.empty();
    const std::string sounds = std::to_string(m_context.catalogue().size());
    m_emptyTitle->setText(isAllWell ? in({"All is well", "Tout est en ordre"})
                                    : in({"Nothing here", "Rien ici"}));
    m_emptyText->setText(
        isAllWell ? in({sounds + " sounds, their samples, letters and levels: there is nothing to mend.",
                        sounds + " sons, leurs samples, lettres et niveaux : il n'y a rien à corriger."})
                  : in({"The project has findings, but none of this WAD with these words.",
                        "Le projet a des constats, mais aucun de ce WAD avec ces mots."}));
    findChild<QLabel*>("ImEmpty")->setVisible(isAllWell);
}

void FmChecks::selectRow(const Finding* wanted)
{
    QTreeWidgetItem* chosen = nullptr;
    for (int group = 0; group < m_tree->topLevelItemCount(); ++group) {
        const QTreeWidgetItem* const heading = m_tree->topLevelItem(group);
        for (int row = 0; row < heading->childCount(); ++row) {
            QTreeWidgetItem* const item = heading->child(row);
            const auto index = static_cast<std::size_t>(item->data(0, findingRole).toULongLong());
            if (chosen == nullptr || &m_report.findings[index] == wanted) {
                chosen = item;
            }
        }
    }
    m_tree->setCurrentItem(chosen);
    showSelected();
}

const Finding* FmChecks::selected() const
{
    const QTreeWidgetItem* const item = m_tree->currentItem();
    if (item == nullptr || item->parent() == nullptr) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(item->data(0, findingRole).toULongLong());
    return index < m_report.findings.size() ? &m_report.findings[index] : nullptr;
}

std::vector<const Finding*> FmChecks::fixableLike(const Finding& finding) const
{
    std::vector<const Finding*> findings = listed();
    std::erase_if(findings, [&finding](const Finding* other) {
        return other->check != finding.check || !other->fix || isForRegister(*other);
    });
    return findings;
}

void FmChecks::showSelected()
{
    const Finding* const finding = selected();
    const bool isFixable = finding != nullptr && finding->fix;
    const std::size_t alike = isFixable ? fixableLike(*finding).size() : 0;
    m_fix->setEnabled(isFixable);
    m_fixAll->setEnabled(alike > 1);
    m_fixAll->setText(in({"Fix all of this kind", "Corriger tous ceux de ce type"}) +
                      (alike > 1 ? QString(" (%1)").arg(alike) : QString()));
    m_show->setEnabled(finding != nullptr && !finding->sounds.empty());
    m_copy->setEnabled(!m_report.findings.empty());
    m_save->setEnabled(!m_report.findings.empty());
    m_preview->setVisible(m_pages->currentIndex() == 0);
    m_text->setVisible(m_pages->currentIndex() == 0);
    if (finding == nullptr) {
        m_text->clear();
        m_preview->clear();
        return;
    }
    m_text->setText(in(finding->text));
    QString preview =
        isFixable ? in(finding->fix->button) : in({"No automatic fix.", "Pas de correction automatique."});
    if (isFixable) {
        const std::string changes = whatChanges({finding}, m_context.catalogue());
        preview += "\n" + QString::fromStdString(shortened(changes)).trimmed();
    }
    m_preview->setPlainText(preview.trimmed());
}

void FmChecks::activate()
{
    const Finding* const finding = selected();
    if (finding != nullptr && !finding->sounds.empty()) {
        m_context.selectSound(finding->sounds.front());
    }
}

void FmChecks::fixSelected()
{
    const Finding* const finding = selected();
    if (finding == nullptr || !finding->fix) {
        return;
    }
    if (const auto* const letter = std::get_if<RegisterFix>(&finding->fix->action)) {
        m_context.openRegister(letter->letter);
        refresh();
        return;
    }
    mend({finding}, finding->fix->button);
}

void FmChecks::fixAllOfKind()
{
    const Finding* const finding = selected();
    if (finding == nullptr) {
        return;
    }
    const std::vector<const Finding*> findings = fixableLike(*finding);
    const BilingualText kind = findCheck(finding->check)->title;
    std::string changes = whatChanges(findings, m_context.catalogue());
    for (const Finding* const other : findings) {
        changes += isFile(*other)
                       ? in(BilingualText::same(placeOf(*other, m_context.catalogue()))).toStdString() + "\n"
                       : "";
    }
    Question question{
        titles::checkProject,
        BilingualText("Mend ", "Corriger ") +
            counted(findings.size(), {"finding: ", "constat : "}, {"findings: ", "constats : "}) + kind,
        Buttons::YesNo};
    question.details = BilingualText::same(changes);
    question.showsDetails = true;
    if (m_context.dialogs.ask(question) == Answer::Yes) {
        mend(findings, kind);
    }
}

void FmChecks::mend(const std::vector<const Finding*>& findings, const BilingualText& label)
{
    std::vector<LineReadOtherwise> otherwise = linesToReadOtherwise(findings);
    std::vector<SoundCatalogue::LineChange> changes = changesOf(findings, m_context.catalogue());
    const bool isDone = otherwise.empty()
                            ? changes.empty() || m_context.changeLines(std::move(changes), label)
                            : m_context.readOtherwise(std::move(otherwise));
    if (isDone) {
        mendFiles(findings);
        run();
    }
}

void FmChecks::mendFiles(const std::vector<const Finding*>& findings)
{
    for (const Finding* const finding : findings) {
        const auto* const repair = std::get_if<FileFix>(&finding->fix->action);
        if (const Problem problem = repair == nullptr ? std::nullopt : (*repair)()) {
            m_context.dialogs.show({MessageIcon::Critical, titles::checkProject, problem->text});
            return;
        }
    }
}

void FmChecks::copyList()
{
    QString text =
        QString::fromStdString(textOf(listed(), m_context.catalogue(), language())).replace("\r\n", "\n");
    QApplication::clipboard()->setText(text);
}

void FmChecks::saveFindings()
{
    saveList(
        in({"findings.txt", "constats.txt"}).toStdString(), false,
        [this](bool asTable) {
            return asTable ? csvOf(listed(), m_context.catalogue(), language())
                           : textOf(listed(), m_context.catalogue(), language());
        },
        m_context.dialogs);
}

} // namespace tavrel
