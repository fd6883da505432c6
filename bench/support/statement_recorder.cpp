#include "support/statement_recorder.h"

#include "support/sqlite_handle.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>
#include <utility>

namespace korvex::bench {

namespace {

StatementRecorder* active = nullptr;  // the engine's hook for new connections carries no context

int OnStatement(unsigned, void* context, void* statement, void* text) {
    if (std::string_view(static_cast<const char*>(text)).starts_with("--")) return 0;  // inside a trigger
    auto* prepared = static_cast<sqlite3_stmt*>(statement);
    char* expanded = sqlite3_expanded_sql(prepared);
    static_cast<StatementRecorder*>(context)->Record(expanded);
    sqlite3_free(expanded);
    return 0;
}

int OnConnection(sqlite3* connection, const char**, const sqlite3_api_routines*) {
    if (active != nullptr) sqlite3_trace_v2(connection, SQLITE_TRACE_STMT, OnStatement, active);
    return SQLITE_OK;
}

bool IsNamePart(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// Takes statements apart: the literals out of the text, "?" in their places.
class Parameters {
  public:
    explicit Parameters(std::string_view statement) : m_rest(statement) {
        const bool takesValues = statement.find_first_of("SsIiUuDd") == 0;
        while (!m_rest.empty()) {
            if (!takesValues || !TakeLiteral()) Copy(LengthOfOther());
        }
    }
    const std::string& Text() const noexcept { return m_text; }
    std::vector<Recording::Value> Values() && { return std::move(m_values); }

  private:
    bool TakeLiteral() {
        const char first = m_rest.front();
        if (first == '\'') {
            Take(TextValue(), QuotedLength());
        } else if (std::isdigit(static_cast<unsigned char>(first)) != 0 || IsSign(first)) {
            const std::size_t digits = m_rest.find_first_not_of("0123456789.", 1);
            Take(Number(m_rest.substr(0, digits)), digits);
        } else if (m_rest.starts_with("NULL") && !m_text.ends_with("IS ") && !m_text.ends_with("NOT ")) {
            Take({}, 4);
        } else {
            return false;
        }
        return true;
    }
    /// A sign that belongs to the number behind it.
    bool IsSign(char c) const {
        return (c == '-' || c == '+') && m_rest.size() > 1 &&
               std::isdigit(static_cast<unsigned char>(m_rest[1])) != 0 && !m_text.empty() &&
               std::string_view("=<>(, ").find(m_text.back()) != std::string_view::npos;
    }
    void Take(Recording::Value value, std::size_t length) {
        m_values.push_back(std::move(value));
        m_text += '?';
        m_rest.remove_prefix(std::min(length, m_rest.size()));
        // A word that touched the number.
        if (!m_rest.empty() && IsNamePart(m_rest.front())) m_text += ' ';
    }
    void Copy(std::size_t length) {
        m_text += m_rest.substr(0, length);
        m_rest.remove_prefix(length);
    }
    /// Of a name, quoted or not, or of a single character.
    std::size_t LengthOfOther() const {
        if (m_rest.front() == '\'' || m_rest.front() == '"') return QuotedLength();
        const auto* end = std::ranges::find_if_not(m_rest, IsNamePart);
        return std::max<std::size_t>(static_cast<std::size_t>(end - m_rest.begin()), 1);
    }
    std::size_t QuotedLength() const {
        const char quote = m_rest.front();
        std::size_t at = m_rest.find(quote, 1);
        while (at + 1 < m_rest.size() && m_rest[at + 1] == quote)
            at = m_rest.find(quote, at + 2);
        return at + 1;
    }
    std::string TextValue() const {
        std::string value(m_rest.substr(1, QuotedLength() - 2));
        for (std::size_t at = value.find("''"); at != std::string::npos; at = value.find("''", at + 1))
            value.erase(at, 1);
        return value;
    }
    static Recording::Value Number(std::string_view text) {
        if (text.find('.') != std::string_view::npos) return std::strtod(std::string(text).c_str(), nullptr);
        return std::int64_t{std::strtoll(std::string(text).c_str(), nullptr, 10)};
    }

    std::string_view m_rest;
    std::string m_text;
    std::vector<Recording::Value> m_values;
};

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

void StatementRecorder::Record(std::string_view expanded) {
    Parameters statement(expanded);
    const auto [position, isNew] = m_positions.try_emplace(statement.Text(), m_recording.texts.size());
    if (isNew) m_recording.texts.push_back(statement.Text());
    m_recording.executions.push_back({position->second, std::move(statement).Values()});
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
