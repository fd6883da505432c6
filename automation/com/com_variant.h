#pragma once

#include "automation/com/com_ptr.h"
#include "automation/variant.h"

#include <windows.h>

#include <oleauto.h>

/// The one place where automation values cross the COM border, both ways.
namespace korvex::com {

/// An owned VARIANT.
class ComVariant {
  public:
    ComVariant() noexcept { VariantInit(&m_value); }
    /// Raises OutOfMemory (7), or TypeMismatch (13) for what no VARIANT holds.
    explicit ComVariant(const automation::Variant& value);
    ComVariant(ComVariant&& other) noexcept : ComVariant() { std::swap(m_value, other.m_value); }
    ComVariant& operator=(ComVariant&& other) noexcept {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~ComVariant() { VariantClear(&m_value); }

    VARIANT& Value() noexcept { return m_value; }
    const VARIANT& Value() const noexcept { return m_value; }
    VARIANT* operator&() noexcept { return &m_value; }
    /// Gives the contents away, bit by bit, as a result argument receives them.
    VARIANT Detach() noexcept {
        const VARIANT value = m_value;
        VariantInit(&m_value);
        return value;
    }

  private:
    VARIANT m_value;
};

/// What a caller's VARIANT holds, by-reference variants followed. A host's object becomes an object that is
/// called by name; one of this library's comes back as itself. Integers that the library has no type for
/// become the next larger one, a Decimal becomes the smallest number type that holds it exactly, else a
/// Double. Raises TypeMismatch (13) for types that no automation value has (records, arrays other than of
/// bytes).
automation::Variant FromVariant(const VARIANT& value);

/// Puts `value` into the caller's by-reference variable, converted to the variable's type; an earlier content
/// is let go.
void WriteBack(VARIANT& variable, const automation::Variant& value);

/// An object given to a host: a host's own object as it was given, one of this library's behind a dispatch
/// interface. The caller owns the reference; nullptr for Nothing. Raises TypeMismatch (13) for an object that
/// has no member table.
ComPtr<IDispatch> ToDispatch(const automation::ObjectRef& object);

/// A host's object as an automation object; Nothing for nullptr. One of this library's comes back as itself,
/// and the reference remembers the host's: wherever it is kept, ToDispatch gives the host the very object
/// again.
automation::ObjectRef FromDispatch(IDispatch* object);

}  // namespace korvex::com
