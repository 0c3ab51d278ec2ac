#include "selection/enabled_controls.h"

#include <cstddef>

#include "run/projection_code.h"
#include "selection/exchange.h"

namespace tovak::selection {

EnabledControls enabledControls(const Selections& selections, const run::FormatTables& formats) {
  const run::RunSettings& settings = selections.run;
  // Agency batch runs take systems, angles and numbers from their own files, and write no report.
  const bool ordinary = !isAgencyRun(selections, formats);
  const run::SourceFormat& source = formats.sources[static_cast<std::size_t>(settings.sourceFormat)];
  const run::TargetFormat& target = formats.targets[static_cast<std::size_t>(settings.targetFormat)];
  return {
      .sourceFile = source.kind != run::SourceKind::Keyboard,
      .targetFile = target.kind != run::TargetKind::Screen,
      .sourceProjection = ordinary,
      .targetProjection = ordinary,
      .sourceUnits = ordinary && settings.SourceProjectionCode != run::kUserDefinedProject,
      .targetUnits = !ordinary || (settings.TargetProjectionCode != run::kUserDefinedProject && !target.forcedUnit),
      .latLongForm = ordinary && settings.latLongFormChosen,
      .ordinaryOptions = ordinary,
      .verticalDatum = ordinary && !(source.fromDatabase && settings.options.geodeticCsv.vertical != 0),
      .nextNumber = ordinary && !settings.allowBlankPointNumbers,
      .report = ordinary && settings.reportEnabled,
      .sourceLayout = source.choosesLayout,
      .targetLayout = target.choosesLayout,
      .swap = canExchangeSides(selections, formats),
      .database = source.fromDatabase,
  };
}

}  // namespace tovak::selection
