// Counts allocations: a run over many points makes no more of them than a run over a few.
#include "support/format_files.h"

namespace tovak::formats {
namespace {

struct Route {
  std::int16_t source;
  std::int16_t target;
  std::int16_t sourceCode;
  std::int16_t targetCode;
  std::string_view line;  ///< one point of the source
  std::string_view head = {};
};

constexpr std::string_view kDelimited =
    "45 12 34.56789,-93.123456789,A description that outgrows any short string,,812.345,-27.123,0,a long rest\n";
constexpr std::string_view kAwkward =
    "45 12 34.56789,-93.123456789,A <description> & more \xC3\xA4\xFF 5%%d than short,,812.345\n";
constexpr Route kRoutes[] = {
    {run::source::CommaDelimited, run::target::CommaDelimited, 0, 4, kDelimited},
    {run::source::CommaDelimited, run::target::CommaDelimited, 4, 0, kDelimited},
    {run::source::Vesko80Column, run::target::Vesko80Column, 4, 4,
     "0104A description of 30 characters2523 47.767907553.363BM 812.345 MONQRDT23CXXXX\n"},
    {run::source::Vesko80Column, run::target::Vesko80Column, 4, 4,
     "0002TR 12   0+412.350 R 350.000    769561.004276777.865PISC             L12 12  \n"},
    {run::source::BlueBook, run::target::BlueBook, 0, 0,
     "000010*80*0001ALDER BRIDGE                  48564901137N095472415930W 91248BQR23\n"
     "000035*86*X003  0912482G12 88NGS    -27100    0885382    REMARK OF 17 COL    \n"},
    {run::source::GeodeticCsv, run::target::Sdms, 0, 4,
     "A station that outgrows any short string,,,,,,,,,,,,7.5,,"
     "an identifier that outgrows any short string,45.301,93.302\nA NAME that outgrows any short string\n\n"},
    {run::source::Sdms, run::target::Sdms, 4, 4,
     "AC:EQ\nSN:a serial number that outgrows short strings\nAC:NT\nCM:a remark that outgrows short strings\n"
     "AC:CP\nPN:a number that outgrows short strings\nYC:1\nXC:2\nZQ:a line of another tag that outgrows\n"
     "ZR:7\nST:12+34.57\nOF:3\n"},
    {run::source::CommaDelimited, run::target::DeLorme, 0, 0, kDelimited},
    {run::source::CommaDelimited, run::target::Maptech, 0, 0, kDelimited},
    {run::source::CommaDelimited, run::target::Kml, 0, 0, kAwkward},
    {run::source::CommaDelimited, run::target::GeoJson, 4, 0, kAwkward},
    {run::source::CommaDelimited, run::target::LandXml, 0, 4, kAwkward},
    {run::source::CommaDelimited, run::target::Dxf, 0, 4, kAwkward},
    {run::source::CoordsLogNumberInDescription, run::target::TrimbleWaypoints, 4, 4,
     "0001    A description that outgrows short strings\n"
     "  Y=                                          123456.123456789\n"
     "  ELL HT=                                     1234567890.12345\n\n",
     "POINT\n\n"},
    {run::source::GeodeticsSpecial, run::target::GeodeticsSpecial, 0, 4,
     "4512345,9312345,A name that outgrows any short string,Anoka,,a remark,2\n"},
    {run::source::LmoBatch, run::target::LmoBatch, 0, 4,
     "930000,450000,Anoka,SPC,and a remark that outgrows any short string\n"}};

std::size_t allocationsFor(int points, const Route& route) {
  std::string lines(route.head);
  for (int i = 0; i < points; ++i) lines += route.line;
  tests::Conversion run(route.source, route.target, route.targetCode);
  run.settings.SourceProjectionCode = route.sourceCode;
  run.settings.target.metres = true;
  run.settings.options.geodeticCsv.horizontal = 1;
  run.settings.options.geodeticCsv.vertical = 14;
  run.engine.projectionFromText = [](const std::string&, std::string& filled) {
    filled = "C Anoka";
    return std::int16_t{6};
  };
  run.of(lines);
  EXPECT_EQ(run.result.counts.converted, static_cast<std::uint64_t>(points));
  return run.allocations;
}

TEST(SteadyState, AllocatesNothingPerPoint) {
  for (const Route& route : kRoutes) {
    allocationsFor(1, route);  // what is made once in the life of the program
    EXPECT_EQ(allocationsFor(2000, route), allocationsFor(10, route)) << route.line;
  }
}

}  // namespace
}  // namespace tovak::formats
