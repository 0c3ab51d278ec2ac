/// Tables of cases kept in files of their own, under golden/ of their layer.
#pragma once

#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace tovak::tests {

/// The rows of a table: lines of fields with " => " between them. In a field "\n", "\r" and "\t" stand for what they
/// do in C++, and "\s" for a blank at its end. Lines that begin with "#" say what the rows below are about.
inline std::vector<std::vector<std::string>> goldenRows(const char* name) {
  std::ifstream in(std::string(TOVAK_GOLDEN_FOLDER "/") + name);
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with('#')) continue;
    for (const auto& [mark, meaning] : {std::pair{"\\n", "\n"}, {"\\r", "\r"}, {"\\t", "\t"}, {"\\s", " "}}) {
      for (std::size_t at = line.find(mark); at != std::string::npos; at = line.find(mark))
        line.replace(at, 2, meaning);
    }
    std::vector<std::string>& fields = rows.emplace_back();
    line += " => ";
    for (std::size_t start = 0, end; (end = line.find(" => ", start)) != std::string::npos; start = end + 4)
      fields.push_back(line.substr(start, end - start));
  }
  EXPECT_FALSE(rows.empty()) << name;
  return rows;
}

/// Compares what a function makes of the first field of each row with the last one.
template <typename Function>
void expectRows(const char* name, const Function& function) {
  for (const auto& row : goldenRows(name)) EXPECT_EQ(function(row.front()), row.back()) << name << ": " << row.front();
}

}  // namespace tovak::tests
