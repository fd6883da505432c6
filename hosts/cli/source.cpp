#include "hosts/cli/source.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "hosts/cli/session.h"
#include "repository/schema.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

namespace korvex::cli {

namespace {

/// The first character that says something, behind a byte order mark, blanks and comments; 0 for none.
char FirstCharacter(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
        const bool isLine = text.starts_with("//");
        if (!isLine && !text.starts_with("/*")) return text.empty() ? '\0' : text.front();
        const std::size_t end = isLine ? text.find('\n') : text.find("*/", 2);
        text.remove_prefix(std::min(end, text.size() - 1) + 1);
        if (!isLine && text.starts_with('/')) text.remove_prefix(1);
    }
}

std::optional<std::string> Beginning(const std::string& file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) return std::nullopt;
    std::string text(4096, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

/// Puts a model into an empty database; the ValueIDs of the values that it numbers itself.
std::unordered_set<repository::ValueId> Fill(dao::Database& database, const std::string& file) {
    const Model model = ReadModel(file);
    repository::CreateSchema(database);
    const Model imported = ImportModel(model, database);
    std::unordered_set<repository::ValueId> numbered;
    for (std::size_t i = 0; i < model.interfaces.size(); ++i) {
        const std::vector<ModelValue>& values = model.interfaces[i].values;
        for (std::size_t j = 0; j < values.size(); ++j)
            if (values[j].isNumbered) numbered.insert(imported.interfaces[i].values[j].ValueID);
    }
    return numbered;
}

class SourceEngine final : public dao::DBEngine {
  public:
    explicit SourceEngine(std::shared_ptr<dao::DBEngine> engine) : m_engine(std::move(engine)) {}

    std::shared_ptr<dao::Workspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, std::int32_t type) override {
        return m_engine->CreateWorkspace(name, user, password, type);
    }
    std::unique_ptr<dao::Database> OpenDatabase(std::string_view name) override {
        if (KindOfSource(name) != SourceKind::Model) return m_engine->OpenDatabase(name);
        std::unique_ptr<dao::Database> database = m_engine->CreateDatabase("");
        Fill(*database, std::string(name));
        return database;
    }
    std::unique_ptr<dao::Database> CreateDatabase(std::string_view name) override {
        return m_engine->CreateDatabase(name);
    }
    std::optional<std::vector<dao::WholeTable>> ReadTables(std::string_view name,
                                                           std::span<const dao::WholeTable> wanted) override {
        return m_engine->ReadTables(name, wanted);
    }

  private:
    std::shared_ptr<dao::DBEngine> m_engine;
};

}  // namespace

SourceKind KindOfSource(std::string_view place) {
    if (automation::ContainsIgnoreCase(place, "DSN=")) return SourceKind::Odbc;
    const std::string file(place);
    const std::optional<std::string> beginning = Beginning(file);
    if (!beginning || beginning->find('\0') != std::string::npos) return SourceKind::File;
    const char first = FirstCharacter(*beginning);
    const bool isNamedSo =
        automation::EqualsIgnoreCase(std::filesystem::path(file).extension().string(), ".json");
    return first == '{' || first == '[' || isNamedSo ? SourceKind::Model : SourceKind::Text;
}

Source OpenSource(const Platform& platform, const std::string& place) {
    repository::Repository repository(platform);
    if (KindOfSource(place) != SourceKind::Model) {
        OpenComplete(repository, place);
        return {std::move(repository), std::nullopt};
    }
    repository = repository.NewPrivate();
    std::unordered_set<repository::ValueId> numbered = Fill(repository.Open(), place);
    return {std::move(repository), std::move(numbered)};
}

std::shared_ptr<dao::DBEngine> EngineForSources(std::shared_ptr<dao::DBEngine> engine) {
    return std::make_shared<SourceEngine>(std::move(engine));
}

void ExpectWritable(const std::string& place) {
    const SourceKind kind = KindOfSource(place);
    const bool isModel = kind == SourceKind::Model;
    if (!isModel && (kind == SourceKind::Odbc || !DefaultPlatform().repositoryEngine->ReadTables(place, {})))
        return;
    const std::string what = isModel ? "model" : "file of the desktop database engine";
    throw automation::Error(dao::ReadOnlyDatabase,
                            place + " is a " + what +
                                ", which is only read: make a repository (korvex repository "
                                "new), import the " +
                                (isModel ? "model" : "file") + " into it, and name that one.");
}

}  // namespace korvex::cli
