// Makes the tables of a definition in a database, and checks them: tables REPOSITORY STORAGE CONNECTION
// FOLDER CONNECTION is an ADO connection string: "Provider=SQLite;Data Source=target.db", or one of ODBC.

#include <iostream>
#include <korvex/korvex.h>

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: tables REPOSITORY STORAGE CONNECTION FOLDER\n";
        return 2;
    }
    const std::string repository = argv[1], storage = argv[2];
    try {
        const korvex::Platform platform = korvex::DefaultPlatform();
        const korvex::TargetTables tables(platform, repository, storage);

        // What an engine will not take (a reserved word, a default that is no value of its column) is found
        // without a connection to it.
        for (const char* engine : {"sqlite", "mariadb", "postgresql"})
            tables.ExpectTakenBy(engine);

        // Create makes what is not there, for the engine behind the connection. A second call makes nothing.
        const auto connection = platform.targetProvider->CreateConnection();
        connection->Open(argv[3]);
        const korvex::TargetReport report = tables.Create(connection);
        for (const std::string& line : report.Lines)
            std::cout << line << '\n';
        for (const std::string& note : report.Notes)
            std::cout << "note: " << note << '\n';

        // Check says where a database differs from its definition.
        for (const std::string& difference : tables.Check(*connection))
            std::cout << "differs: " << difference << '\n';

        // The same tables as scripts, for who runs them by other means.
        const auto scripts = std::make_shared<korvex::clsCreateDb>();
        scripts->ScriptFilePath(argv[4]);
        for (const std::string& note : scripts->DoEngineDb("postgresql", repository, storage))
            std::cout << "PostgreSQL: " << note << '\n';
    } catch (const korvex::automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
