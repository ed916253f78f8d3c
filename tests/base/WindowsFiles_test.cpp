// SPDX-License-Identifier: GPL-3.0-or-later
// What Windows does with files that other systems do not.
#include "base/FailureTexts.h"
#include "base/SafeFile.h"
#include "base/System.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <chrono>
#include <thread>

using namespace tavrel;
namespace fs = std::filesystem;

namespace {

// Another program that has the file open.
class Holder
{
public:
    Holder(const fs::path& file, DWORD othersMay)
        : m_handle(CreateFileW(file.c_str(), GENERIC_READ, othersMay, nullptr, OPEN_EXISTING, 0, nullptr))
    {}
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { release(); }

    bool holds() const { return m_handle != INVALID_HANDLE_VALUE; }
    void release()
    {
        CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE m_handle;
};

TEST(WindowsFiles, AFileInUseStaysAsItWas)
{
    const TemporaryFolder root;
    const fs::path file = root / u8"caf\u00E9 sounds.txt";
    writeBytes(file, "old");
    for (const DWORD othersMay : {0UL, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        SCOPED_TRACE(othersMay);
        Holder holder(file, othersMay);
        ASSERT_TRUE(holder.holds());
        const Problem problem = writeFileSafely(file, "new");
        ASSERT_TRUE(problem);
        EXPECT_NE(problem->text.english.find("caf\u00E9 sounds.txt"), std::string::npos);
        holder.release();
        EXPECT_EQ(readBytes(file), "old");
        EXPECT_EQ(namesIn(root.path()).size(), 1U);
    }
    EXPECT_FALSE(writeFileSafely(file, "new"));
    EXPECT_EQ(readBytes(file), "new");
}

TEST(WindowsFiles, AFileInUseForAMomentIsWaitedFor)
{
    const TemporaryFolder root;
    writeBytes(root / "file", "old");
    Holder holder(root / "file", FILE_SHARE_READ);
    std::thread scanner([&holder] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        holder.release();
    });
    EXPECT_FALSE(writeFileSafely(root / "file", "new"));
    scanner.join();
    EXPECT_EQ(readBytes(root / "file"), "new");
}

TEST(WindowsFiles, KnowsTheirMarks)
{
    const TemporaryFolder root;
    const struct
    {
        DWORD attributes;
        bool hidden;
        bool writable;
    } cases[] = {{FILE_ATTRIBUTE_NORMAL, false, true},
                 {FILE_ATTRIBUTE_HIDDEN, true, true},
                 {FILE_ATTRIBUTE_SYSTEM, true, true},
                 {FILE_ATTRIBUTE_READONLY, false, false}};
    const fs::path file = root / "file";
    writeBytes(file, "old");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.attributes);
        SetFileAttributesW(file.c_str(), c.attributes);
        EXPECT_EQ(system::isHidden(file), c.hidden);
        EXPECT_EQ(system::isWritable(file), c.writable);
    }
    EXPECT_TRUE(writeFileSafely(file, "new"));
    EXPECT_EQ(readBytes(file), "old");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_FALSE(system::isWritable(root.path()));
}

TEST(WindowsFiles, AFolderIsTriedWithoutATrace)
{
    const TemporaryFolder root;
    EXPECT_TRUE(system::isWritableFolder(root.path()));
    EXPECT_TRUE(namesIn(root.path()).empty());
    EXPECT_FALSE(system::isWritableFolder(root / "missing"));
}

TEST(WindowsFiles, FindsTheCopyThatWindowsKeepsForOldPrograms)
{
    const TemporaryFolder root;
    const fs::path file = R"(C:\Program Files (x86)\trle\Sounds.txt)";
    const fs::path copy = root / "VirtualStore" / "Program Files (x86)" / "trle" / "Sounds.txt";
    const std::wstring before = _wgetenv(L"LOCALAPPDATA");
    _wputenv_s(L"LOCALAPPDATA", root.path().c_str());
    EXPECT_EQ(system::redirectedCopy(file), fs::path());
    writeBytes(copy, "");
    EXPECT_EQ(system::redirectedCopy(file), copy);
    _wputenv_s(L"LOCALAPPDATA", before.c_str());
}

TEST(WindowsFiles, TellsWhatIsWrongInUtf8)
{
    EXPECT_FALSE(system::errorText({ERROR_SHARING_VIOLATION, std::system_category()}).empty());
    EXPECT_EQ(errorText({ERROR_SHARING_VIOLATION, std::system_category()}).french,
              "Un autre programme l'utilise.");
    EXPECT_EQ(errorText({ERROR_DISK_FULL, std::system_category()}).french, "Le disque est plein.");
    EXPECT_TRUE(system::isPassing({ERROR_SHARING_VIOLATION, std::system_category()}));
    EXPECT_FALSE(system::isPassing({ERROR_DISK_FULL, std::system_category()}));
    EXPECT_EQ(system::ownProgram().extension(), ".exe");
}

} // namespace
