// Reads published scripts with the grammars of SQL Server and Oracle: check.js FILE ...
// Files of Oracle are told by their names; Sybase's are read with SQL Server's grammar. A column's empty "default ," is
// no SQL to either grammar, nor to a server: such lines are left out.
'use strict';
const fs = require('fs');
const path = require('path');
const sql = require('antlr4ts-sql');

const grammars = {
    oracle: { Lexer: sql.PlSqlLexer, Parser: sql.PlSQLGrammar.PlSqlParser, start: 'sql_script' },
    sqlServer: { Lexer: sql.TSqlLexer, Parser: sql.TSQLGrammar.TSqlParser, start: 'tsql_file' },
};

/** What the grammar finds wrong, a line each. */
function findings(grammar, text) {
    const found = [];
    const listener = {
        syntaxError: (recognizer, symbol, line, column) =>
            found.push(`line ${line}, column ${column + 1}: not understood from here: ` +
                       text.split('\n')[line - 1].slice(column, column + 60).trim()),
    };
    const letters = new sql.CaseChangingStream(sql.CharStreams.fromString(text), true);
    const lexer = new grammar.Lexer(letters);
    const parser = new grammar.Parser(new sql.CommonTokenStream(lexer));
    for (const part of [lexer, parser]) {
        part.removeErrorListeners();
        part.addErrorListener(listener);
    }
    parser.interpreter.setPredictionMode(sql.PredictionMode.SLL);  // enough for these, and ten times as fast
    parser[grammar.start]();
    return found;
}

let failed = false;
function report(place, found) {
    for (const finding of found.slice(0, 3)) console.log(`${place}: ${finding}`);
    if (found.length > 3) console.log(`${place}: and ${found.length - 3} more`);
    failed = failed || found.length > 0;
}

for (const [name, grammar] of Object.entries(grammars)) {
    for (const text of ['CREATE TABLE tA\n(\n\tA int default ,\n\tB int\n)\n', 'DROP TABEL tA\n'])
        if (findings(grammar, text).length === 0) report(name, [`takes what is no SQL: ${text}`]);
}
const files = process.argv.slice(2);
for (const file of files) {
    const grammar = path.basename(file).startsWith('Ora') ? grammars.oracle : grammars.sqlServer;
    const text = fs.readFileSync(file, 'utf8');
    const kept = text.replace(/^.* default ,\r?$/gm, '');
    report(file, findings(grammar, kept));
}
console.log(`${files.length} files read`);
process.exit(failed || files.length === 0 ? 1 : 0);
