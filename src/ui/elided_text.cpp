#include "ui/elided_text.h"

#include <QPainter>
#include <QStyle>

namespace tovak::ui {
namespace {

void paintElided(QWidget& widget, const QRect& room, const QString& text, Qt::TextElideMode elided) {
  QPainter painter(&widget);
  painter.setFont(widget.font());
  painter.setPen(
      widget.palette().color(widget.isEnabled() ? QPalette::Normal : QPalette::Disabled, widget.foregroundRole()));
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   widget.fontMetrics().elidedText(text, elided, room.width()));
}

}  // namespace

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  paintElided(*this, contentsRect(), text(), Qt::ElideMiddle);
}

ElidedLine::ElidedLine(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setFrame(false);
  setStyleSheet("QLineEdit { background: transparent; }");
}

void ElidedLine::paintEvent(QPaintEvent* event) {
  if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= contentsRect().width())
    return QLineEdit::paintEvent(event);
  paintElided(*this, contentsRect(), text(), Qt::ElideRight);
}

}  // namespace tovak::ui
