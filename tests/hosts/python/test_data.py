"""Object trees with the library's data objects."""

from decimal import Decimal

import korvex
import pytest
from conftest import known
from korvex import dbResults


def test_a_tree_is_saved_loaded_updated_and_deleted(orders, order, crud):
    key = crud.DbSaveData(order)
    assert key == 1 and crud.LastResult is dbResults.dbNoError and order.OrderID == 1
    loaded = korvex.DataObject(orders)
    assert crud.DbGetData(loaded, key) == key
    assert known(loaded.to_dict()) == known(order.to_dict())

    assert crud.DbUpdateData(loaded) == key and crud.LastResult is dbResults.dbObjectNotModified
    loaded.Total = Decimal("12.5")
    loaded.Customer.CompanyName = "Ann & Co"
    lines = len(loaded.Lines)
    del loaded.Lines[0]
    added = loaded.Lines.add(Quantity=7)
    assert crud.DbUpdateData(loaded) == key and added.OrderLineID > 0
    again = korvex.DataObject(orders)
    crud.DbGetData(again, key)
    assert (again["Total"], again.Customer.CompanyName) == (Decimal("12.5"), "Ann & Co")
    assert again.Lines[-1].Quantity == 7 and len(again.Lines) == lines
    assert crud.DbDeleteData(again, key) == key and not crud.DbDataExists(again, key)
    records = crud.OpenRecordset("select count(*) as n from tOrderLine")
    assert [row["n"] for row in records] == [0]


def test_objects_are_dictionaries_and_back(orders, order):
    values = order.to_dict()
    copy = korvex.DataObject.from_dict(orders, values)
    assert copy.to_dict() == values and copy.to_json() == order.to_json()
    copy.update({"State": 9, "Customer": {"Rating": None}})
    assert (copy.State, copy.Customer.Rating, copy.Notes) == (9, None, order.Notes)
    del copy.State
    assert "State" not in copy.to_dict() and copy.to_dict()["Customer"]["Rating"] is None


def test_attributes_children_and_elements(orders, order):
    assert order.Customer is order["Customer"] and order.Customer.Parent is order
    assert {"Customer", "to_dict"} <= set(dir(order)) and "Customer" in order and "customer" not in order
    assert order.Lines[0] in order.Lines and [line for line in order.Lines][-1] is order.Lines[-1]
    assert order.DataDef is orders and orders.name == "Order" and orders.value_names[0] == "OrderNumber"
    assert korvex.DataObject(orders) and len(korvex.DataObject(orders)) == 0
    with pytest.raises(AttributeError, match="Custmer"):
        order.Custmer
    with pytest.raises(AttributeError, match="Custmer"):
        order.Custmer = 5
    with pytest.raises(KeyError, match="Custmer"):
        order["Custmer"]
    with pytest.raises(IndexError):
        order.Lines[999]
    with pytest.raises(korvex.Error, match="^Quantity: a text where a number belongs") as caught:
        order.Lines.add(Quantity="many")
    assert caught.value.number == 13


@pytest.mark.parametrize(
    "values, number, place",
    [
        ({"Raitng": 1}, 438, "Raitng"),
        ({"Customer": {"Rating": "x"}}, 13, "Customer.Rating"),
        ({"Lines": {"$items": [{"Quantity": 1}, {"LineNumber": 2**40}]}}, 6, r"Lines.\$items\[1\].LineNumber"),
        ({"Lines": [1]}, 13, "Lines"),
    ],
)
def test_dictionaries_that_do_not_fit_name_the_place(orders, values, number, place):
    with pytest.raises(korvex.Error, match=place) as caught:
        korvex.DataObject.from_dict(orders, values)
    assert caught.value.number == number


def test_definitions_from_all_that_holds_one(model, repository):
    before = repository.read_bytes()
    from_file, from_model = (korvex.load_definition(source, "Orders") for source in (repository, model))
    assert from_file.value_names == from_model.value_names and repository.read_bytes() == before
    prefixed = korvex.load_definition(model, "Orders", sFKPrefix="F_")
    assert "F_OrderID" in korvex.DataObject(prefixed).Customer.DataDef.value_names
    with pytest.raises(korvex.Error, match="Orders"):
        korvex.load_definition(model, "Nothing")


def test_stored_objects_are_found(orders, crud, target):
    for number, rating, state in (("A-1", 3, 1), ("O'Neill", 5, 2), ("B%", 5, 4)):
        crud.DbSaveData(
            korvex.DataObject.from_dict(orders, {"OrderNumber": number, "State": state, "Customer": {"Rating": rating}})
        )

    def keys(*where, **options):
        return [one.key for one in korvex.find(orders, crud.DbConn, *where, **options)]

    assert keys() == [1, 2, 3] and keys("Customer.Rating = 5", "State < 4") == [2]
    assert keys("OrderNumber = O'Neill") == keys("OrderNumber like o%") == [2]
    assert keys(order="Customer.Rating", descending=True, limit=2) == [3, 2]
    found = next(korvex.find(orders, target, "State = 4", fields=["OrderNumber", "Customer.Rating"]))
    assert found.values == {"OrderNumber": "B%", "Customer.Rating": 5} and found.values[1] == 5
    with pytest.raises(korvex.Error, match="Rating") as caught:
        keys("Customer.Raitng = 5")
    assert caught.value.number == 438


def test_tables_are_made_compared_and_dropped(model, tmp_path):
    target = f"Provider=SQLite;Data Source={tmp_path / 'new.db'}"
    report = korvex.create_tables(model, "Orders", target)
    assert " tables, " in report.lines[0] and korvex.check_tables(model, "Orders", target) == []
    crud = korvex.clsCRUD()
    crud.ConnectDB(target)
    crud.DbConn.Execute("alter table tOrder add column Extra integer")
    assert "Extra" in "".join(korvex.check_tables(model, "Orders", crud.DbConn))
    assert " tables " in korvex.drop_tables(model, "Orders", crud.DbConn).lines[0]
    assert [row[0] for row in crud.OpenRecordset("select count(*) from sqlite_schema where name like 't%'")] == [0]
