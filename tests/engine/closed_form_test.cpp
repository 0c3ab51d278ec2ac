// Projections in closed form compared with PROJ's own, and their convergence and scale factor with its numerical
// derivatives.
#include <cmath>
#include <deque>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <proj.h>

#include "engine/catalogue.h"
#include "engine/projections.h"
#include "engine/served_rectangle.h"

namespace tovak::engine {
namespace {

constexpr double kLength = 2e-8;                  // metres
constexpr double kAngle = kLength / 6'370'000.0;  // radians
constexpr double kConvergence = 0.005 / 3600.0;   // degrees
constexpr double kScale = 1e-9;

/// Positions in `ClosedForm`.
enum Kind : std::size_t { proj, lambert, mercator };

class ClosedFormTest : public testing::Test {
 protected:
  /// What computes `definition`, compared with PROJ at random points of the area served.
  const Projection& check(const char* definition, bool conformal = true) {
    SCOPED_TRACE(definition);
    operations.push_back(makeOperation(context.get(), definition));
    PJconsts* const byProj = operations.back().get();
    const Projection& projection = projections.emplace_back(context.get(), makeOperation(context.get(), definition));
    for (int i = 0; i < 2000 && !HasFailure(); ++i) {
      const Geographic point = {between(kAreaServed.south, kAreaServed.north) * kRadiansPerDegree,
                                between(kAreaServed.west, kAreaServed.east) * kRadiansPerDegree};
      SCOPED_TRACE(testing::Message() << point.latitude << ' ' << point.longitude);
      const PlanePoint expected = project(byProj, point);
      std::optional<GridFactors> factors;
      const PlanePoint plane = projection.project(point, factors);
      const Geographic back = projection.unproject(expected);
      const Geographic expectedBack = unproject(byProj, expected);
      EXPECT_NEAR(plane.northing, expected.northing, kLength);
      EXPECT_NEAR(plane.easting, expected.easting, kLength);
      EXPECT_NEAR(back.latitude, expectedBack.latitude, kAngle);
      EXPECT_NEAR(back.longitude, expectedBack.longitude, kAngle / std::cos(point.latitude));

      const PJ_FACTORS known = proj_factors(byProj, proj_coord(point.longitude, point.latitude, 0, 0));
      EXPECT_TRUE(factors);
      if (!factors) break;
      EXPECT_NEAR(factors->convergence, known.meridian_convergence * kDegreesPerRadian, kConvergence);
      EXPECT_NEAR(factors->scale, std::sqrt(known.meridional_scale * known.parallel_scale), conformal ? kScale : 1e-4);
    }
    return projection;
  }

  double between(double low, double high) { return low + (high - low) * (static_cast<double>(random()) * 0x1p-32); }

  std::string reason;
  const ProjContext context = openProj(reason);
  std::vector<ProjOperation> operations;
  std::deque<Projection> projections;
  std::mt19937 random;
};

TEST_F(ClosedFormTest, ExistsForEverySystem) {
  for (const CoordinateSystem& system : builtInSystems()) {
    if (system.projection.empty()) continue;
    EXPECT_EQ(check(system.projection.c_str()).closedForm().index(),
              system.kind == SystemKind::statePlane ? lambert : mercator)
        << system.name;
  }
}

TEST_F(ClosedFormTest, FitsAnyDefinition) {
  const struct {
    const char* definition;
    Kind kind;
    bool conformal = true;
  } cases[] = {
      {"+proj=lcc +lat_1=45 +lat_0=45 +lon_0=-93 +k_0=0.9999 +x_0=-8000 +ellps=GRS80", lambert},
      {"+proj=lcc +lat_1=44.9 +lat_2=44.9 +lat_0=44 +lon_0=267 +a=6378418.941 +rf=298.257222100883 +units=m", lambert},
      {"+proj=tmerc +lat_0=44 +lon_0=-93 +k_0=1.00002 +R=6378137", mercator},
      {"+proj=etmerc +lat_0=-10 +lon_0=-93 +k=0.9999 +y_0=70000 +ellps=clrk66", mercator},
      // Less exact than the exact form, a scale beside the two parallels, a second parallel that is not named.
      {"+proj=tmerc +approx +lon_0=-93 +ellps=GRS80", proj},
      {"+proj=lcc +lat_1=45 +lat_2=46 +lat_0=44 +lon_0=-93 +k_0=0.9999 +ellps=GRS80", proj},
      {"+proj=lcc +lat_1=45 +lat_0=44 +lon_0=-93 +ellps=GRS80", proj},
      {"+proj=omerc +lat_0=45 +lonc=-93 +alpha=30 +k=1 +gamma=20 +ellps=GRS80", proj},
      {"+proj=poly +lon_0=-93 +ellps=GRS80", proj, false}};
  for (const auto& c : cases) EXPECT_EQ(check(c.definition, c.conformal).closedForm().index(), c.kind) << c.definition;
}

TEST_F(ClosedFormTest, HasNoFactorsWhereProjHasNone) {
  std::optional<GridFactors> factors;
  const Projection& projection = check("+proj=poly +lon_0=-93 +ellps=GRS80", false);
  EXPECT_FALSE(isFinite(projection.project({.latitude = 2.0, .longitude = -1.6}, factors)));
  EXPECT_FALSE(factors);
}

// Points inside are converted between units without a look at the area served.
TEST_F(ClosedFormTest, KnowsARectangleInTheAreaServed) {
  for (const CoordinateSystem& system : builtInSystems()) {
    if (system.projection.empty()) continue;
    SCOPED_TRACE(system.name);
    const Projection& projection = check(system.projection.c_str());
    const PlaneRectangle limits = rectangleServed(projection);
    EXPECT_GT(limits.north - limits.south, 900e3);
    EXPECT_GT(limits.east - limits.west, 900e3);
    for (int i = 0; i <= 1000; ++i) {
      const double part = i / 1000.0;
      const double northing = std::lerp(limits.south, limits.north, part);
      const double easting = std::lerp(limits.west, limits.east, part);
      for (const PlanePoint& edge : {PlanePoint{limits.south, easting}, PlanePoint{limits.north, easting},
                                     PlanePoint{northing, limits.west}, PlanePoint{northing, limits.east}}) {
        EXPECT_FALSE(limits.holds(edge.northing, edge.easting));
        const Geographic point = unproject(operations.back().get(), edge);
        EXPECT_TRUE(point.latitude > kAreaServed.south * kRadiansPerDegree &&
                    point.latitude < kAreaServed.north * kRadiansPerDegree &&
                    point.longitude > kAreaServed.west * kRadiansPerDegree &&
                    point.longitude < kAreaServed.east * kRadiansPerDegree);
      }
    }
  }
  const Projection& byProj = check("+proj=tmerc +approx +lon_0=-93 +ellps=GRS80");
  EXPECT_FALSE(rectangleServed(byProj).holds(5e6, 0.0));
}

}  // namespace
}  // namespace tovak::engine
