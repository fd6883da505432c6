#pragma once

#include "platform/dao.h"

#include <span>
#include <string>
#include <vector>

/// Files of the desktop database engine (Jet and ACE), read by way of libmdb and never written.
namespace korvex::native::jet {

/// What dao::DBEngine::ReadTables gives for such a file. A build without libmdb raises UnrecognizedFormat
/// (3343), which says so.
std::vector<dao::WholeTable> ReadJetTables(const std::string& path, std::span<const dao::WholeTable> wanted);

}  // namespace korvex::native::jet
