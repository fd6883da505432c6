#include "automation/date_text.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>

namespace korvex::automation {

namespace {

constexpr std::int64_t MsPerSecond = 1000;
constexpr std::int64_t MsPerMinute = 60 * MsPerSecond;
constexpr std::int64_t MsPerHour = 60 * MsPerMinute;
constexpr std::int64_t MsPerDay = 24 * MsPerHour;

constexpr std::chrono::sys_days DayZero = std::chrono::year(1899) / 12 / 30;
constexpr double FirstDay = -657434;  ///< 0100-01-01
constexpr double LastDay = 2958465;   ///< 9999-12-31

constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool IsLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// A date taken apart: the day, counted from day zero, and the milliseconds since its midnight.
struct Moment {
    int day = 0;
    std::int64_t ms = 0;

    std::chrono::year_month_day Calendar() const { return DayZero + std::chrono::days(day); }
    Date Join() const {
        const double time = static_cast<double>(ms) / static_cast<double>(MsPerDay);
        return Date{day < 0 ? day - time : day + time};
    }
};

/// Rounds to multiples of `resolution` milliseconds; rounding up at the end of a day reaches the next one.
Moment Split(Date date, std::int64_t resolution) {
    if (!IsDateInRange(date)) throw Error(Overflow);
    const std::int64_t partsPerDay = MsPerDay / resolution;
    const double wholeDays = std::trunc(date.days);
    const double exact = std::abs(date.days - wholeDays) * static_cast<double>(partsPerDay);
    std::int64_t ms = std::llround(exact) * resolution;
    auto day = static_cast<int>(wholeDays);
    if (ms >= MsPerDay) {
        ms -= MsPerDay;
        ++day;
    }
    return {day, ms};
}

/// Nothing when there is no such day within the range of automation dates.
std::optional<Date> Join(int year, int month, int day, std::int64_t ms) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const auto calendarDay = std::chrono::year(year) / month / day;
    if (!calendarDay.ok()) return std::nullopt;
    return Moment{static_cast<int>((std::chrono::sys_days(calendarDay) - DayZero).count()), ms}.Join();
}

void AppendPadded(std::string& text, std::int64_t number, std::size_t width) {
    std::array<char, 20> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (length < width) text.append(width - length, '0');
    text.append(digits.data(), length);
}

std::string FormatTime(std::int64_t ms) {
    const std::int64_t hour = ms / MsPerHour;
    std::string text = std::to_string(hour % 12 == 0 ? 12 : hour % 12);
    text.push_back(':');
    AppendPadded(text, ms / MsPerMinute % 60, 2);
    text.push_back(':');
    AppendPadded(text, ms / MsPerSecond % 60, 2);
    return text.append(hour < 12 ? " AM" : " PM");
}

[[noreturn]] void RaiseNotADate(std::string_view text) {
    throw Error(TypeMismatch, "Type mismatch: " + Quoted(text) + " is not a date");
}

/// Takes parts off the front of a text; what does not fit is left where it is.
class TextReader {
  public:
    explicit TextReader(std::string_view text) : m_rest(text) {}

    bool AtEnd() const noexcept { return m_rest.empty(); }
    bool AtDigit() const noexcept { return !m_rest.empty() && IsDigit(m_rest.front()); }

    bool Take(char wanted) {
        if (m_rest.empty() || m_rest.front() != wanted) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeAny(std::string_view wanted) {
        return !m_rest.empty() && wanted.find(m_rest.front()) != std::string_view::npos &&
               Take(m_rest.front());
    }
    void SkipBlanks() {
        while (Take(' ')) {
        }
    }
    std::string_view TakeDigits() { return TakeWhile(IsDigit); }
    std::string_view TakeWord() { return TakeWhile(IsLetter); }
    /// A number of exactly `digits` digits.
    std::optional<int> TakeNumber(std::size_t digits) {
        const std::string_view text = TakeDigits();
        if (text.size() != digits) return std::nullopt;
        return NumberIn(text);
    }
    /// AM or PM, with or without blanks before it; nothing is taken when it is neither.
    std::optional<bool> TakeIsAfternoon() {
        TextReader ahead = *this;
        ahead.SkipBlanks();
        const std::string_view word = ahead.TakeWord();
        const bool isAfternoon = EqualsIgnoreCase(word, "PM");
        if (!isAfternoon && !EqualsIgnoreCase(word, "AM")) return std::nullopt;
        *this = ahead;
        return isAfternoon;
    }

    /// The value of a few digits; -1, which is no part of any date, when it does not fit.
    static int NumberIn(std::string_view digits) noexcept {
        int number = -1;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        return number;
    }

  private:
    std::string_view TakeWhile(bool (*test)(char)) {
        const auto* const stop = std::find_if_not(m_rest.begin(), m_rest.end(), test);
        const std::string_view taken(m_rest.begin(), stop);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    std::string_view m_rest;
};

/// "08:30", "08:30:00", "08:30:00.250"; the reader must end with it.
std::optional<std::int64_t> ReadIsoTime(TextReader& reader) {
    const auto hour = reader.TakeNumber(2);
    if (!hour || *hour > 23 || !reader.Take(':')) return std::nullopt;
    const auto minute = reader.TakeNumber(2);
    if (!minute || *minute > 59) return std::nullopt;
    std::int64_t ms = *hour * MsPerHour + *minute * MsPerMinute;
    if (reader.Take(':')) {
        const auto second = reader.TakeNumber(2);
        if (!second || *second > 59) return std::nullopt;
        ms += *second * MsPerSecond;
        if (reader.Take('.')) {
            std::string fraction(reader.TakeDigits());
            if (fraction.empty()) return std::nullopt;
            fraction.resize(3, '0');
            ms += TextReader::NumberIn(fraction);
        }
    }
    if (!reader.AtEnd()) return std::nullopt;
    return ms;
}

std::optional<Date> ReadIsoDate(std::string_view text) {
    TextReader reader(text);
    const auto year = reader.TakeNumber(4);
    if (!year || !reader.Take('-')) return std::nullopt;
    const auto month = reader.TakeNumber(2);
    if (!month || !reader.Take('-')) return std::nullopt;
    const auto day = reader.TakeNumber(2);
    if (!day) return std::nullopt;
    if (reader.AtEnd()) return Join(*year, *month, *day, 0);
    if (!reader.TakeAny("T ")) return std::nullopt;
    const auto ms = ReadIsoTime(reader);
    if (!ms) return std::nullopt;
    return Join(*year, *month, *day, *ms);
}

/// 1 to 12 for the English name of a month or its first three letters.
std::optional<int> MonthOf(std::string_view word) noexcept {
    static constexpr std::array<std::string_view, 12> names = {
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (EqualsIgnoreCase(word, names[i]) || EqualsIgnoreCase(word, names[i].substr(0, 3))) {
            return static_cast<int>(i) + 1;
        }
    }
    return std::nullopt;
}

/// Reads the loose forms part by part: numbers, a month's name and a time of day in any order.
class LooseDateReader {
  public:
    explicit LooseDateReader(std::string_view text) : m_reader(text) {}

    std::optional<Date> Read() {
        bool expectsMore = true;  // at the start and behind a separator
        while (m_reader.SkipBlanks(), !m_reader.AtEnd()) {
            if (!ReadPart()) return std::nullopt;
            m_reader.SkipBlanks();
            expectsMore = m_reader.TakeAny("/-,");
        }
        if (expectsMore) return std::nullopt;
        if (m_numberCount == 0 && !m_month && m_time) return Date{static_cast<double>(*m_time) / MsPerDay};
        return JoinParts();
    }

  private:
    struct Number {
        int value = 0;
        std::size_t digits = 0;

        bool IsYear() const noexcept { return digits > 2 || value > 31; }
        int AsYear() const noexcept {
            if (digits > 2) return value;
            return value < 30 ? 2000 + value : 1900 + value;
        }
    };

    bool ReadPart() {
        if (!m_reader.AtDigit()) {
            if (m_month) return false;
            m_month = MonthOf(m_reader.TakeWord());
            return m_month.has_value();
        }
        const std::string_view digits = m_reader.TakeDigits();
        const int number = TextReader::NumberIn(digits);
        if (m_reader.Take(':')) return ReadTimeAfterHour(number);
        if (const auto isAfternoon = m_reader.TakeIsAfternoon()) {
            return SetTime(number, isAfternoon, 0);
        }
        if (m_numberCount == m_numbers.size()) return false;
        m_numbers[m_numberCount++] = {number, digits.size()};
        return true;
    }

    bool ReadTimeAfterHour(int hour) {
        const int minute = TextReader::NumberIn(m_reader.TakeDigits());
        if (minute < 0 || minute > 59) return false;
        std::int64_t ms = minute * MsPerMinute;
        if (m_reader.Take(':')) {
            const int second = TextReader::NumberIn(m_reader.TakeDigits());
            if (second < 0 || second > 59) return false;
            ms += second * MsPerSecond;
        }
        return SetTime(hour, m_reader.TakeIsAfternoon(), ms);
    }

    bool SetTime(int hour, std::optional<bool> isAfternoon, std::int64_t msAfterHour) {
        const bool isMorning = isAfternoon && !*isAfternoon;
        if (m_time || hour < 0 || hour > (isMorning ? 12 : 23)) return false;
        if (isAfternoon) hour = hour % 12 + (isMorning ? 0 : 12);
        m_time = hour * MsPerHour + msAfterHour;
        return true;
    }

    std::optional<Date> JoinParts() const {
        const std::int64_t ms = m_time.value_or(0);
        const auto& [first, second, third] = m_numbers;
        if (m_month && m_numberCount == 1) return Join(first.AsYear(), *m_month, 1, ms);
        if (m_month && m_numberCount == 2) {
            return first.IsYear() ? Join(first.AsYear(), *m_month, second.value, ms)
                                  : Join(second.AsYear(), *m_month, first.value, ms);
        }
        if (!m_month && m_numberCount == 2 && second.IsYear()) {
            return Join(second.AsYear(), first.value, 1, ms);
        }
        if (m_month || m_numberCount != 3) return std::nullopt;
        if (first.IsYear()) return Join(first.AsYear(), second.value, third.value, ms);
        if (first.value > 12) return Join(third.AsYear(), second.value, first.value, ms);
        return Join(third.AsYear(), first.value, second.value, ms);
    }

    TextReader m_reader;
    std::array<Number, 3> m_numbers = {};
    std::size_t m_numberCount = 0;
    std::optional<int> m_month;
    std::optional<std::int64_t> m_time;
};

}  // namespace

bool IsDateInRange(Date date) noexcept { return date.days > FirstDay - 1 && date.days < LastDay + 1; }

std::string FormatDate(Date date) {
    const Moment moment = Split(date, MsPerSecond);
    if (moment.day == 0) return FormatTime(moment.ms);
    const auto day = moment.Calendar();
    std::string text = std::to_string(static_cast<unsigned>(day.month()));
    text.append("/").append(std::to_string(static_cast<unsigned>(day.day()))).append("/");
    text.append(std::to_string(static_cast<int>(day.year())));
    if (moment.ms != 0) text.append(" ").append(FormatTime(moment.ms));
    return text;
}

Date ParseDate(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (const auto date = ReadIsoDate(trimmed)) return *date;
    if (const auto date = LooseDateReader(trimmed).Read()) return *date;
    RaiseNotADate(text);
}

std::string FormatIsoDate(Date date) {
    const Moment moment = Split(date, 1);
    const auto day = moment.Calendar();
    std::string text;
    text.reserve(std::string_view("2026-11-21T08:30:00.250").size());
    AppendPadded(text, static_cast<int>(day.year()), 4);
    text.push_back('-');
    AppendPadded(text, static_cast<unsigned>(day.month()), 2);
    text.push_back('-');
    AppendPadded(text, static_cast<unsigned>(day.day()), 2);
    if (moment.ms == 0) return text;
    text.push_back('T');
    AppendPadded(text, moment.ms / MsPerHour, 2);
    text.push_back(':');
    AppendPadded(text, moment.ms / MsPerMinute % 60, 2);
    text.push_back(':');
    AppendPadded(text, moment.ms / MsPerSecond % 60, 2);
    if (moment.ms % MsPerSecond == 0) return text;
    text.push_back('.');
    AppendPadded(text, moment.ms % MsPerSecond, 3);
    return text;
}

Date ToMilliseconds(Date date) { return Split(date, 1).Join(); }

Date ParseIsoDate(std::string_view text) {
    if (const auto date = ReadIsoDate(text)) return *date;
    RaiseNotADate(text);
}

}  // namespace korvex::automation
