"""Values between Python and the library, one by one."""

import math
from datetime import date, datetime, time, timezone
from decimal import Context, Decimal, localcontext
from pathlib import Path

import korvex
import pytest

KEPT = [
    *(True, 0, -(2**31), 2**31, 2**63 - 1, -(2**63), 1.5, 5e-324, -1.7976931348623157e308, None),
    *("", "grün \U0001f600 \0 end", b"", b"\0\xff"),
    *map(Decimal, ("0.0001", "-922337203685477.5808", "1E+3")),
    *(datetime(100, 1, 1), datetime(1899, 12, 29, 18), datetime(1899, 12, 30, 0, 0, 1)),
    *(datetime(2026, 11, 22, 8, 30, 59, 999000), datetime(9999, 12, 31, 23, 59, 59, 999000)),
]
CHANGED = [
    (date(2026, 11, 22), datetime(2026, 11, 22)),
    (bytearray(b"ab"), b"ab"),
    (memoryview(b"abcd")[::2], b"ac"),
    (Path("a/b"), "a/b"),
    (korvex.dbResults.dbConnectError, -32767),
]
REFUSED = [
    (2**63, 6, "64 bits"),
    (math.nan, 6, "finite"),
    (math.inf, 6, "finite"),
    (Decimal("NaN"), 6, "finite"),
    (Decimal("1.00001"), 13, "four decimals"),
    (Decimal("922337203685477.5808"), 6, ""),
    (datetime(2026, 1, 1, tzinfo=timezone.utc), 13, "time zone"),
    (datetime(2026, 1, 1, microsecond=1), 13, "millisecond"),
    (date(99, 12, 31), 6, "year 100"),
    ("\ud800", 5, "surrogate"),
]


@pytest.fixture
def collection():
    return korvex.clsCreateDb().ScriptTypes()


@pytest.mark.parametrize("given, kept", [(one, one) for one in KEPT] + CHANGED, ids=repr)
def test_values_come_back(collection, given, kept):
    with localcontext(Context(prec=3)):  # the precision that a host computes with is its own
        collection.Add(given)
        back = collection[4]
    assert back == kept and type(back) is type(kept)


@pytest.mark.parametrize("value, number, word", REFUSED, ids=repr)
def test_what_automation_cannot_hold_is_refused(collection, orders, value, number, word):
    with pytest.raises(korvex.Error) as caught:
        collection.Add(value)
    assert caught.value.number == number and word in caught.value.description
    with pytest.raises(korvex.Error, match="Customer.Rating") as caught:
        korvex.DataObject.from_dict(orders, {"Customer": {"Rating": value}})
    assert caught.value.number == number and len(collection) == 3


@pytest.mark.parametrize("value", [[1], {}, {1}, (), 1j, time(8), object, len, iter("")], ids=repr)
def test_what_is_no_value_at_all_is_a_type_error(collection, value):
    with pytest.raises(TypeError, match="no value"):
        collection.Add(value)
    assert len(collection) == 3


def test_objects_are_themselves(collection):
    class Host:
        pass

    host, field = Host(), korvex.clsField()
    collection.Add(host, Key="host")
    collection.Add(field, Before="host")
    assert collection["HOST"] is host and collection[4] is field


def test_a_database_keeps_them(tmp_path):
    crud = korvex.clsCRUD()
    crud.ConnectDB(f"Provider=SQLite;Data Source={tmp_path / 'values.db'};Mode=Create")
    connection = crud.DbConn
    connection.Execute("create table t (i integer primary key, n bigint, x double, d datetime, s varchar(20), b blob, a decimal(19,4))")
    given = [2**40, 0.1, datetime(2026, 11, 22, 8, 30, 0, 250000), "O'Grün", b"\0\1", Decimal("12.3400")]
    records = crud.OpenRecordset("select * from t")
    records.AddNew()
    for name, value in zip("nxdsba", given):
        records[name] = value
    records.Update()
    _, affected = connection.Execute("insert into t (s) values (null)")
    rows = list(crud.OpenRecordset("select * from t order by i"))
    assert affected == 1 and [row["I"] for row in rows] == [1, 2]
    assert [rows[0][name] for name in "nxdsba"] == given and list(rows[1].values()) == [2, *[None] * 6]
    assert dict(rows[1]) == rows[1] and rows[0][-1] == given[-1] and list(rows[0]) == list("inxdsba")
    assert crud.DbGetField(1, "i", "t", "s") == (True, "O'Grün")
    assert crud.DbSaveField(1, sKeyFieldName="i", sTableName="t", sFieldName="s", vntFieldValue="new")
    assert crud.OpenRecordset("select s from t").Fields("s").Value == "new"
    assert [field.Name for field in crud.OpenRecordset("select * from t").Fields()] == list("inxdsba")
    with pytest.raises(KeyError):
        rows[0]["missing"]
