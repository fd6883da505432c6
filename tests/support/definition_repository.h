#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// Fills a new repository with definitions, row by row, in a file or on a server (an ODBC string). Each
/// object gets one interface of its own, with the object's number.
class DefinitionRepository {
  public:
    DefinitionRepository(const Platform& platform, const std::string& path);

    DefinitionRepository& Definition(std::string_view storage, std::int32_t rootObjectID);
    /// `elementObjectID` is the object of a collection's elements.
    DefinitionRepository& Object(std::int32_t objectID, std::string_view name,
                                 std::int32_t elementObjectID = 0);
    DefinitionRepository& Value(std::int32_t objectID, std::string_view name, std::int32_t dataType,
                                std::string_view maxLength = "0");
    DefinitionRepository& Child(std::int32_t objectID, std::string_view name, std::int32_t childObjectID);

    dao::Database& Database() noexcept { return *m_database; }

  private:
    std::unique_ptr<dao::Database> m_database;
    std::int32_t m_vid = 0;
};

/// The rows of a query on a repository, a line each: the named columns joined with "|", "-" for Null.
std::vector<std::string> ReadRows(const Platform& platform, const std::string& path, std::string_view sql,
                                  const std::vector<std::string>& columns);

/// Every row of the seven tables in key order, a line each: "tObjects 1|Customer|0|tCustomer|-1|{1}".
std::string DumpRepository(const Platform& platform, const std::string& path);

/// Runs statements on a repository.
void Execute(const Platform& platform, const std::string& path, std::string_view sql);

}  // namespace korvex::tests
