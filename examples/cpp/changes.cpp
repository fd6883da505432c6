// What differs between two states of a definition, and the script from one to the other:
// changes OLD-REPOSITORY NEW-REPOSITORY STORAGE DIALECT

#include <iostream>
#include <korvex/korvex.h>

namespace {

korvex::repository::Catalog ReadRepository(const std::string& file) {
    const auto database = korvex::DefaultPlatform().repositoryEngine->OpenDatabase(file);
    return korvex::repository::Catalog::Read(*database);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: changes OLD-REPOSITORY NEW-REPOSITORY STORAGE DIALECT\n";
        return 2;
    }
    try {
        const korvex::repository::Catalog before = ReadRepository(argv[1]);
        const korvex::repository::Catalog now = ReadRepository(argv[2]);
        for (const auto* catalog : {&before, &now})
            std::cerr << catalog->Objects().size() << " objects, " << catalog->Values().size() << " values\n";

        const korvex::DefinitionChanges changes(argv[4], before, now, argv[3]);
        bool losesValues = false;
        for (const korvex::DefinitionChange& change : changes.Changes()) {
            std::cerr << change.Class << ": " << change.Text << '\n';
            losesValues = losesValues || change.Class != "safe";
        }
        if (losesValues) std::cerr << "What is not safe stands in the script as a comment.\n";
        std::cout << changes.Script();
    } catch (const korvex::automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
