// The resident programs of date and time. A date is a Modified Julian Date, the days since 17
// November 1858; a time is six binary-coded decimal digits, hhmmss.
#include <cstdio>

#include "engine/engine.h"
#include "engine/resident_programs.h"
#include "objects/limits.h"
#include "objects/list.h"
#include "objects/messages.h"
#include "platform/clocks.h"

namespace korvel {
namespace {

struct Date {
  std::int64_t year = 1858;
  int month = 11;
  int day = 17;
};

constexpr bool IsLeapYear(std::int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int DaysOfMonth(std::int64_t year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// Converts a day number to a date. Reports a negative number and treats it as day 0.
Date DateOf(std::int32_t dayNumber) {
  if (dayNumber < 0) {
    Say(Message::MonthError);
    return {};
  }
  constexpr int kFirstDayOfYear = 320;  // days from 1 January to 17 November 1858
  constexpr std::int64_t kDaysOf400Years = 146'097;
  std::int64_t days = std::int64_t{dayNumber} + kFirstDayOfYear;
  Date date;
  date.year = 1858 + days / kDaysOf400Years * 400;
  days %= kDaysOf400Years;
  for (; days >= (IsLeapYear(date.year) ? 366 : 365); ++date.year) {
    days -= IsLeapYear(date.year) ? 366 : 365;
  }
  for (date.month = 1; days >= DaysOfMonth(date.year, date.month); ++date.month) {
    days -= DaysOfMonth(date.year, date.month);
  }
  date.day = static_cast<int>(days) + 1;
  return date;
}

// Converts a date to a Modified Julian Date with the formula of ETSI EN 300 468, annex C, whose
// variables are `l` and `y`.
std::int32_t DayNumberOf(const LocalTime& now) {
  const int l = now.month <= 2 ? 1 : 0;
  const int y = now.year - 1900;
  return 14956 + now.day + static_cast<int>((y - l) * 365.25) +
         static_cast<int>((now.month + 1 + l * 12) * 30.6001);
}

constexpr std::int32_t Coded(std::int32_t twoDigits) {
  return twoDigits / 10 << 4 | twoDigits % 10;
}

// Decodes two digits of a coded time. `pair` is 0 for hours, 1 for minutes, 2 for seconds.
constexpr int Decoded(std::int32_t time, int pair) {
  const std::uint32_t digits = static_cast<std::uint32_t>(time) >> (16 - 8 * pair);
  return static_cast<int>((digits >> 4 & 0xF) * 10 + (digits & 0xF));
}

constexpr int TwelveHour(int hour) {
  if (hour == 0) return 12;
  return hour > 12 ? hour - 12 : hour;
}

// Writes the field of a code letter. Writes nothing for an unknown letter.
int WriteField(char code, const Date& date, std::int32_t time, char* text, std::size_t size) {
  const int hour = Decoded(time, 0);
  const auto number = [text, size](const char* format, long long value) {
    return std::snprintf(text, size, format, value);
  };
  switch (code) {
  case 'Y': return number("%04lld", date.year);
  case 'y': return number("%02lld", date.year % 100);
  case 'X': return number("%02lld", date.month);
  case 'x': return number("%lld", date.month);
  case 'D': return number("%02lld", date.day);
  case 'd': return number("%lld", date.day);
  case 'H': return number("%02lld", hour);
  case 'h': return number("%lld", hour);
  case 'I': return number("%02lld", TwelveHour(hour));
  case 'i': return number("%lld", TwelveHour(hour));
  case 'M': return number("%02lld", Decoded(time, 1));
  case 'm': return number("%lld", Decoded(time, 1));
  case 'S': return number("%02lld", Decoded(time, 2));
  case 's': return number("%lld", Decoded(time, 2));
  case 'A': return std::snprintf(text, size, "%s", hour < 12 ? "AM" : "PM");
  case 'a': return std::snprintf(text, size, "%s", hour < 12 ? "am" : "pm");
  case '%': return std::snprintf(text, size, "%%");
  default: return 0;
  }
}

}  // namespace

bool GetCurrentDate(ProgramValues& values) {
  LocalTime now;
  if (!GetLocalClock(now)) return true;  // both results stay 0
  values[0].Integer = DayNumberOf(now);
  values[1].Integer = Coded(now.hour) << 16 | Coded(now.minute) << 8 | Coded(now.second);
  return true;
}

bool FormatDate(ProgramValues& values) {
  const std::string_view format = values[0].Octets.View();
  const Date date = DateOf(values[1].Integer);
  List<char> text;
  for (std::size_t at = 0; at < format.size(); ++at) {
    char field[24] = {format[at]};
    int length = 1;
    if (format[at] == '%') {
      if (++at == format.size()) break;  // a "%" at the end of the format writes nothing
      length = WriteField(format[at], date, values[2].Integer, field, sizeof field);
    }
    const std::string_view written(field, static_cast<std::size_t>(length));
    if (!MayContinue() || text.Size() + written.size() > kLongestString) return false;
    for (const char character : written) {
      if (!text.Append(character)) return false;
    }
  }
  return values[3].Octets.Assign({text.begin(), text.Size()});
}

bool GetDayOfWeek(ProgramValues& values) {
  values[1].Integer = static_cast<std::int32_t>((std::int64_t{values[0].Integer} + 2) % 7 + 1);
  return true;
}

}  // namespace korvel
