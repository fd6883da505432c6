#pragma once

#include "platform/ado.h"
#include "platform/dao.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <memory>

namespace korvex {

/// The parts through which the library touches the outside. Copies share the parts. No part may be null.
struct Platform {
    std::shared_ptr<dao::DBEngine> repositoryEngine;
    std::shared_ptr<ado::Provider> targetProvider;
    std::shared_ptr<platform::Desktop> desktop;
    std::shared_ptr<platform::Files> files;
};

/// The parts of this build (embedded SQLite and ODBC, or DAO and ADO on Windows), wired in one file per
/// build.
Platform DefaultPlatform();

}  // namespace korvex
