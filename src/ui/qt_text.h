/// Texts of the core, which are UTF-8, and those of Qt.
#pragma once

#include <QString>
#include <string_view>

namespace tovak::ui {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace tovak::ui
