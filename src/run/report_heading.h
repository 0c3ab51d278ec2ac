/// The head of a report, apart from the selections of its run.
#pragma once

#include <string>

#include "text/date.h"

namespace tovak::run {

struct ReportHeading {
  std::string version;  ///< the program's
  text::Date date;      ///< of the run
  std::string source;   ///< datum label, a blank and the system's name
  std::string target;
};

}  // namespace tovak::run
