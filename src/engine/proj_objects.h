/// PROJ's objects with an owner, and the one way the engine runs them. PROJ's own header stays behind this one.
#pragma once

#include <memory>
#include <string>

#include "engine/error.h"
#include "engine/proj_files.h"

struct pj_ctx;
struct PJconsts;

namespace tovak::engine {

struct ProjContextDeleter {
  void operator()(pj_ctx* context) const noexcept;
};
struct ProjOperationDeleter {
  void operator()(PJconsts* operation) const noexcept;
};
using ProjOperation = std::unique_ptr<PJconsts, ProjOperationDeleter>;

/// A PROJ context, or none, with the files it may read.
class ProjContext {
 public:
  ProjContext() = default;
  explicit ProjContext(pj_ctx* context) : context_(context) {}

  pj_ctx* get() const { return context_.get(); }
  ProjFiles& files() const { return *files_; }

 private:
  std::unique_ptr<ProjFiles> files_ = std::make_unique<ProjFiles>();  // outlives the context
  std::unique_ptr<pj_ctx, ProjContextDeleter> context_;
};

/// A context that writes nothing to standard error, and is confined to its files. None without a database; then
/// `reason` receives one line that says so.
ProjContext openProj(std::string& reason);

/// An operation from PROJ's notation, or null.
ProjOperation makeOperation(pj_ctx* context, const char* definition);

enum class Direction { forward, inverse };

/// The horizontal pair in PROJ's order: longitude and latitude in radians, or easting and northing in metres.
struct ProjPair {
  double x = 0.0;
  double y = 0.0;
};

/// Runs `operation` on `from`. The result is finite, or else the operation failed and `takeError` says why.
ProjPair transform(PJconsts* operation, Direction direction, ProjPair from);

/// Why the last `transform` failed: `outsideGrid` where a grid has no value for the point, else `notComputed`. PROJ
/// keeps an error until it is told to forget it, which is done here.
Error takeError(PJconsts* operation);

}  // namespace tovak::engine
