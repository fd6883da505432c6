"""Script runs: the fifteen files of the example, byte for byte."""

import logging

import korvex
import pytest
from conftest import SOURCE

RUNS = {"MS": "DoMSsqlDb", "Ora": "DoOracleDb", "Sy": "DoSybaseDb"}


@pytest.mark.parametrize("kind", ["model", "repository"])
@pytest.mark.parametrize("prefix", RUNS)
def test_scripts_equal_the_published_ones(kind, prefix, request, tmp_path, caplog, capfd):
    caplog.set_level(logging.INFO, "korvex")
    scripts = korvex.clsCreateDb()
    scripts.ScriptFilePath = str(tmp_path)
    getattr(scripts, RUNS[prefix])(request.getfixturevalue(kind), storageName="Orders")
    written = sorted(tmp_path.iterdir())
    assert [file.name for file in written] == sorted(
        file.name for file in (SOURCE / "examples/scripts").glob(f"{prefix}*.sql")
    )
    for file in written:
        assert file.read_bytes() == (SOURCE / "examples/scripts" / file.name).read_bytes(), file.name
    assert scripts.DbSQL.encode() in (tmp_path / f"{prefix}Create.sql").read_bytes()
    opened = [record.getMessage() for record in caplog.records if record.levelname == "INFO"]
    assert sorted(opened) == [f"written: {file}" for file in written]
    assert capfd.readouterr() == ("", "")


class Language:
    """A language service that knows one text."""

    def __init__(self):
        self.asked = []

    def GetString(self, library, category, number):
        self.asked.append((library, category, number))
        return "Großer Server" if len(self.asked) % 3 == 1 else ""


def test_dialects_by_number_by_name_and_by_a_language_service(model, tmp_path):
    scripts = korvex.clsCreateDb()
    assert list(scripts.ScriptTypes()) == ["90", "92", "94"]
    language = Language()
    named = scripts.ScriptTypes(oLanguageSvr=language)
    assert list(named) == [named[1], "Oracle", named.Item(3)] == ["Großer Server", "Oracle", "Sybase"]
    assert {(library, category) for library, category, _ in language.asked} == {(410, 13)}
    language.asked.clear()
    scripts.ScriptFilePath = str(tmp_path)
    scripts.DoScript("Großer Server", model, "Orders", sFKPrefix="F_", oLanguageSvr=language)
    assert scripts.FKPrefix == "F_" and "F_OrderID" in scripts.DbSQL
    scripts.DoScript("unknown", model)
    assert len(list(tmp_path.iterdir())) == 5


def test_warnings_and_failures_are_logged(tmp_path, caplog, capfd):
    texts = ", ".join(f'{{"name": "Text{i}", "type": "string", "maxLength": 9000}}' for i in (1, 2))
    model = tmp_path / "notes.json"
    model.write_text(
        '{"version": 1, "definitions": [{"storage": "Notes", "root": "Note"}], '
        f'"objects": [{{"name": "Note", "values": [{texts}]}}]}}'
    )
    scripts = korvex.clsCreateDb()
    scripts.ScriptFilePath = str(tmp_path)
    scripts.DoOracleDb(model, "Notes")
    assert [record.levelname for record in caplog.records] == ["WARNING"] and "LONG RAW" in caplog.text
    caplog.clear()
    assert not korvex.clsCRUD().ConnectDB("Provider=SQLite;Data Source=/nowhere/at/all.db")
    assert [record.levelname for record in caplog.records] == ["ERROR"] and "/nowhere/at/all.db" in caplog.text
    assert capfd.readouterr() == ("", "")
