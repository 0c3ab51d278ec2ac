#include "text/date.h"

#include "text/number.h"

namespace tovak::text {
namespace {

void appendTwoDigits(std::string& out, int value) {
  if (value < 10) out += '0';
  appendWhole(out, value);
}

}  // namespace

Date dayOf(std::time_t instant) {
  std::tm local{};
  localtime_r(&instant, &local);
  return {.year = local.tm_year + 1900, .month = local.tm_mon + 1, .day = local.tm_mday};
}

Date today() {
  return dayOf(std::time(nullptr));
}

void appendIsoDate(std::string& out, const Date& date) {
  appendWhole(out, date.year);
  out += '-';
  appendTwoDigits(out, date.month);
  out += '-';
  appendTwoDigits(out, date.day);
}

void appendDate(std::string& out, const Date& date, char separator) {
  appendTwoDigits(out, date.month);
  out += separator;
  appendTwoDigits(out, date.day);
  out += separator;
  appendWhole(out, date.year);
}

}  // namespace tovak::text
