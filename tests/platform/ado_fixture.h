#pragma once

#include "platform/ado.h"
#include "platform/native/native_platform.h"
#include "support/driver.h"
#include "support/engine_words.h"
#include "support/error_of.h"
#include "support/print_variant.h"
#include "support/temp_folder.h"
#include "support/test_seam.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvex::tests {

/// An empty database of each driver, and the engine under test.
class AdoTest : public testing::TestWithParam<Driver> {
  protected:
    std::string File(std::string_view name = "test.db") const { return m_folder.Path(name); }
    /// Of the test's database, which is a file that is made when it is not there, or lies on a server.
    std::string ConnectionString() const;
    std::shared_ptr<ado::Connection> Connect();
    std::shared_ptr<ado::Connection> Connect(std::string_view connectionString);
    /// A recordset as the persistence class opens it.
    std::shared_ptr<ado::Recordset> Open(const std::shared_ptr<ado::Connection>& connection,
                                         std::string_view text);
    /// The value of the first column of the first row.
    automation::Variant Scalar(const std::shared_ptr<ado::Connection>& connection, std::string_view text);

    /// That value as a number: the ODBC driver gives results that are no columns as texts.
    std::int32_t Number(const std::shared_ptr<ado::Connection>& connection, std::string_view text);

    /// Runs a statement in the words of engine_words.h.
    void Run(const std::shared_ptr<ado::Connection>& connection, std::string_view statement) {
        connection->Execute(InWordsOf(GetParam(), statement));
    }

    TempFolder m_folder;
    Places m_places{GetParam(), m_folder};
    std::string m_place = m_places.New("test.db");
    std::shared_ptr<TestSeam> m_seam = std::make_shared<TestSeam>();
    Platform m_platform = native::NativePlatform({.seam = m_seam});
};

}  // namespace korvex::tests
