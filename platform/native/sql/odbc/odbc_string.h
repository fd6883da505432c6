#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// Puts "key=value" behind a connection string.
void AddOdbcSetting(std::string& text, std::string_view setting);

/// A connection string as SQLDriverConnect takes it: "key=value" between semicolons, a value that holds a
/// semicolon in braces.
class OdbcString {
  public:
    /// A DAO connect string's "ODBC;" in front is dropped, as often as it stands there.
    explicit OdbcString(std::string_view text);

    /// With the settings that this layer counts on, where the string means a driver that has them.
    ///
    /// MariaDB: an update counts the rows that it finds, not those that it changes (beside the options that
    /// the string or its data source asks for); texts pass as utf8mb4, which alone holds every character.
    /// PostgreSQL: statements are not prepared on the server, which costs several answers each, unless the
    /// string or its data source says whether they are.
    std::string WithNeededSettings() const;
    /// As a message may show it.
    std::string WithoutPassword() const;

  private:
    struct Entry {
        std::string_view whole;  ///< as it stands, with the semicolon behind it
        std::string_view key;
        std::string_view value;  ///< without its braces
    };

    /// The last value of a key in the string.
    std::optional<std::string> Find(std::string_view key) const;
    /// That, else the value in the data source that the string names.
    std::optional<std::string> Setting(std::string_view key) const;
    /// The names under which the driver is known: in the string or data source, and its library.
    std::string Driver() const;

    std::string m_text;
    std::vector<Entry> m_entries;
};

}  // namespace korvex::native::sql
