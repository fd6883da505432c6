#include "platform/native/ado/connection_string.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/ado.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace korvex::native::ado_engine {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

std::string_view TrimAll(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

/// Reads one connection string from front to back.
class Reader {
  public:
    explicit Reader(std::string_view text) : m_text(text) {}

    std::optional<ConnectionEntry> Next() {
        m_position = m_text.find_first_not_of(" \t\r\n;", m_position);
        if (m_position >= m_text.size()) return std::nullopt;
        m_start = m_position;
        ConnectionEntry entry;
        entry.key = TakeKey();
        entry.value = TakeValue();
        return entry;
    }

  private:
    std::string TakeKey() {
        std::string key;
        for (; m_position < m_text.size() && m_text[m_position] != ';'; ++m_position) {
            if (m_text[m_position] == '=') {
                ++m_position;
                if (Current() != '=') return FinishedKey(key);
            }
            key += m_text[m_position];
        }
        Raise("has no \"=\"", ConnectionForms);
    }

    std::string FinishedKey(std::string_view key) const {
        const std::string_view trimmed = TrimAll(key);
        if (trimmed.empty()) Raise("has no name before its \"=\"");
        return std::string(trimmed);
    }

    std::string TakeValue() {
        m_position = std::min(m_text.find_first_not_of(Blanks, m_position), m_text.size());
        const char first = Current();
        if (first == '"' || first == '\'') return TakeEnclosed(first, false);
        if (first == '{') return TakeEnclosed('}', true);
        const std::size_t start = m_position;
        m_position = std::min(m_text.find(';', m_position), m_text.size());
        return std::string(TrimAll(m_text.substr(start, m_position - start)));
    }

    /// A value that ends with `close`, which is doubled inside. `verbatim` keeps it as it stands.
    std::string TakeEnclosed(char close, bool verbatim) {
        std::string value;
        if (verbatim) value += Current();
        for (++m_position; m_position < m_text.size(); ++m_position) {
            const bool isClose = m_text[m_position] == close;
            if (!isClose || verbatim) value += m_text[m_position];
            if (!isClose) continue;
            ++m_position;
            if (Current() != close) return FinishedValue(std::move(value));
            value += close;
        }
        Raise(std::string("has no closing ") + close);
    }

    std::string FinishedValue(std::string value) {
        const std::size_t end = std::min(m_text.find(';', m_position), m_text.size());
        if (!TrimAll(m_text.substr(m_position, end - m_position)).empty()) {
            m_position = end;
            Raise("goes on behind the end of its value");
        }
        m_position = end;
        return value;
    }

    char Current() const noexcept { return m_position < m_text.size() ? m_text[m_position] : '\0'; }

    /// Names the part by its key only: its value may be a password.
    [[noreturn]] void Raise(std::string_view what, std::string_view advice = {}) const {
        const std::size_t end = m_text.find_first_of("=;", m_start);
        std::string description = "The connection string is malformed: the part \"";
        description.append(automation::Readable(TrimAll(m_text.substr(m_start, end - m_start)), 100))
            .append("\" at character ")
            .append(std::to_string(automation::Length(m_text.substr(0, m_start)) + 1))
            .append(" ")
            .append(what)
            .append(".");
        throw automation::Error(ado::DbEInitString, automation::AddSentence(std::move(description), advice));
    }

    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_start = 0;  ///< of the part being read
};

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
    Reader reader(text);
    while (std::optional<ConnectionEntry> entry = reader.Next()) {
        m_entries.push_back(std::move(*entry));
    }
}

std::optional<std::string_view> ConnectionString::Find(std::string_view key) const noexcept {
    for (auto entry = m_entries.rbegin(); entry != m_entries.rend(); ++entry) {
        if (automation::EqualsIgnoreCase(entry->key, key)) return entry->value;
    }
    return std::nullopt;
}

}  // namespace korvex::native::ado_engine
