#pragma once

#include <sqltypes.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvex::bench {

/// A statement as one writes it by hand against ODBC: prepared once, parameters and columns bound to buffers.
class FloorStatement {
  public:
    FloorStatement(SQLHDBC connection, std::string_view text);
    FloorStatement(const FloorStatement&) = delete;
    FloorStatement& operator=(const FloorStatement&) = delete;
    ~FloorStatement();

    void Set(std::size_t parameter, std::int64_t value);
    void Set(std::size_t parameter, std::string_view value);
    /// Executes and fetches every row; the first column of the last one, as a number.
    std::int64_t Run();
    std::size_t Rows() const noexcept { return m_rows; }

  private:
    struct Parameter {
        std::int64_t number = 0;
        std::string text;
        SQLLEN length = 0;
    };
    struct Column {
        char text[4096];
        SQLLEN length = 0;
    };
    Parameter& At(std::size_t parameter);
    void BindColumns();

    SQLHSTMT m_statement = nullptr;
    std::deque<Parameter> m_parameters;
    std::vector<std::unique_ptr<Column>> m_columns;
    bool m_isDescribed = false;
    std::size_t m_rows = 0;
};

/// A connection with its statements by text.
class FloorConnection {
  public:
    explicit FloorConnection(const std::string& connectionString);
    FloorConnection(const FloorConnection&) = delete;
    FloorConnection& operator=(const FloorConnection&) = delete;
    ~FloorConnection();

    FloorStatement& Statement(const std::string& text);
    void Begin();
    void Commit();

  private:
    SQLHENV m_environment = nullptr;
    SQLHDBC m_connection = nullptr;
    std::unordered_map<std::string, std::unique_ptr<FloorStatement>> m_statements;
};

}  // namespace korvex::bench
