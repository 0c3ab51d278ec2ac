#include "formats/exchange/epsg_codes.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "run/projection_code.h"

namespace tovak::formats::exchange {
namespace {

/// The numbers for one unit, 0 where there is none.
struct InUnit {
  int nad83 = 0;  ///< without a year, or of 1986; also the number of a system on NAD27
  int nad83Of2007 = 0;
  int nad83Of2011 = 0;
};

struct Registered {
  std::int16_t code;
  InUnit metres;
  InUnit feet;
};

constexpr auto kRegistered = std::to_array<Registered>({
    {1, {26915, 3722, 6344}, {}},
    {266, {26914, 3721, 6343}, {}},
    {267, {26916, 3723, 6345}, {}},
    {2, {26991, 3595, 6502}, {26849, 26865, 6503}},
    {3, {26992, 3594, 6500}, {26850, 26866, 6501}},
    {4, {26993, 3596, 6504}, {26851, 26867, 6505}},
    {104, {.nad83 = 26715}, {}},
    {264, {.nad83 = 26714}, {}},
    {265, {.nad83 = 26716}, {}},
    {105, {}, {.nad83 = 26791}},
    {106, {}, {.nad83 = 26792}},
    {107, {}, {.nad83 = 26793}},
});

int numberOf(const InUnit& numbers, run::Adjustment year) {
  switch (year) {
    case run::Adjustment::None:
    case run::Adjustment::Nad83_1986:
      return numbers.nad83;
    case run::Adjustment::Nad83_1996:
      return 0;
    case run::Adjustment::Nad83_2007:
      return numbers.nad83Of2007;
    case run::Adjustment::Nad83_2011:
      return numbers.nad83Of2011;
  }
  return 0;
}

}  // namespace

std::optional<int> epsgCode(const run::RunSettings& settings) {
  const auto* const found = std::ranges::find(kRegistered, settings.TargetProjectionCode, &Registered::code);
  if (found == kRegistered.end()) return std::nullopt;
  const bool nad27 = run::isNad27(settings.TargetProjectionCode);
  const int number = numberOf(settings.target.metres ? found->metres : found->feet,
                              nad27 ? run::Adjustment::None : settings.adjustment);
  return number == 0 ? std::nullopt : std::optional(number);
}

}  // namespace tovak::formats::exchange
