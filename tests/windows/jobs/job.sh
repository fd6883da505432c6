#!/bin/sh
# One step of the jobs, which are done by hosts that know korvex.dll by its registration only: job.sh BUILD STEP
# BUILD is the build folder; the steps stand in CMakeLists.txt, in their order. A script's output is compared whole:
# Wine's script host ends without a message, and with exit code 0, where a script fails.
set -eu
build=$1
step=$2
source=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$source/../../.." && pwd)
work=$build/jobs

wine() {
    sh "$build/wine-jobs.sh" "$@"
}

# The path by which Windows programs know a file.
windows_path() {
    printf 'Z:%s' "$1" | tr / '\\'
}

# prepare NAME: a folder of its own to work in, with copies of the databases that are there.
prepare() {
    rm -rf "$work/$1"
    mkdir -p "$work/$1/out"
    cd "$work/$1"
    for database in orders.db refusing.db target.db; do
        [ ! -f "../$database" ] || cp "../$database" .
    done
    echo "not a database" >no_database.txt
}

# run_script NAME [ARGUMENT ...]
run_script() {
    name=$1
    shift
    prepare "$name"
    wine cscript //nologo "$(windows_path "$source/$name.vbs")" "$@" >output.txt
    diff -u "$source/$name.expected" output.txt
}

# sample FILE [ARGUMENT ...]: one of those that are delivered.
sample() {
    script=$(windows_path "$root/examples/windows/$1")
    shift
    wine cscript //nologo "$script" "$@"
}

# Whether the script files whose names start so, and no others, are as they should be.
compare_scripts() {
    for golden in "$root/tests/data/scripts/$1"*; do
        cmp "$golden" "out/${golden##*/}"
        rm "out/${golden##*/}"
    done
    expect "other files" "$(ls out)" ""
}

# query SQL: what a program that knows nothing of the component finds in the target database.
query() {
    sqlite3 target.db "$1"
}

expect() {
    [ "$2" = "$3" ] || { printf '%s: is %s, should be %s\n' "$1" "$2" "$3"; exit 1; }
}

case "$step" in
    start)
        wine --start
        # A broken-off run may have left them.
        wine regsvr32 /u /s "$(windows_path "$build/korvex_test_engines.dll")" || true
        # The ADO of Wine cannot write.
        for class in ADODB.Connection ADODB.Recordset; do
            wine reg delete "HKCR\\$class" /f >/dev/null 2>&1 || true
        done
        wine regsvr32 /s "$(windows_path "$build/korvex.dll")"
        rm -rf "$work"
        mkdir -p "$work"
        ;;
    no_engines)
        run_script no_engines
        ;;
    engines)
        wine regsvr32 /s "$(windows_path "$build/korvex_test_engines.dll")"
        cd "$work"
        wine "$build/make_databases.exe" repository orders.db "$root/tests/data/orders.json"
        # One that has no keys yet and takes none.
        cp orders.db refusing.db
        sqlite3 refusing.db "create trigger refuse before insert on tForeignKeys
            begin select raise(abort, 'no foreign keys here'); end"
        ;;
    scripts)
        prepare scripts
        expect "sample" "$(sample scripts.vbs orders.db Orders out)" "Dialect 90: 357 lines that create tables
Dialect 92: 798 lines that create tables
Dialect 94: 357 lines that create tables"
        compare_scripts ""
        expect "sample, no file" "$(sample scripts.vbs nowhere.db Orders out | cut -c 1-22)" "Dialect 90: error 3024"
        # The same repository through ODBC: DSN= in the string, wherever it stands, asks for that.
        odbc="DRIVER=SQLite3;Database=$work/scripts/orders.db;NoDSN=1"
        expect "sample" "$(sample scripts.js "$odbc" Orders out 94)" "Foreign keys: 79 lines"
        compare_scripts Sy
        expect "sample, no dialect" "$(sample scripts.js || :)" "Dialect 90
Dialect 92
Dialect 94"
        # With the keys that the runs have made.
        cp orders.db ..
        ;;
    target)
        cd "$work"
        rm -f target.db
        wine "$build/make_databases.exe" target "DRIVER=SQLite3;Database=$work/target.db" orders.db Orders
        ;;
    persistence)
        run_script persistence "$work/persistence/target.db" "$(windows_path "$root/tests/data/order.json")"
        expect "orders" "$(query 'select OrderID from tOrder')" 2
        expect "lines" "$(query 'select OrderLineID, FK_OrderLinesID, LineNumber from tOrderLine')" '6|3|1'
        expect "customer" "$(query 'select CompanyName from tCustomer')" 'Müller & Ж😀'
        expect "foreign keys" "$(query 'pragma foreign_key_check')" ''
        ;;
    samples)
        prepare samples
        target="DRIVER=SQLite3;FKSupport=1;Database=$work/samples/target.db"
        expect "persistence.vbs" "$(sample persistence.vbs "$target" KorvexTest.DataObjects)" "saved as 1
loaded A-1
updated
loaded A-2
deleted
still there: False"
        query "insert into tOrder (OrderNumber) values ('B-7')"
        expect "host.cpp" "$(wine "$build/host_sample.exe" orders.db Orders out "$target" tOrder OrderID \
            "$(query 'select OrderID from tOrder')" OrderNumber)" "$(($(wc -m <"$root/tests/data/scripts/MSCreate.sql") - 2)) characters create the tables
OrderNumber is B-7"
        compare_scripts MS
        ;;
    errors)
        run_script errors "$work/errors/target.db"
        expect "a run that failed changed the repository" "$(sqlite3 refusing.db .dump)" "$(sqlite3 ../refusing.db .dump)"
        ;;
    connection)
        run_script connection "$work/connection/target.db"
        ;;
    stop)
        for server in korvex_test_engines korvex; do
            wine regsvr32 /u /s "$(windows_path "$build/$server.dll")"
        done
        for class in Korvex.clsCreateDb Korvex.clsField Korvex.clsCRUD DAO.DBEngine.36; do
            if wine reg query "HKCR\\$class" >/dev/null 2>&1; then
                echo "$class is still registered"
                exit 1
            fi
        done
        wine --stop
        ;;
    *)
        echo "job.sh: no such step: $step" >&2
        exit 2
        ;;
esac
