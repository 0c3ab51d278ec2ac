/// A verdict: a sign and a line of text that can be read with the keyboard and copied.
#pragma once

#include <QLabel>
#include <QString>
#include <QWidget>

#include "run/preview.h"
#include "ui/elided_text.h"

namespace tovak::ui {

class VerdictLine : public QWidget {
  Q_OBJECT

 public:
  /// `name` is that of the text's box, `tip` what it shows in general.
  VerdictLine(const char* name, const QString& tip, QWidget* parent);

  void setVerdict(run::Verdict verdict, const QString& text);

 private:
  QLabel* const sign_;
  ElidedLine* const text_;
};

}  // namespace tovak::ui
