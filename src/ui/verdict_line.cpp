#include "ui/verdict_line.h"

#include <QHBoxLayout>
#include <QStyle>
#include <array>

#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

struct VerdictSign {
  QStyle::StandardPixmap picture;
  const char* word;
};

VerdictSign signOf(run::Verdict verdict) {
  constexpr std::array<VerdictSign, 4> kSigns = {{{QStyle::SP_MessageBoxInformation, "No preview"},
                                                  {QStyle::SP_DialogApplyButton, "Good"},
                                                  {QStyle::SP_MessageBoxWarning, "Doubtful"},
                                                  {QStyle::SP_MessageBoxCritical, "Not good"}}};
  return kSigns[static_cast<std::size_t>(verdict)];
}

}  // namespace

VerdictLine::VerdictLine(const char* name, const QString& tip, QWidget* parent)
    : QWidget(parent), sign_(new QLabel(this)), text_(new ElidedLine(this)) {
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(sign_);
  layout->addWidget(text_, 1);
  text_->setObjectName(name);
  text_->setToolTip(tip);
  QFont font = text_->font();
  font.setBold(true);
  text_->setFont(font);
}

void VerdictLine::setVerdict(run::Verdict verdict, const QString& text) {
  const VerdictSign sign = signOf(verdict);
  const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
  sign_->setPixmap(style()->standardIcon(sign.picture, nullptr, this).pixmap(size, size));
  text_->setText(text);
  text_->setCursorPosition(0);
  if (!text.isEmpty()) text_->setToolTip(plainTip(text));
  text_->setAccessibleName(tr(sign.word));
}

}  // namespace tovak::ui
