#include "platform/native/native_platform.h"
#include "support/error_of.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace korvex::tests {
namespace {

namespace fs = std::filesystem;

class NativeFilesTest : public testing::Test {
  protected:
    std::int32_t ErrorOfWriting(const std::string& path) {
        const Raised raised = ErrorOf([&] { m_files->WriteText(path, "text", "\r\n"); });
        if (raised.number != 0) {
            EXPECT_THAT(raised.description, testing::HasSubstr(path));
        }
        return raised.number;
    }
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder.Path()), {}));
    }

    TempFolder m_folder;
    std::shared_ptr<platform::Files> m_files = native::NativePlatform().files;
};

TEST_F(NativeFilesTest, TextIsWrittenByteForByteInPlaceOfTheOld) {
    m_files->WriteText(m_folder.Path("new.sql"), "Gr\xC3\xBC\xC3\x9F\r\n\tGO", "\r\n");
    EXPECT_EQ(m_folder.Read("new.sql"), "Gr\xC3\xBC\xC3\x9F\r\n\tGO\r\n");
    m_files->WriteText(m_folder.Path("new.sql"), "", "\r\n");
    EXPECT_EQ(m_folder.Read("new.sql"), "\r\n");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(NativeFilesTest, AReplacedFileKeepsItsRightsAndALinkItsTarget) {
    const std::string path = m_folder.Write("real.sql", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("real.sql", m_folder.Path("link.sql"));
    m_files->WriteText(m_folder.Path("link.sql"), "new", "");
    EXPECT_TRUE(fs::is_symlink(m_folder.Path("link.sql")));
    EXPECT_EQ(m_folder.Read("real.sql"), "new");
    EXPECT_EQ(fs::status(path).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);

    fs::create_symlink("to.sql", m_folder.Path("from.sql"));
    fs::create_symlink("later.sql", m_folder.Path("to.sql"));
    m_files->WriteText(m_folder.Path("from.sql"), "made", "");
    EXPECT_TRUE(fs::is_symlink(m_folder.Path("from.sql")) && fs::is_symlink(m_folder.Path("to.sql")));
    EXPECT_EQ(m_folder.Read("later.sql"), "made");
    fs::create_symlink("loop.sql", m_folder.Path("loop.sql"));
    EXPECT_EQ(ErrorOfWriting(m_folder.Path("loop.sql")), automation::PathFileAccessError);
    EXPECT_TRUE(fs::is_symlink(m_folder.Path("loop.sql")));
}

TEST_F(NativeFilesTest, AFileInAFolderThatTakesNoNewOnesIsWrittenInPlace) {
    const std::string path = m_folder.Write("mine.sql", "old and longer than the new text");
    const std::string other = m_folder.Write("other.sql", "old");
    fs::permissions(path, fs::perms::all);
    fs::permissions(other, fs::perms::owner_read | fs::perms::others_read);
    {
        const OrdinaryUser user(m_folder.Path());
        EXPECT_EQ(ErrorOfWriting(path), 0);
        EXPECT_EQ(ErrorOfWriting(other), automation::PermissionDenied);
        EXPECT_EQ(ErrorOfWriting(m_folder.Path("new.sql")), automation::PermissionDenied);
    }
    EXPECT_EQ(m_folder.Read("mine.sql"), "text\r\n");
    EXPECT_EQ(m_folder.Read("other.sql"), "old");
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(NativeFilesTest, WhatAKilledRunLeftGoesWithTheNextOne) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit small{1000, 1000};
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_CORE, &none);
        ::setrlimit(RLIMIT_FSIZE, &small);
        m_files->WriteText(m_folder.Path("new.sql"), std::string(5000, 'x'), "");
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(FilesInFolder(), 1U) << "nothing was left";

    // That of a run which still lives is locked.
    const int living = ::open(m_folder.Write(".korvex-1-0.tmp", "").c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(living, LOCK_EX), 0);
    m_files->WriteText(m_folder.Path("new.sql"), "text", "");
    EXPECT_EQ(FilesInFolder(), 2U);
    ::close(living);
    m_files->WriteText(m_folder.Path("new.sql"), "text", "");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(NativeFilesTest, WhatCannotBeWrittenLeavesNothingBehind) {
    fs::create_directory(m_folder.Path("folder"));
    EXPECT_EQ(ErrorOfWriting(m_folder.Path("no/such/file.sql")), automation::PathNotFound);
    EXPECT_EQ(ErrorOfWriting(m_folder.Path("folder")), automation::PathFileAccessError);
    EXPECT_EQ(ErrorOfWriting(m_folder.Path(std::string(300, 'x'))), automation::PathFileAccessError);
    EXPECT_EQ(ErrorOfWriting(m_folder.Write("file", "") + "/below.sql"), automation::PathNotFound);
    EXPECT_EQ(ErrorOfWriting("/sys/new.sql"), automation::PermissionDenied);
    EXPECT_EQ(ErrorOfWriting("/dev/full"), automation::DiskFull);
    EXPECT_EQ(ErrorOfWriting("/dev/null"), 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(NativeFilesTest, TheLibraryFolderIsWhereTheProgramStands) {
    EXPECT_EQ(m_files->LibraryFolder(), fs::read_symlink("/proc/self/exe").parent_path().string());
}

TEST(NativeDesktopTest, ReportsGoToStandardError) {
    const auto desktop = native::NativePlatform().desktop;
    testing::internal::CaptureStderr();
    desktop->ShowMessage("Something failed", platform::StyleOkOnly, "");
    desktop->ShowMessage("Look out", platform::StyleExclamation, "Warning");
    desktop->OpenEditor("/tmp/a.sql");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Something failed\nWarning: Look out\n/tmp/a.sql\n");
}

}  // namespace
}  // namespace korvex::tests
