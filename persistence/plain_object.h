#pragma once

#include "persistence/qor_object.h"

namespace korvex::persistence {

/// A QORObject that carries nothing: every attribute reads "", 0, False or nothing. Implementations override
/// what they carry. What is not there and cannot be left out raises an error that names it:
/// SubscriptOutOfRange (9) for a value or a column, MemberNotFound (438) for a name, InvalidProcedureCall (5)
/// for an attribute to set, a definition or an element.
class PlainObject : public QORObject {
  public:
    Ref Parent() override { return nullptr; }
    bool Modified() override { return false; }
    void Modified(bool) override {}
    std::string StringAttribute(std::int32_t) override { return {}; }
    std::int32_t LongAttribute(std::int32_t) override { return 0; }
    void LongAttribute(std::int32_t id, std::int32_t value) override;
    bool BooleanAttribute(std::int32_t) override { return false; }
    std::int16_t IntegerAttribute(std::int32_t) override { return 0; }
    void IntegerAttribute(std::int32_t id, std::int16_t value) override;
    automation::Variant Value(std::int32_t index) override;
    void Value(std::int32_t index, const automation::Variant& value) override;
    automation::Variant NamedValue(std::string_view name) override;
    Ref ObjectAttribute(std::int32_t) override { return nullptr; }
    void DataDef(const Ref& definition) override;
    Ref DataDef() override { return nullptr; }
    Ref AddItem(const automation::Variant& first, const automation::Variant& second) override;
    bool HasAttribute(std::int32_t) override { return false; }
    std::int32_t ValueIndex(std::string_view fieldName) override;
};

}  // namespace korvex::persistence
