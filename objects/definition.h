#pragma once

#include "persistence/plain_object.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::objects {

class Definition;

/// The type in which values of a data type code are kept.
/// @param dataType a variant type number, as the repository has it
/// @return VarType::Variant where values are kept as given
automation::VarType KeptType(std::int32_t dataType);

/// A plain value, as the definition repository describes it.
struct ValueInfo {
    std::string name;         ///< member name, unique in the object
    std::string column = {};  ///< "" for a value that is not stored
    /// The repository's data type code: a variant type number. Values are converted to it when they are set;
    /// objects (9), variants (12) and codes that are no type of a value take what they are given.
    std::int32_t dataType = static_cast<std::int32_t>(automation::VarType::String);
    bool isIncluded = true;       ///< stored in its column; else it lives in memory only
    bool isAutoNumber = false;    ///< the database fills the column on insert
    bool isOptionalLink = false;  ///< the key of a parent that the object may do without
};

/// The definition of one value. That of a child object answers for the child's definition, so it can stand in
/// its place.
class ValueDefinition final : public persistence::PlainObject {
  public:
    /// @param info what the repository says of the value
    /// @param index its place in the object, from 1
    /// @param child the child object's definition; nullptr for a plain value
    ValueDefinition(ValueInfo info, std::int32_t index, std::shared_ptr<Definition> child);

    /// What the repository says of the value; of a child object only the name.
    const ValueInfo& Info() const noexcept { return m_info; }
    /// The place of the value in a data object, from 1: its attValueIndex.
    std::int32_t Index() const noexcept { return m_index; }
    /// The child object's definition; nullptr for a plain value.
    const std::shared_ptr<Definition>& Child() const noexcept { return m_child; }

    std::string StringAttribute(std::int32_t id) override;
    using PlainObject::LongAttribute;
    std::int32_t LongAttribute(std::int32_t id) override;
    bool BooleanAttribute(std::int32_t id) override;
    Ref ObjectAttribute(std::int32_t id) override;
    bool HasAttribute(std::int32_t id) override;
    bool IsOptionalLink() override { return m_info.isOptionalLink; }

  private:
    friend class Definition;

    ValueInfo m_info;
    std::int32_t m_index;
    std::shared_ptr<Definition> m_child;
};

/// The definition of data objects: table, columns, keys, child objects and elements. Built once, then shared
/// by the objects; it must not contain itself.
class Definition final : public persistence::PlainObject {
  public:
    /// @param name what errors call the objects
    /// @param table "" for objects without a table
    /// @param isIncluded whether they are stored in the database
    Definition(std::string name, std::string table, bool isIncluded = true);
    ~Definition() override;

    /// Values stand in the order in which they are added; their indexes start at 1. KeyAlreadyUsed (457) for
    /// a name that is taken.
    /// @param info the value; its column, where it has one, should be no other value's
    void AddValue(ValueInfo info);
    /// Adds a value that holds a child object; KeyAlreadyUsed (457) for a name that is taken.
    /// @param name member name of the value
    /// @param child definition of the child; several values may share it
    void AddChild(const std::string& name, std::shared_ptr<Definition> child);
    /// Names a column of the own key. Stored objects have one, a whole number.
    /// @param column the column of a value
    void AddPrimaryKey(const std::string& column);
    /// Names a column that refers to the parent. The first one counts.
    /// @param column the column of a value
    void AddForeignKey(const std::string& column);
    /// Makes the objects collections of elements.
    /// @param element definition of the elements
    void ElementDefinition(std::shared_ptr<Definition> element) { m_element = std::move(element); }

    /// What errors call the objects: their name in the repository.
    const std::string& Name() const noexcept { return m_name; }
    /// The values in the order of their indexes, child objects included.
    const std::vector<std::shared_ptr<ValueDefinition>>& Values() const noexcept { return m_values; }
    /// Definition of the elements; nullptr for objects that are no collections.
    const std::shared_ptr<Definition>& ElementDefinition() const noexcept { return m_element; }
    /// The value of that name, case included; nullptr when there is none.
    const ValueDefinition* FindValue(std::string_view name) const;
    /// The value in that column, case included; nullptr when there is none.
    const ValueDefinition* FindColumn(std::string_view column) const;
    /// The value at an index, from 1; SubscriptOutOfRange (9) for any other.
    const ValueDefinition& ValueAt(std::int32_t index) const {
        const auto position = static_cast<std::size_t>(index) - 1;
        if (position >= m_values.size()) RaiseNoValue(index);
        return *m_values[position];
    }
    /// The type in which the value at an index is kept: VarType::Variant where it is kept as given,
    /// VarType::Object for a child object; SubscriptOutOfRange (9) for an index of no value.
    automation::VarType TypeAt(std::int32_t index) const {
        const auto position = static_cast<std::size_t>(index) - 1;
        if (position >= m_types.size()) RaiseNoValue(index);
        return m_types[position];
    }
    /// The value of the own key; nullptr when there is none.
    const ValueDefinition* KeyValue() const;

    std::string StringAttribute(std::int32_t id) override;
    bool BooleanAttribute(std::int32_t id) override;
    Ref ObjectAttribute(std::int32_t id) override;
    bool HasAttribute(std::int32_t id) override;
    std::uint64_t Revision() override { return m_revision; }

  private:
    class EntryList;
    [[noreturn]] void RaiseNoValue(std::int32_t index) const;
    void Append(std::shared_ptr<ValueDefinition> value);
    void TakeParts(std::vector<std::shared_ptr<Definition>>& parts);

    std::string m_name;
    std::string m_table;
    bool m_isIncluded;
    std::vector<std::shared_ptr<ValueDefinition>> m_values;
    std::vector<automation::VarType> m_types;  ///< of the values, close together: asked for at each store
    std::map<std::string, const ValueDefinition*, std::less<>> m_byName;
    std::map<std::string, const ValueDefinition*, std::less<>> m_byColumn;
    std::vector<std::string> m_primaryKeys;
    std::uint64_t m_revision = 1;
    std::shared_ptr<Definition> m_element;
    /// The collections that the interface hands out.
    std::shared_ptr<EntryList> m_valueList, m_primaryKeyList, m_foreignKeyList;
};

}  // namespace korvex::objects
