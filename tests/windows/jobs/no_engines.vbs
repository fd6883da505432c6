' What a host is told where no database engine is installed. (Nothing here may show a window: a window would wait for
' somebody to close it.)
Option Explicit
Dim scripts, crud

Sub Show(label, value)
    WScript.Echo label & ": " & value
End Sub

Sub ShowError(label)
    Show label, Err.Number & ", " & Err.Description
    Err.Clear
End Sub

Set scripts = CreateObject("Korvex.clsCreateDb")
Set crud = CreateObject("Korvex.clsCRUD")
On Error Resume Next
scripts.DoMSsqlDb "orders.mdb", "Orders"
ShowError "DoMSsqlDb"
scripts.DoOracleDb "DSN=orders", "Orders"
ShowError "DoOracleDb"
crud.OpenRecordset "select 1"
ShowError "OpenRecordset"
Show "ConnectDB", crud.ConnectDB("DSN=orders")
Show "LastResult", crud.LastResult
ShowError "ConnectDB"
WScript.Echo "end of job"
