#include "selection/usual_options.h"

namespace tovak::selection {

bool usualOptions(const run::RunSettings& settings, const run::RunSettings& atStart) {
  const run::RunSettings usual;
  const bool options = settings.adjustment == usual.adjustment && settings.accuracy == usual.accuracy &&
                       settings.verticalDatum == usual.verticalDatum &&
                       settings.PointNumberIncrement == usual.PointNumberIncrement &&
                       settings.allowBlankPointNumbers == usual.allowBlankPointNumbers;
  const bool report = settings.reportEnabled == atStart.reportEnabled &&
                      settings.reportFileName == atStart.reportFileName &&
                      settings.reportDescription == usual.reportDescription &&
                      settings.appendReport == usual.appendReport && settings.printReport == usual.printReport;
  return options && report;
}

}  // namespace tovak::selection
