#pragma once

#include "automation/dispatch.h"

#include <cstdint>
#include <memory>
#include <string>

namespace korvex {

namespace scriptgen {
struct Column;
}

/// One column of a scripted table, for hosts: thirteen read-write properties without behaviour, in slot
/// order. Whatever is set is read back; nothing is checked.
class clsField : public automation::TableObject {
  public:
    /// Texts are "" at first, flags False, numbers 0.
    clsField();
    ~clsField() override;

    /// Name of the column.
    virtual std::string FieldName();
    virtual void FieldName(const std::string& value);
    /// Type of the value that the column stores: the number of an automation type (automation::VarType).
    virtual std::int32_t DataType();
    virtual void DataType(std::int32_t value);
    /// Whether the column is a part of its table's primary key.
    virtual bool IsPrimaryKey();
    virtual void IsPrimaryKey(bool value);
    /// Whether the database fills the column when a record is inserted.
    virtual bool IsAutoNumber();
    virtual void IsAutoNumber(bool value);
    /// Whether the column refers to another table.
    virtual bool IsForeignKey();
    virtual void IsForeignKey(bool value);
    /// ObjectID, in the repository, of the object whose table the column refers to; -1 for a column that is
    /// no foreign key.
    virtual std::int32_t FKObjectID();
    virtual void FKObjectID(std::int32_t value);
    /// Declared length of a character column, in characters, as numeric text; "" for others.
    virtual std::string MaxLength();
    virtual void MaxLength(const std::string& value);
    /// ValueID, in the repository, of the value that the column stores; 0 for a column that no value stands
    /// behind.
    virtual std::int32_t ValueID();
    virtual void ValueID(std::int32_t value);
    /// ValueID, in the repository, of the key value that the column refers to; -1 for a column that is no
    /// foreign key.
    virtual std::int32_t FKValueID();
    virtual void FKValueID(std::int32_t value);
    /// Type of the column in the words of the dialect: "varchar(40)".
    virtual std::string TypeSize();
    virtual void TypeSize(const std::string& value);
    /// Position of the column within the primary key.
    virtual std::int16_t nPrimaryKeySeq();
    virtual void nPrimaryKeySeq(std::int16_t value);
    /// Default value as the repository has it; "" for none.
    virtual std::string DefaultVal();
    virtual void DefaultVal(const std::string& value);
    /// Whether the column became a long text or a long binary one.
    virtual bool IsLongFld();
    virtual void IsLongFld(bool value);

    const automation::ClassInfo& Class() const noexcept override;

  private:
    std::unique_ptr<scriptgen::Column> m_column;
};

}  // namespace korvex
