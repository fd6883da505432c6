#pragma once

#include "automation/dispatch.h"
#include "scriptgen/column.h"

#include <cstdint>
#include <string>

namespace korvex {

/// One column of a scripted table, for hosts: thirteen read-write properties without behaviour, in slot
/// order.
class clsField : public automation::TableObject {
  public:
    virtual std::string FieldName() { return m_column.FieldName; }
    virtual void FieldName(const std::string& value) { m_column.FieldName = value; }
    virtual std::int32_t DataType() { return m_column.DataType; }
    virtual void DataType(std::int32_t value) { m_column.DataType = value; }
    virtual bool IsPrimaryKey() { return m_column.IsPrimaryKey; }
    virtual void IsPrimaryKey(bool value) { m_column.IsPrimaryKey = value; }
    virtual bool IsAutoNumber() { return m_column.IsAutoNumber; }
    virtual void IsAutoNumber(bool value) { m_column.IsAutoNumber = value; }
    virtual bool IsForeignKey() { return m_column.IsForeignKey; }
    virtual void IsForeignKey(bool value) { m_column.IsForeignKey = value; }
    virtual std::int32_t FKObjectID() { return m_column.FKObjectID; }
    virtual void FKObjectID(std::int32_t value) { m_column.FKObjectID = value; }
    virtual std::string MaxLength() { return m_column.MaxLength; }
    virtual void MaxLength(const std::string& value) { m_column.MaxLength = value; }
    virtual std::int32_t ValueID() { return m_column.ValueID; }
    virtual void ValueID(std::int32_t value) { m_column.ValueID = value; }
    virtual std::int32_t FKValueID() { return m_column.FKValueID; }
    virtual void FKValueID(std::int32_t value) { m_column.FKValueID = value; }
    virtual std::string TypeSize() { return m_column.TypeSize; }
    virtual void TypeSize(const std::string& value) { m_column.TypeSize = value; }
    virtual std::int16_t nPrimaryKeySeq() { return m_column.nPrimaryKeySeq; }
    virtual void nPrimaryKeySeq(std::int16_t value) { m_column.nPrimaryKeySeq = value; }
    virtual std::string DefaultVal() { return m_column.DefaultVal; }
    virtual void DefaultVal(const std::string& value) { m_column.DefaultVal = value; }
    virtual bool IsLongFld() { return m_column.IsLongFld; }
    virtual void IsLongFld(bool value) { m_column.IsLongFld = value; }

    const automation::ClassInfo& Class() const noexcept override;

  private:
    scriptgen::Column m_column;
};

}  // namespace korvex
