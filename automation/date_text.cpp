#include "automation/date_text.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace korvex::automation {

namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr sys_days DayZero = std::chrono::year(1899) / 12 / 30;
constexpr double FirstDay = -657434;  ///< 0100-01-01
constexpr double LastDay = 2958465;   ///< 9999-12-31

constexpr bool IsLetter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Rounds to whole units. The fraction counts forward from midnight, also before day zero.
template <class Unit>
std::chrono::sys_time<Unit> Round(Date date) {
    const double wholeDays = std::trunc(date.days);
    const double exact = std::abs(date.days - wholeDays) * static_cast<double>(Unit(days(1)).count());
    return DayZero + days(static_cast<int>(wholeDays)) + Unit(std::llround(exact));
}

template <class Unit>
std::chrono::sys_time<Unit> RoundInRange(Date date) {
    if (!IsDateInRange(date)) throw Error(Overflow);
    return Round<Unit>(date);
}

Date Join(sys_days day, milliseconds time) {
    const auto wholeDays = static_cast<double>((day - DayZero).count());
    const double fraction = static_cast<double>(time.count()) / milliseconds(days(1)).count();
    return Date{wholeDays < 0 ? wholeDays - fraction : wholeDays + fraction};
}

/// Nothing when there is no such day within the range of automation dates.
std::optional<Date> Join(int year, int month, int day, milliseconds time) {
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
    const auto calendarDay = std::chrono::year(year) / month / day;
    if (!calendarDay.ok()) return std::nullopt;
    return Join(sys_days(calendarDay), time);
}

void AppendPadded(std::string& text, std::int64_t number, std::size_t width) {
    std::array<char, 20> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (length < width) text.append(width - length, '0');
    text.append(digits.data(), length);
}

void AppendPart(std::string& text, char separator, std::int64_t number, std::size_t width) {
    text.push_back(separator);
    AppendPadded(text, number, width);
}

std::string FormatTime(seconds time) {
    const std::chrono::hh_mm_ss clock(time);
    std::string text = std::to_string(std::chrono::make12(clock.hours()).count());
    AppendPart(text, ':', clock.minutes().count(), 2);
    AppendPart(text, ':', clock.seconds().count(), 2);
    return text.append(std::chrono::is_am(clock.hours()) ? " AM" : " PM");
}

[[noreturn]] void RaiseNotADate(std::string_view text) {
    throw Error::About(TypeMismatch, Quoted(text) + " is not a date");
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
    std::optional<int> TakeNumberBehind(char separator, std::size_t digits) {
        return Take(separator) ? TakeNumber(digits) : std::nullopt;
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
std::optional<milliseconds> ReadIsoTime(TextReader& reader) {
    const auto hour = reader.TakeNumber(2);
    const auto minute = reader.TakeNumberBehind(':', 2);
    if (!hour || *hour > 23 || !minute || *minute > 59) return std::nullopt;
    milliseconds time = hours(*hour) + minutes(*minute);
    if (reader.Take(':')) {
        const auto second = reader.TakeNumber(2);
        if (!second || *second > 59) return std::nullopt;
        time += seconds(*second);
        if (reader.Take('.')) {
            std::string fraction(reader.TakeDigits());
            if (fraction.empty()) return std::nullopt;
            fraction.resize(3, '0');
            time += milliseconds(TextReader::NumberIn(fraction));
        }
    }
    if (!reader.AtEnd()) return std::nullopt;
    return time;
}

std::optional<Date> ReadIsoDate(std::string_view text) {
    TextReader reader(text);
    const auto year = reader.TakeNumber(4);
    const auto month = reader.TakeNumberBehind('-', 2);
    const auto day = reader.TakeNumberBehind('-', 2);
    if (!year || !month || !day) return std::nullopt;
    if (reader.AtEnd()) return Join(*year, *month, *day, {});
    if (!reader.TakeAny("T ")) return std::nullopt;
    const auto time = ReadIsoTime(reader);
    if (!time) return std::nullopt;
    return Join(*year, *month, *day, *time);
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
        if (m_numberCount == 0 && !m_month && m_time) return Join(DayZero, *m_time);
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
            return SetTime(number, isAfternoon, {});
        }
        if (m_numberCount == m_numbers.size()) return false;
        m_numbers[m_numberCount++] = {number, digits.size()};
        return true;
    }

    bool ReadTimeAfterHour(int hour) {
        const int minute = TextReader::NumberIn(m_reader.TakeDigits());
        if (minute < 0 || minute > 59) return false;
        seconds time = minutes(minute);
        if (m_reader.Take(':')) {
            const int second = TextReader::NumberIn(m_reader.TakeDigits());
            if (second < 0 || second > 59) return false;
            time += seconds(second);
        }
        return SetTime(hour, m_reader.TakeIsAfternoon(), time);
    }

    bool SetTime(int hour, std::optional<bool> isAfternoon, seconds behindHour) {
        const bool isMorning = isAfternoon && !*isAfternoon;
        if (m_time || hour < 0 || hour > (isMorning ? 12 : 23)) return false;
        if (isAfternoon) hour = hour % 12 + (isMorning ? 0 : 12);
        m_time = hours(hour) + behindHour;
        return true;
    }

    std::optional<Date> JoinParts() const {
        const milliseconds time = m_time.value_or(seconds());
        const auto& [first, second, third] = m_numbers;
        if (m_month && m_numberCount == 1) return Join(first.AsYear(), *m_month, 1, time);
        if (m_month && m_numberCount == 2) {
            return first.IsYear() ? Join(first.AsYear(), *m_month, second.value, time)
                                  : Join(second.AsYear(), *m_month, first.value, time);
        }
        if (!m_month && m_numberCount == 2 && second.IsYear()) {
            return Join(second.AsYear(), first.value, 1, time);
        }
        if (m_month || m_numberCount != 3) return std::nullopt;
        if (first.IsYear()) return Join(first.AsYear(), second.value, third.value, time);
        if (first.value > 12) return Join(third.AsYear(), second.value, first.value, time);
        return Join(third.AsYear(), first.value, second.value, time);
    }

    TextReader m_reader;
    std::array<Number, 3> m_numbers = {};
    std::size_t m_numberCount = 0;
    std::optional<int> m_month;
    std::optional<seconds> m_time;
};

}  // namespace

bool IsDateInRange(Date date) noexcept { return date.days > FirstDay - 1 && date.days < LastDay + 1; }

Moment ToMoment(Date date) { return Round<milliseconds>(date); }

Date FromMoment(Moment moment) {
    const auto day = std::chrono::floor<days>(moment);
    return Join(day, moment - day);
}

std::string FormatDate(Date date) {
    const auto moment = RoundInRange<seconds>(date);
    const auto midnight = std::chrono::floor<days>(moment);
    if (midnight == DayZero) return FormatTime(moment - midnight);
    const std::chrono::year_month_day day = midnight;
    std::string text = std::to_string(static_cast<unsigned>(day.month()));
    AppendPart(text, '/', static_cast<unsigned>(day.day()), 1);
    AppendPart(text, '/', static_cast<int>(day.year()), 1);
    if (moment != midnight) text.append(" ").append(FormatTime(moment - midnight));
    return text;
}

Date ParseDate(std::string_view text) {
    const std::string_view trimmed = Trim(text);
    if (const auto date = ReadIsoDate(trimmed)) return *date;
    if (const auto date = LooseDateReader(trimmed).Read()) return *date;
    RaiseNotADate(text);
}

std::string FormatIsoDate(Date date) {
    const auto moment = RoundInRange<milliseconds>(date);
    const auto midnight = std::chrono::floor<days>(moment);
    const std::chrono::year_month_day day = midnight;
    std::string text;
    text.reserve(std::string_view("2026-11-21T08:30:00.250").size());
    AppendPadded(text, static_cast<int>(day.year()), 4);
    AppendPart(text, '-', static_cast<unsigned>(day.month()), 2);
    AppendPart(text, '-', static_cast<unsigned>(day.day()), 2);
    if (moment == midnight) return text;
    const std::chrono::hh_mm_ss clock(moment - midnight);
    AppendPart(text, 'T', clock.hours().count(), 2);
    AppendPart(text, ':', clock.minutes().count(), 2);
    AppendPart(text, ':', clock.seconds().count(), 2);
    if (const auto fraction = clock.subseconds().count(); fraction != 0) AppendPart(text, '.', fraction, 3);
    return text;
}

Date ToMilliseconds(Date date) { return FromMoment(RoundInRange<milliseconds>(date)); }

Date ParseIsoDate(std::string_view text) {
    if (const auto date = ReadIsoDate(text)) return *date;
    RaiseNotADate(text);
}

}  // namespace korvex::automation
