"""Help and types, as people and tools see them."""

import ast
import inspect
import os
import pydoc
import subprocess
import sys
from pathlib import Path

import korvex
import pytest

PACKAGE = Path(korvex.__file__).parent


def test_help_tells_what_a_member_does():
    text = pydoc.render_doc(korvex.clsCRUD, renderer=pydoc.plaintext)
    for line in (
        "This object is used to read and write QORObject data to/from a relational database.",
        "DbGetData(self, coData: korvex.QORObject | korvex.QORObjectLike, lKey: object, sKeyFieldName: str | os.PathLike[str] = '') -> int",
        "Determines if data for a specific primary key exists in the database.  Returns True if the data exists, False if it does not.",
    ):
        assert line in text
    for kind in (korvex.clsCreateDb, korvex.clsField, korvex.clsCRUD, korvex.Connection, korvex.Recordset):
        public = [member for name, member in vars(kind).items() if not name.startswith("_")]
        assert kind.__doc__ and public and all(member.__doc__ for member in public), kind
    names = ["self", "sID", "sFilename", "storageName", "sFKPrefix", "oLanguageSvr"]
    assert list(inspect.signature(korvex.clsCreateDb.DoScript).parameters) == names


def test_the_stub_has_all_that_the_module_has():
    stub = ast.parse((PACKAGE / "__init__.pyi").read_text(encoding="utf-8"))
    classes = {node.name: node for node in stub.body if isinstance(node, ast.ClassDef)}
    names = classes.keys() | {node.name for node in stub.body if isinstance(node, ast.FunctionDef)}
    assert set(korvex.__all__) <= names
    for name in classes.keys() & set(korvex.__all__):
        kind = getattr(korvex, name)
        members = {one.name for one in classes[name].body if isinstance(one, ast.FunctionDef)}
        made = {one for one, held in vars(kind).items() if inspect.isfunction(held) and not one.startswith("_")}
        assert made <= members and all(hasattr(kind, one) for one in members), name
    assert (PACKAGE / "py.typed").exists()


SAMPLE = '''
from __future__ import annotations
import korvex
from decimal import Decimal

class Note(korvex.QORObjectLike):
    def __init__(self, definition: korvex.QORObject) -> None:
        self.DataDef = definition
        self.values: dict[int, object] = {}
    def Value(self, Index: int) -> object:
        return self.values.get(Index)

scripts = korvex.clsCreateDb()
scripts.DoMSsqlDb("orders.db", storageName="Orders", sFKPrefix="F_")
length: int = len(scripts.DbSQL)
crud = korvex.clsCRUD()
definition = korvex.load_definition("orders.db", "Orders")
order = korvex.DataObject.from_dict(definition, {"Total": Decimal("1.5")})
key: int = crud.DbSaveData(order)
crud.DbSaveData(Note(definition))
found, value = crud.DbGetField(key, "OrderID", "tOrder", "Total")
good: bool = found
records = crud.OpenRecordset("select * from tOrder")
if records is not None:
    for row in records:
        print(row["Total"], row[0])
result: korvex.dbResults = crud.LastResult
'''
WRONG = {
    "scripts.FKPrefix = 5": "assignment",
    "scripts.DbSQL = ''": "read-only",
    "scripts.DoMSsqlDb(5)": "arg-type",
    "crud.DbSaveData('x')": "arg-type",
    "crud.DbSaveDate(order)": "attr-defined",
    "number: str = crud.DbSaveData(order)": "assignment",
}


@pytest.mark.parametrize("lines, expected", [(None, []), (list(WRONG), list(WRONG.values()))], ids=["right", "wrong"])
def test_mypy_reads_it(tmp_path, lines, expected):
    pytest.importorskip("mypy", reason="no mypy (Debian: mypy)")
    sample = tmp_path / "sample.py"
    sample.write_text(SAMPLE + "\n".join(lines or []), encoding="utf-8")
    run = subprocess.run(
        [sys.executable, "-m", "mypy", "--strict", "--cache-dir", tmp_path / "cache", sample],
        env={**os.environ, "MYPYPATH": str(PACKAGE.parent)},
        capture_output=True,
        text=True,
        cwd=tmp_path,
    )
    errors = [line for line in run.stdout.splitlines() if ": error: " in line]
    assert len(errors) == len(expected) and all(word in line for word, line in zip(expected, errors)), run.stdout
