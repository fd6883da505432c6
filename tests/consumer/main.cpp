// A host of its own, built against the installed package: writes the Oracle scripts of a definition, once
// early bound and once by name, and fails when the two differ.

#include <iostream>
#include <korvex/korvex.h>

#if __has_include("automation/variant.h") || __has_include("variant.h") || \
                                                           !__has_include("korvex/automation/variant.h")
#error "headers are found by korvex/ and their room, and by no shorter name"
#endif

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: consumer REPOSITORY STORAGE FOLDER\n";
        return 2;
    }
    using namespace korvex;
    try {
        const auto early = std::make_shared<clsCreateDb>();
        early->ScriptFilePath(argv[3]);
        early->DoOracleDb(argv[1], argv[2]);

        const auto late = CreateObject("Korvex.clsCreateDb");
        automation::Let(*late, "ScriptFilePath", argv[3]);
        automation::Call(*late, "DoScript", "92", argv[1], argv[2]);

        const auto text = automation::ToString(automation::Get(*late, "DbSQL"));
        std::cout << "create script: " << text.size() << " bytes\n";
        return !text.empty() && text == early->DbSQL() ? 0 : 1;
    } catch (const automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
