"""The script files of a definition in every dialect, and a field of the target database.

    python scripts.py C:\\data\\orders.mdb Orders C:\\scripts "Provider=..." tOrder OrderID 1 OrderNumber

Written for Python on Windows with pywin32, and not run by the tests.
"""
import sys

import pythoncom
import win32com.client


def write_scripts(repository, storage, folder):
    for dialect in win32com.client.Dispatch("Korvex.clsCreateDb").ScriptTypes:
        scripts = win32com.client.Dispatch("Korvex.clsCreateDb")
        scripts.ScriptFilePath = folder
        scripts.DoScript(dialect, repository, storage)
        print(dialect, len(scripts.DbSQL), "characters create the tables")


def read_field(connection, table, key_column, key, field):
    crud = win32com.client.Dispatch("Korvex.clsCRUD")
    if not crud.ConnectDB(connection):
        raise SystemExit(f"not connected: {crud.LastResult}")
    value = win32com.client.VARIANT(pythoncom.VT_BYREF | pythoncom.VT_VARIANT, None)
    if not crud.DbGetField(int(key), key_column, table, field, value):
        raise SystemExit(f"not found: {crud.LastResult}")
    print(field, "is", value.value)


if __name__ == "__main__":
    write_scripts(*sys.argv[1:4])
    read_field(*sys.argv[4:])
