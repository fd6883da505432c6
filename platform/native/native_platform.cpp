#include "platform/native/native_platform.h"

#include "platform/native/ado/connection.h"
#include "platform/native/dao/dao_engine.h"

namespace korvex {

Platform native::NativePlatform(const NativeOptions& options) {
    return {.repositoryEngine = dao_engine::CreateDaoEngine(options.seam),
            .targetProvider = ado_engine::CreateAdoProvider(options.seam),
            .desktop = NativeDesktop(),
            .files = NativeFiles()};
}

Platform DefaultPlatform() { return native::NativePlatform(); }

}  // namespace korvex
