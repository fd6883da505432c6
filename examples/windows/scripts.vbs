' The script files of a definition in every dialect.
'     cscript scripts.vbs C:\data\orders.mdb Orders C:\scripts
Option Explicit
Dim repository, storage, folder, scripts, dialect
repository = WScript.Arguments(0)                ' or an ODBC connection string with DSN=
storage = WScript.Arguments(1)
folder = WScript.Arguments(2)

For Each dialect In CreateObject("Korvex.clsCreateDb").ScriptTypes
    ' A new object for each: the text of FkConstraintSQL goes on from run to run.
    Set scripts = CreateObject("Korvex.clsCreateDb")
    scripts.ScriptFilePath = folder
    On Error Resume Next
    scripts.DoScript dialect, repository, storage
    If Err.Number <> 0 Then
        WScript.Echo "Dialect " & dialect & ": error " & Err.Number & ", " & Err.Description
        WScript.Quit 1
    End If
    On Error GoTo 0
    WScript.Echo "Dialect " & dialect & ": " & UBound(Split(scripts.DbSQL, vbCrLf)) & " lines that create tables"
Next
