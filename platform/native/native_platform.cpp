#include "platform/native/native_platform.h"

#include "platform/native/ado/provider.h"
#include "platform/native/dao/dao_engine.h"
#include "platform/native/native_desktop.h"
#include "platform/native/native_files.h"

namespace korvex::native {

Platform NativePlatform(const NativeOptions& options) {
    Platform platform;
    platform.repositoryEngine = std::make_shared<dao_engine::NativeEngine>(options.seam);
    platform.targetProvider = ado_engine::CreateAdoProvider(options.seam);
    platform.desktop = std::make_shared<NativeDesktop>();
    platform.files = std::make_shared<NativeFiles>();
    return platform;
}

}  // namespace korvex::native
