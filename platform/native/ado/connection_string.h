#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::ado_engine {

/// What a message says to somebody who has no connection string of a known form.
inline constexpr std::string_view ConnectionForms =
    "Use \"Provider=SQLite;Data Source=FILE\" for a database file, or \"DSN=NAME\" or \"Driver={NAME};...\", "
    "with or without \"Provider=MSDASQL\", for an ODBC data source.";

/// One "key=value" of a connection string. The value is without its quotes; one in braces, as ODBC drivers
/// take them, keeps them.
struct ConnectionEntry {
    std::string key;
    std::string value;
};

/// A connection string as ADO reads it: "key=value" pairs between semicolons, blanks around both ignored,
/// keys in any case. A value that holds a semicolon or outer blanks stands in single or double quotes
/// (doubled inside), or in braces; a doubled "=" stands for one inside a key.
class ConnectionString {
  public:
    /// Raises DbEInitString, naming the place, for a text that has not this form.
    explicit ConnectionString(std::string_view text);

    const std::vector<ConnectionEntry>& Entries() const noexcept { return m_entries; }
    /// The value of a key, the last one when it stands there several times.
    std::optional<std::string_view> Find(std::string_view key) const noexcept;

  private:
    std::vector<ConnectionEntry> m_entries;
};

}  // namespace korvex::native::ado_engine
