#pragma once

#include <string>

/// The module (DLL or program) that this code is linked into.
namespace korvex::com {

/// Keeps the module in memory while it lives; every COM object that hosts hold contains one.
class ModuleLock {
  public:
    ModuleLock() noexcept;
    ~ModuleLock();
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

/// What IClassFactory::LockServer asks for: one lock more, or one less.
void LockModule(bool lock) noexcept;

/// Whether no lock is left.
bool IsModuleIdle() noexcept;

/// Keeps the module in memory until the process ends. What its runtime takes from the process (a TLS index,
/// at the first exception at the latest) is not given back when it leaves, so it must not come and go with
/// its hosts' jobs.
void PinModule() noexcept;

/// Full path of the module's file.
std::wstring ModulePath();

/// An address that tells this module from others.
const void* ModuleTag() noexcept;

}  // namespace korvex::com
