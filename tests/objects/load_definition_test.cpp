#include "objects/load_definition.h"

#include "platform/native/native_platform.h"
#include "support/definition_repository.h"
#include "support/error_of.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvex::objects {
namespace {

/// A definition as text: "Order tOrder: Note Customer=[...] OrderID! {...}", the elements' definition in
/// braces. "!" marks the key, "^" the foreign key, "-" values that are not stored.
std::string Describe(Definition& definition) {
    std::string text = definition.Name() + " " + definition.StringAttribute(attTableName) + ":";
    const auto foreignKeys = definition.ObjectAttribute(attForeignKeys)->NewEnum();
    std::string foreignKey;
    while (const auto key = foreignKeys->Next())
        foreignKey += automation::ObjectAs<QORObject>(*key)->StringAttribute(attForeignKeyField);
    for (const auto& value : definition.Values()) {
        const auto& info = value->Info();
        if (value->Child() != nullptr) {
            text += " " + info.name + "=[" + Describe(*value->Child()) + "]";
            continue;
        }
        text += (info.isIncluded && !info.column.empty() ? " " : " -") + info.name;
        if (definition.KeyValue() == value.get()) text += "!";
        if (!foreignKey.empty() && info.column == foreignKey) text += "^";
    }
    if (definition.ElementDefinition() != nullptr)
        text += " {" + Describe(*definition.ElementDefinition()) + "}";
    return text;
}

class LoadDefinitions : public testing::Test {
  protected:
    /// Order (1) with customer (2) and lines (3, elements 4); customer and line both have a note (5).
    void Fill() {
        tests::DefinitionRepository(m_platform, m_path)
            .Definition("Orders", 1)
            .Definition("Notes", 5)
            .Definition("Broken", 9)
            .Object(1, "Order")
            .Value(1, "Number", 8)
            .Value(1, "Calculator", 13)
            .Child(1, "Customer", 2)
            .Child(1, "Lines", 3)
            .Object(2, "Customer")
            .Child(2, "Note", 5)
            .Object(3, "Lines", 4)
            .Object(4, "Line")
            .Value(4, "Quantity", 3)
            .Child(4, "Note", 5)
            .Object(5, "Note")
            .Value(5, "Text", 8);
    }
    std::shared_ptr<Definition> Load(std::string_view storage = "Orders", std::string_view prefix = "FK_") {
        return LoadDefinition(repository::Catalog::Read(*m_platform.repositoryEngine->OpenDatabase(m_path)),
                              storage, prefix);
    }
    std::string ErrorOfLoad(std::string_view storage = "Orders", std::string_view prefix = "FK_") {
        return tests::ErrorOf([&] { Load(storage, prefix); }).Text();
    }
    void Run(std::string_view sql) { tests::Execute(m_platform, m_path, sql); }

    tests::TempFolder m_folder;
    std::string m_path = m_folder.Path("definitions.db");
    Platform m_platform = native::NativePlatform();
};

TEST_F(LoadDefinitions, AreBuiltWithTheKeysOfTheirPlace) {
    Fill();
    Run("update tValues set FieldName = 'Calculator', IsIncluded = -1 where DataType = 13");  // no column yet
    const auto before = tests::DumpRepository(m_platform, m_path);
    EXPECT_EQ(Describe(*Load()),
              "Order tOrder: Number -Calculator "
              "Customer=[Customer tCustomer: Note=[Note tNote2: Text NoteID! FK_CustomerID^ -FK_LineID] "
              "CustomerID! FK_OrderID^] "
              "Lines=[Lines tLines: LinesID! FK_OrderID^ {Line tLine: Quantity "
              "Note=[Note tNote2: Text NoteID! -FK_CustomerID FK_LineID^] LineID! FK_LinesID^}] OrderID!");
    // Alone the note is met once. Its parents elsewhere have their columns.
    EXPECT_EQ(Describe(*Load("Notes")), "Note tNote: Text NoteID! FK_CustomerID FK_LineID");
    EXPECT_THAT(Describe(*Load("Orders", "F")), testing::HasSubstr("FOrderID^"));
    EXPECT_EQ(tests::DumpRepository(m_platform, m_path), before);
}

TEST_F(LoadDefinitions, SayWhatKeepsThemFromBeingBuilt) {
    Fill();
    EXPECT_EQ(
        ErrorOfLoad("Order"),
        "5: No data definition has the storage name \"Order\". There are \"Broken\", \"Notes\", \"Orders\".");
    EXPECT_THAT(ErrorOfLoad("Broken"),
                testing::StartsWith("5: The repository refers to the object with ObjectID 9"));
    EXPECT_THAT(
        ErrorOfLoad("Orders", " K_"),
        testing::StartsWith("5: The object \"Customer\" (ObjectID 2) has no foreign key \" K_OrderID\" to "
                            "its parent \"Order\" (ObjectID 1): neither"));
    Run("insert into tDataDefs (Storage, RootObjectID) values ('Orders', 2)");
    EXPECT_EQ(ErrorOfLoad(), "5: Several data definitions have the storage name \"Orders\".");
    Run("delete from tDataDefs where RootObjectID = 2");
    Run("update tObjects set CollectionObjectID = 1 where ObjectID = 5");
    EXPECT_EQ(ErrorOfLoad(), "28: An object is its own ancestor: Order > Customer > Note > Order");
}

}  // namespace
}  // namespace korvex::objects
