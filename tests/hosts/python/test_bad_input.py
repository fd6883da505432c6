"""Wrong calls, and what many calls leave behind."""

import copy
import gc
import pickle
import resource
import sys

import korvex
import pytest
from host_objects import Data


@pytest.mark.parametrize(
    "call, number",
    [
        (lambda crud, order: crud.DbSaveData(5), 13),
        (lambda crud, order: crud.DbSaveData("order"), 13),
        (lambda crud, order: crud.DbSaveData(korvex.clsField()), 13),
        (lambda crud, order: crud.DbGetData(order, "x"), 13),
        (lambda crud, order: crud.OpenRecordset(None), 94),
        (lambda crud, order: setattr(crud, "FKPrefix", None), 94),
        (lambda crud, order: setattr(crud, "DbConn", order), 13),
        (lambda crud, order: setattr(korvex.clsField(), "DataType", 2**31), 6),
        (lambda crud, order: setattr(korvex.clsField(), "nPrimaryKeySeq", 40000), 6),
        (lambda crud, order: setattr(korvex.clsField(), "IsLongFld", "perhaps"), 13),
        (lambda crud, order: korvex.clsCreateDb().ScriptTypes()[9], 9),
        (lambda crud, order: korvex.clsCreateDb().ScriptTypes()["no"], 5),
        (lambda crud, order: korvex.clsCreateDb().ScriptTypes(5), 424),
        (lambda crud, order: korvex.clsCreateDb().ShutDown(), 91),
        (lambda crud, order: korvex.clsCreateDb().DoMSsqlDb("missing.db"), 3024),
        (lambda crud, order: order.Value(0), 9),
        (lambda crud, order: order.add(), 5),
        (lambda crud, order: setattr(order, "Customer", order), 13),
        (lambda crud, order: crud.DbConn.Execute("select * from nowhere"), -2147217865),
    ],
)
def test_errors_have_the_automation_numbers(crud, order, call, number):
    with pytest.raises(korvex.Error) as caught:
        call(crud, order)
    error = caught.value
    assert error.number == number and error.source and error.description and error.description in str(error)
    assert pickle.loads(pickle.dumps(error)).number == number


@pytest.mark.parametrize(
    "call",
    [
        lambda: korvex.clsCRUD().DbSaveData(),
        lambda: korvex.clsCRUD().DbSaveData(None, 1),
        lambda: korvex.clsCRUD().DbSaveData(data=None),
        lambda: korvex.clsCRUD().DbSaveData([]),
        lambda: korvex.clsCreateDb().DoMSsqlDb(Name="x"),
        lambda: korvex.clsCreateDb(5),
        lambda: korvex.Recordset(),
        lambda: korvex.DataObject(),
        lambda: korvex.DataObject(korvex.clsField()),
        lambda: korvex.load_definition(5, "Orders"),
        lambda: korvex.load_definition("orders.db", None),
        lambda: korvex.create_tables("orders.db", "Orders", 5),
        lambda: korvex.find(None, "c"),
        lambda: iter(korvex.clsCRUD()),
        lambda: pickle.dumps(korvex.clsCRUD()),
    ],
)
def test_wrong_calls_are_type_errors(call):
    with pytest.raises(TypeError):
        call()


def test_read_only_unknown_and_unmade():
    scripts = korvex.clsCreateDb()
    for name in ("DbSQL", "Missing"):
        with pytest.raises(AttributeError):
            setattr(scripts, name, "x")
    for kind in (korvex.clsCRUD, korvex.DataObject):
        with pytest.raises(AttributeError):
            kind.__new__(kind).DataDef
    assert copy.copy(scripts).FKPrefix == scripts.FKPrefix


def grown(work, rounds):
    for _ in range(rounds // 10):
        work()
    gc.collect()
    before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    for _ in range(rounds):
        work()
    gc.collect()
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before


def test_ten_thousand_rounds_do_not_grow(orders, crud):
    crud.DbSaveData(korvex.DataObject.from_dict(orders, {"OrderNumber": "A-1"}))

    def work():
        crud.DbGetField(1, "OrderID", "tOrder", "OrderNumber")
        for row in crud.OpenRecordset("select OrderID from tOrder"):
            assert row["OrderID"] == 1
        order = korvex.DataObject(orders)
        order.Lines.add().Quantity = 2
        assert order.Lines[0].Parent is order.Lines and order.Lines.to_dict()["$items"] == [{"Quantity": 2.0}]
        collection = korvex.clsCreateDb().ScriptTypes()
        collection.Add(Data(orders))
        assert crud.DbDataExists(collection[4], 1)
        try:
            crud.DbSaveData(collection)
        except korvex.Error:
            pass

    assert grown(work, 10_000) < 1024  # kB


def test_no_reference_is_left(orders, crud):
    data = Data(orders)
    before = sys.getrefcount(data), sys.getrefcount(orders), sys.getrefcount(Data)
    for _ in range(20):
        crud.DbGetData(data, 1)
        crud.DbDataExists(data, 1)
        korvex.clsCreateDb().ScriptTypes().Add(data)
        korvex.clsCRUD(newDataObject=Data)
        with pytest.raises(korvex.Error):
            crud.DbGetData(data, "x")
    gc.collect()
    assert (sys.getrefcount(data), sys.getrefcount(orders), sys.getrefcount(Data)) == before
