#pragma once

#include "platform/ado.h"
#include "platform/dao.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <functional>
#include <memory>

namespace korvex {

/// The parts through which the library touches the outside. Copies share the parts. No part but the last may
/// be null.
struct Platform {
    std::shared_ptr<dao::DBEngine> repositoryEngine;  ///< opens definition repositories
    std::shared_ptr<ado::Provider> targetProvider;    ///< connects to target databases
    std::shared_ptr<platform::Desktop> desktop;       ///< shows messages, opens written files
    std::shared_ptr<platform::Files> files;           ///< writes script files
    /// Makes a working data object of the host's own class, a QORObject without a definition. It is given the
    /// definition of elements whose records are to be deleted, and asked for what stands beneath them. Where
    /// there is no factory, where it answers nothing, and where the object does not take the definition, an
    /// object of the library stands in (see QORObject).
    std::function<automation::ObjectRef()> newDataObject = nullptr;
};

/// The parts of this build (embedded SQLite and ODBC, or DAO and ADO on Windows), wired in one file per
/// build.
Platform DefaultPlatform();

}  // namespace korvex
