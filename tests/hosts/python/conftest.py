import os
import subprocess
from pathlib import Path

import korvex
import pytest

SOURCE = Path(os.environ["KORVEX_SOURCE"])


def known(values):
    """What a dictionary of to_dict says but for Null: a load gives Null where nothing was said."""
    if isinstance(values, dict):
        return {name: known(held) for name, held in values.items() if held is not None}
    return [known(held) for held in values] if isinstance(values, list) else values


@pytest.fixture(scope="session")
def model():
    return SOURCE / "examples" / "orders.json"


@pytest.fixture(scope="session")
def repository(model, tmp_path_factory):
    """The example's definition in a repository file, its keys not made yet."""
    file = tmp_path_factory.mktemp("repository") / "orders.db"
    for words in (["new", file], ["import", file, model]):
        subprocess.run([os.environ["KORVEX_COMMAND"], "repository", *words], check=True, capture_output=True)
    return file


@pytest.fixture(scope="session")
def orders(model):
    return korvex.load_definition(model, "Orders")


@pytest.fixture
def target(model, tmp_path):
    """A database with the example's tables."""
    connection = f"Provider=SQLite;Data Source={tmp_path / 'target.db'}"
    korvex.create_tables(model, "Orders", connection)
    return connection


@pytest.fixture
def crud(target):
    made = korvex.clsCRUD()
    assert made.ConnectDB(target)
    return made


@pytest.fixture
def order(orders):
    return korvex.DataObject.from_json(orders, (SOURCE / "examples" / "order.json").read_text(encoding="utf-8"))
