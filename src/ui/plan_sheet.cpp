#include "ui/plan_sheet.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "ui/plan_measures.h"

namespace tovak::ui {
namespace {

/// In heights of a line.
constexpr double kWide = 34.0;
constexpr double kSide = 11.0;

struct Legend {
  PlanState state;
  int points = 0;
  int withoutPlace = 0;

  QString text() const {
    QString text = QString("%1 %2").arg(points).arg(stateWord(state));
    if (withoutPlace > 0) text += withoutPlace == points ? ", no place" : QString(", %1 no place").arg(withoutPlace);
    return text;
  }
};

std::vector<Legend> legendOf(const std::vector<PlanPoint>& points) {
  std::array<Legend, kPlanStates> all = {Legend{PlanState::converted}, Legend{PlanState::doubtful},
                                         Legend{PlanState::refused}, Legend{PlanState::other}};
  for (const PlanPoint& point : points) {
    Legend& legend = *std::ranges::find(all, point.state, &Legend::state);
    ++legend.points;
    legend.withoutPlace += point.hasPlace() ? 0 : 1;
  }
  std::vector<Legend> found;
  std::ranges::copy_if(all, std::back_inserter(found), [](const Legend& legend) { return legend.points > 0; });
  return found;
}

QString outOfView(const PlanSheet& sheet) {
  const PlanBox shown = sheet.plan.shown();
  const auto out = std::ranges::count_if(
      sheet.model.points, [&](const PlanPoint& point) { return point.hasPlace() && !shown.holds(point.place); });
  if (out == 0) return {};
  return QString(out == 1 ? "%1 point outside this view" : "%1 points outside this view").arg(out);
}

/// Texts one below the other, each with a sign in front.
class SideLines {
 public:
  SideLines(QPainter& painter, const PlanSheet& sheet, double top)
      : painter_(painter), sheet_(sheet), high_(sheet.metrics().height() * 1.2), top_(top) {}

  /// Where the sign of the next line goes; empty when there is no room for the line.
  QRectF next(const QString& text) {
    const QRectF& side = sheet_.layout.side;
    if (top_ + high_ > side.bottom()) return {};
    const QRectF line(side.left(), top_, side.width(), high_);
    const double indent = high_ * 1.5;
    painter_.setPen(sheet_.colours.ink);
    painter_.drawText(line.adjusted(indent, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                      sheet_.metrics().elidedText(text, Qt::ElideMiddle, side.width() - indent));
    top_ += high_;
    return {line.topLeft(), QSizeF(indent - high_ * 0.3, high_)};
  }

 private:
  QPainter& painter_;
  const PlanSheet& sheet_;
  double high_;
  double top_;
};

void paintSide(QPainter& painter, const PlanSheet& sheet) {
  if (sheet.layout.side.isEmpty()) return;
  SideLines lines(painter, sheet, sheet.layout.locator.bottom() + sheet.metrics().height() * 0.6);
  for (const Legend& legend : legendOf(sheet.model.points)) {
    const QRectF sign = lines.next(legend.text());
    if (!sign.isEmpty()) drawMark(painter, sheet.colours, legend.state, sign.center(), sheet.markRadius());
  }
  const struct {
    PlanAreaKind kind;
    const char* word;
  } roles[] = {{PlanAreaKind::source, "source"}, {PlanAreaKind::target, "target"}};
  for (const auto& role : roles) {
    const PlanArea* const area = findArea(sheet.model.areas, role.kind);
    if (area == nullptr) continue;
    const QRectF sign = lines.next(QString("%1: %2").arg(role.word, area->brief));
    if (sign.isEmpty()) continue;
    painter.setPen(outlinePen(sheet.colours, role.kind));
    painter.drawLine(QPointF(sign.left(), sign.center().y()), QPointF(sign.right(), sign.center().y()));
  }
  const QString out = outOfView(sheet);
  if (!out.isEmpty()) lines.next(out);
}

void paintHeading(QPainter& painter, const PlanSheet& sheet) {
  const QFontMetricsF metrics = sheet.metrics();
  QRectF line = sheet.layout.heading;
  line.setHeight(metrics.height());
  QFont bold = sheet.font;
  bold.setBold(true);
  painter.setFont(bold);
  const bool warning = sheet.heading.left.has_value();
  painter.setPen(warning ? sheet.colours.warning : sheet.colours.ink);
  const QFontMetricsF wide(bold);
  const QString sign = warning ? QString(QChar(0x26A0)) + ' ' : QString();
  const bool fits = wide.horizontalAdvance(sign + sheet.heading.verdict) <= line.width();
  painter.drawText(
      line, Qt::AlignLeft | Qt::AlignVCenter,
      wide.elidedText(sign + (fits ? sheet.heading.verdict : sheet.heading.brief), Qt::ElideRight, line.width()));
  painter.setFont(sheet.font);
  painter.setPen(sheet.colours.ink);
  line.translate(0, metrics.height() * 1.1);
  if (line.bottom() > sheet.layout.heading.bottom()) return;
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(sheet.heading.places, Qt::ElideRight, line.width()));
}

}  // namespace

PlanLayout planLayout(QSizeF size, const QFontMetricsF& metrics) {
  const double em = metrics.height();
  const double edge = em * 0.35;
  const QRectF inside(edge, edge, std::max(size.width() - 2 * edge, 1.0), std::max(size.height() - 2 * edge, 1.0));
  PlanLayout layout;
  // A plan of little height shows only its verdict.
  const double lines = size.height() > em * 11 ? 2.1 : 1.0;
  layout.heading = QRectF(inside.topLeft(), QSizeF(inside.width(), em * lines));
  const bool wide = size.width() >= em * kWide;
  const double foot = wide || lines == 1.0 ? em : 2 * em;
  layout.foot = QRectF(inside.left(), inside.bottom() - foot, inside.width(), foot);
  layout.map =
      QRectF(QPointF(inside.left(), layout.heading.bottom() + edge), QPointF(inside.right(), layout.foot.top() - edge));
  if (layout.map.height() < 1) layout.map.setHeight(1);
  if (wide) {
    const double side = em * kSide;
    layout.side = QRectF(layout.map.right() - side, layout.map.top(), side, layout.map.height());
    layout.map.setRight(layout.side.left() - em * 0.5);
    const double square = std::min(side, layout.side.height() * 0.6);
    layout.locator = QRectF(layout.side.right() - square, layout.side.top(), square, square);
  } else {
    const double square = std::min({em * 7.5, layout.map.height() * 0.45, layout.map.width() * 0.35});
    layout.locator = QRectF(layout.map.right() - square, layout.map.top(), square, square);
  }
  const double edgeOfPoints = std::min(em * 1.5, layout.map.height() * 0.1);
  layout.points = layout.map.adjusted(edgeOfPoints, edgeOfPoints + em * 0.5, -edgeOfPoints, -edgeOfPoints);
  layout.points.setBottom(layout.points.bottom() - std::min(em * 2, layout.map.height() * 0.15));
  if (!wide) layout.points.setRight(layout.locator.left() - edgeOfPoints);
  const double button = em * 1.5;
  const QPointF corner = layout.map.bottomRight() - QPointF(edge, edge);
  layout.buttons = QRectF(corner - QPointF(button, 3 * button), corner);
  return layout;
}

void paintLegendLine(QPainter& painter, const PlanSheet& sheet, const QRectF& line) {
  const QFontMetricsF metrics = sheet.metrics();
  double left = line.left();
  double top = line.top();
  const auto add = [&](const QString& text) {
    const double width = metrics.horizontalAdvance(text);
    painter.setPen(sheet.colours.ink);
    painter.drawText(QRectF(left, top, width + 1, metrics.height()), Qt::AlignVCenter, text);
    left += width + metrics.height();
  };
  for (const Legend& legend : legendOf(sheet.model.points)) {
    const double radius = sheet.markRadius();
    drawMark(painter, sheet.colours, legend.state, QPointF(left + radius, top + metrics.height() / 2), radius);
    left += radius * 3.5;
    add(legend.text());
  }
  if (line.height() > metrics.height() * 1.5) {
    left = line.left();
    top += metrics.height();
  }
  add(outOfView(sheet));
}

void paintSheet(QPainter& painter, const PlanSheet& sheet) {
  painter.setRenderHint(QPainter::Antialiasing);
  PlanRoom room(sheet.layout.map);
  room.take(sheet.layout.buttons);
  if (sheet.layout.side.isEmpty()) room.take(sheet.layout.locator);
  paintMap(painter, sheet, room);
  paintHeading(painter, sheet);
  paintLocator(painter, sheet);
  paintSide(painter, sheet);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(sheet.colours.faint, 1));
  painter.drawRect(sheet.layout.map);
}

}  // namespace tovak::ui
