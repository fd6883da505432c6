// The same members from another script language: it passes values only, and may implement objects for the component.
// Argument: the target database's path as the ODBC driver takes it.
var repository = "orders.db";

function show(label, value) {
    WScript.Echo(label + ": " + value);
}

function showItems(label, collection) {
    for (var each = new Enumerator(collection); !each.atEnd(); each.moveNext())
        show(label, each.item());
}

function errorOf(call) {
    try {
        call();
        return "none";
    } catch (error) {
        return (error.number & 0xFFFF) + ", " + error.message;
    }
}

// A host's language service. It is asked for the texts 90, 92 and 94 in turn, the number by reference, which Wine's
// interpreter hands over but cannot read.
var asked = [];
var service = {
    GetString: function (library, category) {
        asked.push(library + "/" + category);
        return ["Erster", "", "Dritter"][(asked.length - 1) % 3];
    }
};

var scripts = new ActiveXObject("Korvex.clsCreateDb");
scripts.ScriptFilePath = "out";
showItems("dialect", scripts.ScriptTypes());
showItems("translated", scripts.ScriptTypes(service));
scripts.DoScript("Zweiter", "nowhere.db", "Orders", "FK_", service);
scripts.DoScript("Dritter", repository, "Orders", "FK_", service);
show("asked", asked.join(" "));
show("FKPrefix", scripts.FKPrefix);
show("DbSQL", scripts.DbSQL.split("\r\n").length);
show("a failing service", errorOf(function () {
    scripts.ScriptTypes({ GetString: function () { throw new Error(0x800A0000 | 1234, "No texts today"); } });
}));

var crud = new ActiveXObject("Korvex.clsCRUD");
var objects = new ActiveXObject("KorvexTest.DataObjects");
var order = objects.FromJson(repository, "Orders", '{"OrderNumber": "J-1", "Lines": {"$items": [{}, {}]}}');
show("connected", crud.ConnectDB("DRIVER=SQLite3;FKSupport=1;Database=" + WScript.Arguments(0)));
var key = crud.DbSaveData(order);
show("saved", key + " (" + crud.LastResult + ")");
show("exists", crud.DbDataExists(order) + " (" + crud.LastResult + ")");
var loaded = objects.Create(repository, "Orders");
show("loaded", crud.DbGetData(loaded, key) + " (" + crud.LastResult + ")");
for (var line = new Enumerator(loaded.NamedValue("Lines")); !line.atEnd(); line.moveNext())
    show("line", line.item().Value(line.item().ValueIndex("OrderLineID")));
show("no such member", errorOf(function () { crud.NoSuchMember(); }));
show("no such file", errorOf(function () { scripts.DoMSsqlDb("nowhere.db"); }));
show("deleted", crud.DbDeleteData(loaded, key) + " (" + crud.LastResult + ")");
WScript.Echo("end of job");
