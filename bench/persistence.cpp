// Saving, loading, updating and deleting object trees (a collection and ten elements, fourteen columns each)
// against what a good programmer would write by hand for the same rows, in the same journal and transaction
// mode.

#include "objects/data_object.h"
#include "platform/native/native_platform.h"
#include "support/measure.h"
#include "support/tree_floor.h"
#include "surface/cls_crud.h"

#include <stdexcept>
#include <string>

namespace korvex::bench {
namespace {

using objects::DataObject;
using objects::Definition;

/// Counts what is sent to write.
class WriteCounter : public native::sql::Seam {
  public:
    void BeforeCall(const native::sql::EngineCall& call) override {
        if (call.kind == native::sql::CallKind::Execute && call.writes) ++writes;
    }
    int writes = 0;
};

std::shared_ptr<Definition> RecordDefinition(const std::string& name) {
    auto definition = std::make_shared<Definition>(name, "t" + name);
    for (int i = 0; i < PlainColumns; ++i) {
        const std::string value = (i % 2 == 0 ? "Text" : "Number") + std::to_string(i);
        const auto type = i % 2 == 0 ? automation::VarType::String : automation::VarType::Long;
        definition->AddValue({.name = value, .column = value, .dataType = static_cast<std::int32_t>(type)});
    }
    constexpr auto keyType = static_cast<std::int32_t>(automation::VarType::Long);
    definition->AddValue(
        {.name = name + "ID", .column = name + "ID", .dataType = keyType, .isAutoNumber = true});
    definition->AddValue({.name = "FK_ListID", .column = "FK_ListID", .dataType = keyType});
    definition->AddPrimaryKey(name + "ID");
    return definition;
}

std::shared_ptr<Definition> TreeDefinition() {
    auto list = RecordDefinition("List");
    auto item = RecordDefinition("Item");
    item->AddForeignKey("FK_ListID");
    list->ElementDefinition(item);
    return list;
}

void FillRecord(DataObject& object, std::int32_t index) {
    for (int i = 0; i < PlainColumns; ++i) {
        if (i % 2 == 0) {
            object.Set("Text" + std::to_string(i), "a text of some length");
        } else {
            object.Set("Number" + std::to_string(i), index * 100 + i);
        }
    }
}

DataObject::Shared NewTree(const std::shared_ptr<Definition>& definition) {
    auto tree = std::make_shared<DataObject>(definition);
    FillRecord(*tree, 0);
    for (int i = 1; i <= ElementsPerTree; ++i)
        FillRecord(*tree->Add(), i);
    return tree;
}

void Require(bool done, const char* what, clsCRUD& crud) {
    if (!done)
        throw std::runtime_error(std::string(what) + " failed, result " + std::to_string(crud.LastResult()));
}

/// A connected clsCRUD on its own database with the tables in place.
class Store {
  public:
    explicit Store(const std::string& file, std::shared_ptr<native::sql::Seam> seam = nullptr)
        : m_crud(std::make_shared<clsCRUD>(native::NativePlatform({.seam = std::move(seam)}))),
          m_definition(TreeDefinition()) {
        Require(m_crud->ConnectDB("Provider=SQLite;Data Source=" + file + ";Mode=Create"), "ConnectDB",
                *m_crud);
        for (const std::string& text : TreeTables())
            m_crud->DbConn()->Execute(text);
    }

    DataObject::Shared Tree() const { return NewTree(m_definition); }
    std::int32_t Save(const DataObject::Shared& tree) const {
        const std::int32_t key = m_crud->DbSaveData(tree);
        Require(key > 0, "DbSaveData", *m_crud);
        return key;
    }
    DataObject::Shared Load(std::int32_t key) const {
        auto tree = std::make_shared<DataObject>(m_definition);
        Require(m_crud->DbGetData(tree, key) == key && tree->Items().size() == ElementsPerTree, "DbGetData",
                *m_crud);
        return tree;
    }
    void Delete(const DataObject::Shared& carrier, std::int32_t key) const {
        Require(m_crud->DbDeleteData(carrier, key) == key, "DbDeleteData", *m_crud);
    }
    clsCRUD& Crud() const { return *m_crud; }

  private:
    std::shared_ptr<clsCRUD> m_crud;
    std::shared_ptr<Definition> m_definition;
};

/// Rounds of `count` trees. What is in memory waits for nothing.
struct Rounds {
    int rounds;
    int count;
    double (*clock)(const std::function<void()>&) = Seconds;
};

Comparison CompareSave(const Store& store, TreeFloor& floor, const Rounds& size) {
    const DataObject::Shared tree = store.Tree();
    return Compare(
        size.rounds, size.count, [&] { store.Save(tree); }, [&] { floor.Save(); }, size.clock);
}

Comparison CompareLoad(const Store& store, TreeFloor& floor, const Rounds& size) {
    const std::int32_t key = store.Save(store.Tree());
    const std::int64_t floorKey = floor.Save();
    return Compare(
        size.rounds, size.count, [&] { store.Load(key); }, [&] { floor.Load(floorKey); }, size.clock);
}

/// Saves what is to be deleted beforehand, so that only the deletes are timed.
Comparison CompareDelete(const Store& store, TreeFloor& floor, const Rounds& size) {
    std::vector<std::int32_t> keys;
    std::vector<std::int64_t> floorKeys;
    const DataObject::Shared tree = store.Tree();
    for (int i = 0; i < size.rounds * size.count; ++i) {
        keys.push_back(store.Save(tree));
        floorKeys.push_back(floor.Save());
    }
    std::size_t next = 0;
    std::size_t nextFloor = 0;
    return Compare(
        size.rounds, size.count, [&] { store.Delete(tree, keys[next++]); },
        [&] { floor.Delete(floorKeys[nextFloor++]); }, size.clock);
}

/// Time of a save into tables of a million rows over that of one into empty tables.
double SaveIntoMillion(const std::string& folder, int rounds) {
    const Store empty(folder + "/empty.db");
    const Store full(folder + "/million.db");
    full.Crud().DbConn()->Execute(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1000000) "
        "insert into tItem (Text0, Number1, FK_ListID) select 'a text of some length', i, i / 10 from n");
    full.Crud().DbConn()->Execute(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1000000) "
        "insert into tList (Text0, Number1) select 'a text of some length', i from n");
    const DataObject::Shared tree = empty.Tree();
    const DataObject::Shared other = full.Tree();
    const Comparison comparison = Compare(
        rounds, 100, [&] { full.Save(other); }, [&] { empty.Save(tree); });
    Report("save into a million rows", comparison);
    return comparison.ratio;
}

/// Statements that write, sent for a tree that was loaded, says that it is modified, and holds what is
/// stored.
int UpdateUnchanged() {
    const auto counter = std::make_shared<WriteCounter>();
    const Store store(":memory:", counter);
    const std::int32_t key = store.Save(store.Tree());
    const DataObject::Shared tree = store.Load(key);
    tree->Modified(true);
    for (const auto& item : tree->Items())
        item->Modified(true);
    counter->writes = 0;
    Require(store.Crud().DbUpdateData(tree, key) == key, "DbUpdateData", store.Crud());
    return counter->writes;
}

void Run(int rounds) {
    const TemporaryFolder folder;
    const std::string file = (folder.Path() / "ours.db").string();
    const std::string floorFile = (folder.Path() / "floor.db").string();
    { const Store makesTables(floorFile); }  // the floor works on a file made the same way
    const Store onFile(file);
    TreeFloor floorOnFile(floorFile);
    const Store inMemory(":memory:");
    TreeFloor floorInMemory(":memory:");

    const Rounds memory{5 * rounds, 100, ProcessorSeconds};

    const Comparison saveFile = CompareSave(onFile, floorOnFile, {rounds, 50});
    Report("save a tree, file", saveFile);
    const Comparison saveMemory = CompareSave(inMemory, floorInMemory, memory);
    Report("save a tree, memory", saveMemory);
    const Comparison loadMemory = CompareLoad(inMemory, floorInMemory, memory);
    Report("load a tree, memory", loadMemory);
    const Comparison deletionMemory = CompareDelete(inMemory, floorInMemory, memory);
    Report("delete a tree, memory", deletionMemory);
    const Comparison load = CompareLoad(onFile, floorOnFile, {rounds, 500});
    Report("load a tree, file", load);
    const Comparison deletion = CompareDelete(onFile, floorOnFile, {rounds, 50});
    Report("delete a tree, file", deletion);
    const double million = SaveIntoMillion(folder.Path().string(), rounds);
    const int writes = UpdateUnchanged();

    PrintRatio("save_tree_vs_floor_file", saveFile.ratio);
    PrintRatio("save_tree_vs_floor_memory", saveMemory.ratio);
    PrintRatio("load_tree_vs_floor", load.ratio);
    PrintRatio("delete_tree_vs_floor", deletion.ratio);
    PrintRatio("load_tree_vs_floor_memory", loadMemory.ratio);
    PrintRatio("delete_tree_vs_floor_memory", deletionMemory.ratio);
    PrintRatio("save_into_million_vs_empty", million);
    PrintRatio("update_unchanged_statements", writes);
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    return korvex::bench::RunBenchmark("persistence", argc, argv, 9, korvex::bench::Run);
}
