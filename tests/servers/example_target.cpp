#include "servers/example_target.h"

#include "hosts/cli/model/model_import.h"
#include "hosts/cli/model/model_reader.h"
#include "objects/json.h"
#include "objects/load_definition.h"
#include "repository/catalog.h"
#include "repository/repository.h"
#include "support/definition_repository.h"
#include "surface/target_tables.h"

namespace korvex::tests {
namespace {

/// A repository with the example's definition.
class OrdersRepository {
  public:
    OrdersRepository() {
        DefinitionRepository repository(m_platform, Path());
        cli::ImportModel(cli::ReadModel(KORVEX_TEST_DATA "/orders.json"), repository.Database());
    }
    std::string Path() const { return m_folder.Path("orders.db"); }
    const Platform& Engines() const noexcept { return m_platform; }

  private:
    TempFolder m_folder;
    Platform m_platform = native::NativePlatform();
};

}  // namespace

std::shared_ptr<objects::Definition> OrdersDefinition() {
    const OrdersRepository orders;
    repository::Repository repository(orders.Engines());
    repository.OpenRepository(orders.Path());
    return objects::LoadDefinition(repository::Catalog::Read(repository.Open()), "Orders");
}

void CreateExampleTables(const std::shared_ptr<ado::Connection>& connection) {
    const OrdersRepository orders;
    TargetTables(orders.Engines(), orders.Path(), "Orders").Create(connection);
}

std::shared_ptr<objects::DataObject> FullOrder(const std::shared_ptr<objects::Definition>& definition) {
    return objects::FromJson(definition, R"({
        "OrderNumber": "A-1", "OrderedOn": "2024-02-29T13:14:15", "State": 3, "SalesRepresentative": -7,
        "Total": 1234.5, "DiscountRate": 0.25, "ExchangeRate": 1.0625, "IsPaid": true, "CurrencyCode": "EUR",
        "ExternalReference": {"$base64": "AAECAw=="}, "Notes": "It's \\ grün 😀", "InternalRemarks": "r",
        "$state": {"SelectState": 2, "Counter": 5},
        "Customer": {"CompanyName": "Zoë & Söhne", "CreditLimit": 10, "IsCompany": false, "Rating": 2,
            "SignedContract": null, "BillingAddress": {"City": "Köln", "Latitude": 50.9375},
            "Contacts": {"$items": [{"FirstName": "Ann", "IsMainContact": true}, {"FirstName": "Bob"}]}},
        "DeliveryAddress": {"City": "Bonn"},
        "Lines": {"NextLineNumber": 4, "$state": {"SelectedItem": 2, "CounterHolder": 3}, "$items": [
            {"LineNumber": 1, "Quantity": 2.5, "UnitPrice": 3.1, "Product": {"Sku": "S1", "Title": "Anchor"},
             "Allocations": {"$items": [{"WarehouseCode": "W1"}, {"WarehouseCode": "W2"}]}},
            {"LineNumber": 2, "Product": {"Sku": "S2"}},
            {"LineNumber": 3, "Product": {"Sku": "S3"}}]},
        "Shipments": {"$items": [{"Carrier": "C", "$items": [{"Barcode": "1"}, {"Barcode": "2"}]}]},
        "Payments": {"PaymentTerms": "now", "$items": [{"Amount": 1.25}]}
    })");
}

int CountRecords(ado::Connection& connection, Driver driver) {
    int count = 0;
    for (const std::string& table :
         RowsOf(connection, "select table_name from information_schema.tables where table_schema = " +
                                CurrentSchema(driver)))
        count += std::stoi(ValueOf(connection, "select count(*) from " + table));
    return count;
}

}  // namespace korvex::tests
