#include "automation/variant.h"

#include <array>
#include <variant>

namespace korvex::automation {

VarType Variant::Type() const noexcept {
    // In the order of the alternatives of Storage.
    static constexpr std::array types = {
        VarType::Empty,    VarType::Null, VarType::Missing,  VarType::Boolean, VarType::Byte,
        VarType::Integer,  VarType::Long, VarType::LongLong, VarType::Single,  VarType::Double,
        VarType::Currency, VarType::Date, VarType::String,   VarType::Bytes,   VarType::Object};
    static_assert(types.size() == std::variant_size_v<Storage>);
    return types[m_value.index()];
}

}  // namespace korvex::automation
