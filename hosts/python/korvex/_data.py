"""Data objects of the library's own, with the definitions that they come from."""

import json
import logging
import os
from collections.abc import Iterable, Mapping
from typing import Any

from . import _korvex
from ._classes import QORObject
from ._error import Error
from ._objects import _Text, _register

_MEMBER_NOT_FOUND = 438


class Definition(QORObject):
    """The definition of data objects, from a repository. All threads may use it."""

    __slots__ = ()

    @property
    def name(self) -> str:
        """Name of the object in the repository."""
        return _korvex.definition_name(self._handle)

    @property
    def value_names(self) -> list[str]:
        """Names of its values and child objects, in the order of the definition."""
        return _korvex.value_names(self._handle)

    def __repr__(self) -> str:
        return f"<korvex.Definition {self.name}>"


class DataObject(QORObject):
    """An object of a definition: order.OrderNumber or order["OrderNumber"] is a value, order.Customer a child object,
    order.Lines[0] an element. Names that the class has itself are reached in brackets only."""

    __slots__ = ()

    def __init__(self, definition: Definition) -> None:
        self._hold(_korvex.new_object(_definition_handle(definition)))

    @classmethod
    def from_dict(cls, definition: Definition, values: Mapping[str, Any]) -> "DataObject":
        """A new object with these values, in the form that to_dict gives."""
        return cls.from_json(definition, _json(values))

    @classmethod
    def from_json(cls, definition: Definition, text: str) -> "DataObject":
        """A new object from its JSON form."""
        handle, unstored = _korvex.object_from_json(_definition_handle(definition), text)
        _log_unstored(unstored)
        made = object.__new__(cls)
        made._hold(handle)
        return made

    def update(self, values: Mapping[str, Any]) -> None:
        """Puts values into the object; what they do not mention stays. "$items" gives all elements: one with the key of
        an element changes that element."""
        _log_unstored(_korvex.apply_json(self._handle, _json(values)))

    def to_dict(self) -> dict[str, Any]:
        """Values by name; child objects as dicts, elements as a list under "$items". Values that were never set are left
        out, Null is None."""
        return _korvex.to_dict(self._handle)

    def to_json(self) -> str:
        """The JSON form of the object."""
        return _korvex.to_json(self._handle)

    def add(self, **values: Any) -> "DataObject":
        """Appends a new element to a collection and gives it."""
        element: DataObject = _korvex.add_item(self._handle)
        try:
            element.update(values)
        except BaseException:
            _korvex.remove_item(self._handle, -1)
            raise
        return element

    def __getitem__(self, key: str | int) -> Any:
        if isinstance(key, str):
            return _by_name(_korvex.get_value, self, key)
        try:
            return _korvex.get_item(self._handle, key)
        except Error as error:
            raise IndexError(error.description) from None

    def __setitem__(self, key: str, value: object) -> None:
        _by_name(_korvex.set_value, self, key, value)

    def __delitem__(self, key: str | int) -> None:
        """Makes a value one that was never set; takes an element out."""
        if isinstance(key, str):
            return _by_name(_korvex.clear_value, self, key)
        try:
            _korvex.remove_item(self._handle, key)
        except Error as error:
            raise IndexError(error.description) from None

    def __getattr__(self, name: str) -> Any:
        if name == "_handle":
            raise AttributeError(name)
        return _as_attribute(self.__getitem__, name)

    def __setattr__(self, name: str, value: Any) -> None:
        if hasattr(type(self), name):
            object.__setattr__(self, name, value)
        else:
            _as_attribute(self.__setitem__, name, value)

    def __delattr__(self, name: str) -> None:
        _as_attribute(self.__delitem__, name)

    def __len__(self) -> int:
        return _korvex.count_items(self._handle)

    def __bool__(self) -> bool:
        return True

    def __contains__(self, key: object) -> bool:
        if isinstance(key, str):
            return isinstance(self.DataDef, Definition) and _korvex.has_value(self.DataDef._handle, key)
        return any(item is key for item in self)

    def __dir__(self) -> Iterable[str]:
        definition = self.DataDef
        return [*super().__dir__(), *(definition.value_names if isinstance(definition, Definition) else ())]

    def __repr__(self) -> str:
        definition = self.DataDef
        return f"<korvex.DataObject {definition.name if isinstance(definition, Definition) else 'without a definition'}>"


_register(Definition, DataObject)


def load_definition(repository: _Text, storageName: str, sFKPrefix: str = "FK_") -> Definition:
    """The definition of a storage name from a repository: whatever a script run takes. The repository is left as it is, and
    need not have its keys up to date."""
    return _wrap_definition(_korvex.load_definition(os.fspath(repository), storageName, sFKPrefix))


def _wrap_definition(handle: _korvex.Handle) -> Definition:
    definition = object.__new__(Definition)
    definition._hold(handle)
    return definition


def _definition_handle(definition: Definition) -> _korvex.Handle:
    if not isinstance(definition, Definition):
        raise TypeError(f"a korvex.Definition is expected, not {type(definition).__name__!r}")
    return definition._handle


def _by_name(call: Any, data: DataObject, *arguments: Any) -> Any:
    try:
        return call(data._handle, *arguments)
    except Error as error:
        if error.number != _MEMBER_NOT_FOUND:
            raise
        raise KeyError(error.description) from None


def _as_attribute(call: Any, *arguments: Any) -> Any:
    try:
        return call(*arguments)
    except KeyError as error:
        raise AttributeError(*error.args) from None


def _log_unstored(names: list[str]) -> None:
    for name in names:
        logging.getLogger("korvex").warning("%s is not stored: its definition leaves it out", name)


def _json(value: Any, place: str = "") -> str:
    """The JSON form of dicts, lists and single values, with all their digits."""
    if isinstance(value, Mapping):
        if not all(isinstance(name, str) for name in value):
            raise TypeError(f"{place or 'the object'}: names of values are texts")
        return "{%s}" % ", ".join(
            f"{json.dumps(name)}: {_json(held, f'{place}.{name}' if place else name)}" for name, held in value.items()
        )
    if isinstance(value, (list, tuple)):
        return "[%s]" % ", ".join(_json(held, f"{place}[{i}]") for i, held in enumerate(value))
    if isinstance(value, DataObject):
        return value.to_json()
    try:
        return _korvex.json_text(value)
    except Error as error:
        raise Error(error.number, f"{place}: {error.description}", error.source) from None
