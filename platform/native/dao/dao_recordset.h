#pragma once

#include "platform/dao.h"
#include "platform/native/sql/cursor.h"

#include <string_view>
#include <vector>

namespace korvex::native::dao_engine {

class NativeRecordset;

class NativeField final : public dao::Field {
  public:
    NativeField(NativeRecordset& recordset, std::size_t column) : m_recordset(&recordset), m_column(column) {}

    std::string_view Name() const override;
    automation::Variant Value() override;
    void Value(const automation::Variant& value) override;

  private:
    NativeRecordset* m_recordset;
    std::size_t m_column;
};

class NativeRecordset final : public dao::Recordset {
  public:
    NativeRecordset(sql::Session& session, std::string_view text, bool updatable)
        : m_cursor(session, text, updatable), m_updatable(updatable) {}

    bool Eof() override;
    void MoveNext() override;
    void MoveLast() override;
    dao::Field& Fields(std::string_view name) override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    void Close() override;

    sql::Cursor& Rows() noexcept { return m_cursor; }

  private:
    void RequireUpdatable() const;

    sql::Cursor m_cursor;
    bool m_updatable;
    std::vector<NativeField> m_fields;
};

}  // namespace korvex::native::dao_engine
