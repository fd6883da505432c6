// Data objects from their JSON form: an object that is accepted is written and read again as the same.
#include "objects/everything.h"
#include "objects/json.h"
#include "target.h"

using namespace korvex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto definition = tests::Everything();
    std::string text;
    if (!fuzz::Accepts(
            [&] { text = objects::ToJson(*objects::FromJson(definition, fuzz::TextOf(data, size))); }))
        return 0;
    std::string again;
    fuzz::Expect(fuzz::Accepts([&] { again = objects::ToJson(*objects::FromJson(definition, text)); }),
                 "a written object is read again");
    fuzz::Expect(again == text, "an object is written as it was read");
    fuzz::Accepts([&] { objects::ListFromJson(definition, fuzz::TextOf(data, size)); });
    return 0;
}
