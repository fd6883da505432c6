"""Writes what the package's classes are: _classes.py from the member tables of the library, which the extension beside it
tells, and __init__.pyi, the signatures of the whole package, from its files."""

from __future__ import annotations

import ast
import re
import sys
from pathlib import Path

METHOD, GET, LET, SET = 1, 2, 4, 8
OBJECT, VARIANT = 9, 12
PLAIN = {2: "int", 3: "int", 8: "str", 11: "bool", VARIANT: "Any", 24: "None"}
EMPTY = {2: "0", 3: "0", 8: '""', 11: "False"}
BASES = {"clsField": "_Field", "clsCreateDb": "_CreateDb", "clsCRUD": "_Crud", "Recordset": "_Recordset"}
LIKE_HELP = "A base for data objects and definitions of one's own; any class with these members will do as well."
HELP = {
    "QORObject": "A data object, its definition, or an entry of the definition's collections.",
    "Collection": "Items in order, counted from 1, some of them with a key.",
}
ALWAYS_GIVEN = {"ScriptTypes", "Execute", "Item"}  # other objects may be None
HEAD = '''"""The public classes, written from the member tables of the library by describe.py: change those."""

from __future__ import annotations

import enum
from collections.abc import Iterator
from typing import Any, Protocol

from . import _korvex
from ._objects import Object, _CreateDb, _Crud, _Field, _Recordset, _register, _Text
'''


def class_name(full_name: str) -> str:
    return full_name.rpartition(".")[2]


def result_type(row: dict) -> str:
    if row["result_name"] == "dbResults":
        return "dbResults"
    if row["result"] != OBJECT:
        return PLAIN[row["result"]]
    if not row["result_name"]:
        return "Any"
    return class_name(row["result_name"]) + ("" if row["name"] in ALWAYS_GIVEN else " | None")


def parameter_text(parameter: dict) -> str:
    kind = parameter["type"]
    if kind == OBJECT:
        name = class_name(parameter["interface"]).replace("QORObject", "QORObject | QORObjectLike")
        return f"{parameter['name']}: {name}" + (" | None = None" if parameter["optional"] else "")
    text = f"{parameter['name']}: {({8: '_Text', VARIANT: 'object'}).get(kind, PLAIN[kind])}"
    return text + (f" = {EMPTY.get(kind, '...')}" if parameter["optional"] else "")


def method(name: str, row: dict, call: str, result: str) -> list[str]:
    inputs = [one for one in row["parameters"] if not one["output"]]
    outputs = [one for one in row["parameters"] if one["output"]]
    signature = ", ".join(["self", *map(parameter_text, inputs)])
    help_text = row["description"]
    if outputs:
        help_text += f" Answers with the result and {', '.join(one['name'] for one in outputs)}."
        result = f"tuple[{', '.join([result, *('Any' for _ in outputs)])}]"
    arguments = ", ".join([repr(row["name"]), *(one["name"] for one in inputs)])
    lines = [f"    def {name}({signature}) -> {result}:"]
    lines += [f"        {help_text!r}"] if help_text else []
    statement = f"self._handle.{call}({arguments})"
    return [*lines, f"        return {statement}" if result != "None" else f"        {statement}", ""]


def property_text(name: str, rows: dict[int, dict]) -> list[str]:
    get = rows[GET]
    result = result_type(get)
    value = f"self._handle.get({name!r})"
    lines = ["    @property", f"    def {name}(self) -> {result}:"]
    lines += [f"        {get['description']!r}"] if get["description"] else []
    lines += [f"        return {f'dbResults({value})' if result == 'dbResults' else value}", ""]
    let = rows.get(LET) or rows.get(SET)
    if let:
        new_value = let["parameters"][0]["name"]
        lines += [f"    @{name}.setter", f"    def {name}(self, {new_value}: {result}) -> None:"]
        lines += [f"        self._handle.let({name!r}, {new_value})", ""]
    return lines


def members(info: dict) -> list[str]:
    by_name: dict[str, dict[int, dict]] = {}
    for row in info["members"]:
        by_name.setdefault(row["name"], {})[row["kind"]] = row
    lines: list[str] = []
    for name, rows in by_name.items():
        if METHOD in rows:
            lines += method(name, rows[METHOD], "call", result_type(rows[METHOD]))
        elif not rows[GET]["parameters"]:
            lines += property_text(name, rows)
        else:
            lines += method(name, rows[GET], "get", result_type(rows[GET]))
            if LET in rows:
                lines += method(f"Set{name}", rows[LET], "let", "None")
    return lines


def protocols(info: dict, item: str | None) -> list[str]:
    """What makes a collection one of Python's."""
    lines: list[str] = []
    if any(row["name"] == "Count" for row in info["members"]):
        lines += ["    def __len__(self) -> int:", "        return self.Count", ""]
    if info["default"] == "Item":
        lines += [f"    def __getitem__(self, index: int | str) -> {item}:", "        return self.Item(index)", ""]
    if item:
        lines += [f"    def __iter__(self) -> Iterator[{item}]:", "        return _korvex.Iterator(self._handle)", ""]
    return lines


def class_text(info: dict, item: str | None) -> list[str]:
    name = info["name"]
    lines = [f"class {name}({BASES.get(name, 'Object')}):"]
    lines += [f"    {(info['description'] or HELP[name])!r}", "", "    __slots__ = ()", ""]
    return [*lines, *members(info), *protocols(info, item), ""]


def like_text(info: dict) -> list[str]:
    """Any class with the members of data objects may stand for one; this one carries nothing."""
    lines = [f"class {info['name']}Like(Protocol):", f"    {LIKE_HELP!r}", ""]
    for row in info["members"]:
        result = PLAIN.get(row["result"], "Any")
        inputs = [f"{one['name']}: {PLAIN.get(one['type'], 'Any')}" for one in row["parameters"] if not one["optional"]]
        if row["kind"] == GET and not inputs:
            lines += [f"    {row['name']}: {result} = {EMPTY.get(row['result'])}"]
        elif row["kind"] in (GET, METHOD) or len(inputs) > 1:
            name = row["name"] if row["kind"] in (GET, METHOD) else f"Set{row['name']}"
            is_attribute = row["kind"] == GET and name.endswith("Attribute")
            body = f"return {EMPTY.get(row['result'])}" if is_attribute else f"raise NotImplementedError({name!r})"
            lines += ["", f"    def {name}({', '.join(['self', *inputs, '/'])}) -> {result}:", f"        {body}"]
    return [*lines, "", "    def __iter__(self) -> Iterator[Any]:", "        return iter(())", "", ""]


def enumeration(name: str, help_text: str, values: list[tuple[str, int]]) -> list[str]:
    return [f"class {name}(enum.IntEnum):", f"    {help_text!r}", "", *(f"    {n} = {v}" for n, v in values), "", ""]


def samples(library) -> list[tuple[object, str | None]]:
    """An object of each class, and the class of what it enumerates."""

    class NoObject:
        pass

    library.use_object_class(NoObject, lambda handle: handle)
    connection = library.connect("Provider=SQLite;Data Source=:memory:")
    records, _ = connection.call("Execute", "select 1 as one")
    fields = records.get("Fields")
    create_db = library.create_db()
    return [
        (library.new_object(None), "Any"),
        (fields.get("Item", 0), None),
        (fields, "Field"),
        (records, None),
        (connection, None),
        (create_db.get("ScriptTypes"), "Any"),
        (library.create_field(), None),
        (create_db, None),
        (library.create_crud(None), None),
    ]


def classes_text(library) -> str:
    lines = [HEAD, ""]
    lines += enumeration("dbResults", "What the last public method of a clsCRUD came to.", library.results())
    lines += enumeration("QORAttributes", "Attributes of data objects and their definitions.", library.attributes())
    described = [(library.describe(sample), item) for sample, item in samples(library)]
    lines += like_text(described[0][0])
    for info, item in described:
        lines += class_text(info, item)
    lines += [f"_register({', '.join(info['name'] for info, _ in described)})", ""]
    return "\n".join(lines)


class Stub(ast.NodeTransformer):
    """Leaves of a file what a type checker needs: no bodies, nothing private but base classes."""

    def visit_FunctionDef(self, node: ast.FunctionDef) -> ast.AST | None:
        if node.name.startswith("_") and not node.name.startswith("__"):
            return None
        node.body = [ast.Expr(ast.Constant(...))]
        return node

    def visit_ClassDef(self, node: ast.ClassDef) -> ast.AST:
        attributes = [
            ast.AnnAssign(ast.Name(one.target.attr), one.annotation, None, 1)
            for one in ast.walk(node)
            if isinstance(one, ast.AnnAssign) and isinstance(one.target, ast.Attribute)
        ]
        self.generic_visit(node)
        node.body = attributes + node.body or [ast.Expr(ast.Constant(...))]
        return node

    def visit_Assign(self, node: ast.Assign) -> ast.AST | None:
        return None if isinstance(node.targets[0], ast.Name) and node.targets[0].id == "__slots__" else node

    def visit_Expr(self, node: ast.Expr) -> None:
        return None

    def visit_AnnAssign(self, node: ast.AnnAssign) -> ast.AST | None:
        return None if isinstance(node.target, ast.Name) and node.target.id.startswith("_") else node


def stub_text(package: Path) -> str:
    imports: dict[str, ast.AST] = {}
    body: list[str] = []
    for name in ("_error", "_objects", "_classes", "_data", "_tables", "_find"):
        tree = Stub().visit(ast.parse((package / f"{name}.py").read_text(encoding="utf-8")))
        for node in tree.body:
            if isinstance(node, ast.Import) or isinstance(node, ast.ImportFrom) and node.level == 0:
                imports.update((f"{alias.asname or alias.name}", (node, alias)) for alias in node.names)
            elif not isinstance(node, ast.ImportFrom):
                body.append(ast.unparse(ast.fix_missing_locations(node)))
    text = "\n\n".join(body)
    text = re.sub(r"^(_[A-Z_]+) = .*\n\n", "", text, flags=re.M)  # numbers that only the code needs
    head = []
    for name, (node, alias) in imports.items():
        if not re.search(rf"\b{name}\b", text) or name == "annotations":
            continue
        is_plain = isinstance(node, ast.Import)
        head.append(f"import {name}" if is_plain else f"from {node.module} import {name}")
    tree = ast.parse((package / "__init__.py").read_text(encoding="utf-8"))
    names = next(ast.unparse(n) for n in tree.body if isinstance(n, ast.Assign) and n.targets[0].id == "__all__")
    note = "# Written by describe.py from the files of the package."
    return "\n".join([note, *sorted(head), "", names, "", text, ""])


def main() -> None:
    package = Path(sys.argv[1])
    sys.path.insert(0, str(package))
    import _korvex

    (package / "_classes.py").write_text(classes_text(_korvex), encoding="utf-8")
    (package / "__init__.pyi").write_text(stub_text(package), encoding="utf-8")


if __name__ == "__main__":
    main()
