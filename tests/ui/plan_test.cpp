#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include <gtest/gtest.h>

#include "support/print_qt.h"
#include "support/scripted_engine.h"
#include "ui/plan_measures.h"
#include "ui/plan_room.h"
#include "ui/plan_widget.h"

namespace tovak::ui {
namespace {

constexpr PlanBox kServed = {.south = 41, .north = 51, .west = -100, .east = -86};

void expectNear(QPointF expected, QPointF pixel, double tolerance) {
  EXPECT_NEAR(pixel.x(), expected.x(), tolerance);
  EXPECT_NEAR(pixel.y(), expected.y(), tolerance);
}

PlanPoint point(int row, double latitude, double longitude, PlanState state = PlanState::converted) {
  return {.place = {latitude, longitude}, .label = QString::number(100 + row), .state = state, .row = row};
}

TEST(PlanProjection, FitsABoxByItsNarrowerSide) {
  // Two degrees of latitude in 300 pixels, and the cosine of 45 degrees for longitudes.
  const PlanProjection plan = PlanProjection::fitted({44, 46, -94, -92}, QRectF(10, 20, 600, 400), 50);
  expectNear({310, 220}, plan.toPixel({45, -93}), 1e-9);
  expectNear({203.934, 70}, plan.toPixel({46, -94}), 0.001);
  expectNear({416.066, 370}, plan.toPixel({44, -92}), 0.001);
  // By longitude: 500 pixels for ten degrees.
  const PlanProjection wide = PlanProjection::fitted({44, 46, -98, -88}, QRectF(10, 20, 600, 400), 50);
  expectNear({60, 220}, wide.toPixel({45, -98}), 0.001);
}

TEST(PlanMeasures, CoursesAgreeWithAnIndependentComputation) {
  // geod +ellps=GRS80
  const struct {
    run::Place from, to;
    double metres, azimuth;
  } cases[] = {
      {{45, -93}, {45.5, -93.7}, 78150.4417, 360 - 44.432487}, {{45, -93}, {45.001, -93}, 111.1318, 0},
      {{45, -93}, {44.99, -92.98}, 1929.2970, 125.164138},     {{46, -94}, {46, -94.01}, 774.6330, 360 - 89.996403},
      {{44, -96}, {48, -90}, 642822.8278, 44.142421},
  };
  for (const auto& c : cases) {
    const PlanCourse course = planCourse(c.from, c.to);
    EXPECT_NEAR(course.metres, c.metres, c.metres * (c.metres < 80000 ? 2e-6 : 1e-4));
    EXPECT_NEAR(std::remainder(course.azimuth - c.azimuth, 360), 0, 0.01);
  }
}

TEST(PlanMeasures, WordsWhatItMeasures) {
  constexpr double kMinute = 1.0 / 60, kSecond = 1.0 / 3600;
  const std::pair<QString, const char*> cases[] = {
      {planAngle(46, 1, PlanAxis::latitude), "46° N"},
      {planAngle(-93.5, 30 * kMinute, PlanAxis::longitude), "93°30′ W"},
      {planAngle(46 - 1e-9, kSecond, PlanAxis::latitude), "46°00′00″ N"},
      {planAngle(-(93 + 15 * kMinute + 7.25 * kSecond), 0.05 * kSecond, PlanAxis::longitude), "93°15′07.25″ W"},
      {bearingText(0), "N 0°00′ E"},
      {bearingText(45.2), "N 45°12′ E"},
      {bearingText(125.1666667), "S 54°50′ E"},
      {bearingText(190), "S 10°00′ W"},
      {bearingText(359.9999), "N 0°00′ E"},
      {distanceText(812.4, 5, false), "812 m"},
      {distanceText(41234, 5, false), "41.23 km"},
      {distanceText(12.347, 0.01, false), "12.35 m"},
      {distanceText(41232.2, 5, true), "135,276 ft (25.6 mi)"},
      {scaleBar(700, false).label, "500 m"},
      {scaleBar(2999, false).label, "2 km"},
      {scaleBar(1000, true).label, "2,000 ft"},
      {scaleBar(20000, true).label, "10 mi"},
      {scaleBar(0.34, false).label, "0.2 m"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(text, QString::fromUtf8(expected));
  EXPECT_NEAR(graticuleStep(0.3), 20 * kMinute, 1e-12);
  EXPECT_NEAR(graticuleStep(4.1 * kSecond), 5 * kSecond, 1e-12);
  EXPECT_NEAR(graticuleStep(0.03 * kSecond), 0.05 * kSecond, 1e-15);
}

TEST(PlanRoom, NumbersDoNotOverlap) {
  PlanRoom room(QRectF(10, 10, 300, 200));
  const QSizeF text(31, 13);
  std::vector<QRectF> placed;
  for (int index = 0; index < 400; ++index) {
    const QPointF mark(10 + 7.3 * (index % 40), 10 + 19.1 * (index / 40.0));
    if (const auto place = room.takeFirst(placesBeside(mark, 4, text))) placed.push_back(*place);
  }
  EXPECT_GT(placed.size(), 40U);
  for (std::size_t one = 0; one < placed.size(); ++one) {
    EXPECT_TRUE(QRectF(10, 10, 300, 200).contains(placed[one]));
    for (std::size_t other = 0; other < one; ++other) EXPECT_FALSE(placed[one].intersects(placed[other]));
  }
}

TEST(PlanModel, TellsWhereThePointsLie) {
  tests::ScriptedEngine engine;
  engine.systems = {{3, "State plane Central, NAD83~3"},
                    {4, "State plane South, NAD83~4"},
                    {107, "State plane South, NAD27~107"},
                    {6, "County zone Anoka, NAD83~6"}};
  const run::UsualAreas areas = {{.code = 4, .south = 43.5, .north = 45.6, .west = -96.8, .east = -91.2},
                                 {.code = 107, .south = 43.5, .north = 45.6, .west = -96.8, .east = -91.2},
                                 {.code = 3, .south = 45.2, .north = 47.4, .west = -96.8, .east = -92.2},
                                 {.code = 6, .south = 44.7, .north = 45.7, .west = -94.2, .east = -92.2}};
  // Distances: geod +ellps=GRS80
  const struct {
    std::int16_t source, target;
    std::vector<PlanPoint> points;
    const char *verdict, *places;
  } cases[] = {
      {4, 3, {}, "No point to show", ""},
      {4,
       0,
       {point(0, 45, -93), point(1, 44, -95)},
       "All 2 points lie in the usual area of the source, State plane South, NAD83",
       "State plane zones: South (all); county zones: Anoka (1)"},
      {4,
       0,
       {point(0, 43.3, -93), point(1, 44, -95), point(2, 43, -93, PlanState::refused)},
       "1 of 2 points lies outside the usual area of the source, State plane South, NAD83",
       "State plane zones: South (1); no county zone (nearest: Anoka, 117 km north)"},
      {0,
       3,
       {point(0, 43, -93)},
       "The point lies outside the usual area of the target, State plane Central, NAD83",
       "No state plane zone (nearest: South, 56 km north); no county zone (nearest: Anoka, 189 km north)"},
      {0,
       0,
       {point(0, 40, -93)},
       "The point lies outside the area served",
       "No state plane zone (nearest: South, 389 km north); no county zone (nearest: Anoka, 522 km north)"},
      {107,
       0,
       {point(0, 45, -93)},
       "The point lies in the usual area of the source, State plane South, NAD27",
       "State plane zones: South (all); no county zone"},
  };
  for (const auto& c : cases) {
    const PlanHeading heading = planHeading({c.points, planAreas(areas, engine, c.source, c.target, kServed)}, false);
    EXPECT_EQ(heading.verdict, QString(c.verdict));
    EXPECT_EQ(heading.places, QString(c.places));
  }
}

/// A shown plan of a few points.
struct Plan {
  Plan() {
    widget.resize(900, 600);
    widget.setModel({{point(0, 45, -93), point(1, 45.01, -93.02), point(2, 45.02, -93),
                      point(3, 1e9, 0, PlanState::refused), point(4, 45.005, -92.99, PlanState::refused)},
                     {{PlanAreaKind::areaServed, "the area served", "Area served", kServed}}});
    widget.show();
  }
  QPointF pixel(std::size_t index) const { return widget.projection().toPixel(widget.model().points[index].place); }
  void hover(QPointF pixel) { QTest::mouseMove(&widget, pixel.toPoint()); }

  PlanWidget widget;
};

/// The middle of the pixels of a colour near a pixel.
QPointF middleOf(const QImage& image, QColor colour, QPointF near) {
  QPointF sum;
  int count = 0;
  for (int y = static_cast<int>(near.y()) - 8; y < near.y() + 8; ++y) {
    for (int x = static_cast<int>(near.x()) - 8; x < near.x() + 8; ++x) {
      if (image.pixelColor(x, y) != colour) continue;
      sum += QPointF(x + 0.5, y + 0.5);
      ++count;
    }
  }
  return count == 0 ? QPointF() : sum / count;
}

TEST(Plan, PaintsMarksWherePointsLie) {
  Plan plan;
  const QImage image = plan.widget.grab().toImage();
  const PlanBox shown = plan.widget.projection().shown();
  const QRectF map = plan.widget.projection().view();
  for (const std::size_t index : {0U, 1U, 2U, 4U}) {
    SCOPED_TRACE(index);
    const PlanPoint& of = plan.widget.model().points[index];
    const QPointF expected(
        map.left() + map.width() * (of.place.longitude - shown.west) / (shown.east - shown.west),
        map.bottom() - map.height() * (of.place.latitude - shown.south) / (shown.north - shown.south));
    const QColor colour = planColours(plan.widget.palette()).of(of.state);
    expectNear(expected, middleOf(image, colour, expected), 1.0);
    EXPECT_TRUE(map.contains(expected));
  }
}

TEST(Plan, ZoomsAboutThePointer) {
  Plan plan;
  const QPointF pixel(200, 150);
  const run::Place place = plan.widget.projection().toPlace(pixel);
  const double before = plan.widget.projection().latitudePerPixel();
  QWheelEvent turn(pixel, plan.widget.mapToGlobal(pixel), {}, {0, 240}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                   false);
  QApplication::sendEvent(&plan.widget, &turn);
  EXPECT_LT(plan.widget.projection().latitudePerPixel(), before / 2);
  expectNear(pixel, plan.widget.projection().toPixel(place), 1e-6);
  plan.hover(pixel);
  QTest::keyClick(&plan.widget, Qt::Key_Minus);
  expectNear(pixel, plan.widget.projection().toPixel(place), 1e-6);
  QTest::keyClick(&plan.widget, Qt::Key_Home);
  EXPECT_NEAR(plan.widget.projection().latitudePerPixel(), before, 1e-12);
}

TEST(Plan, MovesByDraggingAndArrowKeys) {
  Plan plan;
  const QPointF before = plan.pixel(0);
  QTest::mousePress(&plan.widget, Qt::LeftButton, {}, QPoint(300, 300));
  plan.hover({340, 320});
  plan.hover({400, 330});
  QTest::mouseRelease(&plan.widget, Qt::LeftButton, {}, QPoint(400, 330));
  expectNear(before + QPointF(100, 30), plan.pixel(0), 1e-6);
  EXPECT_EQ(plan.widget.selectedRow(), -1);
  QTest::keyClick(&plan.widget, Qt::Key_Right);
  EXPECT_LT(plan.pixel(0).x(), before.x() + 100);
}

TEST(Plan, SelectsByClickKeyAndRow) {
  Plan plan;
  const QSignalSpy told(&plan.widget, &PlanWidget::pointSelected);
  QTest::mouseClick(&plan.widget, Qt::LeftButton, {}, plan.pixel(1).toPoint());
  EXPECT_EQ(plan.widget.selectedRow(), 1);
  QTest::keyClick(&plan.widget, Qt::Key_PageDown);
  QTest::keyClick(&plan.widget, Qt::Key_PageDown);
  EXPECT_EQ(plan.widget.selectedRow(), 4) << "the point without a place is passed by";
  EXPECT_EQ(told.count(), 3);
  QTest::keyClick(&plan.widget, Qt::Key_Plus);
  QTest::keyClick(&plan.widget, Qt::Key_Plus);
  plan.widget.selectRow(2);
  EXPECT_TRUE(plan.widget.projection().view().contains(plan.pixel(2)));
  plan.widget.selectRow(3);
  EXPECT_EQ(plan.widget.selectedRow(), -1);
  EXPECT_EQ(told.count(), 3) << "the owner knows what it selects itself";
}

TEST(Plan, MeasuresUnderThePointer) {
  Plan plan;
  plan.widget.selectRow(0);
  plan.hover(plan.pixel(2));
  // geod +ellps=GRS80: 2222.640 m due north
  const QString text = plan.widget.footText();
  EXPECT_TRUE(text.startsWith("102  45°01′12")) << text.toStdString();
  EXPECT_TRUE(text.endsWith("from 100: 7,292 ft (1.4 mi), N 0°00′ E")) << text.toStdString();
}

}  // namespace
}  // namespace tovak::ui
