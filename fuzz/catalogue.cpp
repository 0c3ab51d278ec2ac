// Files that an agency or a person puts into the data folder: county zones, usual areas, known grids; the first byte
// chooses which.
#include "engine/county_zones.h"
#include "engine/datum_grid.h"
#include "engine/proj_objects.h"
#include "harness.h"
#include "run/usual_areas.h"

using namespace tovak;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const unsigned kind = fuzz::takeByte(bytes) % 3;
  const std::string name = fuzz::folder().write("list.txt", bytes);
  if (kind == 0) {
    static std::string reason;
    static const engine::ProjContext context = engine::openProj(reason);
    fuzz::require(context.get() != nullptr, "PROJ starts", reason);
    const auto zones = engine::readCountyZones(name);
    if (!zones) {
      fuzz::require(zones.error.starts_with(name), "a fault names the file", zones.error);
      return 0;
    }
    const auto systems = engine::countySystems(context.get(), name, *zones);
    fuzz::require(!systems || systems->size() == zones->size(), "a system for each zone", systems.error);
    for (const engine::CatalogueZone& zone : *zones) engine::findZone(*zones, zone.place);
  } else if (kind == 1) {
    const text::Result<run::UsualAreas> areas = run::readUsualAreas(name);
    fuzz::require(areas.value.has_value() == areas.error.empty(), "areas or a reason");
    if (!areas) return 0;
    fuzz::engine().calls.clear();
    for (const run::UsualArea& area : *areas) {
      fuzz::require(area.south < area.north && area.west < area.east, "an area has an inside");
      run::areaLimits(fuzz::engine(), area, "4");
    }
  } else {
    std::string error;
    const std::vector<engine::KnownGrid> grids = engine::readKnownGrids(name, error);
    fuzz::require(error.empty() || error.starts_with(name), "a fault names the file", error);
    for (const engine::KnownGrid& grid : grids) fuzz::require(!grid.name.empty(), "a grid has a name");
  }
  return 0;
}
