#include "automation/text.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <optional>

namespace korvex::scriptgen {

namespace {

// clang-format off
constexpr std::string_view Words =
    " ACCESSIBLE ADD ALL ALTER ANALYZE AND AS ASC ASENSITIVE BEFORE BETWEEN BIGINT BINARY BLOB "
    "BOTH BY CALL CASCADE CASE CHANGE CHAR CHARACTER CHECK COLLATE COLUMN CONDITION "
    "CONSTRAINT CONTINUE CONVERT CREATE CROSS CURRENT_DATE CURRENT_ROLE CURRENT_TIME "
    "CURRENT_TIMESTAMP CURRENT_USER CURSOR DATABASES DAY_HOUR DAY_MICROSECOND DAY_MINUTE "
    "DAY_SECOND DEC DECIMAL DECLARE DEFAULT DELAYED DELETE DELETE_DOMAIN_ID DESC DESCRIBE "
    "DETERMINISTIC DISTINCT DISTINCTROW DIV DOUBLE DO_DOMAIN_IDS DROP DUAL EACH ELSE ELSEIF "
    "ENCLOSED ESCAPED EXCEPT EXISTS EXIT EXPLAIN FALSE FETCH FLOAT FLOAT4 FLOAT8 FOR FORCE "
    "FOREIGN FROM FULLTEXT GRANT GROUP HAVING HIGH_PRIORITY HOUR_MICROSECOND HOUR_MINUTE "
    "HOUR_SECOND IF IGNORE IGNORE_DOMAIN_IDS IN INDEX INFILE INNER INOUT INSENSITIVE INSERT "
    "INT INT1 INT2 INT3 INT4 INT8 INTEGER INTERSECT INTERVAL INTO IS ITERATE JOIN KEY KEYS "
    "KILL LEADING LEAVE LEFT LIKE LIMIT LINEAR LINES LOAD LOCALTIME LOCALTIMESTAMP LOCK LONG "
    "LONGBLOB LONGTEXT LOOP LOW_PRIORITY MASTER_DEMOTE_TO_REPLICA MASTER_DEMOTE_TO_SLAVE "
    "MASTER_SSL_VERIFY_SERVER_CERT MATCH MAXVALUE MEDIUMBLOB MEDIUMINT MEDIUMTEXT MIDDLEINT "
    "MINUTE_MICROSECOND MINUTE_SECOND MOD MODIFIES NATURAL NOT NO_WRITE_TO_BINLOG NULL "
    "NUMERIC OFFSET ON OPTIMIZE OPTIONALLY OR ORDER OUT OUTER OUTFILE OVER PAGE_CHECKSUM "
    "PARSE_VCOL_EXPR PARTITION PORTION PRECISION PRIMARY PROCEDURE PURGE RANGE READ READS "
    "READ_WRITE REAL RECURSIVE REFERENCES REF_SYSTEM_ID REGEXP RELEASE RENAME REPEAT REPLACE "
    "REQUIRE RESIGNAL RESTRICT RETURN RETURNING REVOKE RIGHT RLIKE ROWS ROW_NUMBER SCHEMAS "
    "SECOND_MICROSECOND SELECT SENSITIVE SEPARATOR SET SHOW SIGNAL SMALLINT SPATIAL SPECIFIC "
    "SQL SQLEXCEPTION SQLSTATE SQLWARNING SQL_BIG_RESULT SQL_BUFFER_RESULT SQL_CACHE "
    "SQL_CALC_FOUND_ROWS SQL_NO_CACHE SQL_SMALL_RESULT SSL STARTING STATS_AUTO_RECALC "
    "STATS_PERSISTENT STATS_SAMPLE_PAGES STRAIGHT_JOIN TABLE TERMINATED THEN TINYBLOB TINYINT "
    "TINYTEXT TO TRAILING TRIGGER TRUE UNDO UNION UNIQUE UNLOCK UNSIGNED UPDATE USAGE USE "
    "USING UTC_DATE UTC_TIME UTC_TIMESTAMP VALUES VARBINARY VARCHAR VARCHARACTER VARYING WHEN "
    "WHERE WHILE WITH WRITE XOR YEAR_MONTH ZEROFILL ";
// clang-format on

constexpr EngineFile ScriptFiles[] = {{"MariaCreate.sql", &EngineScripts::create},
                                      {"MariaDel.sql", &EngineScripts::drop},
                                      {"MariaFKCr.sql", &EngineScripts::addKeys},
                                      {"MariaFKdel.sql", &EngineScripts::dropKeys}};

constexpr CatalogueQueries Queries = {
    .columns =
        "select table_name, column_name, column_type, extra = 'auto_increment', column_key = 'PRI', "
        "column_default from information_schema.columns where table_schema = database() order by table_name, "
        "ordinal_position",
    .indexes =
        "select table_name, index_name, column_name from information_schema.statistics where "
        "table_schema = database() and index_name <> 'PRIMARY' order by table_name, index_name, "
        "seq_in_index",
    .foreignKeys =
        "select table_name, column_name, referenced_table_name, referenced_column_name, "
        "constraint_name from "
        "information_schema.key_column_usage where constraint_schema = database() and "
        "referenced_table_name is not null",
    .triggers =
        "select event_object_table, trigger_name from information_schema.triggers where "
        "trigger_schema = database()"};

constexpr std::string_view Triggers[] = {"_I", "_U"};

/// Names and texts in any language, and foreign keys, whatever the database is set to.
constexpr std::string_view Options = " ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4";

constexpr EngineFacts MariaDbFacts = {.name = "mariadb",
                                      .files = ScriptFiles,
                                      .types = {.integer16 = "smallint",
                                                .integer32 = "int",
                                                .single = "float",
                                                .real = "double",
                                                .currency = "decimal(19,4)",
                                                .date = "datetime(3)",
                                                .boolean = "bit",
                                                .object = "longblob",
                                                .variant = "longblob",
                                                .byte = "tinyint unsigned",
                                                .text = "varchar",
                                                .longText = "longtext"},
                                      .limits = {.columns = 1017, .indexes = 64},
                                      .catalogue = Queries,
                                      .reservedWords = Words,
                                      .numberedColumn = "int NOT NULL AUTO_INCREMENT",
                                      .tableOptions = Options,
                                      .triggers = Triggers,
                                      .droppedKey = "FOREIGN KEY",
                                      .definitionsRollBack = false,
                                      .foldsTableNames = false};

constexpr std::string_view Varchar = "varchar(";
constexpr std::size_t BytesOfCharacter = 4;

std::size_t BytesOf(std::string_view varchar) {
    return std::stoul(std::string(varchar.substr(Varchar.size()))) * BytesOfCharacter;
}

/// A limit on the length of rows, in bytes, and what a column adds to it.
struct RowLimit {
    std::size_t most = 0;
    std::size_t (*sizeOf)(std::string_view type) = nullptr;
};

/// All columns together, the content of long ones left out of account.
std::size_t SizeInRow(std::string_view type) { return type.starts_with(Varchar) ? BytesOf(type) + 3 : 13; }

/// What stays in the page of the row: texts of more than 255 bytes may move out, all but a reference.
std::size_t SizeInPage(std::string_view type) {
    if (type.starts_with("long")) return 40;
    if (!type.starts_with(Varchar)) return 10;
    return BytesOf(type) > 255 ? 40 : BytesOf(type) + 2;
}

constexpr RowLimit RowLimits[] = {{65535, SizeInRow}, {8086, SizeInPage}};

/// The column that becomes a long text for the row to be short enough; nothing for one that is, or that it
/// would not help.
std::optional<std::size_t> ColumnTooMuch(const std::vector<std::string>& types) {
    for (const auto& [most, sizeOf] : RowLimits) {
        std::size_t size = 0;
        for (const std::string& type : types)
            size += sizeOf(type);
        const auto longest = std::ranges::max_element(types, {}, sizeOf);
        if (size > most && sizeOf(*longest) > sizeOf(MariaDbFacts.types.longText))
            return static_cast<std::size_t>(longest - types.begin());
    }
    return std::nullopt;
}

/// A row has a limit of length, a table one of indexes.
class MariaDb final : public EngineDialect {
  public:
    MariaDb() : EngineDialect(MariaDbFacts) {}
    std::string TypeAsWritten(std::string type) const override;
    std::string DefaultAsWritten(std::string text) const override;

  protected:
    std::string TextLiteral(std::string_view text) const override;
    std::vector<std::string> ColumnTypes(const DescribedTable& table,
                                         std::vector<std::string>& notes) const override;
    void AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                     std::span<const std::string> columns) const override;
};

/// The engine tells how many digits it would show of a whole number.
std::string MariaDb::TypeAsWritten(std::string type) const {
    const std::size_t begin = type.find('(');
    const std::string name = type.substr(0, begin);
    if (begin != std::string::npos && (name.ends_with("int") || name == "bit"))
        type.erase(begin, type.find(')') + 1 - begin);
    return type;
}

/// The engine tells texts with escapes, and bits as texts of bits.
std::string MariaDb::DefaultAsWritten(std::string text) const {
    if (text.starts_with("b'")) return text.substr(2, text.size() - 3);
    if (!text.starts_with('\'')) return EngineDialect::DefaultAsWritten(std::move(text));
    std::string value;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == '\'' || text[i] == '\\') ++i;
        value += text[i];
    }
    return TextLiteral(value);
}

/// A backslash is an escape or none, as the server is set; digits mean the same on each.
std::string MariaDb::TextLiteral(std::string_view text) const {
    if (text.find('\\') == std::string_view::npos) return EngineDialect::TextLiteral(text);
    std::string literal = "_utf8mb4 X'";
    for (const char c : text) {
        for (const int shift : {4, 0})
            literal += "0123456789ABCDEF"[(static_cast<unsigned char>(c) >> shift) & 0xF];
    }
    return literal + "'";
}

/// The longest texts become long ones until the row is short enough.
std::vector<std::string> MariaDb::ColumnTypes(const DescribedTable& table,
                                              std::vector<std::string>& notes) const {
    std::vector<std::string> types = EngineDialect::ColumnTypes(table, notes);
    while (const auto column = ColumnTooMuch(types)) {
        notes.push_back(table.Name + "." + table.Columns[*column].FieldName +
                        " becomes longtext in place of " + types[*column] + ": the row would be too long.");
        types[*column] = MariaDbFacts.types.longText;
    }
    return types;
}

void MariaDb::AddNoParent(EngineScripts& scripts, const DescribedTable& table,
                          std::span<const std::string> columns) const {
    JoinedText assignments(", ");
    for (const std::string& column : columns)
        assignments.Add("NEW.", column, " = NULLIF(NEW.", column, ", 0)");
    for (const std::string_view event : {"INSERT", "UPDATE"}) {
        std::string text;
        Append(text, "CREATE TRIGGER ", table.Name, "_", event.substr(0, 1), " BEFORE ", event, " ON ");
        Append(text, table.Name, " FOR EACH ROW SET ", assignments.Text());
        scripts.create.push_back(
            {std::move(text), EngineThing::Trigger, table.Name, table.Name + "_" + std::string(event, 0, 1)});
    }
}

}  // namespace

const EngineDialect& MariaDbDialect() noexcept {
    static const MariaDb dialect;
    return dialect;
}

}  // namespace korvex::scriptgen
