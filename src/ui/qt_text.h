/// Texts of the core, which are UTF-8, and those of Qt.
#pragma once

#include <QString>
#include <QTextDocument>
#include <string_view>

namespace tovak::ui {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A tool tip that shows a text literally, even if it looks like mark-up, and breaks it where it is too long.
inline QString plainTip(const QString& text) {
  return text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

}  // namespace tovak::ui
