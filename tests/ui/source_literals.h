/// The string literals of C++ sources.
#pragma once

#include <QString>

namespace tovak::tests {

/// All literals of the .h and .cpp files in and below the folder, each ended by a character that no literal holds.
/// Adjacent literals are joined, and blanks and line ends in a row count as one blank.
QString sourceLiterals(const QString& folder);

}  // namespace tovak::tests
