#include "platform/native/sql/odbc/odbc_date.h"

#include <chrono>
#include <cmath>

namespace korvex::native::sql {
namespace {

using std::chrono::milliseconds;
using std::chrono::sys_days;

constexpr sys_days DayZero = std::chrono::year{1899} / 12 / 30;
constexpr std::int64_t MillisecondsPerDay = 86400000;
constexpr std::uint32_t NanosecondsPerMillisecond = 1000000;

}  // namespace

SQL_TIMESTAMP_STRUCT ToTimestamp(automation::Date date) {
    // The fraction counts forward from midnight, also before day zero.
    const double whole = std::trunc(date.days);
    const std::int64_t time =
        std::llround(std::abs(date.days - whole) * static_cast<double>(MillisecondsPerDay));
    const auto days = static_cast<int>(whole) + static_cast<int>(time / MillisecondsPerDay);
    const std::chrono::year_month_day day(DayZero + std::chrono::days(days));
    const std::chrono::hh_mm_ss clock(milliseconds(time % MillisecondsPerDay));
    SQL_TIMESTAMP_STRUCT timestamp{};
    timestamp.year = static_cast<SQLSMALLINT>(static_cast<int>(day.year()));
    timestamp.month = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.month()));
    timestamp.day = static_cast<SQLUSMALLINT>(static_cast<unsigned>(day.day()));
    timestamp.hour = static_cast<SQLUSMALLINT>(clock.hours().count());
    timestamp.minute = static_cast<SQLUSMALLINT>(clock.minutes().count());
    timestamp.second = static_cast<SQLUSMALLINT>(clock.seconds().count());
    timestamp.fraction = static_cast<SQLUINTEGER>(clock.subseconds().count()) * NanosecondsPerMillisecond;
    return timestamp;
}

automation::Date FromTimestamp(const SQL_TIMESTAMP_STRUCT& timestamp) {
    const sys_days day = std::chrono::year{timestamp.year} / timestamp.month / timestamp.day;
    const auto days = static_cast<double>((day - DayZero).count());
    const std::int64_t time = ((timestamp.hour * 60LL + timestamp.minute) * 60 + timestamp.second) * 1000 +
                              timestamp.fraction / NanosecondsPerMillisecond;
    const double fraction = static_cast<double>(time) / static_cast<double>(MillisecondsPerDay);
    return {days < 0 ? days - fraction : days + fraction};
}

}  // namespace korvex::native::sql
