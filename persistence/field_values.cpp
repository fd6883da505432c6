#include "persistence/field_values.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "persistence/definition_walk.h"

namespace korvex::persistence {

using automation::Variant;

namespace {

bool IsZero(const Variant& stored) {
    return !stored.IsString() && !stored.Holds<automation::Bytes>() && automation::ToDouble(stored) == 0;
}

template <class Action>
bool Succeeds(Action&& action) {
    try {
        action();
        return true;
    } catch (const automation::Error&) {
        return false;
    }
}

bool TryWrite(ado::Field& field, const Variant& value) {
    return Succeeds([&] { field.Value(value); });
}

/// False for a column that takes neither, a binary one.
bool WriteBlank(ado::Field& field) {
    return (field.TakesBlankText() && TryWrite(field, "")) || TryWrite(field, std::int16_t{0});
}

bool IsTextUpTo(const Variant& value, std::int32_t definedSize) {
    const auto* text = value.If<std::string>();
    return text != nullptr && automation::Length(*text) <= static_cast<std::size_t>(definedSize);
}

/// `value` as a text column of limited length takes it; the rest is cut off.
std::string CutText(const Variant& value, std::int32_t definedSize) {
    std::string text = automation::ToString(value);
    const auto kept = automation::Left(text, static_cast<std::size_t>(definedSize)).size();
    text.resize(kept);
    return text;
}

void WriteValue(ado::Field& field, const Variant& value) {
    if (IsBlank(value))
        WriteBlank(field);  // what takes no blank stays as the database fills it
    else if ((field.Attributes() & ado::adFldLong) != 0)
        field.AppendChunk(value);
    else if (field.Type() == ado::adVarChar && !IsTextUpTo(value, field.DefinedSize()))
        field.Value(CutText(value, field.DefinedSize()));
    else
        field.Value(value);
}

bool SameInField(ado::Field& field, const Variant& value) {
    const Variant stored = field.WholeValue();
    if (!IsBlank(value) && field.Type() == ado::adVarChar)
        return SameAsStored(stored, CutText(value, field.DefinedSize()));
    return SameAsStored(stored, value);
}

/// A table that was made before the other parent was defined has no column for it.
bool HasColumn(ado::Recordset& records, const std::string& column) {
    return Succeeds([&] { records.Fields(column); });
}

bool UpdateLink(ado::Field& field, const Variant& parentKey) {
    if (parentKey.IsMissing() || SameAsStored(field.Value(), parentKey)) return false;
    field.Value(parentKey);
    return true;
}

/// The object says nothing of that parent while the value is Empty.
bool UpdateOptionalLink(const PlainValue& value, QORObject& coData, ado::Recordset& records) {
    const Variant carried = coData.Value(value.index);
    if (carried.IsEmpty()) return false;
    return UpdateLink(*records.Fields(value.column), ToKey(carried) < 1 ? Variant::Null() : carried);
}

}  // namespace

bool SameAsStored(const Variant& stored, const Variant& value) {
    if (IsBlank(value)) return IsBlank(stored) || IsZero(stored);
    if (IsEmptyOrNull(stored)) return false;
    try {
        const Variant converted = automation::ChangeType(value, stored.Type());
        if (const auto* date = stored.If<automation::Date>())  // engines keep milliseconds, no finer
            return automation::ToMilliseconds(*date) ==
                   automation::ToMilliseconds(*converted.If<automation::Date>());
        return converted == stored;
    } catch (const automation::Error&) {
        return false;  // what cannot be compared is written, and the engine judges it
    }
}

void LoadFieldValue(QORObject& coData, const PlainValue& value, ado::Recordset& records) {
    if (!value.IsStored() || (value.isOptionalLink && !HasColumn(records, value.column))) return;
    coData.MoveValue(value.index, records.FieldValue(value.column));
}

void WriteFieldValue(const PlainValue& value, QORObject& coData, ado::Recordset& records,
                     const ParentLink& parent) {
    if (!value.IsStored() || (value.isOptionalLink && ToKey(coData.Value(value.index)) < 1)) return;
    const auto field = records.Fields(value.column);
    if (value.column == parent.column) {
        if (field->Value().IsEmpty()) field->Value(parent.value);
    } else if (!value.isAutoNumber) {
        WriteValue(*field, coData.Value(value.index));
    }
}

bool UpdateFieldValue(const PlainValue& value, QORObject& coData, ado::Recordset& records,
                      const std::string& ownKey, const ParentLink& parent) {
    if (!value.IsStored() || value.column == ownKey || value.isAutoNumber) return false;
    if (value.isOptionalLink) return UpdateOptionalLink(value, coData, records);
    const auto field = records.Fields(value.column);
    if (value.column == parent.column) return UpdateLink(*field, parent.value);
    const Variant carried = coData.Value(value.index);
    if (SameInField(*field, carried)) return false;
    if (!IsBlank(carried))
        WriteValue(*field, carried);
    else if (!WriteBlank(*field))
        field->Value(Variant::Null());  // nothing else empties what is stored there
    return true;
}

}  // namespace korvex::persistence
