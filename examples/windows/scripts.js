// The script files of a definition for one dialect: 90 MS SQL, 92 Oracle, 94 Sybase.
//     cscript scripts.js C:\data\orders.mdb Orders C:\scripts 92
var arguments = WScript.Arguments;
var scripts = new ActiveXObject("Korvex.clsCreateDb");
scripts.ScriptFilePath = arguments(2);
try {
    scripts.DoScript(arguments(3), arguments(0), arguments(1), "FK_");
    WScript.Echo("Foreign keys: " + scripts.FkConstraintSQL.split("\r\n").length + " lines");
} catch (error) {
    WScript.Echo("Error " + (error.number & 0xFFFF) + ": " + error.message);
    WScript.Quit(1);
}
