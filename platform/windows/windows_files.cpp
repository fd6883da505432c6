#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "automation/com/module.h"
#include "platform/replace_file.h"
#include "platform/windows/windows_platform.h"

#include <windows.h>

#include <string>

namespace korvex::windows {

namespace {

constexpr platform::FileFailure Failures[] = {
    {ERROR_FILE_NOT_FOUND, automation::PathNotFound},
    {ERROR_PATH_NOT_FOUND, automation::PathNotFound},
    {ERROR_INVALID_NAME, automation::PathNotFound},
    {ERROR_DIRECTORY, automation::PathNotFound},
    {ERROR_ACCESS_DENIED, automation::PermissionDenied},
    {ERROR_SHARING_VIOLATION, automation::PermissionDenied},
    {ERROR_WRITE_PROTECT, automation::PermissionDenied},
    {ERROR_DISK_FULL, automation::DiskFull},
    {ERROR_HANDLE_DISK_FULL, automation::DiskFull},
};

[[noreturn]] void RaiseFileError(std::string_view path, DWORD failure) {
    // The system denies access to a folder's contents where a file is meant.
    const DWORD attributes = GetFileAttributesW(com::ToWide(path).c_str());
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const std::int32_t number =
        isFolder ? automation::PathFileAccessError : platform::NumberOf(failure, Failures);
    throw automation::Error::About(
        number, std::string(path) + " (" + com::SystemText(HRESULT_FROM_WIN32(failure)) + ")");
}

std::string ToAnsi(std::string_view utf8) {
    const std::wstring wide = com::ToWide(utf8);
    if (wide.empty()) return {};
    const int units = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), units, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

HANDLE OpenForOutput(const std::wstring& path, DWORD sharing, DWORD disposition) noexcept {
    return CreateFileW(path.c_str(), GENERIC_WRITE, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

/// A file that was opened to be written; failures name `target`.
class OutputFile {
  public:
    OutputFile(HANDLE file, std::string_view target) : m_target(target), m_file(file) {
        if (m_file == INVALID_HANDLE_VALUE) Fail();
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile() { CloseHandle(m_file); }

    /// Writes all of it, ends the file there and brings it to the disk.
    void Fill(std::string_view bytes) {
        while (!bytes.empty()) {
            constexpr std::size_t largest = 1u << 30;
            const auto part = static_cast<DWORD>(bytes.size() < largest ? bytes.size() : largest);
            DWORD written = 0;
            if (WriteFile(m_file, bytes.data(), part, &written, nullptr) == 0) Fail();
            bytes.remove_prefix(written);
        }
        if (SetEndOfFile(m_file) == 0 || FlushFileBuffers(m_file) == 0) Fail();
    }

  private:
    [[noreturn]] void Fail() const { RaiseFileError(m_target, GetLastError()); }

    std::string m_target;
    HANDLE m_file;
};

/// A name in the folder of a target that nobody else has; its file is deleted unless it was moved away.
struct TemporaryName {
    std::wstring path;
    ~TemporaryName() {
        if (!path.empty()) DeleteFileW(path.c_str());
    }
};

/// Puts `bytes` under a temporary name and renames that. The system may refuse it: a folder that takes no
/// new files, a target that somebody has open.
void Replace(const std::wstring& target, std::string_view path, std::string_view bytes) {
    const std::size_t name = target.find_last_of(L"\\/:");
    const std::wstring folder = name == std::wstring::npos ? L"." : target.substr(0, name + 1);
    wchar_t buffer[MAX_PATH];
    if (GetTempFileNameW(folder.c_str(), L"krv", 0, buffer) == 0) RaiseFileError(path, GetLastError());
    TemporaryName temporary{buffer};
    OutputFile(OpenForOutput(temporary.path, 0, CREATE_ALWAYS), path).Fill(bytes);
    if (MoveFileExW(buffer, target.c_str(), MOVEFILE_REPLACE_EXISTING) == 0)
        RaiseFileError(path, GetLastError());
    temporary.path.clear();
}

/// As a plain open for output writes: beside readers, not beside somebody who lets nobody write. False when
/// there is no file that may be written.
bool Overwrite(const std::wstring& target, std::string_view path, std::string_view bytes) {
    constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = OpenForOutput(target, anybody, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE) return false;
    OutputFile(file, path).Fill(bytes);
    return true;
}

class FileSystem final : public platform::Files {
  public:
    void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) override {
        const std::wstring target = com::ToWide(path);
        const std::string bytes = ToAnsi(text) + ToAnsi(lineEnd);
        platform::ReplaceOrOverwrite([&] { Replace(target, path, bytes); },
                                     [&] { return Overwrite(target, path, bytes); });
    }

    std::string LibraryFolder() override {
        const std::wstring path = com::ModulePath();
        return com::FromWide(path.substr(0, path.find_last_of(L'\\')));
    }

    char Separator() const noexcept override { return '\\'; }
};

}  // namespace

std::shared_ptr<platform::Files> WindowsFiles() { return std::make_shared<FileSystem>(); }

}  // namespace korvex::windows
