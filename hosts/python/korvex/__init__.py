"""Schema scripts and object persistence.

clsCreateDb writes the SQL scripts of a data definition, clsCRUD moves data objects between memory and a database. All
members have the names and arguments that every automation host knows; arguments may be left out where they are optional,
and None is Null, or no object where one is expected. Failures are korvex.Error. Messages go to the logger "korvex".
"""

import logging as _logging

from ._classes import (
    Collection,
    Connection,
    Field,
    Fields,
    QORAttributes,
    QORObject,
    QORObjectLike,
    Recordset,
    clsCreateDb,
    clsCRUD,
    clsField,
    dbResults,
)
from ._data import DataObject, Definition, load_definition
from ._error import Error
from ._find import FoundObject, find
from ._objects import Object, Row
from ._tables import TargetReport, check_tables, create_tables, drop_tables

__all__ = [
    "Collection",
    "Connection",
    "DataObject",
    "Definition",
    "Error",
    "Field",
    "Fields",
    "FoundObject",
    "Object",
    "QORAttributes",
    "QORObject",
    "QORObjectLike",
    "Recordset",
    "Row",
    "TargetReport",
    "check_tables",
    "clsCRUD",
    "clsCreateDb",
    "clsField",
    "create_tables",
    "dbResults",
    "drop_tables",
    "find",
    "load_definition",
]

for _name in __all__:
    globals()[_name].__module__ = "korvex"
del _name

_logging.getLogger("korvex").addHandler(_logging.NullHandler())
