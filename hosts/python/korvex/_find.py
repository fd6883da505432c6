"""Stored objects found again by their values."""

from collections.abc import Iterable, Iterator
from typing import NamedTuple

from . import _korvex
from ._data import Definition, _definition_handle
from ._objects import Row
from ._tables import _connected, _Target


class FoundObject(NamedTuple):
    """A stored object: its key for DbGetData, and the values that were asked for."""

    key: int
    values: Row


def find(
    definition: Definition,
    connection: _Target,
    *where: str,
    fields: Iterable[str] = (),
    order: str = "",
    descending: bool = False,
    limit: int | None = None,
) -> Iterator[FoundObject]:
    """The stored objects for which all conditions hold, one after the other, by key or in the order of a value. A
    condition is a comparison with a value of the object or of a child: "State = 4", "Customer.Rating > 3",
    "Notes is null", "Customer.CompanyName like Ann%"; what stands behind the operator is taken as it is. Without fields
    the key and the values of the object itself are given."""
    found = _korvex.StoredObjects(
        _definition_handle(definition), _connected(connection), list(where), list(fields), order, descending, limit
    )
    return _found_objects(found)


def _found_objects(found: _korvex.StoredObjects) -> Iterator[FoundObject]:
    names = tuple(found.names())
    positions = {name.upper(): place for place, name in enumerate(names)}
    while (one := found.next()) is not None:
        yield FoundObject(one[0], Row(names, positions, one[1]))
