#include "ui/source_literals.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

namespace tovak::tests {
namespace {

constexpr QChar kEnd('\x01');

QString literalsOf(const QString& code) {
  // A comment, a character, or literals with nothing but white space between them.
  static const QRegularExpression kToken(R"(//[^\n]*|'(?:[^'\\\n]|\\.)+'|((?:"(?:[^"\\\n]|\\.)*"\s*)+))");
  static const QRegularExpression kPiece(R"re("((?:[^"\\\n]|\\.)*)")re");
  QString literals;
  for (auto token = kToken.globalMatch(code); token.hasNext();) {
    for (auto piece = kPiece.globalMatch(token.next().captured(1)); piece.hasNext();) {
      QString text = piece.next().captured(1);
      text.replace("\\n", " ").replace("\\\"", "\"").replace("\\\\", "\\");
      literals += text;
    }
    literals += kEnd;
  }
  return literals;
}

}  // namespace

QString sourceLiterals(const QString& folder) {
  static const QRegularExpression kBlanks("\\s+");
  QString all;
  QDirIterator files(folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (file.open(QIODevice::ReadOnly)) all += literalsOf(QString::fromUtf8(file.readAll()));
  }
  return all.replace(kBlanks, " ");
}

}  // namespace tovak::tests
