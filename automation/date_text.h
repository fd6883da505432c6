#pragma once

#include "automation/variant.h"

#include <chrono>
#include <string>
#include <string_view>

/// Dates taken apart, and as text as the automation runtime reads and writes them in English. The texts are
/// for convert.cpp; everyone else converts through convert.h.
namespace korvex::automation {

using Moment = std::chrono::sys_time<std::chrono::milliseconds>;
/// The moment on the calendar that a date stands for, rounded to the millisecond.
Moment ToMoment(Date date);
Date FromMoment(Moment moment);

/// Whether `date` lies in the years 100 to 9999, all that automation dates cover.
bool IsDateInRange(Date date) noexcept;

/// "11/21/2026", "11/21/2026 8:30:00 AM", and "8:30:00 AM" for a time of day on day zero. Overflow (6) out of
/// range.
std::string FormatDate(Date date);

/// Reads a date, a time of day, or a date and a time: ISO 8601, month/day/year (day/month/year where only
/// that is possible, year/month/day where the first number cannot be anything else), or a month by its
/// English name. A year of two digits lies between 1930 and 2029. TypeMismatch (13) for anything else, a date
/// without a year included.
Date ParseDate(std::string_view text);

}  // namespace korvex::automation
