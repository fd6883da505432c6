#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as text, both ways, as the automation runtime reads and writes them. For convert.cpp; everyone
/// else converts through convert.h.
namespace korvex::automation {

/// A text that was read as a number.
struct NumberText {
    /// "&H" and "&O" literals are bit patterns: they take the sign of the integer type they are read into.
    bool isBitPattern = false;
    std::uint64_t bits = 0;

    /// Decimal numbers: 0.<digits> times ten to the power of `exponent`. No digits stand for zero.
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

/// Reads `text`; TypeMismatch (13) unless all of it is one number. Beyond the plain forms the runtime takes
/// thousands commas between the digits of the whole part, a "$", a sign at the end, parentheses for a
/// negative number, and "D" for the exponent.
NumberText ReadNumber(std::string_view text);

/// The nearest double; Overflow (6) when there is none.
double NearestDouble(const NumberText& number);

/// The number times ten to the power of `scale`, rounded half to even without going through a double;
/// Overflow (6) outside 64 bits.
std::int64_t ScaledWhole(const NumberText& number, int scale);

/// `value` with at most `precision` significant digits: plain as long as no more than `precision` places
/// stand on either side of the decimal point, else as "1.5E+15", "3.33333333333333E-02".
std::string FormatReal(double value, int precision);

/// A fixed-point number of `units` ten-thousandths.
std::string FormatTenThousandths(std::int64_t units);

}  // namespace korvex::automation
