#include "platform/windows/windows_files.h"

#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "automation/com/module.h"

#include <windows.h>

#include <string>

namespace korvex::windows {

namespace {

std::int32_t RuntimeNumber(DWORD failure) noexcept {
    switch (failure) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_DIRECTORY:
            return automation::PathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return automation::PermissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return automation::DiskFull;
        default:
            return automation::PathFileAccessError;
    }
}

[[noreturn]] void RaiseFileError(std::string_view path, DWORD failure) {
    // The system denies access to a folder's contents where a file is meant.
    const DWORD attributes = GetFileAttributesW(com::ToWide(path).c_str());
    const bool isFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const std::int32_t number = isFolder ? automation::PathFileAccessError : RuntimeNumber(failure);
    std::string description(automation::StandardErrorText(number));
    description.append(": ").append(path).append(" (");
    description.append(com::SystemText(HRESULT_FROM_WIN32(failure))).append(")");
    throw automation::Error(number, std::move(description));
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

/// A new file in the folder of `path` that is deleted again unless it is moved to that path.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string_view path) : m_target(path) {
        const std::wstring wide = com::ToWide(path);
        const std::size_t name = wide.find_last_of(L"\\/:");
        const std::wstring folder = name == std::wstring::npos ? L"." : wide.substr(0, name + 1);
        wchar_t temporary[MAX_PATH];
        if (GetTempFileNameW(folder.c_str(), L"krv", 0, temporary) == 0) Fail();
        m_path = temporary;
        m_file =
            CreateFileW(temporary, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (m_file == INVALID_HANDLE_VALUE) {
            const DWORD failure = GetLastError();
            DeleteFileW(temporary);
            RaiseFileError(m_target, failure);
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        CloseFile();
        if (!m_path.empty()) DeleteFileW(m_path.c_str());
    }

    void Write(std::string_view bytes) {
        while (!bytes.empty()) {
            constexpr std::size_t largest = 1u << 30;
            const auto part = static_cast<DWORD>(bytes.size() < largest ? bytes.size() : largest);
            DWORD written = 0;
            if (WriteFile(m_file, bytes.data(), part, &written, nullptr) == 0) Fail();
            bytes.remove_prefix(written);
        }
    }

    void MoveToTarget() {
        if (FlushFileBuffers(m_file) == 0) Fail();
        CloseFile();
        if (MoveFileExW(m_path.c_str(), com::ToWide(m_target).c_str(), MOVEFILE_REPLACE_EXISTING) == 0)
            Fail();
        m_path.clear();
    }

  private:
    [[noreturn]] void Fail() const { RaiseFileError(m_target, GetLastError()); }

    void CloseFile() noexcept {
        if (m_file != INVALID_HANDLE_VALUE) CloseHandle(m_file);
        m_file = INVALID_HANDLE_VALUE;
    }

    std::string m_target;
    std::wstring m_path;
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

class FileSystem final : public platform::Files {
  public:
    void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) override {
        TemporaryFile file(path);
        file.Write(ToAnsi(text));
        file.Write(ToAnsi(lineEnd));
        file.MoveToTarget();
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
