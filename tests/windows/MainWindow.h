// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FmSFX.h"
#include "support/Files.h"
#include "support/Generation.h"
#include "support/ListedTitles.h"
#include "support/ScriptedDialogs.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <memory>

namespace tavrel {

class RecordedPrograms : public Programs
{
public:
    bool start(const std::filesystem::path& program, const std::vector<std::string>& /*arguments*/) override
    {
        started.push_back(program);
        return succeeds;
    }
    bool editText(const std::filesystem::path& file, WindowMode mode) override
    {
        edited.emplace_back(file, mode);
        return succeeds;
    }

    bool succeeds = true;
    std::vector<std::filesystem::path> started;
    std::vector<std::pair<std::filesystem::path, WindowMode>> edited;
};

class RecordedPlayer : public SamplePlayer
{
public:
    Problem start(const std::filesystem::path& file) override
    {
        played.push_back(file);
        return problem;
    }
    void end() override { ++stops; }

    Problem problem;
    std::vector<std::filesystem::path> played;
    int stops = 0;
};

// Acts on the next modal window.
template <typename Window, typename Act>
void whenOpened(Act act)
{
    auto* const waiting = new QTimer(qApp);
    waiting->setObjectName("waiting for a window");
    QObject::connect(waiting, &QTimer::timeout, waiting, [waiting, act] {
        if (auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
            waiting->stop();
            waiting->setObjectName({});
            waiting->deleteLater();
            expectListedWindowTitle(window->windowTitle().toStdString());
            act(*window);
            if (window->isVisible()) {
                window->close();
            }
        }
    });
    waiting->start(0);
}

// The main window on the demo folder, used by mouse and keys.
class MainWindowTest : public testing::Test
{
protected:
    ~MainWindowTest() override
    {
        for (QTimer* const waiting : qApp->findChildren<QTimer*>("waiting for a window")) {
            ADD_FAILURE() << "a window that should have opened did not";
            delete waiting;
        }
    }

    void open()
    {
        const LoadedSettings loaded = LoadSettings(folders.program);
        const FmSFXContext context{folders.program, dialogs,     programs,       player,
                                   *batches,        likesMotion, [](Language) {}};
        window = std::make_unique<FmSFX>(context, StartedSession{loaded.settings, loaded.damage.has_value()});
        window->show();
        window->load();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        QApplication::setActiveWindow(window.get());
        expectListedWindowTitle(window->windowTitle().toStdString());
    }

    template <typename Control = QWidget>
    Control& control(const char* name)
    {
        auto* const found = window->findChild<Control*>(name);
        if (found == nullptr) {
            throw std::runtime_error(std::string("no control ") + name);
        }
        return *found;
    }

    void click(const char* name) { QTest::mouseClick(&control(name), Qt::LeftButton); }
    // A check box or option reacts where its mark is.
    void tick(const char* name)
    {
        QWidget& box = control(name);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }
    // Replaces the text by keys.
    void type(const char* name, const QString& text)
    {
        QWidget& box = control(name);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }
    QString text(const char* name) { return control<QLineEdit>(name).text(); }
    bool enabled(const char* name) { return control(name).isEnabled(); }
    bool ticked(const char* name) { return control<QAbstractButton>(name).isChecked(); }

    QListView& sounds() { return control<QListView>("LiSFX"); }
    int row() { return sounds().currentIndex().row(); }
    void clickRow(int row)
    {
        const QModelIndex index = sounds().model()->index(row, 0);
        sounds().scrollTo(index);
        QTest::mouseClick(sounds().viewport(), Qt::LeftButton, {}, sounds().visualRect(index).center());
        QCoreApplication::processEvents(); // a question about the line that is left comes after the click
    }

    DemoFolders folders;
    ScriptedDialogs dialogs;
    RecordedPrograms programs;
    RecordedPlayer player;
    HeldBatchRunner heldBatches;
    BatchRunner* batches = &heldBatches;
    bool likesMotion = true;
    std::unique_ptr<FmSFX> window;
};

} // namespace tavrel
