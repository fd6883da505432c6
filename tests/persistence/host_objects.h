#pragma once

#include "objects/data_object.h"

#include <memory>
#include <string>
#include <utility>

namespace korvex::tests {

/// A definition as a host gives it that answers only what belongs to each kind: the value definition of a
/// child object knows nothing of the child's table, keys and values. Every look gives another object.
class HostDefinition final : public persistence::PlainObject {
  public:
    explicit HostDefinition(Ref inner) : m_inner(std::move(inner)) {}

    const Ref& Inner() const noexcept { return m_inner; }
    using PlainObject::LongAttribute;
    std::string StringAttribute(std::int32_t id) override {
        return IsChildValue() && id == attTableName ? "" : m_inner->StringAttribute(id);
    }
    std::int32_t LongAttribute(std::int32_t id) override { return m_inner->LongAttribute(id); }
    bool BooleanAttribute(std::int32_t id) override { return m_inner->BooleanAttribute(id); }
    bool HasAttribute(std::int32_t id) override {
        return (!IsChildValue() || id == attValues) && m_inner->HasAttribute(id);
    }
    Ref ObjectAttribute(std::int32_t id) override {
        const auto part = IsChildValue() ? nullptr : m_inner->ObjectAttribute(id);
        return part != nullptr ? std::make_shared<HostDefinition>(part) : nullptr;
    }
    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<Items<HostDefinition>>(m_inner->NewEnum());
    }

    /// Items of a collection, each in a wrapper.
    template <class Wrapper>
    class Items final : public automation::Enumerator {
      public:
        explicit Items(std::unique_ptr<automation::Enumerator> inner) : m_inner(std::move(inner)) {}
        std::optional<automation::Variant> Next() override {
            auto item = m_inner->Next();
            if (item) item = std::make_shared<Wrapper>(Object(*item));
            return item;
        }

      private:
        std::unique_ptr<automation::Enumerator> m_inner;
    };
    static Ref Object(const automation::Variant& value) {
        return std::dynamic_pointer_cast<QORObject>(*value.If<automation::ObjectRef>());
    }

  private:
    bool IsChildValue() const { return dynamic_cast<objects::ValueDefinition*>(m_inner.get()) != nullptr; }

    Ref m_inner;
};

/// A data object of such a host. It takes none but the host's own definitions, and asked for the changes to
/// its list of elements it has no other answer than Modified.
class HostObject final : public persistence::PlainObject {
  public:
    HostObject() : HostObject(std::make_shared<objects::DataObject>()) {}
    explicit HostObject(Ref inner) : m_inner(std::move(inner)) {}

    bool Modified() override { return m_inner->Modified(); }
    void Modified(bool value) override { m_inner->Modified(value); }
    std::int32_t LongAttribute(std::int32_t id) override { return m_inner->LongAttribute(id); }
    void LongAttribute(std::int32_t id, std::int32_t value) override { m_inner->LongAttribute(id, value); }
    std::int16_t IntegerAttribute(std::int32_t id) override { return m_inner->IntegerAttribute(id); }
    void IntegerAttribute(std::int32_t id, std::int16_t value) override {
        m_inner->IntegerAttribute(id, value);
    }
    automation::Variant Value(std::int32_t index) override { return m_inner->Value(index); }
    void Value(std::int32_t index, const automation::Variant& value) override {
        m_inner->Value(index, value);
    }
    automation::Variant NamedValue(std::string_view name) override {
        return std::make_shared<HostObject>(HostDefinition::Object(m_inner->NamedValue(name)));
    }
    void DataDef(const Ref& definition) override {
        const auto own = std::dynamic_pointer_cast<HostDefinition>(definition);
        if (definition != nullptr && own == nullptr) PlainObject::DataDef(definition);  // refuses it
        m_inner->DataDef(own != nullptr ? own->Inner() : nullptr);
    }
    Ref DataDef() override {
        const auto definition = m_inner->DataDef();
        return definition != nullptr ? std::make_shared<HostDefinition>(definition) : nullptr;
    }
    Ref AddItem(const automation::Variant&, const automation::Variant&) override {
        return std::make_shared<HostObject>(m_inner->AddItem());
    }
    std::int32_t ValueIndex(std::string_view fieldName) override { return m_inner->ValueIndex(fieldName); }
    std::unique_ptr<automation::Enumerator> NewEnum() override {
        return std::make_unique<HostDefinition::Items<HostObject>>(m_inner->NewEnum());
    }

  private:
    Ref m_inner;
};

}  // namespace korvex::tests
