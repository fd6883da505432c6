// Files of the desktop database engine.
#include "memory_file.h"
#include "platform/native/jet/jet_tables.h"
#include "repository/whole_tables.h"
#include "target.h"

using namespace korvex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<dao::WholeTable> wanted = repository::EmptyTables();
    const fuzz::MemoryFile file(data, size);
    fuzz::Accepts([&] { native::jet::ReadJetTables(file.Path(), wanted); });
    return 0;
}
