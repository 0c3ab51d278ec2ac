/// A message to the person.
#pragma once

#include <string>

namespace tovak::run {

enum class Icon { None, Exclamation, Information, Question };

enum class Answer { Yes, No, Cancel };

struct Message {
  std::string text = {};  ///< lines joined by "\n"
  std::string title = {};
  Icon icon = Icon::None;
  /// The name of the control that gets the focus afterwards, empty for none.
  std::string focus = {};
  /// Where it happened, shown smaller than the text; may be empty.
  std::string detail = {};
  /// A message about a single point. There may be one for every point of a file, so they can be switched off.
  bool ofOnePoint = false;
  /// The person may stop the run from here.
  bool mayStop = false;

  bool operator==(const Message&) const = default;
};

}  // namespace tovak::run
