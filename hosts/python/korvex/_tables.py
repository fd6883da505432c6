"""The tables of a definition in its target database."""

import os
from typing import NamedTuple

from . import _korvex
from ._classes import Connection
from ._objects import _Text

_Target = str | Connection


class TargetReport(NamedTuple):
    """What was done to a target database, for people."""

    lines: list[str]
    notes: list[str]


def create_tables(repository: _Text, storageName: str, connection: _Target, sFKPrefix: str = "FK_") -> TargetReport:
    """Makes what is not there of a definition's tables, indexes, triggers and foreign keys, in the words of the engine
    behind the connection; a database file of the embedded engine, too. An empty storage name means all definitions."""
    tables = _tables(repository, storageName, connection, sFKPrefix)
    target = tables.connect(connection) if isinstance(connection, str) else _connected(connection)
    return TargetReport(*tables.create(target))


def drop_tables(repository: _Text, storageName: str, connection: _Target, sFKPrefix: str = "FK_") -> TargetReport:
    """Removes the tables of a definition with all their records, but for those that another definition uses."""
    return TargetReport(*_tables(repository, storageName, connection, sFKPrefix).drop(_connected(connection)))


def check_tables(repository: _Text, storageName: str, connection: _Target, sFKPrefix: str = "FK_") -> list[str]:
    """Where the tables that are there differ from the definition, a line each; none when they are equal."""
    return _tables(repository, storageName, connection, sFKPrefix).check(_connected(connection))


def _tables(repository: _Text, storageName: str, connection: _Target, sFKPrefix: str) -> _korvex.TargetTables:
    _expect_target(connection)
    return _korvex.TargetTables(os.fspath(repository), storageName, sFKPrefix)


def _connected(connection: _Target) -> _korvex.Handle:
    _expect_target(connection)
    return connection._handle if isinstance(connection, Connection) else _korvex.connect(connection)


def _expect_target(connection: object) -> None:
    if not isinstance(connection, (str, Connection)):
        raise TypeError(f"a connection or its string is expected, not {type(connection).__name__!r}")
