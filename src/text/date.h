/// A day of the calendar.
#pragma once

#include <ctime>
#include <string>

namespace tovak::text {

struct Date {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;
};

/// The day that an instant falls on where the program runs.
Date dayOf(std::time_t instant);

/// The day it is where the program runs.
Date today();

/// Appends "yyyy-mm-dd", as ISO 8601 writes a day.
void appendIsoDate(std::string& out, const Date& date);

/// Appends month, day and year as "mm", "dd" and "yyyy" with `separator` between them.
void appendDate(std::string& out, const Date& date, char separator);

}  // namespace tovak::text
