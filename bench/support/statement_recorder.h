#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

struct sqlite3;

namespace korvex::bench {

/// The statements that ran, as a careful programmer would send them, whatever was sent: every number and text
/// a parameter, so that there are few distinct texts; the executions in order with their values.
struct Recording {
    using Value = std::variant<std::monostate, std::int64_t, double, std::string>;
    struct Execution {
        std::size_t text;
        std::vector<Value> values;
    };
    std::vector<std::string> texts;
    std::vector<Execution> executions;
};

/// While it lives, records every statement that any SQLite connection opened meanwhile executes in this
/// process.
class StatementRecorder {
  public:
    StatementRecorder();
    StatementRecorder(const StatementRecorder&) = delete;
    StatementRecorder& operator=(const StatementRecorder&) = delete;
    ~StatementRecorder();

    const Recording& Statements() const noexcept { return m_recording; }
    /// A statement with the values that were bound to it.
    void Record(std::string_view expanded);

  private:
    Recording m_recording;
    std::unordered_map<std::string, std::size_t> m_positions;
};

/// The floor: executes a recording on the file through the engine's C interface, each text prepared once, all
/// values bound, every column of every row read and nothing made of it. Gives the number of rows.
std::size_t Replay(const Recording& recording, const std::string& file);

}  // namespace korvex::bench
