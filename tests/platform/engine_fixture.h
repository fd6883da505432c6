#pragma once

#include "automation/convert.h"
#include "platform/dao.h"
#include "platform/native/native_platform.h"
#include "support/driver.h"
#include "support/engine_words.h"
#include "support/error_of.h"
#include "support/temp_folder.h"
#include "support/test_seam.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// An open database of each driver, empty and of its own.
class EngineTest : public testing::TestWithParam<Driver> {
  protected:
    void SetUp() override {
        if (!IsServer(GetParam())) m_platform.repositoryEngine->CreateDatabase(m_place)->Close();
        m_database = Open();
    }
    /// Nothing may be left open, whatever the test did.
    void TearDown() override {
        m_database.reset();
        EXPECT_EQ(m_seam->OpenStatements(), 0);
    }

    std::unique_ptr<dao::Database> Open() { return OpenAt(m_platform, m_places.Connection(m_place)); }

    /// A statement in the words of engine_words.h.
    void Run(std::string_view statement) { m_database->Execute(InWordsOf(GetParam(), statement)); }
    std::unique_ptr<dao::Recordset> Snapshot(std::string_view sql) {
        return m_database->OpenRecordset(sql, dao::dbOpenSnapshot);
    }
    std::unique_ptr<dao::Recordset> Dynaset(std::string_view sql) {
        return m_database->OpenRecordset(sql, dao::dbOpenDynaset);
    }

    /// The rest of a recordset: "a|b" for each row, Null as "-".
    static std::vector<std::string> Rows(dao::Recordset& recordset, const std::vector<std::string>& fields) {
        std::vector<std::string> rows;
        for (; !recordset.Eof(); recordset.MoveNext()) {
            std::string& row = rows.emplace_back();
            for (const std::string& field : fields) {
                const automation::Variant value = recordset.Fields(field).Value();
                if (&field != &fields.front()) row += '|';
                row += value.IsNull() ? "-" : automation::ToString(value);
            }
        }
        return rows;
    }
    std::vector<std::string> Rows(std::string_view sql, const std::vector<std::string>& fields) {
        const auto recordset = Snapshot(sql);
        return Rows(*recordset, fields);
    }

    TempFolder m_folder;
    Places m_places{GetParam(), m_folder};
    std::string m_place = m_places.New("repository.db");
    std::shared_ptr<TestSeam> m_seam = std::make_shared<TestSeam>();
    Platform m_platform = native::NativePlatform({.seam = m_seam});
    std::unique_ptr<dao::Database> m_database;
};

}  // namespace korvex::tests
