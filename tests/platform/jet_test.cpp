#include "automation/text.h"
#include "platform/native/native_platform.h"
#include "repository/repository.h"
#include "repository/whole_tables.h"
#include "support/error_of.h"
#include "support/temp_folder.h"
#include "support/text_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>

namespace korvex::tests {
namespace {

using automation::Variant;
using testing::HasSubstr;

constexpr std::size_t PageSize = 4096;
/// Where things stand in the file of Jet 4: the entry of tValues in the list of tables (its type, its name),
/// the definition of that table with the number of its rows, and of its fourth row the name and the head of
/// the description.
constexpr std::size_t ListedType = 0xE823;
constexpr std::size_t ListedName = 0xE839;
constexpr std::size_t RowCount = 0x29010;
constexpr std::size_t Name = 183948;
constexpr std::size_t DescriptionHead = 183994;
const std::string OldName("O\0r\0d\0e\0r\0N\0u\0m\0b\0e\0r\0", 22);

std::string Bytes(std::u16string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}
std::string Bytes(std::uint32_t number) { return {reinterpret_cast<const char*>(&number), sizeof number}; }

/// Reads a changed file; what libmdb has to say about it must not be seen, what others say must.
class JetFiles : public testing::Test {
  protected:
    std::optional<std::vector<dao::WholeTable>> Read(const std::string& content,
                                                     const std::vector<dao::WholeTable>& wanted) {
        const std::string path = m_folder.Write("changed", content);
        testing::internal::CaptureStderr();
        struct Seen {
            ~Seen() {
                std::fputs("still here", stderr);
                EXPECT_EQ(testing::internal::GetCapturedStderr(), "still here");
            }
        } seen;
        return m_engine->ReadTables(path, wanted);
    }

    const TempFolder m_folder;
    const std::shared_ptr<dao::DBEngine> m_engine = native::NativePlatform().repositoryEngine;
    const std::string m_file = ReadFile(KORVEX_TEST_DATA "/jet/orders-jet4.mdb");
};

TEST_F(JetFiles, GiveValuesWhole) {
    const std::vector<dao::WholeTable> wanted = {
        {"TVALUES", {"ValueID", "Name", "Nothing", "FieldName", "description", "IsIncluded"}, {}}};
    constexpr std::size_t fourth = 15;  // of five columns
    const auto table = Read(m_file, wanted)->front();
    EXPECT_EQ(table.columns,
              (std::vector<std::string>{"ValueID", "Name", "FieldName", "description", "IsIncluded"}));
    EXPECT_EQ(table.values.size(), 76u * 5u);
    EXPECT_EQ(std::vector(table.values.begin(), table.values.begin() + 5),
              (std::vector<Variant>{std::int32_t{1}, "CreatedOn", Variant::Null(), Variant::Null(), false}));
    EXPECT_EQ(table.values[fourth + 3], Variant("Number printed on every document of the order"))
        << "on a page of its own";
    const std::string emptied = std::string(m_file).replace(DescriptionHead, 4, Bytes(0x80000000));
    EXPECT_EQ(Read(emptied, wanted)->front().values[fourth + 3], Variant("")) << "another thing than Null";

    const std::pair<std::string, std::string> names[] = {
        {Bytes(u"\U0001F600-Numbers-"), "\U0001F600-Numbers-"},
        {Bytes(u"A") + std::string(2, '\0') + Bytes(u"B12345678"), std::string("A\0B12345678", 11)},
        {"\xFF\xFE"
         "twenty characters: \xE4",
         "twenty characters: \u00E4"},
        {"\xFF\xFE"
         "abc" +
             std::string(1, '\0') + Bytes(u"\U0001F601\u20AC") + std::string(1, '\0') + "nine more",
         "abc\U0001F601\u20ACnine more"},
    };
    for (const auto& [bytes, text] : names) {
        ASSERT_EQ(bytes.size(), OldName.size()) << text;
        EXPECT_EQ(
            Read(std::string(m_file).replace(Name, bytes.size(), bytes), wanted)->front().values[fourth + 1],
            Variant(text));
    }
}

/// Behind the pages of the file, a chain of pages with one part each.
std::string WithLongDescription(std::string file, const std::string& text) {
    constexpr std::size_t part = 4000;
    std::uint32_t page = static_cast<std::uint32_t>(file.size() / PageSize);
    file.replace(DescriptionHead, 8, Bytes(static_cast<std::uint32_t>(text.size())) + Bytes(page << 8));
    for (std::size_t at = 0; at < text.size(); at += part) {
        const std::string content = text.substr(at, part);
        const bool isLast = at + part >= text.size();
        const std::string row = Bytes(isLast ? 0 : ++page << 8) + content;
        const auto start = static_cast<char16_t>(PageSize - row.size());
        std::string bytes = "\1\1" + std::string(10, '\0') + Bytes(u"\1") + Bytes(std::u16string(1, start));
        bytes.resize(start);
        file += bytes + row;
    }
    return file;
}

TEST_F(JetFiles, GiveLongTextsOfAnyLength) {
    const std::vector<dao::WholeTable> wanted = {{"tValues", {"Description"}, {}}};
    std::u16string text;
    while (text.size() < 30'000)
        text += u"long \U0001F600 ";
    const std::string file = WithLongDescription(m_file, Bytes(text));
    EXPECT_EQ(Read(file, wanted)->front().values[3], Variant(automation::ToUtf8(text)));

    std::string cut = file;
    cut.replace(DescriptionHead, 4, Bytes(static_cast<std::uint32_t>(text.size() * 2 + 2)));
    const Raised raised = ErrorOf([&] { Read(cut, wanted); });
    EXPECT_EQ(raised, dao::DamagedFile);
    EXPECT_THAT(raised.description,
                HasSubstr("tValues\" is damaged: column Description of row 4 does not have"));
}

TEST_F(JetFiles, AnythingElseIsNone) {
    for (const char* name : {"missing.mdb", ""})
        EXPECT_FALSE(m_engine->ReadTables(m_folder.Path(name), {})) << name;
    EXPECT_FALSE(Read("Standard Jet DB", {}));
    m_engine->CreateDatabase(m_folder.Path("orders.mdb"));
    EXPECT_FALSE(m_engine->ReadTables(m_folder.Path("orders.mdb"), {}));
}

TEST_F(JetFiles, DamageIsNamed) {
    const auto changed = [this](std::size_t at, const std::string& bytes) {
        return std::string(m_file).replace(at, bytes.size(), bytes);
    };
    const struct {
        std::string content;
        std::int32_t number;
        const char* mentioned;
    } cases[] = {
        {m_file.substr(0, 100'000), dao::DamagedFile, "it ends within a page; repair it"},
        {m_file.substr(0, PageSize), dao::DamagedFile, "its table \"MSysObjects\" is damaged"},
        {m_file.substr(0, 44 * PageSize), dao::DamagedFile, "its table \"tValues\" is damaged: it holds"},
        {changed(RowCount, Bytes(77U)), dao::DamagedFile, "it holds 76 rows, and should hold 77"},
        {changed(RowCount, Bytes(75U)), dao::DamagedFile, "it holds 75 rows and more, and should hold 75"},
        {changed(44 * PageSize, std::string(3 * PageSize, '\0')), dao::DamagedFile, "tValues"},
        {changed(Name, Bytes(u"\xDE00")), dao::DamagedFile, "column Name of row 4 holds half a character"},
        {changed(DescriptionHead + 4, Bytes(0xFFFF00U)), dao::DamagedFile, "a part that cannot be found"},
        {changed(0x14, "\x63"), dao::UnrecognizedFormat, "a version that is not known here"},
        {changed(0x3E, "\xFF"), dao::WrongPassword, "it is encrypted; take its password off"},
        {changed(ListedType, "\6"), dao::TableNotFound, "its table tValues is a link"},
        {changed(ListedName + 2, "W"), dao::TableNotFound,
         "no complete repository, table tValues is missing"},
        {changed(m_file.find(Bytes(u"VIDTag3")), "w"), dao::ItemNotFound,
         "column tValues.VIDTag3 is missing"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mentioned);
        const Raised raised = ErrorOf([&] {
            const auto tables = Read(c.content, repository::EmptyTables());
            ASSERT_TRUE(tables);
            repository::InMemory(*m_engine, *tables, m_folder.Path("changed"));
        });
        EXPECT_EQ(raised, c.number);
        EXPECT_THAT(raised.description,
                    testing::AllOf(HasSubstr(c.mentioned), HasSubstr(m_folder.Path("changed"))));
    }
}

/// A damaged copy of a file.
std::string Mutant(std::string file, std::mt19937& random) {
    const auto below = [&](std::size_t end) { return random() % end; };
    const auto pageAt = [&] { return below(file.size() / PageSize) * PageSize; };
    switch (below(7)) {
        case 0:
            file.resize(below(file.size()));
            break;
        case 1:
            file.replace(pageAt(), PageSize, PageSize, '\0');
            break;
        case 2:
            file.replace(pageAt(), PageSize, file.substr(pageAt(), PageSize));
            break;
        case 3:  // heads of pages
            for (std::size_t i = below(20) + 1; i > 0; --i)
                file[pageAt() + below(64)] = static_cast<char>(random());
            break;
        case 4:  // the head of the file and the list of its tables
            for (std::size_t i = below(20) + 1; i > 0; --i)
                file[below(3 * PageSize)] = static_cast<char>(random());
            break;
        default:
            for (std::size_t i = below(200) + 1; i > 0; --i) {
                char& byte = file[below(file.size())];
                byte = static_cast<char>(byte ^ (1 << below(8)));
            }
    }
    return file;
}

/// KORVEX_JET_MUTANTS says how many files, KORVEX_JET_SEED which ones.
TEST_F(JetFiles, MutantsAreReadOrRefused) {
    const auto setting = [](const char* name, unsigned long otherwise) {
        const char* text = std::getenv(name);
        return text == nullptr ? otherwise : std::strtoul(text, nullptr, 10);
    };
    const std::string files[] = {m_file, ReadFile(KORVEX_TEST_DATA "/jet/orders-ace14.accdb"),
                                 ReadFile(KORVEX_TEST_DATA "/jet/orders-jet4-related.mdb")};
    std::mt19937 random(static_cast<std::uint32_t>(setting("KORVEX_JET_SEED", 1)));
    const unsigned long mutants = setting("KORVEX_JET_MUTANTS", 500);
    const std::vector<dao::WholeTable> wanted = repository::EmptyTables();
    std::map<std::int32_t, unsigned long> outcomes;
    for (unsigned long i = 0; i < mutants; ++i)
        ++outcomes[ErrorOf([&] { Read(Mutant(files[i % std::size(files)], random), wanted); }).number];
    EXPECT_GT(outcomes[dao::DamagedFile], mutants / 3);
    for (const std::int32_t expected : {0, 3031, 3049, 3078, 3343}) {
        RecordProperty("outcome" + std::to_string(expected), std::to_string(outcomes[expected]));
        outcomes.erase(expected);
    }
    EXPECT_THAT(outcomes, testing::IsEmpty());
}

}  // namespace
}  // namespace korvex::tests
