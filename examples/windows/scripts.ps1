# The script files of a definition in every dialect. Written for PowerShell on Windows, and not run by the tests.
#     powershell -File scripts.ps1 C:\data\orders.mdb Orders C:\scripts
# The width of the PowerShell decides which korvex.dll is used: SysWOW64\WindowsPowerShell is the 32-bit one.
param([string] $repository, [string] $storage, [string] $folder)

foreach ($dialect in (New-Object -ComObject Korvex.clsCreateDb).ScriptTypes()) {
    $scripts = New-Object -ComObject Korvex.clsCreateDb
    $scripts.ScriptFilePath = $folder
    try {
        $scripts.DoScript($dialect, $repository, $storage)
        "Dialect ${dialect}: $($scripts.DbSQL.Length) characters create the tables"
    } catch [System.Runtime.InteropServices.COMException] {
        "Dialect ${dialect}: error $($_.Exception.ErrorCode -band 0xFFFF), $($_.Exception.Message)"
        exit 1
    }
}
