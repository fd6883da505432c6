#include "automation/com/module.h"

#include "automation/com/com_error.h"

#include <windows.h>

#include <atomic>

namespace korvex::com {

namespace {

/// COM asks the module, not an object, whether it may be unloaded: the one count that is the module's own.
std::atomic<long> locks{0};

HMODULE ThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       static_cast<LPCWSTR>(ModuleTag()), &module);
    return module;
}

}  // namespace

ModuleLock::ModuleLock() noexcept { ++locks; }
ModuleLock::~ModuleLock() { --locks; }

void LockModule(bool lock) noexcept { locks += lock ? 1 : -1; }

bool IsModuleIdle() noexcept { return locks == 0; }

void PinModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       static_cast<LPCWSTR>(ModuleTag()), &module);
}

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ThisModule(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            const HRESULT failure = HRESULT_FROM_WIN32(GetLastError());
            throw automation::Error(failure, SystemText(failure));
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

const void* ModuleTag() noexcept { return &locks; }

}  // namespace korvex::com
