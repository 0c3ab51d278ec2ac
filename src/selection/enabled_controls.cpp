#include "selection/enabled_controls.h"

#include <cstddef>

#include "run/format_index.h"
#include "run/projection_code.h"

namespace tovak::selection {

EnabledControls enabledControls(const Selections& selections, const run::FormatTables& formats) {
  const run::RunSettings& settings = selections.run;
  // Agency batch runs take systems, angles and numbers from their own files, and write no report.
  const bool ordinary = !isAgencyRun(selections, formats);
  const bool database = settings.sourceFormat == run::source::GeodeticCsv;
  return {
      .sourceFile = formats.sources[static_cast<std::size_t>(settings.sourceFormat)].kind != run::SourceKind::Keyboard,
      .targetFile = formats.targets[static_cast<std::size_t>(settings.targetFormat)].kind != run::TargetKind::Screen,
      .sourceProjection = ordinary,
      .targetProjection = ordinary,
      .sourceUnits = ordinary && settings.SourceProjectionCode != run::kUserDefinedProject,
      .targetUnits = !ordinary || settings.TargetProjectionCode != run::kUserDefinedProject,
      .latLongForm = ordinary && settings.latLongFormChosen,
      .ordinaryOptions = ordinary,
      .verticalDatum = ordinary && !(database && settings.geodeticCsv.vertical != 0),
      .nextNumber = ordinary && !settings.allowBlankPointNumbers,
      .report = ordinary && settings.reportEnabled,
      .database = database,
  };
}

}  // namespace tovak::selection
