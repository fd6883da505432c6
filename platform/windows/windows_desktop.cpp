#include "automation/com/bstr.h"
#include "automation/com/com_error.h"
#include "platform/windows/windows_platform.h"

#include <windows.h>

#include <string>

namespace korvex::windows {

namespace {

constexpr std::string_view DefaultTitle = "Korvex";
constexpr std::int32_t FileNotFound = 53;

class MessageBoxDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
        MessageBoxW(GetActiveWindow(), com::ToWide(text).c_str(),
                    com::ToWide(title.empty() ? DefaultTitle : title).c_str(), static_cast<UINT>(style));
    }

    void OpenEditor(std::string_view path) override {
        std::wstring command = com::ToWide(std::string("notepad.exe ").append(path));
        STARTUPINFOW startup = {};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_SHOWNORMAL;
        PROCESS_INFORMATION process = {};
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                           &process) == 0) {
            const HRESULT failure = HRESULT_FROM_WIN32(GetLastError());
            throw automation::Error(FileNotFound, "notepad.exe does not start: " + com::SystemText(failure));
        }
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
};

}  // namespace

std::shared_ptr<platform::Desktop> WindowsDesktop() { return std::make_shared<MessageBoxDesktop>(); }

}  // namespace korvex::windows
