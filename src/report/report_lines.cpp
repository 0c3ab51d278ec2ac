#include "report/report_lines.h"

#include "text/number.h"

namespace tovak::report {

const std::string& ruleText() {
  static const std::string kRule = [] {
    std::string rule;
    for (std::size_t i = 0; i < kRuleLength; ++i) rule += "\u2014";
    return rule;
  }();
  return kRule;
}

const std::string& ruleLine() {
  static const std::string kLine = std::string(kLeftColumn - 1, ' ') + ruleText();
  return kLine;
}

std::string pageText(int number) {
  constexpr std::size_t kWidth = 11;
  std::string text = "     Page ";
  text::appendWhole(text, number);
  return text.substr(text.size() - kWidth);
}

}  // namespace tovak::report
