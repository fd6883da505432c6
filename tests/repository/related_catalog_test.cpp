#include "repository/related_catalog.h"

#include "repository/catalog_ways.h"
#include "repository_files.h"
#include "support/error_of.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace korvex::repository {
namespace {

/// Definitions by chance: few names, so that objects share them; shared children, collections, earlier runs
/// with other prefixes, and changes since.
class RelatedCatalogTest : public RepositoryFileTest {
  protected:
    int Chance(int most) { return std::uniform_int_distribution<int>(0, most)(m_random); }
    template <std::size_t N>
    const char* OneOf(const char* const (&texts)[N]) {
        return texts[Chance(static_cast<int>(N) - 1)];
    }

    void Fill() {
        static constexpr const char* Names[] = {
            "A", "a", "B", "C%", "Part", "B_", "AnObjectWithAVeryLongNameOfItsOwn"};
        static constexpr const char* Values[] = {"Name", "FK_AID", "BID", "Number", "PID", "AID"};
        static constexpr int Types[] = {1, 3, 8, 9, 13};
        m_objects = 2 + Chance(7);
        auto repository = NewRepository();
        repository.Definition("D", 1).Definition("E", 1 + Chance(m_objects - 1));
        for (int id = 1; id <= m_objects; ++id) {
            const bool isCollection = id < m_objects && Chance(3) == 0;
            repository.Object(id, OneOf(Names), isCollection ? id + 1 + Chance(m_objects - id - 1) : 0);
        }
        for (int id = 1; id <= m_objects; ++id) {
            for (int value = Chance(3); value > 0; --value)
                repository.Value(id, OneOf(Values), Types[Chance(4)]);
            for (int child = Chance(2); child > 0 && id < m_objects; --child)
                repository.Child(id, "c", id + 1 + Chance(m_objects - id - 1));
        }
    }

    void Change() {
        const int id = 1 + Chance(m_objects - 1);
        const std::string object = std::to_string(id);
        switch (Chance(7)) {
            case 0:
                return Execute("update tObjects set Name = Name || 'x' where ObjectID = " + object);
            case 1:
                return Execute("update tValues set ChildObjectID = Null where ChildObjectID = " + object);
            case 2:
                return Execute("update tValues set DataType = Null where InterfaceID = " + object);
            case 3:
                return Execute("update tValues set FieldName = 'Own', IsIncluded = 1 where DataType = 1");
            case 4:  // that of an object further down, so that there is no way back
                return Execute("insert into tObjectInterfaces (ObjectID, InterfaceID) values (" + object +
                               ", " + std::to_string(id + Chance(m_objects - id)) + ")");
            case 5:
                return Execute("delete from tPrimaryKeys where ObjectID = " + object);
            case 6:
                return Execute("update tObjects set CollectionObjectID = Null where ObjectID = " + object);
            default:
                return Execute("update tValues set VID = 10007 where InterfaceID = " + object);
        }
    }

    template <class Row>
    static std::vector<Row> Sorted(const std::vector<const Row*>& rows) {
        std::vector<Row> sorted;
        for (const Row* row : rows)
            sorted.push_back(*row);
        std::ranges::sort(sorted, {}, [](const Row& row) {
            if constexpr (requires { row.FKObjectID; })
                return std::pair(row.ValueID, row.FKObjectID);
            else
                return row.ValueID;
        });
        return sorted;
    }

    void ExpectEqual(const RelatedCatalog& related, const Catalog& stored) {
        for (const ObjectRow& object : stored.Objects()) {
            const ObjectId id = object.ObjectID;
            EXPECT_EQ(*related.FindObject(id), object);
            EXPECT_EQ(related.InterfacesOf(id), stored.InterfacesOf(id));
            for (const InterfaceId interface : stored.InterfacesOf(id))
                EXPECT_EQ(related.FindInterface(interface)->Name, stored.FindInterface(interface)->Name);
            EXPECT_TRUE(std::ranges::equal(ValuesOf(related, id), ValuesOf(stored, id),
                                           [](const ValueRow* a, const ValueRow* b) { return *a == *b; }))
                << "values of " << object.Name;
            EXPECT_EQ(Sorted(related.PrimaryKeysOf(id)), Sorted(stored.PrimaryKeysOf(id)));
            EXPECT_EQ(Sorted(related.ForeignKeysOf(id)), Sorted(stored.ForeignKeysOf(id)));
        }
    }

    std::mt19937 m_random{1};
    int m_objects = 0;
};

TEST_P(RelatedCatalogTest, HasTheRowsThatCreateRelationshipWrites) {
    static constexpr const char* Storages[] = {"", "D", "E"};
    static constexpr const char* Prefixes[] = {"FK_", "", "P2_"};
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        m_random.seed(seed);
        path = places.New("random" + std::to_string(seed) + ".db");
        Fill();
        Repository repository(platform);
        repository.OpenRepository(Connection());
        for (int run = 0; run < 4; ++run) {
            const char* storage = OneOf(Storages);
            const char* prefix = OneOf(Prefixes);
            // Numbers of deleted rows come back in memory.
            Execute(
                "update sqlite_sequence set seq = (select max(ValueID) from tValues) where name = 'tValues'");
            const Catalog before = Catalog::Read(repository.Open());
            RelatedCatalog related(before);
            related.Relate(storage, prefix);
            CreateRelationship(repository, storage, prefix);
            ExpectEqual(related, Catalog::Read(repository.Open()));
            EXPECT_EQ(related.ScriptedParents(), repository.ScriptedParents());
            if (HasFailure()) return;
            Change();
        }
        repository.Close();
    }
}

TEST_P(RelatedCatalogTest, WaysWithoutEndOrNumberAreToldAtOnce) {
    const int levels = 40;
    {
        auto repository = NewRepository();
        repository.Definition("Wide", 1).Definition("Round", levels + 1).Definition("Other", levels);
        for (int id = 1; id <= levels + 2; ++id)
            repository.Object(id, "O" + std::to_string(id));
        for (int id = 1; id < levels; ++id)
            repository.Child(id, "a", id + 1).Child(id, "b", id + 1);
        repository.Child(levels + 1, "c", levels + 2).Child(levels + 2, "c", levels + 1);
    }
    const Catalog catalog = Catalog::Read(*platform.repositoryEngine->OpenDatabase(path));
    EXPECT_EQ(CountWays(catalog, "Wide").at(ObjectId{levels}), std::int64_t{1} << (levels - 1));
    const auto errorOf = [&](const char* storage) {
        return tests::ErrorOf([&] { RelatedCatalog(catalog).Relate(storage, "FK_"); }).Text();
    };
    EXPECT_THAT(errorOf("Wide"), testing::HasSubstr("reached along too many ways"));
    EXPECT_EQ(errorOf("Round"), "28: An object is its own ancestor: O41 > O42 > O41");
    RelatedCatalog(catalog).RelateAmongOthers("Other", "FK_");
}

TEST_P(RelatedCatalogTest, KeysOfASharedObjectKeepTheirOrderAndNamesAreThoseOfTheDefinitionInHand) {
    NewRepository()
        .Definition("D", 1)
        .Definition("E", 2)
        .Object(1, "A")
        .Object(2, "Part")
        .Object(3, "Part")
        .Child(1, "c", 3)
        .Child(2, "c", 3);
    const Catalog catalog = Catalog::Read(*platform.repositoryEngine->OpenDatabase(path));
    for (const auto& [storage, table] : {std::pair("D", "tPart"), std::pair("E", "tPart2")}) {
        RelatedCatalog related(catalog);
        related.RelateAmongOthers(storage, "FK_");
        std::vector<std::string> columns;
        for (const ForeignKeyRow* key : related.ForeignKeysOf(ObjectId{3}))
            columns.push_back(related.FindValue(key->ValueID)->FieldName.value());
        EXPECT_THAT(columns, testing::ElementsAre("FK_AID", "FK_PartID")) << storage;
        EXPECT_EQ(related.FindObject(ObjectId{3})->TableName, table);
    }
}

INSTANTIATE_TEST_SUITE_P(Embedded, RelatedCatalogTest, testing::Values(tests::Driver::Sqlite),
                         tests::DriverName);

}  // namespace
}  // namespace korvex::repository
