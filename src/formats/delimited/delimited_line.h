/// A line of a delimited point file, taken apart field by field.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "formats/delimited/field_codes.h"
#include "run/delimited_format.h"

namespace tovak::formats::delimited {

/// The character that introduces a Geopak comment, whatever the delimiter.
inline constexpr char kGeopakDelimiter = ';';

/// Goes through one line after the other; a line is not copied.
///
/// In a layout with a Geopak comment (code 25) the delimiter becomes ";" once no further delimiter is found on the
/// line. Delimiters inside quotes count too.
class DelimitedLine {
 public:
  struct Field {
    std::int16_t code = 0;
    std::string_view text = {};
  };

  explicit DelimitedLine(const run::DelimitedFormat& format);

  /// False when the line does not hold the delimiter.
  bool start(std::string_view line);
  /// The next field of the layout, with an empty text after the last one of the line; the rest of the line for
  /// `kFieldAnythingElse`, which is the last. False when the layout has no more.
  bool next(Field& field);

 private:
  const std::vector<std::int16_t> codes_;
  const char delimiter_;
  const bool geopakComment_;
  char separator_;
  std::size_t nextCode_ = 0;
  std::size_t fieldEnd_ = 0;
  std::string_view rest_;
};

inline bool DelimitedLine::next(Field& field) {
  if (nextCode_ == codes_.size()) return false;
  field.code = codes_[nextCode_++];
  if (field.code == kFieldAnythingElse) {
    field.text = rest_;
    nextCode_ = codes_.size();
    return true;
  }
  field.text = rest_.substr(0, fieldEnd_);
  rest_.remove_prefix(std::min(fieldEnd_ + 1, rest_.size()));
  fieldEnd_ = rest_.find(separator_);
  if (fieldEnd_ == std::string_view::npos && geopakComment_) {
    separator_ = kGeopakDelimiter;
    fieldEnd_ = rest_.find(separator_);
  }
  fieldEnd_ = std::min(fieldEnd_, rest_.size());
  return true;
}

}  // namespace tovak::formats::delimited
