// The same run by name, as an automation host makes it: late REPOSITORY STORAGE FOLDER

#include <iostream>
#include <korvex/korvex.h>

using korvex::automation::Call;
using korvex::automation::Get;
using korvex::automation::Let;
using korvex::automation::ToString;

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: late REPOSITORY STORAGE FOLDER\n";
        return 2;
    }
    try {
        const auto first = korvex::CreateObject("Korvex.clsCreateDb");
        // The dialects tell their identifiers; each names a run, which an object of its own makes. Optional
        // arguments are left out.
        const auto dialects = korvex::automation::ToObject(Call(*first, "ScriptTypes"));
        const auto each = dialects->NewEnum();
        while (const auto id = each->Next()) {
            const auto scripts = korvex::CreateObject("Korvex.clsCreateDb");
            Let(*scripts, "ScriptFilePath", argv[3]);
            Call(*scripts, "DoScript", *id, argv[1], argv[2]);
            std::cout << ToString(*id) << ": " << ToString(Get(*scripts, "DbSQL")).size() << " bytes\n";
        }

        // What automation hosts see in an object browser is the member table.
        const auto& info = std::dynamic_pointer_cast<korvex::automation::TableObject>(first)->Class();
        std::cout << info.name << " has " << info.members.size() << " members\n";

        Let(*first, "DbSQL", "");  // read-only
    } catch (const korvex::automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return error.Number() == korvex::automation::PropertyIsReadOnly ? 0 : 1;
    }
    return 1;
}
