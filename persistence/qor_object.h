#pragma once

#include "automation/dispatch.h"
#include "automation/variant.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace korvex {

/// Attribute identifiers of data objects and their definitions. The bands tell the type: 200000s 16-bit,
/// 300000s 32-bit, 800000s text, 1100000s Boolean, 1300000s object; the negative ones are state that a data
/// object itself carries.
enum AttributeId : std::int32_t {
    attName = 800001,             ///< member name of a value; column name of a primary-key entry
    attForeignKeyField = 800004,  ///< column name of a foreign-key entry
    attFieldName = 800007,        ///< column of a value; "" when it has none
    attTableName = 800010,        ///< table of a definition; "" when it has none
    attValueIndex = 300001,       ///< index of a value inside the data object
    attIsIncluded = 1100002,      ///< the definition or value is stored in the database
    attIsAutoNumber = 1100003,    ///< the column is filled by the database on insert
    attValues = 1300001,          ///< value definitions; on a value definition: it is a child data object
    attElementDef = 1300003,      ///< definition of the elements of a collection-kind object
    attForeignKeys = 1300005,     ///< collection of a definition's foreign-key entries
    attPrimaryKeys = 1300006,     ///< collection of a definition's primary-key entries
    attSelectedItem = -300005,    ///< of a collection, stored in the column QORSelectedItem
    attCounterHolder = -300004,   ///< of a collection, stored in the column QORCounterHolder
    attCounter = -300003,         ///< of any other object, stored in the column QORCounter
    attSelectState = -200001,     ///< of any other object, stored in the column QORSelectState
};

/// The identifiers by name, for hosts that see them so.
inline constexpr std::pair<AttributeId, std::string_view> AttributeNames[] = {
    {attName, "attName"},
    {attForeignKeyField, "attForeignKeyField"},
    {attFieldName, "attFieldName"},
    {attTableName, "attTableName"},
    {attValueIndex, "attValueIndex"},
    {attIsIncluded, "attIsIncluded"},
    {attIsAutoNumber, "attIsAutoNumber"},
    {attValues, "attValues"},
    {attElementDef, "attElementDef"},
    {attForeignKeys, "attForeignKeys"},
    {attPrimaryKeys, "attPrimaryKeys"},
    {attSelectedItem, "attSelectedItem"},
    {attCounterHolder, "attCounterHolder"},
    {attCounter, "attCounter"},
    {attSelectState, "attSelectState"},
};

/// A data object, its definition, or an entry of the definition's collections: one interface serves all
/// three. Hosts implement it; the members stand in the slot order of the automation interface. An
/// implementation answers "", 0, False or nothing for an attribute that it does not carry. Collections and
/// collection-kind data objects enumerate through NewEnum, every item being a QORObject. Errors that a member
/// raises reach the caller of the persistence member unchanged.
///
/// Where element records are deleted there is no data object of theirs: a working object is given their
/// definition and asked for its child objects. A host supplies such objects (Platform::newDataObject), or the
/// value definition of each child object answers for the child's definition, too: table, keys, values and
/// elements. Where neither is so, the first such element ends the call with InvalidProcedureCall (5),
/// before its record is deleted. Child objects that are not included are passed over.
class QORObject : public automation::TableObject {
  public:
    using Ref = std::shared_ptr<QORObject>;  ///< a counted reference; nullptr is Nothing

    /// The data object that owns this one. A save reads its key from there.
    /// @return nullptr for a root
    virtual Ref Parent() = 0;
    /// Whether the object changed since it was loaded or saved; it alone, not what is beneath it.
    /// @param value the library sets False on objects that it loaded, saved or updated
    /// @return False for what an update need not look at
    virtual bool Modified() = 0;
    virtual void Modified(bool value) = 0;
    /// A text of a definition, a value definition or a key entry.
    /// @param id attName, attForeignKeyField, attFieldName or attTableName
    /// @return "" for an attribute that the object does not carry
    virtual std::string StringAttribute(std::int32_t id) = 0;
    /// A 32-bit number: the index of a value definition, or state of a data object.
    /// @param id attValueIndex to read; attSelectedItem, attCounterHolder or attCounter to read and set
    /// @param value the state as it stands in the record; not called for a column that is Null
    /// @return 0 for an attribute that the object does not carry
    virtual std::int32_t LongAttribute(std::int32_t id) = 0;
    virtual void LongAttribute(std::int32_t id, std::int32_t value) = 0;
    /// A flag of a definition or a value definition.
    /// @param id attIsIncluded or attIsAutoNumber
    /// @return False for an attribute that the object does not carry
    virtual bool BooleanAttribute(std::int32_t id) = 0;
    /// A 16-bit number: state of a data object.
    /// @param id attSelectState
    /// @param value the state as it stands in the record; not called for a column that is Null
    /// @return 0 for an attribute that the object does not carry
    virtual std::int16_t IntegerAttribute(std::int32_t id) = 0;
    virtual void IntegerAttribute(std::int32_t id, std::int16_t value) = 0;
    /// A value of a data object.
    /// @param index as ValueIndex or attValueIndex gave it; where it begins to count is the object's business
    /// @param value what the record holds, of the column's own type; Null for NULL
    /// @return the value; a child object as a reference. Empty, Null and "" are blank to a save.
    virtual automation::Variant Value(std::int32_t index) = 0;
    virtual void Value(std::int32_t index, const automation::Variant& value) = 0;
    /// A value by its member name; only asked for child objects.
    /// @param name the attName of a value definition
    /// @return the child data object, made if need be
    virtual automation::Variant NamedValue(std::string_view name) = 0;
    /// What a definition is made of.
    /// @param id attValues, attPrimaryKeys, attForeignKeys (collections that enumerate), or attElementDef
    /// @return nullptr for an attribute that the object does not carry
    virtual Ref ObjectAttribute(std::int32_t id) = 0;
    /// The definition of a data object. The library gives one to working objects only.
    /// @param definition the definition; nullptr releases it
    /// @return nullptr when there is none
    virtual void DataDef(const Ref& definition) = 0;
    virtual Ref DataDef() = 0;
    /// On a collection-kind data object: appends a new element, with the definition of elements.
    /// @param first always Missing
    /// @param second always Missing
    /// @return the element
    virtual Ref AddItem(const automation::Variant& first = automation::Variant::Missing(),
                        const automation::Variant& second = automation::Variant::Missing()) = 0;
    /// Whether a definition or value definition carries an attribute.
    /// @param id attElementDef (it defines collections), or attValues (the value is a child object)
    /// @return False for every other
    virtual bool HasAttribute(std::int32_t id) = 0;
    /// Where a data object keeps the value of a column.
    /// @param fieldName the column, as attFieldName spells it
    /// @return an index for Value; an error where no value is stored in the column
    virtual std::int32_t ValueIndex(std::string_view fieldName) = 0;

    /// Serves the members above by name as well.
    const automation::ClassInfo& Class() const noexcept override;

    /// Of a collection: elements were added or taken out since it was loaded or saved. It reads Modified
    /// then, too. An update makes such a list the truth about the stored elements; under one that did not
    /// change, others may have added and deleted elements.
    /// @return Modified, unless the host's collection tells the two apart
    virtual bool ListModified() { return Modified(); }
    /// Of a value definition: the column holds the key of a parent that the object may do without. Insert
    /// leaves it to the database while it is blank; an update stores 0 and Null as Null, and Empty not at
    /// all.
    /// @return False unless the host says otherwise
    virtual bool IsOptionalLink() { return false; }

    /// Of a definition: a number that grows whenever what it says of its values and keys changes, so that it
    /// need not be read for each call.
    /// @return 0 where nobody counts
    virtual std::uint64_t Revision() { return 0; }

    /// Sets a value that the caller needs no more. An object that keeps it as it is may take it over instead
    /// of copying it.
    /// @param index as for Value
    /// @param value as for Value
    virtual void MoveValue(std::int32_t index, automation::Variant&& value) { Value(index, value); }

    bool IsA(const automation::ClassInfo& info) const noexcept override;
    /// An automation object as a data object, faster than a cast.
    /// @param object any object, or nullptr
    /// @return nullptr for Nothing and for another kind of object
    static QORObject* From(automation::Object* object) noexcept;
};

}  // namespace korvex
