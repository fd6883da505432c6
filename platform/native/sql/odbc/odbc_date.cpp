#include "platform/native/sql/odbc/odbc_date.h"

#include "automation/date_text.h"

namespace korvex::native::sql {
namespace {

namespace chrono = std::chrono;

constexpr std::uint32_t NanosecondsPerMillisecond = 1000000;

}  // namespace

SQL_TIMESTAMP_STRUCT ToTimestamp(automation::Date date) {
    const automation::Moment moment = automation::ToMoment(date);
    const auto midnight = chrono::floor<chrono::days>(moment);
    const chrono::year_month_day day(midnight);
    const chrono::hh_mm_ss clock(moment - midnight);
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
    const chrono::sys_days day = chrono::year{timestamp.year} / timestamp.month / timestamp.day;
    return automation::FromMoment(day + chrono::hours(timestamp.hour) + chrono::minutes(timestamp.minute) +
                                  chrono::seconds(timestamp.second) +
                                  chrono::milliseconds(timestamp.fraction / NanosecondsPerMillisecond));
}

}  // namespace korvex::native::sql
