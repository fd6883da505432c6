#include "platform/native/native_platform.h"
#include "support/error_of.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/stat.h>

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
