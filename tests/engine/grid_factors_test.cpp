// Convergence and scale factor against PROJ's own, which are numerical derivatives of the bare projection.
#include "engine/grid_factors.h"

#include <cmath>

#include <gtest/gtest.h>
#include <proj.h>

#include "engine/catalogue.h"

namespace tovak::engine {
namespace {

constexpr double kConvergence = 0.005 / 3600.0;  // degrees
constexpr double kScale = 1e-9;

/// Positions in `FactorFormula`.
enum Kind : std::size_t { lambert, mercator, proj };

class GridFactorsTest : public testing::Test {
 protected:
  /// The formula for `definition`, compared with PROJ every quarter of a degree of the area served.
  FactorFormula check(const char* definition, bool conformal = true) {
    SCOPED_TRACE(definition);
    operations.push_back(makeOperation(context.get(), definition));
    PJconsts* const projection = operations.back().get();
    const FactorFormula formula = makeFactorFormula(context.get(), projection);
    for (double latitude = kAreaServed.south; latitude <= kAreaServed.north; latitude += 0.25) {
      for (double longitude = kAreaServed.west; longitude <= kAreaServed.east && !HasFailure(); longitude += 0.25) {
        const Geographic point = {latitude * kRadiansPerDegree, longitude * kRadiansPerDegree};
        const PJ_FACTORS expected = proj_factors(projection, proj_coord(point.longitude, point.latitude, 0, 0));
        const auto factors = factorsAt(formula, point);
        EXPECT_TRUE(factors) << latitude << ' ' << longitude;
        if (!factors) return formula;
        EXPECT_NEAR(factors->convergence, expected.meridian_convergence * kDegreesPerRadian, kConvergence);
        EXPECT_NEAR(factors->scale, std::sqrt(expected.meridional_scale * expected.parallel_scale),
                    conformal ? kScale : 1e-4)
            << latitude << ' ' << longitude;
      }
    }
    return formula;
  }

  std::string reason;
  const ProjContext context = openProj(reason);
  std::vector<ProjOperation> operations;
};

TEST_F(GridFactorsTest, AreClosedFormsForEverySystem) {
  for (const CoordinateSystem& system : builtInSystems()) {
    if (system.projection.empty()) continue;
    EXPECT_EQ(check(system.projection.c_str()).index(), system.kind == SystemKind::statePlane ? lambert : mercator)
        << system.name;
  }
}

TEST_F(GridFactorsTest, FitAnyDefinition) {
  const struct {
    const char* definition;
    Kind kind;
    bool conformal = true;
  } cases[] = {
      {"+proj=lcc +lat_1=45 +lat_0=45 +lon_0=-93 +k_0=0.9999 +ellps=GRS80", lambert},
      {"+proj=lcc +lat_1=44.9 +lat_2=44.9 +lat_0=44 +lon_0=267 +a=6378418.941 +rf=298.257222100883 +units=m", lambert},
      {"+proj=tmerc +lat_0=44 +lon_0=-93 +k_0=1.00002 +R=6378137", mercator},
      {"+proj=etmerc +lon_0=-93 +k=0.9999 +datum=NAD27", mercator},
      // Less exact than the exact form, a scale beside the two parallels, a second parallel that is not named.
      {"+proj=tmerc +approx +lon_0=-93 +ellps=GRS80", proj},
      {"+proj=lcc +lat_1=45 +lat_2=46 +lat_0=44 +lon_0=-93 +k_0=0.9999 +ellps=GRS80", proj},
      {"+proj=lcc +lat_1=45 +lat_0=44 +lon_0=-93 +ellps=GRS80", proj},
      {"+proj=omerc +lat_0=45 +lonc=-93 +alpha=30 +k=1 +gamma=20 +ellps=GRS80", proj},
      {"+proj=poly +lon_0=-93 +ellps=GRS80", proj, false}};
  for (const auto& c : cases) EXPECT_EQ(check(c.definition, c.conformal).index(), c.kind) << c.definition;
}

TEST_F(GridFactorsTest, AreNoneWhereProjHasNone) {
  const FactorFormula formula = check("+proj=poly +lon_0=-93 +ellps=GRS80", false);
  EXPECT_FALSE(factorsAt(formula, {.latitude = 2.0, .longitude = -1.6}));
  EXPECT_EQ(proj_errno(operations.back().get()), 0);
}

}  // namespace
}  // namespace tovak::engine
