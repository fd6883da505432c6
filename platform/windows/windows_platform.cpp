#include "platform/platform.h"
#include "platform/windows/ado_objects.h"
#include "platform/windows/dao_engine.h"
#include "platform/windows/windows_desktop.h"
#include "platform/windows/windows_files.h"

namespace korvex {

Platform DefaultPlatform() {
    return {.repositoryEngine = windows::DaoEngine(),
            .targetProvider = windows::AdoProvider(),
            .desktop = windows::WindowsDesktop(),
            .files = windows::WindowsFiles()};
}

}  // namespace korvex
