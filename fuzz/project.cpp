// The user-defined project: its file, and its definition as PROJ parameters, code or WKT.
#include "engine/project.h"

#include "engine/proj_objects.h"
#include "harness.h"
#include "run/user_project.h"

using namespace tovak;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  static std::string reason;
  static const engine::ProjContext context = engine::openProj(reason);
  fuzz::require(context.get() != nullptr, "PROJ starts", reason);
  const bool wholeFile = fuzz::takeByte(bytes) % 2 == 0;
  std::string definition(bytes.substr(0, run::kLongestDefinition));
  if (wholeFile) {
    const std::string name = fuzz::folder().write("project.txt", bytes);
    const text::Result<std::optional<run::UserProject>> project = run::readUserProject(name);
    if (!project || !project->has_value()) return 0;
    std::string error;
    fuzz::require(run::faultOf(**project).empty(), "what is read has no fault");
    fuzz::require(run::writeUserProject(name, **project, error), "and is written", error);
    const text::Result<std::optional<run::UserProject>> again = run::readUserProject(name);
    fuzz::require(again && again->has_value(), "and read again", again.error);
    const run::UserProject &one = **project, &other = **again;
    fuzz::require(one.name == other.name && one.definition == other.definition && one.metres == other.metres &&
                      one.datum == other.datum,
                  "and is the same");
    definition = one.definition;
  }
  const engine::ProjectCheck check = engine::checkProject(context.get(), definition, run::LengthUnit::metres);
  fuzz::require(!check.text.empty(), "the person is told something");
  return 0;
}
