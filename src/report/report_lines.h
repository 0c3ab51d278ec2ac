/// The lines that a report file and its printed form have in common.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tovak::report {

/// The column at which the lines of a report begin.
inline constexpr std::size_t kLeftColumn = 4;
inline constexpr std::size_t kPageColumn = 69;

/// The length of a rule, in characters.
inline constexpr std::size_t kRuleLength = 76;

/// 76 em dashes, in UTF-8.
const std::string& ruleText();

/// The rule with the blanks before it: the line that closes the head of a page.
const std::string& ruleLine();

/// "Page" and the number, right-aligned in eleven characters; of longer ones the rightmost eleven are kept.
std::string pageText(int number);

/// A text in the line of units of every report that is unlikely to occur elsewhere.
inline constexpr std::string_view kReportMark = "3.280833333";

}  // namespace tovak::report
