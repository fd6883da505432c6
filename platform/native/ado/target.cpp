#include "platform/native/ado/target.h"

#include "automation/error.h"
#include "automation/text.h"
#include "platform/ado.h"
#include "platform/native/ado/connection_string.h"
#include "platform/native/sql/odbc/odbc_string.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace korvex::native::ado_engine {

namespace {

using automation::EqualsIgnoreCase;

/// ADO's name for a setting and the ODBC driver managers' own.
struct OdbcWord {
    std::string_view ado;
    std::string_view odbc;  ///< empty: says nothing to a driver
};
constexpr OdbcWord OdbcWords[] = {
    {"Provider", ""},   {"Persist Security Info", ""}, {"Data Source", "DSN"},
    {"User ID", "UID"}, {"Password", "PWD"},           {"Initial Catalog", "DATABASE"},
};

/// Every provider takes these; the embedded engine has no use for them.
constexpr std::string_view CommonWords[] = {"Provider", "Persist Security Info", "User ID", "Password"};

[[noreturn]] void RaiseNoProvider(std::string_view found) {
    std::string description = found.empty() ? std::string("The connection string names no provider.")
                                            : "There is no provider \"" + std::string(found) + "\" here.";
    description.append(" ").append(ConnectionForms);
    throw automation::Error(ado::adErrProviderNotFound, std::move(description));
}

[[noreturn]] void RaiseBadString(std::string description) {
    throw automation::Error(ado::DbEInitString, std::move(description));
}

[[noreturn]] void RaiseBadValue(const ConnectionEntry& entry, std::string_view choices) {
    std::string description = "The connection string has ";
    description.append(entry.key).append("=").append(entry.value).append("; it must be ").append(choices);
    RaiseBadString(description + ".");
}

sql::SqliteMode ReadMode(const ConnectionEntry& entry) {
    if (EqualsIgnoreCase(entry.value, "ReadWrite")) return sql::SqliteMode::ReadWrite;
    if (EqualsIgnoreCase(entry.value, "Read")) return sql::SqliteMode::ReadOnly;
    if (EqualsIgnoreCase(entry.value, "Create")) return sql::SqliteMode::Create;
    RaiseBadValue(entry, "ReadWrite, Read or Create");
}

bool ReadSynchronous(const ConnectionEntry& entry) {
    if (EqualsIgnoreCase(entry.value, "Full")) return true;
    if (EqualsIgnoreCase(entry.value, "Normal")) return false;
    RaiseBadValue(entry, "Full or Normal");
}

Target ReadSqliteTarget(const ConnectionString& settings) {
    Target target;
    for (const ConnectionEntry& entry : settings.Entries()) {
        const auto isKey = [&entry](std::string_view key) { return EqualsIgnoreCase(entry.key, key); };
        if (isKey("Data Source")) {
            target.file = entry.value;
        } else if (isKey("Mode")) {
            target.mode = ReadMode(entry);
        } else if (isKey("Synchronous")) {
            target.fullSync = ReadSynchronous(entry);
        } else if (std::ranges::none_of(CommonWords, isKey)) {
            RaiseBadString("The connection string has the unknown word \"" + entry.key +
                           "\"; the provider SQLite takes Data Source, Mode and Synchronous.");
        }
    }
    if (target.file.empty())
        RaiseBadString("The connection string names no file: \"Data Source=\" is missing.");
    if (target.file == ":memory:") target.mode = sql::SqliteMode::Memory;
    return target;
}

/// `value` as an ODBC driver manager reads it back. Braces only where they must be: not every driver takes
/// them.
std::string OdbcValue(const std::string& value) {
    const bool isBraced = value.starts_with('{') && value.ends_with('}');
    const bool needsBraces = value.find(';') != std::string::npos || value.starts_with('{') ||
                             value.starts_with(' ') || value.ends_with(' ');
    if (isBraced || !needsBraces) return value;
    std::string braced = "{";
    for (const char c : value) {
        braced += c;
        if (c == '}') braced += c;
    }
    return braced + "}";
}

Target ReadOdbcTarget(const ConnectionString& settings, std::string_view user, std::string_view password) {
    std::string text;
    const auto add = [&text](std::string_view key, const std::string& value) {
        sql::AddOdbcSetting(text, std::string(key) + "=" + OdbcValue(value));
    };
    for (const ConnectionEntry& entry : settings.Entries()) {
        const auto* word = std::ranges::find_if(
            OdbcWords, [&entry](const OdbcWord& w) { return EqualsIgnoreCase(w.ado, entry.key); });
        if (EqualsIgnoreCase(entry.key, "Extended Properties")) {
            sql::AddOdbcSetting(text, entry.value);  // in the drivers' own form already
        } else if (word == std::ranges::end(OdbcWords)) {
            add(entry.key, entry.value);
        } else if (!word->odbc.empty()) {
            add(word->odbc, entry.value);
        }
    }
    const bool namesUser = settings.Find("UID").has_value() || settings.Find("User ID").has_value();
    if (!user.empty() && !namesUser) {
        add("UID", std::string(user));
        add("PWD", std::string(password));
    }
    Target target;
    target.odbcString = std::move(text);
    return target;
}

/// Whether a provider's name is `name`, with or without a version ("MSDASQL.1").
bool IsProvider(std::string_view provider, std::string_view name) {
    return EqualsIgnoreCase(provider.substr(0, provider.find('.')), name);
}

}  // namespace

Target ReadTarget(std::string_view connectionString, std::string_view user, std::string_view password) {
    const ConnectionString settings(connectionString);
    const std::optional<std::string_view> provider = settings.Find("Provider");
    if (provider && IsProvider(*provider, "SQLite")) return ReadSqliteTarget(settings);
    const bool namesSource = settings.Find("DSN").has_value() || settings.Find("Driver").has_value();
    const bool isOdbc = provider ? IsProvider(*provider, "MSDASQL") : namesSource;
    if (!isOdbc) RaiseNoProvider(provider.value_or(""));
    return ReadOdbcTarget(settings, user, password);
}

}  // namespace korvex::native::ado_engine
