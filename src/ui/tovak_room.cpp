// How the main window divides its room: what is folded away, and the size it opens with.
#include <QScreen>
#include <QToolButton>

#include "selection/usual_options.h"
#include "ui/preview_panel.h"
#include "ui/tovak.h"
#include "ui_tovak.h"

namespace tovak::ui {

/// The person sees options that are not as usual, and may fold them away all the same.
void frmTovak::refreshMore() {
  const bool unusual = !selection::usualOptions(selections_.run, start_.settings);
  if (unusual && !unusualOptions_) form_->cmdMore->setChecked(true);
  unusualOptions_ = unusual;
}

void frmTovak::showMore(bool shown) {
  unusualOptions_ = !selection::usualOptions(selections_.run, start_.settings);
  form_->cmdMore->setArrowType(shown ? Qt::DownArrow : Qt::RightArrow);
  for (QWidget* const group : {form_->grpOptions, form_->grpReport}) group->setVisible(shown);
  if (!shown || !isVisible()) return;
  // The groups have no place until the layout is made.
  form_->scrollContents->layout()->activate();
  showAllGroups();
  for (QWidget* const group : {form_->grpOptions, form_->grpReport}) form_->scrollArea->ensureWidgetVisible(group);
}

void frmTovak::bringOut(QWidget& control) {
  if (form_->grpOptions->isAncestorOf(&control) || form_->grpReport->isAncestorOf(&control))
    form_->cmdMore->setChecked(true);
  form_->scrollArea->ensureWidgetVisible(&control);
}

void frmTovak::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  arrangeSides();
}

/// Where there is no room for both sides, the target comes below the source: the person scrolls in one direction only.
void frmTovak::arrangeSides() {
  const QMargins margins = form_->layCentral->contentsMargins();
  int wanted = margins.left() + margins.right() + 2 * form_->laySides->spacing();
  for (const QWidget* const part : {static_cast<QWidget*>(form_->grpSource), static_cast<QWidget*>(form_->cmdSwap),
                                    static_cast<QWidget*>(form_->grpTarget)}) {
    wanted += part->minimumSizeHint().width();
  }
  const bool narrow = width() < wanted;
  form_->laySides->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

/// With larger letters than usual, more than the form's own size.
QSize frmTovak::sizeWithoutScrolling() const {
  const QSize around = minimumSizeHint() - form_->scrollArea->minimumSizeHint();
  return size().expandedTo(form_->scrollContents->minimumSizeHint() + around);
}

}  // namespace tovak::ui
