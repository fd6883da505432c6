#include "automation/com/bstr.h"
#include "automation/error.h"
#include "platform/windows/windows_platform.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace korvex::tests {
namespace {

namespace fs = std::filesystem;

class WindowsFilesTest : public testing::Test {
  protected:
    WindowsFilesTest() {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }

    std::string Path(std::string_view name) const { return (m_folder / name).string(); }

    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::string Write(const std::string& path, std::string_view text) {
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(m_folder), {}));
    }

    /// Number of the error, which names the path; 0 for none.
    std::int32_t ErrorOf(const std::string& path) const {
        try {
            m_files->WriteText(path, "text", "\r\n");
        } catch (const automation::Error& error) {
            EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
            return error.Number();
        }
        return 0;
    }

    std::shared_ptr<platform::Files> m_files = windows::WindowsFiles();
    fs::path m_folder =
        fs::temp_directory_path() / testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(WindowsFilesTest, TextIsWrittenInTheSystemsCodePageInPlaceOfTheOld) {
    if (GetACP() != 1252) GTEST_SKIP() << "The code page of the system is " << GetACP();
    const std::string path = Write(Path("new.sql"), "old and longer than the new text");
    m_files->WriteText(path, "Gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xD0\x96\r\n\tGO", "\r\n");
    EXPECT_EQ(Read(path), "Gr\xFC\xDF \x80 ?\r\n\tGO\r\n");
    m_files->WriteText(path, "", "\r\n");
    EXPECT_EQ(Read(path), "\r\n");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(WindowsFilesTest, FileNamesMayHoldAnyCharacter) {
    const std::string name = "Gr\xC3\xBC\xC3\x9F \xD0\x96.sql";
    m_files->WriteText(Path("").append(name), "text", "");
    EXPECT_TRUE(fs::exists(m_folder / com::ToWide(name)));
}

TEST_F(WindowsFilesTest, WhatCannotBeWrittenLeavesNothingBehind) {
    fs::create_directory(m_folder / "folder");
    const std::string locked = Write(Path("locked.sql"), "old");
    const HANDLE lock = CreateFileW(com::ToWide(locked).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(lock, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ErrorOf(Path("no\\such\\file.sql")), automation::PathNotFound);
    EXPECT_EQ(ErrorOf(Path("locked.sql\\below.sql")), automation::PathNotFound);
    EXPECT_EQ(ErrorOf(locked), automation::PermissionDenied);
    EXPECT_EQ(ErrorOf(Path("folder")), automation::PathFileAccessError);
    EXPECT_EQ(ErrorOf(Path("a*b.sql")), automation::PathNotFound);
    CloseHandle(lock);
    EXPECT_EQ(Read(locked), "old");
    EXPECT_EQ(FilesInFolder(), 2U);
}

// A new file cannot take the place of one that somebody has open; a plain open for output can write it.
TEST_F(WindowsFilesTest, AFileThatSomebodyReadsIsRewritten) {
    const std::string path = Write(Path("read.sql"), "old and longer than the new text");
    std::ifstream reader(path, std::ios::binary);
    EXPECT_EQ(reader.get(), 'o');
    EXPECT_EQ(ErrorOf(path), 0);
    EXPECT_EQ(Read(path), "text\r\n");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(WindowsFilesTest, TheLibraryFolderIsWhereTheModuleStands) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    EXPECT_EQ(m_files->LibraryFolder(), fs::path(program).parent_path().string());
    EXPECT_EQ(m_files->Separator(), '\\');
}

}  // namespace
}  // namespace korvex::tests
