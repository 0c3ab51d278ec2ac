/// Asking a fresh engine for one point, with a data folder that it finds.
#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/tovakx.h"
#include "support/environment.h"
#include "support/temporary_folder.h"

namespace tovak::engine::probe {

inline std::unique_ptr<TovakX> freshEngine() {
  std::string reason;
  std::unique_ptr<TovakX> engine = TovakX::create(reason);
  if (engine == nullptr) throw std::runtime_error(reason);
  return engine;
}

/// What the outputs hold before a conversion.
inline constexpr double kUntouched = -777.0;

struct Result {
  int code = 0;
  double northing = kUntouched;
  double easting = kUntouched;
  double elevation = 0.0;
  std::string info = {};
};

inline Result convert(TovakX& engine, const std::string& source, const std::string& target, Point point,
                      std::string_view form = "S") {
  Result r{.elevation = point.elevation};
  r.code = engine.TovakVert(point.northing, point.easting, r.elevation, source, r.northing, r.easting, r.elevation,
                            target, r.info, form);
  return r;
}

/// A data folder of a test's own, in a folder of an unpleasant name.
class DataFolder {
 public:
  DataFolder() { std::filesystem::create_directories(path() / "grids"); }
  std::filesystem::path path() const { return parent() / "QrAppsData"; }
  std::string file(const std::string& name) const { return (path() / name).string(); }
  std::string write(const std::string& name, std::string_view contents) const {
    return folder_.write(std::filesystem::relative(path() / name, folder_.path()).string(), contents);
  }

 private:
  std::filesystem::path parent() const { return folder_.path() / "data, 'of' \"one\" ~ user; é"; }

  const tests::TemporaryFolder folder_;
  const tests::EnvironmentVariable variable_{"APPDATA", parent().string()};
};

}  // namespace tovak::engine::probe
