#include "formats/delimited/delimited_line.h"

namespace tovak::formats::delimited {

DelimitedLine::DelimitedLine(const run::DelimitedFormat& format)
    : codes_(parseFieldCodes(format.fieldCodes)),
      delimiter_(format.delimiter),
      // Any "25" in the list counts, the middle of 125 included.
      geopakComment_(delimiter_ != kGeopakDelimiter && format.fieldCodes.find("25") != std::string::npos),
      separator_(delimiter_) {}

bool DelimitedLine::start(std::string_view line) {
  fieldEnd_ = line.find(delimiter_);
  if (fieldEnd_ == std::string_view::npos) return false;
  rest_ = line;
  nextCode_ = 0;
  separator_ = delimiter_;
  return true;
}

}  // namespace tovak::formats::delimited
