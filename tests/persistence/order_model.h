#pragma once

#include "objects/data_object.h"
#include "persistence/fake_ado.h"
#include "support/error_of.h"
#include "support/recording_parts.h"
#include "surface/cls_crud.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

namespace korvex::tests {

using automation::Variant;
using objects::DataObject;
using objects::Definition;
using DataRef = DataObject::Shared;

/// A definition with the key column <Name>ID, and FK_<Parent>ID when there is a parent.
inline std::shared_ptr<Definition> KeyedDefinition(const std::string& name, const std::string& parent,
                                                   bool isIncluded = true) {
    auto definition = std::make_shared<Definition>(name, "t" + name, isIncluded);
    const auto number = static_cast<std::int32_t>(automation::VarType::Long);
    definition->AddValue({name + "ID", name + "ID", number, true, true});
    definition->AddPrimaryKey(name + "ID");
    if (parent.empty()) return definition;
    definition->AddValue({"FK_" + parent + "ID", "FK_" + parent + "ID", number});
    definition->AddForeignKey("FK_" + parent + "ID");
    return definition;
}

/// Order: a customer, and a collection of lines that have a product each.
inline std::shared_ptr<Definition> OrderDefinition(bool withProducts = true) {
    const auto number = static_cast<std::int32_t>(automation::VarType::Long);
    const auto any = static_cast<std::int32_t>(automation::VarType::Variant);
    auto product = KeyedDefinition("Product", "Line", withProducts);
    product->AddValue({"Title", "Title"});
    auto line = KeyedDefinition("Line", "Lines");
    line->AddValue({"Sku", "Sku"});
    line->AddChild("Product", product);
    auto lines = KeyedDefinition("Lines", "Order");
    lines->ElementDefinition(line);
    auto customer = KeyedDefinition("Customer", "Order");
    customer->AddValue({"Name", "Name"});

    auto order = KeyedDefinition("Order", "");
    order->AddValue({"Note", "Note"});
    order->AddChild("Customer", customer);
    order->AddValue({"Count", "Count", number});
    order->AddValue({"Remarks", "Remarks"});
    order->AddValue({"Photo", "Photo", any});
    order->AddValue({"InMemory", ""});
    order->AddValue({"Left out", "LeftOut", number, false});
    order->AddChild("Lines", lines);
    return order;
}

/// Tables for it.
inline void CreateOrderTables(FakeDatabase& database) {
    const auto table = [&](const std::string& name, const std::string& parent, bool isCollection,
                           std::vector<FakeDatabase::Column> columns) {
        auto& all = database.tables["t" + name].columns;
        all.push_back({.name = name + "ID", .isAutoNumber = true});
        if (!parent.empty()) all.push_back({.name = "FK_" + parent + "ID"});
        all.insert(all.end(), columns.begin(), columns.end());
        all.push_back({.name = isCollection ? "QORSelectedItem" : "QORSelectState"});
        all.push_back({.name = isCollection ? "QORCounterHolder" : "QORCounter"});
    };
    table("Order", "", false,
          {{"Note", ado::adVarChar, 10},
           {"Count"},
           {"Remarks", ado::adLongVarChar, 100'000},
           {"Photo", ado::adLongVarBinary, 100'000}});
    table("Customer", "Order", false, {{"Name", ado::adVarChar, 40}});
    table("Lines", "Order", true, {});
    table("Line", "Lines", false, {{"Sku", ado::adVarChar, 20}});
    table("Product", "Line", false, {{"Title", ado::adVarChar, 40}});
}

inline DataRef AddLine(DataObject& order, const std::string& sku, const std::string& title) {
    auto line = order.Child("Lines")->Add();
    line->Set("Sku", sku);
    line->Child("Product")->Set("Title", title);
    return line;
}

/// An order of two lines.
inline DataRef NewOrder() {
    auto order = std::make_shared<DataObject>(OrderDefinition());
    order->Set("Note", "urgent");
    order->Set("Count", 2);
    order->Set("Remarks", "at length");
    order->Set("Photo", automation::Bytes{1, 2, 3});
    order->Child("Customer")->Set("Name", "Ann");
    AddLine(*order, "A1", "Anchor");
    AddLine(*order, "B2", "Bolt");
    return order;
}

/// A connected clsCRUD over the tables in memory.
struct OrderWorld {
    OrderWorld() {
        CreateOrderTables(database);
        crud->ConnectDB("memory");
        database.TakeLog();
    }

    /// Saves a new order and forgets the calls.
    DataRef StoredOrder() {
        auto order = NewOrder();
        crud->DbSaveData(order);
        database.TakeLog();
        return order;
    }
    DataRef LoadedOrder(std::int32_t key) {
        auto order = std::make_shared<DataObject>(OrderDefinition());
        crud->DbGetData(order, key);
        database.TakeLog();
        return order;
    }
    /// All values of a table, row by row.
    std::string Rows(std::string_view table) {
        std::string text;
        for (const auto& row : database.tables.find(table)->second.rows) {
            for (const auto& value : row)
                text += (&value == &row.front() ? "" : " ") + Show(value);
            text += "\n";
        }
        return text;
    }

    /// "1 A1, 2 B2": the lines by key and Sku.
    std::string LineTexts() {
        std::string text;
        for (const auto& row : database.tables.at("tLine").rows)
            text += (text.empty() ? "" : ", ") + Show(row[0]) + " " + automation::ToString(row[2]);
        return text;
    }

    FakeDatabase database;
    Journal messages = std::make_shared<std::vector<std::string>>();
    Platform platform{nullptr, std::make_shared<FakeProvider>(database),
                      std::make_shared<RecordingDesktop>(messages), nullptr};
    std::shared_ptr<clsCRUD> crud = std::make_shared<clsCRUD>(platform);
};

class CrudTest : public testing::Test, public OrderWorld {
  protected:
    /// Whatever the test did, no recordset may be left open.
    void TearDown() override { EXPECT_EQ(database.openRecordsets, 0); }
};

}  // namespace korvex::tests
