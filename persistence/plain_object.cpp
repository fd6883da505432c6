#include "persistence/plain_object.h"

#include "automation/error.h"
#include "automation/text.h"

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

void PlainObject::LongAttribute(std::int32_t id, std::int32_t) {
    throw Error(automation::InvalidProcedureCall,
                "The object has no attribute " + std::to_string(id) + " to set.");
}

void PlainObject::IntegerAttribute(std::int32_t id, std::int16_t) { LongAttribute(id, 0); }

Variant PlainObject::Value(std::int32_t index) {
    throw Error(automation::SubscriptOutOfRange, "The object has no value " + std::to_string(index) + ".");
}

void PlainObject::Value(std::int32_t index, const Variant&) { PlainObject::Value(index); }

Variant PlainObject::NamedValue(std::string_view name) {
    throw Error(automation::MemberNotFound,
                "The object has no value named " + automation::Quoted(name) + ".");
}

void PlainObject::DataDef(const Ref&) {
    throw Error(automation::InvalidProcedureCall, "The object takes no definition.");
}

QORObject::Ref PlainObject::AddItem(const Variant&, const Variant&) {
    throw Error(automation::InvalidProcedureCall, "The object is no collection.");
}

std::int32_t PlainObject::ValueIndex(std::string_view fieldName) {
    throw Error(automation::SubscriptOutOfRange,
                "The object has no value stored in column " + automation::Quoted(fieldName) + ".");
}

}  // namespace korvex::persistence
