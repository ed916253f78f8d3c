// SPDX-License-Identifier: GPL-3.0-or-later
#include "BenchmarkFolders.h"
#include "app/FmSFX.h"
#include "app/FmSounds.h"
#include "base/SafeFile.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <benchmark/benchmark.h>

using namespace tavrel;

namespace {

class NoDialogs : public Dialogs
{
public:
    void show(const Message& /*message*/) override {}
    Answer ask(const Question& /*question*/) override { return Answer::No; }
    std::optional<std::filesystem::path> chooseFile(const OpenFileQuestion& /*question*/) override
    {
        return std::nullopt;
    }
    std::optional<ColourValue> chooseColour(ColourValue /*current*/) override { return std::nullopt; }
};

class NoPrograms : public Programs
{
public:
    bool start(const std::filesystem::path& /*program*/,
               const std::vector<std::string>& /*arguments*/) override
    {
        return false;
    }
    bool editText(const std::filesystem::path& /*file*/, WindowMode /*mode*/) override { return false; }
};

class NoPlayer : public SamplePlayer
{
public:
    Problem start(const std::filesystem::path& /*file*/) override { return std::nullopt; }
    void end() override {}
};

// Proves that the window was painted within the measured time.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    benchmark::IterationCount paints = 0;
};

// What a start costs at least: a window of the toolkit's, painted.
void bareWindow(benchmark::State& state)
{
    for (auto _ : state) {
        QWidget window;
        window.resize(1272, 712);
        window.show();
        QApplication::processEvents();
    }
}
BENCHMARK(bareWindow)->Unit(benchmark::kMillisecond);

// From nothing to the painted main window with all its sounds.
void startWindow(benchmark::State& state)
{
    const BenchmarkFolders folders;
    NoDialogs dialogs;
    NoPrograms programs;
    NoPlayer player;
    const std::unique_ptr<BatchRunner> batches = makeSystemBatchRunner();
    for (auto _ : state) {
        const FmSFXContext context{folders.program, dialogs, programs,       player,
                                   *batches,        false,   [](Language) {}};
        FmSFX window(context, {LoadSettings(folders.program).settings, false});
        window.show();
        window.load();
        QApplication::processEvents();
        if (!window.session().isLoaded()) {
            state.SkipWithError("not loaded");
        }
    }
}
BENCHMARK(startWindow)->Unit(benchmark::kMillisecond);
// The main window on so many lines.
class OpenWindow
{
public:
    explicit OpenWindow(std::size_t lines)
    {
        m_folders.growTo(lines);
        const FmSFXContext context{m_folders.program, m_dialogs, m_programs,     m_player,
                                   *m_batches,        false,     [](Language) {}};
        m_window =
            std::make_unique<FmSFX>(context, StartedSession{LoadSettings(m_folders.program).settings, false});
        m_window->load();
        m_window->show();
        QApplication::processEvents();
    }

    FmSFX& window() { return *m_window; }

private:
    BenchmarkFolders m_folders;
    NoDialogs m_dialogs;
    NoPrograms m_programs;
    NoPlayer m_player;
    std::unique_ptr<BatchRunner> m_batches = makeSystemBatchRunner();
    std::unique_ptr<FmSFX> m_window;
};

// From the changed row to the repainted window.
void selectLine(benchmark::State& state)
{
    OpenWindow open(static_cast<std::size_t>(state.range(0)));
    FmSFX& window = open.window();
    auto* const list = window.findChild<QListView*>("LiSFX");
    PaintCounter counter;
    list->viewport()->installEventFilter(&counter);
    int row = 0;
    for (auto _ : state) {
        row = (row + 1) % 20;
        list->setCurrentIndex(list->model()->index(row, 0));
        QApplication::sendPostedEvents(); // repaints what changed
    }
    if (counter.paints < state.iterations()) {
        state.SkipWithError("not painted");
    }
}
BENCHMARK(selectLine)->Arg(370)->Arg(100000)->Unit(benchmark::kMillisecond);

// From a key in the filter to the repainted list: words that few lines match, that all do, and a comparison.
void filterKey(benchmark::State& state)
{
    OpenWindow open(static_cast<std::size_t>(state.range(0)));
    auto* const list = open.window().findChild<QListView*>("LiSFX");
    auto* const filter = open.window().findChild<QLineEdit*>("TxFilter");
    PaintCounter counter;
    list->viewport()->installEventFilter(&counter);
    const QString keys[] = {"l", "lara", "lara_feet foot04", "lara vol>80", "_"};
    std::size_t key = 0;
    for (auto _ : state) {
        filter->setText(keys[key]);
        key = (key + 1) % std::size(keys);
        QApplication::sendPostedEvents();
    }
    if (counter.paints < state.iterations()) {
        state.SkipWithError("not painted");
    }
}
BENCHMARK(filterKey)->Arg(370)->Arg(100000)->Unit(benchmark::kMillisecond);

// From the click to a window that shows sounds.txt, of as many megabytes.
void viewSounds(benchmark::State& state)
{
    const BenchmarkFolders folders;
    const std::string line = "LARA_FEET:\t\tfoot01 foot02\t\t\tVOL44\tP V\t\tPIT15\tRAD10\t#g\r\n";
    const auto size = static_cast<std::size_t>(state.range(0)) << 20;
    std::string text;
    while (text.size() < size) {
        text += line;
    }
    if (writeFileSafely(folders.creator / "Sounds.txt", text)) {
        state.SkipWithError("not written");
    }
    for (auto _ : state) {
        FmSounds window(nullptr, *SoundsText::load(folders.creator), ColourScheme(), Language::English);
        window.show();
        QApplication::processEvents();
    }
}
BENCHMARK(viewSounds)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

} // namespace
