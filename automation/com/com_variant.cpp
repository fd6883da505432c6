#include "automation/com/com_variant.h"

#include "automation/com/bstr.h"
#include "automation/com/host_object.h"
#include "automation/com/shell.h"
#include "automation/convert.h"
#include "automation/error.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <utility>
#include <variant>

namespace korvex::com {

namespace {

using automation::Bytes;
using automation::Error;
using automation::ObjectRef;
using automation::Variant;
using automation::VarType;

/// Lets go of an object of this library that came from a host: of the host's reference, which keeps it.
struct HostReference {
    ComPtr<IDispatch> shell;
    void operator()(automation::Object*) noexcept { shell = {}; }
};

/// The elements of a safe array of bytes while it is locked.
class ByteAccess {
  public:
    explicit ByteAccess(SAFEARRAY* array) : m_array(array) {
        if (FAILED(SafeArrayAccessData(array, &m_data))) throw Error(automation::OutOfMemory);
    }
    ByteAccess(const ByteAccess&) = delete;
    ByteAccess& operator=(const ByteAccess&) = delete;
    ~ByteAccess() { SafeArrayUnaccessData(m_array); }

    std::uint8_t* Data() const noexcept { return static_cast<std::uint8_t*>(m_data); }

  private:
    SAFEARRAY* m_array;
    void* m_data = nullptr;
};

Bytes FromByteArray(SAFEARRAY* array) {
    if (array == nullptr) return {};
    LONG first = 0;
    LONG last = -1;
    if (SafeArrayGetDim(array) != 1) throw Error(automation::TypeMismatch);
    SafeArrayGetLBound(array, 1, &first);
    SafeArrayGetUBound(array, 1, &last);
    const ByteAccess access(array);
    return Bytes(access.Data(), access.Data() + (last - first + 1));
}

SAFEARRAY* ToByteArray(const Bytes& bytes) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (array == nullptr) throw Error(automation::OutOfMemory);
    if (!bytes.empty()) std::memcpy(ByteAccess(array).Data(), bytes.data(), bytes.size());
    return array;
}

/// An integer that fits neither the library's own types nor a 64-bit one becomes a Double.
Variant FromUnsigned(std::uint64_t value) {
    if (value <= std::numeric_limits<std::int32_t>::max()) return static_cast<std::int32_t>(value);
    if (value <= std::numeric_limits<std::int64_t>::max()) return static_cast<std::int64_t>(value);
    return static_cast<double>(value);
}

/// Engines answer exact numeric columns as Decimal.
Variant FromDecimal(const DECIMAL& value) {
    VARIANT decimal;
    VariantInit(&decimal);
    decimal.decVal = value;
    decimal.vt = VT_DECIMAL;
    for (const VARTYPE type : {static_cast<VARTYPE>(VT_I4), static_cast<VARTYPE>(VT_I8)}) {
        ComVariant integer;
        ComVariant back;
        const bool isExact =
            SUCCEEDED(VariantChangeType(&integer, &decimal, 0, type)) &&
            SUCCEEDED(VariantChangeType(&back, &integer.Value(), 0, VT_DECIMAL)) &&
            VarDecCmp(&decimal.decVal, &back.Value().decVal) == static_cast<HRESULT>(VARCMP_EQ);
        if (isExact) return FromVariant(integer.Value());
    }
    double number = 0;
    if (FAILED(VarR8FromDec(&decimal.decVal, &number))) throw Error(automation::Overflow);
    return number;
}

Variant FromUnknown(IUnknown* object) {
    if (object == nullptr) return ObjectRef();
    const auto dispatch = ComPtr<IUnknown>(object).As<IDispatch>();
    if (!dispatch) throw Error(automation::TypeMismatch, "The object offers no automation interface");
    return FromDispatch(dispatch.Get());
}

Variant FromErrorValue(SCODE code) {
    if (code == DISP_E_PARAMNOTFOUND) return Variant::Missing();
    throw Error(automation::TypeMismatch);
}

Variant FromReference(const VARIANT& reference) {
    if (reference.byref == nullptr) throw Error(automation::TypeMismatch);
    if (reference.vt == (VT_BYREF | VT_VARIANT)) return FromVariant(*reference.pvarVal);
    ComVariant value;
    if (FAILED(VariantCopyInd(&value, const_cast<VARIANT*>(&reference))))
        throw Error(automation::TypeMismatch);
    return FromVariant(value.Value());
}

/// Puts the contents of one held value into an empty VARIANT.
struct Filler {
    VARIANT& out;

    void operator()(automation::EmptyValue) const {}
    void operator()(automation::NullValue) const {}
    void operator()(automation::MissingValue) const { out.scode = DISP_E_PARAMNOTFOUND; }
    void operator()(bool value) const { out.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; }
    void operator()(std::uint8_t value) const { out.bVal = value; }
    void operator()(std::int16_t value) const { out.iVal = value; }
    void operator()(std::int32_t value) const { out.lVal = value; }
    void operator()(std::int64_t value) const { out.llVal = value; }
    void operator()(float value) const { out.fltVal = value; }
    void operator()(double value) const { out.dblVal = value; }
    void operator()(automation::Currency value) const { out.cyVal.int64 = value.units; }
    void operator()(automation::Date value) const { out.date = value.days; }
    void operator()(const std::string& value) const { out.bstrVal = ToBstr(value); }
    void operator()(const Bytes& value) const { out.parray = ToByteArray(value); }
    void operator()(const ObjectRef& value) const { out.pdispVal = ToDispatch(value).Detach(); }
};

bool IsOneOf(VARTYPE type, std::initializer_list<VARTYPE> types) noexcept {
    return std::ranges::find(types, type) != types.end();
}

/// Whether the library's own conversions give that type; the system's give the others.
bool IsOwnType(VARTYPE type) noexcept {
    return IsOneOf(type, {VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BSTR, VT_DISPATCH, VT_BOOL, VT_UI1,
                          VT_I8, VT_ARRAY | VT_UI1});
}

/// `value` as a VARIANT of that very type.
ComVariant Converted(const Variant& value, VARTYPE type) {
    if (IsOwnType(type)) return ComVariant(automation::ChangeType(value, static_cast<VarType>(type)));
    ComVariant given(value);
    ComVariant converted;
    const HRESULT result = VariantChangeType(&converted, &given, 0, type);
    if (result == DISP_E_OVERFLOW) throw Error(automation::Overflow);
    if (FAILED(result)) throw Error(automation::TypeMismatch);
    return converted;
}

std::size_t SizeOf(VARTYPE type) {
    if (IsOneOf(type, {VT_I1, VT_UI1})) return 1;
    if (IsOneOf(type, {VT_I2, VT_UI2, VT_BOOL})) return 2;
    if (IsOneOf(type, {VT_I4, VT_UI4, VT_INT, VT_UINT, VT_R4})) return 4;
    if (IsOneOf(type, {VT_I8, VT_UI8, VT_R8, VT_CY, VT_DATE})) return 8;
    const bool isPointer = (type & VT_ARRAY) != 0 || IsOneOf(type, {VT_BSTR, VT_DISPATCH, VT_UNKNOWN});
    if (isPointer) return sizeof(void*);
    throw Error(automation::TypeMismatch);
}

/// What a by-reference VARIANT refers to, for the contents of `value`; both have the same type.
void SwapContents(VARIANT& reference, VARIANT& value) {
    if (value.vt == VT_DECIMAL) {
        // A Decimal lies over the whole VARIANT: its reserved word is the VARIANT's type.
        const auto reserved = reference.pdecVal->wReserved;
        *reference.pdecVal = value.decVal;
        reference.pdecVal->wReserved = reserved;
        return;
    }
    auto* target = static_cast<std::uint8_t*>(reference.byref);
    std::swap_ranges(target, target + SizeOf(value.vt), reinterpret_cast<std::uint8_t*>(&value.byref));
}

}  // namespace

// The type of a value is its VARTYPE, too. It comes last, so that contents which could not be made are not
// freed.
ComVariant::ComVariant(const Variant& value) : ComVariant() {
    std::visit(Filler{m_value}, value.Value());
    m_value.vt = static_cast<VARTYPE>(value.Type());
}

Variant FromVariant(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0) return FromReference(value);
    switch (value.vt) {
        case VT_EMPTY:
            return {};
        case VT_NULL:
            return Variant::Null();
        case VT_ERROR:
            return FromErrorValue(value.scode);
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE;
        case VT_UI1:
            return static_cast<std::uint8_t>(value.bVal);
        case VT_I1:
            return static_cast<std::int16_t>(value.cVal);
        case VT_I2:
            return static_cast<std::int16_t>(value.iVal);
        case VT_UI2:
            return static_cast<std::int32_t>(value.uiVal);
        case VT_I4:
        case VT_INT:
            return static_cast<std::int32_t>(value.lVal);
        case VT_UI4:
        case VT_UINT:
            return FromUnsigned(value.ulVal);
        case VT_I8:
            return static_cast<std::int64_t>(value.llVal);
        case VT_UI8:
            return FromUnsigned(value.ullVal);
        case VT_R4:
            return value.fltVal;
        case VT_R8:
            return value.dblVal;
        case VT_CY:
            return automation::Currency{value.cyVal.int64};
        case VT_DATE:
            return automation::Date{value.date};
        case VT_DECIMAL:
            return FromDecimal(value.decVal);
        case VT_BSTR:
            return FromBstr(value.bstrVal);
        case VT_DISPATCH:
            return FromDispatch(value.pdispVal);
        case VT_UNKNOWN:
            return FromUnknown(value.punkVal);
        case VT_ARRAY | VT_UI1:
            return FromByteArray(value.parray);
        default:
            throw Error(automation::TypeMismatch);
    }
}

void WriteBack(VARIANT& variable, const Variant& value) {
    const auto type = static_cast<VARTYPE>(variable.vt & ~VT_BYREF);
    if (type != VT_VARIANT) {
        ComVariant replacement = Converted(value, type);
        SwapContents(variable, replacement.Value());
    } else if ((variable.pvarVal->vt & VT_BYREF) != 0) {
        WriteBack(*variable.pvarVal, value);
    } else {
        ComVariant replacement(value);
        std::swap(*variable.pvarVal, replacement.Value());
    }
}

ComPtr<IDispatch> ToDispatch(const ObjectRef& object) {
    if (object == nullptr) return {};
    if (const auto* host = dynamic_cast<const HostBacked*>(object.get())) {
        return ComPtr<IDispatch>(host->HostDispatch());
    }
    if (const auto* held = std::get_deleter<HostReference>(object)) return held->shell;
    auto table = std::dynamic_pointer_cast<automation::TableObject>(object);
    if (table == nullptr) throw Error(automation::TypeMismatch);
    return WrapObject(std::move(table));
}

ObjectRef FromDispatch(IDispatch* object) {
    if (object == nullptr) return {};
    ComPtr<IDispatch> host(object);
    const auto own = host.As<IAutomationObject>();
    ObjectRef result;
    if (own && own->GetAutomationObject(ModuleTag(), &result) == S_OK) {
        return ObjectRef(result.get(), HostReference{std::move(host)});
    }
    return std::make_shared<HostObject>(std::move(host));
}

}  // namespace korvex::com
