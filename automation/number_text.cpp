#include "automation/number_text.h"

#include "automation/error.h"
#include "automation/sql_words.h"
#include "automation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace korvex::automation {

namespace {

constexpr int ExponentLimit = 100'000;  ///< beyond any number type; keeps the arithmetic on exponents safe

/// Reads a number from left to right. Every Take function answers whether it found its part and moved past
/// it.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text) : m_rest(text) {}

    /// False when the text is no number.
    bool Read(NumberText& result) {
        TakeBlanks();
        while (!m_rest.empty() && sql::IsBlank(m_rest.back()))
            m_rest.remove_suffix(1);
        if (TakeChar('&')) return ReadBitPattern(result) && m_rest.empty();

        while (TakeSign(result.negative) || TakeOnce('$', m_hasCurrency) || TakeOpening(result.negative)) {
            TakeBlanks();
        }
        if (!ReadDigits(result) || !ReadExponent(result)) return false;
        TakeBlanks();
        while (TakeSign(result.negative) || TakeOnce('$', m_hasCurrency) || TakeClosing())
            TakeBlanks();
        return m_rest.empty() && !m_isOpen;
    }

  private:
    bool TakeChar(char wanted) {
        if (m_rest.empty() || m_rest.front() != wanted) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeAny(std::string_view wanted) {
        return !m_rest.empty() && wanted.find(m_rest.front()) != std::string_view::npos &&
               TakeChar(m_rest.front());
    }
    void TakeBlanks() {
        while (!m_rest.empty() && sql::IsBlank(m_rest.front()))
            m_rest.remove_prefix(1);
    }
    bool TakeOnce(char wanted, bool& taken) {
        if (taken || !TakeChar(wanted)) return false;
        return taken = true;
    }
    bool TakeSign(bool& negative) {
        if (m_hasSign) return false;
        if (TakeChar('-')) return m_hasSign = negative = true;
        return m_hasSign = TakeChar('+');
    }
    bool TakeOpening(bool& negative) {
        if (m_hasParentheses || !TakeChar('(')) return false;
        return m_isOpen = m_hasParentheses = negative = true;
    }
    bool TakeClosing() {
        if (!m_isOpen || !TakeChar(')')) return false;
        m_isOpen = false;
        return true;
    }

    bool ReadBitPattern(NumberText& result) {
        const int base = TakeAny("hH") ? 16 : TakeAny("oO") ? 8 : 0;
        if (base == 0) return false;
        const char* const end = m_rest.data() + m_rest.size();
        const auto [stop, error] = std::from_chars(m_rest.data(), end, result.bits, base);
        if (error == std::errc::result_out_of_range) throw Error(Overflow);
        result.isBitPattern = true;
        m_rest.remove_prefix(static_cast<std::size_t>(stop - m_rest.data()));
        return error == std::errc();
    }

    /// Leading zeros are dropped, also those behind the point: they only move the exponent.
    bool ReadDigits(NumberText& result) {
        bool anyDigit = false;
        bool isFraction = false;
        for (; !m_rest.empty(); m_rest.remove_prefix(1)) {
            const char c = m_rest.front();
            if (IsDigit(c)) {
                anyDigit = true;
                const bool isLeadingZero = c == '0' && result.digits.empty();
                if (!isLeadingZero) result.digits.push_back(c);
                if (isFraction && isLeadingZero) --result.exponent;
                if (!isFraction && !isLeadingZero) ++result.exponent;
            } else if (c == '.' && !isFraction) {
                isFraction = true;
            } else if (c != ',' || isFraction || !anyDigit) {
                break;
            }
        }
        return anyDigit;
    }

    bool ReadExponent(NumberText& result) {
        if (!TakeAny("eEdD")) return true;
        const bool negative = TakeChar('-');
        if (!negative) TakeChar('+');
        if (m_rest.empty() || !IsDigit(m_rest.front())) return false;
        int power = 0;
        for (; !m_rest.empty() && IsDigit(m_rest.front()); m_rest.remove_prefix(1)) {
            power = std::min(power * 10 + (m_rest.front() - '0'), ExponentLimit);
        }
        result.exponent += negative ? -power : power;
        return true;
    }

    std::string_view m_rest;
    bool m_hasSign = false;
    bool m_hasCurrency = false;
    bool m_hasParentheses = false;
    bool m_isOpen = false;
};

/// Whether the digits from `position` on, read as a fraction, round the number before them up.
bool RoundsUp(std::string_view digits, std::size_t position, bool isOdd) {
    if (position >= digits.size() || digits[position] < '5') return false;
    if (digits[position] > '5') return true;
    return isOdd || digits.find_first_not_of('0', position + 1) != std::string_view::npos;
}

/// Puts the plain form of 0.<digits> times ten to the power of `exponent` together.
std::string PlainForm(std::string_view digits, int exponent) {
    if (exponent <= 0) {
        return std::string("0.").append(static_cast<std::size_t>(-exponent), '0').append(digits);
    }
    const auto whole = static_cast<std::size_t>(exponent);
    if (digits.size() <= whole) return std::string(digits).append(whole - digits.size(), '0');
    return std::string(digits.substr(0, whole)).append(".").append(digits.substr(whole));
}

std::string ScientificForm(std::string_view digits, int power) {
    std::string result(digits.substr(0, 1));
    if (digits.size() > 1) result.append(".").append(digits.substr(1));
    result.append(power < 0 ? "E-" : "E+");
    const std::string powerText = std::to_string(std::abs(power));
    if (powerText.size() < 2) result.push_back('0');
    return result.append(powerText);
}

}  // namespace

NumberText ReadNumber(std::string_view text) {
    NumberText result;
    if (!NumberReader(text).Read(result)) throw Error::About(TypeMismatch, Quoted(text) + " is not a number");
    return result;
}

double NearestDouble(const NumberText& number) {
    if (number.isBitPattern) return static_cast<double>(number.bits);
    if (number.digits.empty()) return 0;
    const std::string plain = "0." + number.digits + "e" + std::to_string(number.exponent);
    double value = 0;
    const auto [stop, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (error == std::errc::result_out_of_range) {
        if (number.exponent > 0) throw Error(Overflow);
        value = 0;
    }
    return number.negative ? -value : value;
}

std::int64_t ScaledWhole(const NumberText& number, int scale) {
    constexpr std::size_t mostDigits = 19;  // of a 64-bit number
    const std::string_view digits = number.digits;
    const int wholeDigits = number.exponent + scale;
    if (digits.empty() || wholeDigits < 0) return 0;
    const auto whole = static_cast<std::size_t>(wholeDigits);
    if (whole > mostDigits) throw Error(Overflow);

    std::uint64_t magnitude = 0;
    for (std::size_t i = 0; i < whole; ++i) {
        magnitude = magnitude * 10 + static_cast<std::uint64_t>(i < digits.size() ? digits[i] - '0' : 0);
    }
    if (RoundsUp(digits, whole, magnitude % 2 != 0)) ++magnitude;

    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (magnitude > largest + (number.negative ? 1 : 0)) throw Error(Overflow);
    return static_cast<std::int64_t>(number.negative ? 0 - magnitude : magnitude);
}

std::string FormatReal(double value, int precision) {
    if (std::isnan(value)) return "1.#QNAN";
    if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
    if (value == 0) return "0";

    // More than the digits at any precision in use, the point and the exponent.
    std::array<char, 40> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                       std::chars_format::scientific, precision - 1);
    // "d.ddde-xx": without the point these are the digits, with the value's decimal power behind the "e".
    char* const exponentMark = std::find(buffer.data(), written.ptr, 'e');
    int power = 0;
    const char* powerText = exponentMark + (exponentMark[1] == '+' ? 2 : 1);
    std::from_chars(powerText, written.ptr, power);
    buffer[1] = buffer[0];
    std::string_view digits(buffer.data() + 1, exponentMark);
    digits = digits.substr(0, digits.find_last_not_of('0') + 1);

    const int places = static_cast<int>(digits.size()) - 1 - power;
    const bool isPlain = power < precision && places <= precision;
    const std::string magnitude = isPlain ? PlainForm(digits, power + 1) : ScientificForm(digits, power);
    return value < 0 ? "-" + magnitude : magnitude;
}

std::string FormatTenThousandths(std::int64_t units) {
    constexpr std::uint64_t one = 10'000;
    const auto bits = static_cast<std::uint64_t>(units);
    const std::uint64_t magnitude = units < 0 ? 0 - bits : bits;
    std::string result = (units < 0 ? "-" : "") + std::to_string(magnitude / one);
    if (magnitude % one == 0) return result;
    const std::string fraction = std::to_string(one + magnitude % one).substr(1);
    return result.append(".").append(fraction, 0, fraction.find_last_not_of('0') + 1);
}

}  // namespace korvex::automation
