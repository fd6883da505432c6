#include "platform/windows/windows_platform.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace korvex::tests {
namespace {

/// Every text in a message box: its title, then those of its buttons and of the message.
using BoxTexts = std::vector<std::wstring>;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

BOOL CALLBACK AddText(HWND child, LPARAM texts) {
    reinterpret_cast<BoxTexts*>(texts)->push_back(TextOf(child));
    return TRUE;
}

/// Stands for the person at the screen: waits for a message box, reads it and presses OK.
class Reader {
  public:
    explicit Reader(const wchar_t* title) : m_thread([this, title] { ReadBox(title); }) {}

    BoxTexts Texts() {
        m_thread.join();
        return m_texts;
    }

  private:
    void ReadBox(const wchar_t* title) {
        HWND box = nullptr;
        while (box == nullptr || IsWindowVisible(box) == FALSE) {
            Sleep(10);
            box = FindWindowW(L"#32770", title);
        }
        m_texts.push_back(TextOf(box));
        EnumChildWindows(box, AddText, reinterpret_cast<LPARAM>(&m_texts));
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    BoxTexts m_texts;
    std::thread m_thread;
};

TEST(WindowsDesktopTest, AMessageIsSeenBeforeTheCallReturns) {
    const auto desktop = windows::WindowsDesktop();
    Reader reader(L"Script Creation Warning");
    desktop->ShowMessage("Gr\xC3\xBC\xC3\x9F\r\nsecond line", platform::StyleExclamation,
                         "Script Creation Warning");
    const BoxTexts texts = reader.Texts();
    EXPECT_EQ(texts.front(), L"Script Creation Warning");
    EXPECT_EQ(texts.back(), L"Gr\u00FC\u00DF\r\nsecond line");
}

TEST(WindowsDesktopTest, AMessageWithoutATitleHasTheComponentsName) {
    Reader reader(L"Korvex");
    windows::WindowsDesktop()->ShowMessage("text", platform::StyleOkOnly, "");
    EXPECT_EQ(reader.Texts().back(), L"text");
}

/// Finds an editor's window, of whatever process.
BOOL CALLBACK FindEditor(HWND window, LPARAM found) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (std::wstring(name) != L"Notepad") return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

TEST(WindowsDesktopTest, TheEditorShowsTheFileAndIsNotWaitedFor) {
    const std::wstring file = L"desktop_test.sql";
    std::ofstream("desktop_test.sql") << "GO\n";
    windows::WindowsDesktop()->OpenEditor("desktop_test.sql");
    HWND editor = nullptr;
    while (editor == nullptr || TextOf(editor).find(file) == std::wstring::npos) {
        Sleep(10);
        EnumWindows(FindEditor, reinterpret_cast<LPARAM>(&editor));
    }
    PostMessageW(editor, WM_CLOSE, 0, 0);
}

}  // namespace
}  // namespace korvex::tests
