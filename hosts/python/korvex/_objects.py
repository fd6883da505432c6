"""What all objects of the library have in common. Their classes are written from the member tables, see _classes.py."""

from __future__ import annotations

import os
import types
import typing
import weakref
from collections.abc import Callable, Iterator, Mapping
from typing import Any

from . import _korvex

_Text = str | os.PathLike[str]


class Object:
    """An object of the library. It belongs to the thread that made it."""

    __slots__ = ("_handle", "__weakref__")

    def __init__(self) -> None:
        raise TypeError(f"{type(self).__name__} objects are made by the library")

    def _hold(self, handle: _korvex.Handle) -> None:
        object.__setattr__(self, "_handle", handle)
        _held[handle.address] = self


_held: weakref.WeakValueDictionary[int, Object] = weakref.WeakValueDictionary()
_classes: dict[str, type[Object]] = {}


def _register(*classes: type[Object]) -> None:
    """The classes by which objects of the library are known, under their names there."""
    _classes.update((one.__name__, one) for one in classes)
    for one in classes:
        for member in vars(one).values():
            function = member.fget if isinstance(member, property) else member
            if isinstance(function, types.FunctionType):  # help() shows types, not their names in quotes
                function.__annotations__ = typing.get_type_hints(function)


def _wrap(handle: _korvex.Handle) -> Object:
    """The one Python object that stands for an object of the library, as long as anybody holds it."""
    held = _held.get(handle.address)
    if held is None:
        held = object.__new__(_classes.get(handle.class_name, Object))
        held._hold(handle)
    return held


_korvex.use_object_class(Object, _wrap)


class _Field(Object):
    __slots__ = ()

    def __init__(self) -> None:
        self._hold(_korvex.create_field())


class _CreateDb(Object):
    __slots__ = ()

    def __init__(self) -> None:
        self._hold(_korvex.create_db())


class _Crud(Object):
    __slots__ = ()

    def __init__(self, newDataObject: Callable[[], object] | None = None) -> None:
        """newDataObject makes an object of the host's own class, without a definition; it is asked for what stands
        beneath elements that are deleted."""
        self._hold(_korvex.create_crud(newDataObject))


class Row(Mapping[str, Any]):
    """A record that was read: values by column name, in any case, or by position from 0."""

    __slots__ = ("_positions", "_names", "_values")

    def __init__(self, names: tuple[str, ...], positions: Mapping[str, int], values: tuple[Any, ...]) -> None:
        self._names = names
        self._positions = positions
        self._values = values

    def __getitem__(self, key: str | int) -> Any:
        if isinstance(key, int):
            return self._values[key]
        try:
            return self._values[self._positions[key.upper()]]
        except (KeyError, AttributeError):
            raise KeyError(key) from None

    def __iter__(self) -> Iterator[str]:
        return iter(self._names)

    def __len__(self) -> int:
        return len(self._names)

    def __repr__(self) -> str:
        return f"Row({dict(self)!r})"


class _Recordset(Object):
    __slots__ = ()

    def __iter__(self) -> Iterator[Row]:
        """The records from the current one on, which is the first of a recordset that was just opened."""
        names = _korvex.column_names(self._handle)
        positions = {name.upper(): place for place, name in reversed(list(enumerate(names)))}
        while (values := _korvex.next_record(self._handle)) is not None:
            yield Row(names, positions, values)

    def __getitem__(self, key: str | int) -> Any:
        """The value of a column in the current record."""
        return self._handle.get("Fields", key)._handle.get("Value")

    def __setitem__(self, key: str | int, value: object) -> None:
        self._handle.let("Fields", key, value)
