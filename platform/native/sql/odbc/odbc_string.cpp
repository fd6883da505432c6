#include "platform/native/sql/odbc/odbc_string.h"

#include "automation/text.h"
#include "platform/native/sql/odbc/odbc_api.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <odbcinst.h>

namespace korvex::native::sql {
namespace {

using automation::EqualsIgnoreCase;

constexpr std::string_view DaoPrefix = "ODBC;";
/// MariaDB's option bit for found rows.
constexpr std::uint32_t FoundRows = 2;

/// Behind the value that begins at `at`; a closing brace that is doubled belongs to the value.
std::size_t BehindValue(std::string_view text, std::size_t at) {
    if (at < text.size() && text[at] == '{') {
        for (at = text.find('}', at); at < text.size(); at = text.find('}', at + 2))
            if (text.substr(at, 2) != "}}") break;
    }
    return std::min(text.find(';', std::min(at, text.size())), text.size());
}

/// An entry of a section in the driver manager's odbc.ini or odbcinst.ini; nothing for none.
std::optional<std::string> IniValue(const std::string& section, const std::string& entry, const char* file) {
    if (section.empty()) return std::nullopt;
    std::array<char, 1024> value{};
    SQLGetPrivateProfileString(section.c_str(), entry.c_str(), "", value.data(),
                               static_cast<int>(value.size()), file);
    if (value[0] == '\0') return std::nullopt;
    return value.data();
}

}  // namespace

void AddOdbcSetting(std::string& text, std::string_view setting) {
    if (!text.empty() && text.back() != ';') text += ';';
    text += setting;
}

OdbcString::OdbcString(std::string_view text) : m_text(text) {
    while (EqualsIgnoreCase(std::string_view(m_text).substr(0, DaoPrefix.size()), DaoPrefix))
        m_text.erase(0, DaoPrefix.size());
    const std::string_view all = m_text;
    for (std::size_t at = 0; at < all.size();) {
        const std::size_t equals = std::min(all.find_first_of("=;", at), all.size());
        const bool hasValue = equals < all.size() && all[equals] == '=';
        const std::size_t end = hasValue ? BehindValue(all, equals + 1) : equals;
        const std::size_t next = std::min(end + 1, all.size());
        std::string_view value =
            hasValue ? automation::Trim(all.substr(equals + 1, end - equals - 1)) : std::string_view();
        if (value.starts_with('{') && value.ends_with('}')) value = value.substr(1, value.size() - 2);
        m_entries.push_back(
            {all.substr(at, next - at), automation::Trim(all.substr(at, equals - at)), value});
        at = next;
    }
}

std::string OdbcString::WithNeededSettings() const {
    std::string text = m_text;
    const std::string driver = Driver();
    const auto isDriver = [&driver](std::string_view name) {
        return automation::ContainsIgnoreCase(driver, name);
    };
    if (isDriver("mariadb") || isDriver("maodbc")) {
        std::uint32_t options = 0;
        for (const std::string_view key : {"OPTIONS", "OPTION"}) {
            const std::string value = Setting(key).value_or("");
            std::uint32_t given = 0;
            std::from_chars(value.data(), value.data() + value.size(), given);
            options |= given;
        }
        // Of a setting that stands there twice the driver takes the last one.
        AddOdbcSetting(text, "OPTION=" + std::to_string(options | FoundRows) + ";CHARSET=utf8mb4");
    } else if ((isDriver("postgresql") || isDriver("psqlodbc")) && !Setting("UseServerSidePrepare") &&
               !Setting("C8")) {
        AddOdbcSetting(text, "UseServerSidePrepare=0");
    }
    return text;
}

std::string OdbcString::WithoutPassword() const {
    std::string shown;
    for (const Entry& entry : m_entries) {
        const bool isSecret = EqualsIgnoreCase(entry.key, "pwd") || EqualsIgnoreCase(entry.key, "password");
        shown += isSecret ? std::string(entry.key) + "=...;" : std::string(entry.whole);
    }
    return shown;
}

std::optional<std::string> OdbcString::Find(std::string_view key) const {
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                    [&](const Entry& entry) { return EqualsIgnoreCase(entry.key, key); });
    return found == m_entries.rend() ? std::nullopt : std::optional<std::string>(found->value);
}

std::optional<std::string> OdbcString::Setting(std::string_view key) const {
    if (auto value = Find(key)) return value;
    return IniValue(Find("DSN").value_or(""), std::string(key), "odbc.ini");
}

std::string OdbcString::Driver() const {
    const std::string name = Setting("Driver").value_or("");
    return name + " " + IniValue(name, "Driver", "odbcinst.ini").value_or("");
}

}  // namespace korvex::native::sql
