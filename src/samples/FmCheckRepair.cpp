// SPDX-License-Identifier: GPL-3.0-or-later
// Repairing the samples of the list, and putting their originals back.
#include "base/Titles.h"
#include "samples/FmCheck.h"
#include "samples/SampleList.h"
#include "samples/WaveformView.h"
#include "ui/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QProgressBar>

namespace tavrel {

std::vector<std::filesystem::path> FmCheck::filesOf(const std::vector<int>& rows) const
{
    std::vector<std::filesystem::path> files;
    for (const int row : rows) {
        files.push_back(m_files.at(static_cast<std::size_t>(row)).path);
    }
    return files;
}

std::vector<std::filesystem::path> FmCheck::wrongFiles() const
{
    std::vector<std::filesystem::path> files;
    for (const SampleFile& file : m_files) {
        if (!CheckSampleFormatDetailed(file.path).valid()) {
            files.push_back(file.path);
        }
    }
    return files;
}

// The selected rows, whatever their format is, or all wrong ones.
void FmCheck::repair()
{
    const std::vector<std::filesystem::path> selected = filesOf(selectedRows(*m_list));
    const std::vector<std::filesystem::path> wrong = wrongFiles();
    if (selected.empty() && wrong.empty()) {
        m_context.dialogs.show({MessageIcon::Information, titles::repairSamples, anomalyCount(0)});
        return;
    }
    Question question = repairQuestion(selected.empty() ? wrong : selected);
    if (!selected.empty() && !wrong.empty() && wrong != selected) {
        const std::string count = std::to_string(wrong.size());
        question.otherChoice = {"All " + count + " wrong ones", "Tous les mauvais (" + count + ")"};
        question.details +=
            BilingualText("\n\nAll wrong ones:\n", "\n\nTous les mauvais :\n") + listedFiles(wrong);
    }
    const Answer answer = m_context.dialogs.ask(question);
    if (answer == Answer::Other || (answer == Answer::Yes && selected.empty())) {
        startRun(SampleTask::Repair, wrong);
    } else if (answer == Answer::Yes) {
        startRun(SampleTask::Repair, selected);
    }
}

void FmCheck::putBack()
{
    std::vector<std::filesystem::path> files;
    for (const std::filesystem::path& file : filesOf(selectedRows(*m_list))) {
        if (lastOriginal(file)) {
            files.push_back(file);
        }
    }
    if (files.empty()) {
        m_context.dialogs.show({MessageIcon::Information,
                                titles::putBackOriginals,
                                {"No original of the selected samples was kept.",
                                 "Aucun original des samples choisis n'a été conservé."}});
        return;
    }
    if (m_context.dialogs.ask(putBackQuestion(files)) == Answer::Yes) {
        startRun(SampleTask::PutBack, std::move(files));
    }
}

void FmCheck::startRun(SampleTask task, std::vector<std::filesystem::path> files)
{
    m_waveform->stop(); // some systems keep a file locked while it plays
    m_waveform->showFile({});
    showWork(files.size());
    showIndication({"Please wait...", "Veuillez patienter..."});
    m_run = std::make_unique<SampleRun>(task, std::move(files));
    constexpr int lookingMilliseconds = 30;
    m_runTimer.start(lookingMilliseconds);
}

void FmCheck::watchRun()
{
    m_progress->setValue(static_cast<int>(m_run->done()));
    if (m_run->finished()) {
        endRun();
    }
}

void FmCheck::endRun()
{
    m_runTimer.stop();
    const SampleReport report = m_run->takeReport();
    m_run.reset();
    endWork();
    judgeRowsAgain();
    m_list->setFocus();
    selectionChanged();
    const BilingualText text = report.text();
    const auto firstLine = [](const std::string& all) { return all.substr(0, all.find('\n')); };
    showIndication({firstLine(text.english), firstLine(text.french)}, report.failures() > 0);
    showReport(report);
}

void FmCheck::showReport(const SampleReport& report)
{
    const BilingualText text = report.text();
    Question question{report.task == SampleTask::Repair ? titles::repairSamples : titles::putBackOriginals,
                      text, Buttons::Ok};
    question.icon = report.failures() > 0 ? MessageIcon::Exclamation : MessageIcon::Information;
    question.otherChoice = {"Copy", "Copier"};
    if (m_context.dialogs.ask(question) == Answer::Other) {
        QApplication::clipboard()->setText(inLanguage(text, m_context.language));
    }
}

// The rows stay, so that the originals of those that were repaired can be put back.
void FmCheck::judgeRowsAgain()
{
    for (int row = 0; m_listed == Mode::Check && row < m_list->count(); ++row) {
        const SampleFile& file = m_files.at(static_cast<std::size_t>(row));
        m_list->item(row)->setText(fromCodePage(
            checkedRow(file.path, file.name, CheckSampleFormatDetailed(file.path), m_context.language)));
    }
}

} // namespace tavrel
