// Models as korvex repository import reads them: a model that is accepted is written and read again as the
// same.
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/model/model_writer.h"
#include "memory_file.h"
#include "target.h"

using namespace korvex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::MemoryFile file(data, size);
    std::string text;
    if (!fuzz::Accepts([&] { text = cli::ModelText(cli::ReadModel(file.Path())); })) return 0;
    const fuzz::MemoryFile written(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    std::string again;
    fuzz::Expect(fuzz::Accepts([&] { again = cli::ModelText(cli::ReadModel(written.Path())); }),
                 "a written model is read again");
    fuzz::Expect(again == text, "a model is written as it was read");
    return 0;
}
