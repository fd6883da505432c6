// The script files of a definition for one dialect. Without a dialect it tells which there are.
//     cscript scripts.js C:\data\orders.mdb Orders C:\scripts 92
var arguments = WScript.Arguments;
var scripts = new ActiveXObject("Korvex.clsCreateDb");
if (arguments.length < 4) {
    for (var each = new Enumerator(scripts.ScriptTypes()); !each.atEnd(); each.moveNext())
        WScript.Echo("Dialect " + each.item());
    WScript.Quit(2);
}
scripts.ScriptFilePath = arguments(2);
try {
    scripts.DoScript(arguments(3), arguments(0), arguments(1), "FK_");
    WScript.Echo("Foreign keys: " + scripts.FkConstraintSQL.split("\r\n").length + " lines");
} catch (error) {
    WScript.Echo("Error " + (error.number & 0xFFFF) + ": " + error.message);
    WScript.Quit(1);
}
