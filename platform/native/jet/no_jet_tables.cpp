#include "automation/error.h"
#include "platform/native/jet/jet_tables.h"

namespace korvex::native::jet {

std::vector<dao::WholeTable> ReadJetTables(const std::string& path, std::span<const dao::WholeTable>) {
    throw automation::Error(
        dao::UnrecognizedFormat,
        "This is a file of the desktop database engine, and this build of Korvex reads none: "
        "it was made where libmdb is not installed (Debian: mdbtools-dev): " +
            path);
}

}  // namespace korvex::native::jet
