#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace korvex::automation {

class Object;
/// A counted reference to an automation object; a null reference is the automation value Nothing.
using ObjectRef = std::shared_ptr<Object>;
/// Binary data (an automation array of bytes).
using Bytes = std::vector<std::uint8_t>;

/// Type numbers of automation variants (the VARTYPE values of the platform).
enum class VarType : std::uint16_t {
    Empty = 0,      ///< never set
    Null = 1,       ///< SQL's NULL
    Integer = 2,    ///< 16-bit signed
    Long = 3,       ///< 32-bit signed
    Single = 4,     ///< 32-bit floating point
    Double = 5,     ///< 64-bit floating point
    Currency = 6,   ///< automation::Currency
    Date = 7,       ///< automation::Date
    String = 8,     ///< text
    Object = 9,     ///< a reference, Nothing included
    Missing = 10,   ///< an omitted optional argument (the runtime's "parameter not found" error value)
    Boolean = 11,   ///< True or False
    Variant = 12,   ///< only as the declared type of a parameter or result: any value
    Byte = 17,      ///< 8-bit unsigned
    LongLong = 20,  ///< 64-bit signed
    Void = 24,      ///< only as a declared result type: no result
    Bytes = 8209,   ///< array of bytes
};

/// The value of a variable that was never set.
struct EmptyValue {
    friend bool operator==(EmptyValue, EmptyValue) = default;
};
/// The value of a column that holds none.
struct NullValue {
    friend bool operator==(NullValue, NullValue) = default;
};
/// The value of an optional argument that was left out.
struct MissingValue {
    friend bool operator==(MissingValue, MissingValue) = default;
};

/// Fixed-point money: `units` are ten-thousandths.
struct Currency {
    std::int64_t units = 0;  ///< ten-thousandths: 12345 is 1.2345
    friend bool operator==(Currency, Currency) = default;
};

/// Days since 1899-12-30 00:00; the fraction is the time of day (for negative values too, it counts
/// forward from midnight, as the automation runtime has it).
struct Date {
    double days = 0;  ///< 2.5 is 1900-01-01 12:00; -1.25 is 1899-12-29 06:00
    friend bool operator==(Date, Date) = default;
};

/// A value of any automation type. Text is UTF-8. Copying copies the value; objects are shared.
/// `==` compares type and value exactly, without conversion.
class Variant {
  public:
    /// What a value is kept as: one C++ type for each automation type that a value can have.
    using Storage =
        std::variant<EmptyValue, NullValue, MissingValue, bool, std::uint8_t, std::int16_t, std::int32_t,
                     std::int64_t, float, double, Currency, Date, std::string, Bytes, ObjectRef>;

    /// Empty.
    Variant() noexcept : m_value() {}
    /// Copies the value; an object is shared.
    Variant(const Variant& other) : m_value(other.m_value) {}
    /// Takes the value over; what is left behind is of the same type.
    Variant(Variant&& other) noexcept : m_value(std::move(other.m_value)) {}
    /// Copies the value; an object is shared.
    Variant& operator=(const Variant& other) {
        m_value = other.m_value;
        return *this;
    }
    /// Takes the value over; what is left behind is of the same type.
    Variant& operator=(Variant&& other) noexcept {
        m_value = std::move(other.m_value);
        return *this;
    }
    ~Variant() {
        if (OwnsMemory()) m_value.~Storage();
    }
    /// A value of the automation type that the C++ type stands for; numbers keep their width, and a literal
    /// such as 5 is a Long.
    Variant(NullValue value) : m_value(value) {}
    Variant(MissingValue value) : m_value(value) {}
    template <std::same_as<bool> T>
    Variant(T value) : m_value(value) {}
    Variant(std::uint8_t value) : m_value(value) {}
    Variant(std::int16_t value) : m_value(value) {}
    Variant(std::int32_t value) : m_value(value) {}
    Variant(std::int64_t value) : m_value(value) {}
    Variant(float value) : m_value(value) {}
    Variant(double value) : m_value(value) {}
    Variant(Currency value) : m_value(value) {}
    Variant(Date value) : m_value(value) {}
    Variant(std::string value) : m_value(std::move(value)) {}
    Variant(std::string_view value) : m_value(std::in_place_type<std::string>, value) {}
    Variant(const char* value) : m_value(std::in_place_type<std::string>, value) {}
    Variant(Bytes value) : m_value(std::move(value)) {}
    Variant(ObjectRef value) : m_value(std::move(value)) {}
    template <std::derived_from<Object> T>
    Variant(std::shared_ptr<T> value) : m_value(ObjectRef(std::move(value))) {}

    /// SQL's NULL.
    static Variant Null() { return NullValue{}; }
    /// Stands for an optional argument that the caller left out.
    static Variant Missing() { return MissingValue{}; }

    /// The type of the value held; never VarType::Variant or VarType::Void.
    VarType Type() const noexcept { return Types[m_value.index()]; }
    /// Whether the value was never set.
    bool IsEmpty() const noexcept { return Holds<EmptyValue>(); }
    /// Whether the value is Null, which IsEmpty is not.
    bool IsNull() const noexcept { return Holds<NullValue>(); }
    /// Whether an optional argument was left out.
    bool IsMissing() const noexcept { return Holds<MissingValue>(); }
    /// Whether the value is a text.
    bool IsString() const noexcept { return Holds<std::string>(); }
    /// Whether the value is a reference to an object, Nothing included.
    bool IsObject() const noexcept { return Holds<ObjectRef>(); }
    /// Whether the value is a reference to no object.
    bool IsNothing() const noexcept { return IsObject() && std::get<ObjectRef>(m_value) == nullptr; }

    /// Whether the stored value is exactly a T, one of the types of Storage.
    template <class T>
    bool Holds() const noexcept {
        return std::holds_alternative<T>(m_value);
    }
    /// The stored value when it is exactly a T, else a null pointer.
    template <class T>
    const T* If() const noexcept {
        return std::get_if<T>(&m_value);
    }
    template <class T>
    T* If() noexcept {
        return std::get_if<T>(&m_value);
    }

    /// What is stored, for std::visit.
    const Storage& Value() const noexcept { return m_value; }

    /// Whether type and value are exactly the same; objects by identity.
    friend bool operator==(const Variant& left, const Variant& right) {
        return left.m_value == right.m_value;
    }

  private:
    /// In the order of the alternatives of Storage.
    static constexpr std::array Types = {
        VarType::Empty,    VarType::Null, VarType::Missing,  VarType::Boolean, VarType::Byte,
        VarType::Integer,  VarType::Long, VarType::LongLong, VarType::Single,  VarType::Double,
        VarType::Currency, VarType::Date, VarType::String,   VarType::Bytes,   VarType::Object};
    static_assert(Types.size() == std::variant_size_v<Storage>);

    /// Texts, bytes and objects stand behind all others.
    bool OwnsMemory() const noexcept { return m_value.index() >= FirstOwner; }
    static constexpr std::size_t FirstOwner = std::variant_size_v<Storage> - 3;
    static_assert(std::is_same_v<std::variant_alternative_t<FirstOwner, Storage>, std::string>);

    /// In a union, so that no destructor runs for the many values that own nothing.
    union {
        Storage m_value;
    };
};

}  // namespace korvex::automation
