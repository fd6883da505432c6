"""Objects of Python classes in the hands of the library."""

import threading
from datetime import datetime

import korvex
import pytest
from conftest import SOURCE, known
from host_objects import Data, flat_definition
from korvex import QORAttributes as att


def test_a_tree_of_python_objects_is_saved_loaded_updated_and_deleted(orders, order, target):
    crud = korvex.clsCRUD(newDataObject=Data)
    crud.ConnectDB(target)
    key = crud.DbSaveData(order)
    loaded = Data(orders)
    assert crud.DbGetData(loaded, key) == key and known(loaded.to_dict()) == known(order.to_dict())

    second = crud.DbSaveData(loaded)
    copy = korvex.DataObject(orders)
    assert crud.DbGetData(copy, second) == second == key + 1 and len(copy.Lines) == len(order.Lines)

    customer = loaded.NamedValue("Customer")
    customer.SetValue(customer.ValueIndex("CompanyName"), "Ann & Co")
    customer.Modified = True
    assert crud.DbUpdateData(loaded, second) == second and not customer.Modified
    assert crud.DbGetField(customer.to_dict()["CustomerID"], "CustomerID", "tCustomer", "CompanyName") == (True, "Ann & Co")
    assert crud.DbDeleteData(Data(orders), second) == second
    assert not crud.DbDataExists(copy, second) and crud.DbDataExists(copy, key)


def test_a_definition_of_python_objects(tmp_path):
    crud = korvex.clsCRUD()
    crud.ConnectDB(f"Provider=SQLite;Data Source={tmp_path / 'flat.db'};Mode=Create")
    crud.DbConn.Execute(
        "create table tNote (NoteID integer primary key, Text varchar(50), At datetime, QORSelectState int, QORCounter int)"
    )
    definition = flat_definition("tNote", "NoteID", ["Text", "At"])
    assert crud.GetTableName(definition) == "tNote" and crud.GetPrimaryKeyFieldName(definition) == "NoteID"
    note = Data(definition)
    note.values = {0: "hello", 1: datetime(2026, 11, 22, 8, 30)}
    note.state = {att.attCounter: 7}
    assert crud.DbSaveData(note) == 1 and note.values[2] == 1
    loaded = Data(definition)
    assert crud.DbGetData(loaded, 1) == 1 and loaded.values == note.values and loaded.state == {**note.state, att.attSelectState: 0}
    definition.attributes[att.attIsIncluded] = False
    assert crud.DbSaveData(note) == 0 and crud.LastResult is korvex.dbResults.dbTableNotIncluded


@pytest.mark.parametrize("member", ["Value", "ValueIndex", "DataDef", "NamedValue"])
@pytest.mark.parametrize("failure", [ZeroDivisionError("by host"), KeyError("host"), korvex.Error(5, "host"), KeyboardInterrupt()])
def test_an_exception_of_the_host_reaches_the_caller_as_it_is(orders, order, crud, member, failure):
    def fail(*_):
        raise failure

    class Failing(Data):
        pass

    setattr(Failing, member, property(fail, lambda *_: None) if member == "DataDef" else fail)
    data = Failing(orders)
    crud.DbSaveData(order)
    with pytest.raises(type(failure)) as caught:
        crud.DbGetData(data, 1)
        crud.DbSaveData(data)
    assert caught.value is failure
    again = korvex.DataObject(orders)
    assert crud.DbGetData(again, 1) == 1  # the same clsCRUD works on


def test_a_service_that_fails(model):
    class Language:
        def GetString(self, *numbers):
            raise LookupError("no such text")

    with pytest.raises(LookupError, match="no such text"):
        korvex.clsCreateDb().ScriptTypes(Language())
    with pytest.raises(AttributeError, match="GetString"):
        korvex.clsCreateDb().ScriptTypes(Data())


def test_threads_with_objects_of_their_own(orders, model, tmp_path):
    text = (SOURCE / "examples/order.json").read_text(encoding="utf-8")
    done = []

    def work(number):
        target = f"Provider=SQLite;Data Source={tmp_path / f'{number}.db'}"
        korvex.create_tables(model, "Orders", target)
        crud = korvex.clsCRUD()
        crud.ConnectDB(target)
        for _ in range(10):
            order = korvex.DataObject.from_json(orders, text)
            key = crud.DbSaveData(order)
            loaded = Data(orders)
            crud.DbGetData(loaded, key)
            assert known(loaded.to_dict()) == known(order.to_dict())
        done.append(key)

    threads = [threading.Thread(target=work, args=(number,)) for number in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert done == [10] * 4


def test_other_threads_run_during_a_long_call(crud):
    ticks, stop = [], threading.Event()

    def tick():
        while not stop.wait(0.001):
            ticks.append(1)

    ticker = threading.Thread(target=tick)
    ticker.start()
    before = len(ticks)
    records, _ = crud.DbConn.Execute(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 1000000) select count(*) as c from n"
    )
    during = len(ticks) - before
    stop.set()
    ticker.join()
    assert records["c"] == 1000000 and during > 5


def test_an_object_belongs_to_its_thread(crud, order):
    failures = []

    def use():
        for call in (lambda: crud.LastResult, lambda: korvex.clsCRUD().DbSaveData(order), lambda: order.State):
            try:
                call()
            except korvex.Error as error:
                failures.append((error.number, error.description))

    thread = threading.Thread(target=use)
    thread.start()
    thread.join()
    assert [number for number, _ in failures] == [-2147417842] * 3 and "clsCRUD" in failures[0][1]
