/// Qt's texts in the messages of failing tests.
#pragma once

#include <QString>
#include <ostream>

/// What a failing comparison prints.
inline void PrintTo(const QString& text, std::ostream* out) {
  *out << '"' << text.toStdString() << '"';
}
