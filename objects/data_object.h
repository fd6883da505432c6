#pragma once

#include "objects/definition.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::objects {

/// A data object of a native host: the values of its definition, its child objects, its elements when it is a
/// collection, and the state that is stored beside them.
///
/// Modified belongs to one object alone: setting a value or state to something else makes it True, adding or
/// removing an element makes that of the collection True; neither reaches the parent. Whoever asks about a
/// tree asks all of it. Child objects come into being when they are first asked for, unmodified.
class DataObject final : public persistence::PlainObject {
  public:
    using Shared = std::shared_ptr<DataObject>;  ///< how data objects are held

    /// An object without a definition; DataDef gives it one.
    DataObject() = default;
    /// An object whose values are Empty, unmodified. It must be held by a shared_ptr (std::make_shared)
    /// before its child objects or elements are asked for.
    explicit DataObject(std::shared_ptr<Definition> definition);
    ~DataObject() override;

    /// The definition; ObjectVariableNotSet (91) when there is none.
    Definition& Type() const {
        if (m_definition == nullptr) RaiseNoDefinition();
        return *m_definition;
    }
    /// A value by name, case included; MemberNotFound (438) for a name that the definition does not have.
    automation::Variant Get(std::string_view name);
    /// Sets a value by name, converted to its type; errors as for Get and Value.
    void Set(std::string_view name, const automation::Variant& value);
    /// The child object of that name; ObjectRequired (424) for a plain value, MemberNotFound (438) for none.
    Shared Child(std::string_view name);
    /// The child object if it came into being already, else nullptr.
    Shared ExistingChild(const ValueDefinition& value) const;

    /// The elements of a collection in their order; none for any other object.
    const std::vector<Shared>& Items() const noexcept { return m_items; }
    /// Appends a new element; InvalidProcedureCall (5) when the object is no collection.
    Shared Add();
    /// Takes out the element at a position, counted from 0; SubscriptOutOfRange (9).
    void Remove(std::size_t position);
    /// Makes these elements of this collection, new ones among them, the whole of it, in this order. While
    /// the collection has no key the list counts as changed in any case.
    void Replace(std::vector<Shared> items);

    Ref Parent() override { return m_parent.lock(); }
    bool Modified() override { return m_isModified; }
    void Modified(bool value) override {
        m_isModified = value;
        m_isListModified = m_isListModified && value;
    }
    bool ListModified() override { return m_isListModified; }
    /// The states attSelectedItem, attCounterHolder and attCounter; InvalidProcedureCall (5) for another to
    /// set.
    std::int32_t LongAttribute(std::int32_t id) override;
    void LongAttribute(std::int32_t id, std::int32_t value) override;
    /// The state attSelectState.
    std::int16_t IntegerAttribute(std::int32_t id) override;
    void IntegerAttribute(std::int32_t id, std::int16_t value) override;
    /// Values are converted to the type of their definition: TypeMismatch (13) or Overflow (6), naming the
    /// value. Empty and Null stay; an empty text in a value that is no text becomes Empty.
    automation::Variant Value(std::int32_t index) override;
    void Value(std::int32_t index, const automation::Variant& value) override;
    void MoveValue(std::int32_t index, automation::Variant&& value) override;
    automation::Variant NamedValue(std::string_view name) override;
    /// A Definition, or the definition of a value that holds a child object; nothing releases it. Another
    /// definition than the present one empties the object. TypeMismatch (13) for any other object.
    void DataDef(const Ref& definition) override;
    Ref DataDef() override { return m_definition; }
    Ref AddItem(const automation::Variant& first = automation::Variant::Missing(),
                const automation::Variant& second = automation::Variant::Missing()) override;
    /// SubscriptOutOfRange (9), naming the column.
    std::int32_t ValueIndex(std::string_view fieldName) override;
    /// The elements in order, those added meanwhile included.
    std::unique_ptr<automation::Enumerator> NewEnum() override;

  private:
    [[noreturn]] static void RaiseNoDefinition();
    const ValueDefinition& ValueNamed(std::string_view name) const;
    automation::Variant ValueOf(const ValueDefinition& value);
    void SetChild(const ValueDefinition& value, const automation::Variant& child);
    Shared NewPart(const std::shared_ptr<Definition>& definition);
    std::int32_t* LongState(std::int32_t id);
    template <class NewValue>
    void Store(std::int32_t index, NewValue&& value);
    template <class T, class NewValue>
    void Assign(T& target, NewValue&& value);
    void ListChanged() noexcept { m_isModified = m_isListModified = true; }
    void TakeParts(std::vector<Shared>& parts);

    std::shared_ptr<Definition> m_definition;
    std::weak_ptr<QORObject> m_parent;
    std::vector<automation::Variant> m_values;  ///< by index; a child object stands at its value's place
    std::vector<Shared> m_items;
    std::int32_t m_selectedItem = 0;
    std::int32_t m_counterHolder = 0;
    std::int32_t m_counter = 0;
    std::int16_t m_selectState = 0;
    bool m_isModified = false;
    bool m_isListModified = false;
};

}  // namespace korvex::objects
