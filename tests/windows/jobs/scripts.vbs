' The scripts of the example definition in all three dialects, and what a host sees of the runs.
' Argument: the repository's path as the ODBC driver takes it.
Option Explicit
Const repository = "orders.db"
Dim scripts, dialects, dialect

Sub Show(label, value)
    WScript.Echo label & ": " & value
End Sub

' The number of lines in a text.
Function LinesOf(text)
    LinesOf = UBound(Split(text, vbCrLf))
End Function

Sub ShowBuffers(createDb)
    Show "DbSQL", LinesOf(createDb.DbSQL)
    Show "DropSQL", LinesOf(createDb.DropSQL)
    Show "StoredProcSQL", LinesOf(createDb.StoredProcSQL)
    Show "FkConstraintSQL", LinesOf(createDb.FkConstraintSQL)
    Show "DropFkConstraintSQL", LinesOf(createDb.DropFkConstraintSQL)
End Sub

Function NewCreateDb()
    Set NewCreateDb = CreateObject("Korvex.clsCreateDb")
    NewCreateDb.ScriptFilePath = "out"
End Function

Set scripts = CreateObject("Korvex.clsCreateDb")
Set dialects = scripts.ScriptTypes
Show "Count", dialects.Count
For Each dialect In dialects
    Show "dialect", dialect
Next

Set scripts = NewCreateDb()
Show "FKPrefix", scripts.FKPrefix
scripts.DoScript dialects(1), repository, "Orders"
Show "FKPrefix", scripts.FKPrefix
ShowBuffers scripts
Set scripts = NewCreateDb()
scripts.DoOracleDb repository, "Orders"
ShowBuffers scripts
' The same repository through ODBC: DSN= in the string, wherever it stands, asks for that.
Set scripts = NewCreateDb()
scripts.DoSybaseDb "DRIVER=SQLite3;Database=" & WScript.Arguments(0) & ";NoDSN=1", "Orders", "FK_"
ShowBuffers scripts
WScript.Echo "end of job"
