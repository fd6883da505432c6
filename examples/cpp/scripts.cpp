// Writes the scripts of a definition for the three published dialects: scripts REPOSITORY STORAGE FOLDER

#include <iostream>
#include <korvex/korvex.h>
#include <memory>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: scripts REPOSITORY STORAGE FOLDER\n";
        return 2;
    }
    const std::string repository = argv[1], storage = argv[2];
    try {
        bool isWritten = true;
        for (const auto dialect : {&korvex::clsCreateDb::DoMSsqlDb, &korvex::clsCreateDb::DoOracleDb,
                                   &korvex::clsCreateDb::DoSybaseDb}) {
            // One object serves one run after another, but the text of FkConstraintSQL goes on from run to
            // run: each dialect gets an object of its own.
            const auto scripts = std::make_shared<korvex::clsCreateDb>();
            scripts->ScriptFilePath(argv[3]);  // the folder must exist
            ((*scripts).*dialect)(repository, storage, korvex::automation::Variant::Missing());
            std::cout << "tables: " << scripts->DbSQL().size()
                      << " bytes, procedures: " << scripts->StoredProcSQL().size() << " bytes\n";
            // The first file that cannot be written ends the run with an error; the others are told here.
            for (const korvex::automation::Error& error : scripts->UnwrittenFiles()) {
                std::cerr << error.Description() << '\n';
                isWritten = false;
            }
        }
        return isWritten ? 0 : 1;
    } catch (const korvex::automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
