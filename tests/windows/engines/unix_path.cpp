#include "tests/windows/engines/unix_path.h"

#include "automation/com/bstr.h"
#include "automation/error.h"

namespace korvex::test {

std::string UnixPath(std::string_view windowsPath) {
    using Convert = char*(__cdecl*)(const wchar_t*);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name");
    if (found == nullptr) throw automation::Error(E_NOTIMPL, "The test engines run under Wine only.");
    const auto convert = reinterpret_cast<Convert>(reinterpret_cast<void*>(found));
    char* path = convert(com::ToWide(windowsPath).c_str());
    if (path == nullptr) return std::string(windowsPath);
    std::string result(path);
    HeapFree(GetProcessHeap(), 0, path);
    return result;
}

}  // namespace korvex::test
