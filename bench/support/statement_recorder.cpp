#include "support/statement_recorder.h"

#include "support/sqlite_handle.h"

#include <sqlite3.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace korvex::bench {

namespace {

StatementRecorder* active = nullptr;  // the engine's hook for new connections carries no context

int OnStatement(unsigned, void* context, void* statement, void* text) {
    if (std::string_view(static_cast<const char*>(text)).starts_with("--")) return 0;  // inside a trigger
    auto* prepared = static_cast<sqlite3_stmt*>(statement);
    char* expanded = sqlite3_expanded_sql(prepared);
    static_cast<StatementRecorder*>(context)->Record(sqlite3_sql(prepared), expanded);
    sqlite3_free(expanded);
    return 0;
}

int OnConnection(sqlite3* connection, const char**, const sqlite3_api_routines*) {
    if (active != nullptr) sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, OnStatement, active);
    return SQLITE_OK;
}

/// Reads one literal as sqlite3_expanded_sql writes it, from the front of `text`.
Recording::Value TakeLiteral(std::string_view& text) {
    if (text.starts_with("NULL")) {
        text.remove_prefix(4);
        return {};
    }
    if (text.starts_with('\'')) {
        std::string value;
        std::size_t at = 1;
        for (; text[at] != '\'' || (at + 1 < text.size() && text[at + 1] == '\''); ++at) {
            if (text[at] == '\'') ++at;
            value += text[at];
        }
        text.remove_prefix(at + 1);
        return value;
    }
    const std::string_view number = text.substr(0, text.find_first_not_of("+-.0123456789e"));
    text.remove_prefix(number.size());
    if (number.empty()) throw std::runtime_error("cannot read a bound value from: " + std::string(text));
    if (number.find_first_of(".e") != std::string_view::npos)
        return std::strtod(std::string(number).c_str(), nullptr);
    return std::int64_t{std::strtoll(std::string(number).c_str(), nullptr, 10)};
}

/// The bound values: what stands in the expanded text where the prepared one has "?".
std::vector<Recording::Value> BoundValues(std::string_view text, std::string_view expanded) {
    std::vector<Recording::Value> values;
    bool quoted = false;
    for (const char c : text) {
        if (c == '\'') quoted = !quoted;
        if (c == '?' && !quoted) {
            values.push_back(TakeLiteral(expanded));
        } else {
            expanded.remove_prefix(1);
        }
    }
    return values;
}

void Bind(sqlite3_stmt* statement, int index, const Recording::Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(statement, index, *number);
    } else if (const auto* real = std::get_if<double>(&value)) {
        sqlite3_bind_double(statement, index, *real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        sqlite3_bind_text(statement, index, text->data(), static_cast<int>(text->size()), SQLITE_STATIC);
    } else {
        sqlite3_bind_null(statement, index);
    }
}

/// Touches every column so that the engine has to decode it.
std::size_t ReadColumns(sqlite3_stmt* statement) {
    std::size_t touched = 0;
    const int count = sqlite3_column_count(statement);
    for (int i = 0; i < count; ++i) {
        switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                touched += static_cast<std::size_t>(sqlite3_column_int64(statement, i) & 1);
                break;
            case SQLITE_TEXT:
                touched += sqlite3_column_text(statement, i) != nullptr;
                break;
            default:
                break;
        }
    }
    return touched;
}

}  // namespace

StatementRecorder::StatementRecorder() {
    active = this;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(OnConnection));
}

StatementRecorder::~StatementRecorder() {
    sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(OnConnection));
    active = nullptr;
}

void StatementRecorder::Record(const char* text, const char* expanded) {
    const auto [position, isNew] = m_positions.try_emplace(text, m_recording.texts.size());
    if (isNew) m_recording.texts.emplace_back(text);
    m_recording.executions.push_back({position->second, BoundValues(text, expanded)});
}

std::size_t Replay(const Recording& recording, const std::string& file) {
    const SqliteConnection connection = OpenSqlite(file);
    std::vector<SqliteStatement> statements(recording.texts.size());
    std::size_t rows = 0;
    static volatile std::size_t sink = 0;
    for (const Recording::Execution& execution : recording.executions) {
        SqliteStatement& prepared = statements[execution.text];
        if (!prepared) prepared = PrepareSqlite(connection.get(), recording.texts[execution.text]);
        sqlite3_stmt* statement = prepared.get();
        for (std::size_t i = 0; i < execution.values.size(); ++i) {
            Bind(statement, static_cast<int>(i) + 1, execution.values[i]);
        }
        int step = sqlite3_step(statement);
        for (; step == SQLITE_ROW; step = sqlite3_step(statement), ++rows) {
            sink = sink + ReadColumns(statement);
        }
        RequireSqlite(step == SQLITE_DONE, connection.get());
        sqlite3_reset(statement);
    }
    return rows;
}

}  // namespace korvex::bench
