#pragma once

#include "platform/ado.h"
#include "platform/native/ado/rows.h"

#include <cstddef>

namespace korvex::native::ado_engine {

/// A field of an open recordset: a column of its rows, in which it lives. Its value is gone
/// (adErrObjectClosed) once the recordset was closed.
class NativeField final : public ado::Field {
  public:
    void Bind(OpenRows& rows, std::size_t column) noexcept {
        m_rows = &rows;
        m_column = column;
    }

    std::string Name() const override { return Column().name; }
    automation::Variant Value() override { return m_rows->Value(m_column); }
    void Value(const automation::Variant& value) override { m_rows->Value(m_column, value); }
    /// As the OLE DB providers of the servers map declared types; dates are adDBTimeStamp there.
    std::int32_t Type() const override;
    /// The largest number there is for a column without a limit.
    std::int32_t DefinedSize() const override { return DefinedSizeOf(Column()); }
    std::int32_t ActualSize() override { return m_rows->ActualSize(m_column); }
    std::int32_t Attributes() const override;
    automation::Variant GetChunk(std::int32_t length) override { return m_rows->GetChunk(m_column, length); }
    void AppendChunk(const automation::Variant& data) override { m_rows->AppendChunk(m_column, data); }
    bool TakesBlankText() const override {
        return sql::IsText(Column().type) || Column().type == sql::ColumnType::Unknown;
    }

    /// The ActualSize of a value in a column; 0 also for Empty.
    static std::int32_t SizeOf(const automation::Variant& value, const sql::ColumnInfo& column) noexcept;

  private:
    static std::int32_t DefinedSizeOf(const sql::ColumnInfo& column) noexcept;
    const sql::ColumnInfo& Column() const { return m_rows->Column(m_column); }

    OpenRows* m_rows = nullptr;
    std::size_t m_column = 0;
};

}  // namespace korvex::native::ado_engine
