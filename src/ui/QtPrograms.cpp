// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/QtPrograms.h"

#include "base/CodePage.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace tavrel {

namespace {

QString qtPath(const std::filesystem::path& path)
{
    return QString::fromStdString(displayPath(path));
}

// A console program gets a window, in which the user can read what it says. Qt would hide it.
void showConsole([[maybe_unused]] QProcess& process)
{
#ifdef Q_OS_WIN
    process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
        arguments->flags &= ~static_cast<unsigned long>(CREATE_NO_WINDOW);
        arguments->flags |= CREATE_NEW_CONSOLE;
    });
#endif
}

} // namespace

bool QtPrograms::start(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    QStringList list;
    for (const std::string& argument : arguments) {
        list += QString::fromStdString(argument);
    }
    QProcess process;
    process.setProgram(qtPath(program));
    process.setArguments(list);
    process.setWorkingDirectory(qtPath(program.parent_path()));
    showConsole(process);
    return process.startDetached();
}

#ifdef Q_OS_WIN

bool QtPrograms::editText(const std::filesystem::path& file, WindowMode mode)
{
    QProcess notepad;
    notepad.setProgram(R"(c:\Windows\Notepad.exe)");
    notepad.setArguments({qtPath(file)});
    notepad.setCreateProcessArgumentsModifier([mode](QProcess::CreateProcessArguments* arguments) {
        arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        arguments->startupInfo->wShowWindow = mode == WindowMode::Normal ? SW_SHOWNORMAL : SW_SHOWMAXIMIZED;
    });
    return notepad.startDetached();
}

#else

bool QtPrograms::editText(const std::filesystem::path& file, WindowMode /*mode*/)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(qtPath(file)));
}

#endif

} // namespace tavrel
