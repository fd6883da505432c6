// Stores an object tree, finds it, loads, changes and deletes it: objects REPOSITORY CONNECTION
// REPOSITORY holds the definition Orders, CONNECTION leads to its tables.

#include <iostream>
#include <korvex/korvex.h>
#include <memory>

using namespace korvex;

namespace {

/// What clsCRUD tells by a code, as an exception.
void Expect(bool isDone, const char* what, clsCRUD& crud) {
    if (isDone) return;
    const auto& trapped = crud.TrappedError();
    throw automation::Error(crud.LastResult(), std::string(what) + ": " +
                                                   std::string(NameOf(crud.LastResult())) +
                                                   (trapped ? ", " + trapped->Description() : ""));
}

void Run(const char* repository, const char* connection) {
    const auto platform = DefaultPlatform();
    const auto database = platform.repositoryEngine->OpenDatabase(repository);
    const auto definition = objects::LoadDefinition(repository::Catalog::Read(*database), "Orders");

    const auto crud = std::make_shared<clsCRUD>();
    Expect(crud->ConnectDB(connection), "connect", *crud);

    // A new tree: by its values, or from JSON text.
    const auto order =
        objects::FromJson(definition, R"({"OrderNumber": "A-1", "Customer": {"CompanyName": "Ann & Co"}})");
    order->Set("Total", automation::Currency{125'0000});  // 125.0000
    order->Child("Lines")->Add()->Set("Quantity", 2);

    crud->DbConn()->BeginTrans();  // a save is no transaction of its own
    const std::int32_t key = crud->DbSaveData(order);
    Expect(key > 0, "save", *crud);
    crud->DbConn()->CommitTrans();

    // Only what changed is written: one column of one record, and one new element.
    order->Child("Customer")->Set("Rating", 5);
    order->Child("Lines")->Add()->Set("Quantity", 3);
    Expect(crud->DbUpdateData(order) == key, "update", *crud);
    std::cout << crud->Writes() << " writes\n";

    // Found again by a child's value, and loaded into an object that is new to it.
    auto found = objects::Find(
        *definition, crud->DbConn(),
        {.where = {objects::ReadCondition("Customer.Rating > 3")}, .fields = {"OrderNumber"}, .limit = 10});
    while (const auto row = found.Next()) {
        const auto loaded = std::make_shared<objects::DataObject>(definition);
        Expect(crud->DbGetData(loaded, row->key) == row->key, "load", *crud);
        std::cout << automation::ToString(row->values.front()) << ": "
                  << loaded->Child("Lines")->Items().size() << " lines\n"
                  << objects::ToJson(*loaded);
    }

    // One column without an object; then the tree goes, what is beneath the record first.
    automation::Variant total;
    Expect(crud->DbGetField(key, "OrderID", "tOrder", "Total", total), "read the total", *crud);
    std::cout << "total " << automation::ToString(total) << '\n';
    Expect(crud->DbDeleteData(order, key) == key, "delete", *crud);
    std::cout << (crud->DbDataExists(order, key) ? "still there\n" : "deleted\n");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: objects REPOSITORY CONNECTION\n";
        return 2;
    }
    try {
        Run(argv[1], argv[2]);
    } catch (const automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
