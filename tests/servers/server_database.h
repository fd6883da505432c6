#pragma once

#include "platform/ado.h"
#include "platform/native/native_platform.h"
#include "support/driver.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// An empty database on a server, as the target of one test.
class ServerDatabase {
  public:
    explicit ServerDatabase(Driver driver) : m_places(driver, m_folder), m_string(m_places.New("target")) {}

    const std::string& ConnectionString() const noexcept { return m_string; }
    std::shared_ptr<ado::Connection> Connect(std::string_view more = {}) const;
    const TempFolder& Folder() const noexcept { return m_folder; }

  private:
    TempFolder m_folder;
    Places m_places;
    std::string m_string;
};

/// Every row of a query, its columns joined with "|", Null as "-".
std::vector<std::string> RowsOf(ado::Connection& connection, const std::string& query);

/// The first value of a query's first row, "" when there is none.
std::string ValueOf(ado::Connection& connection, const std::string& query);

}  // namespace korvex::tests
