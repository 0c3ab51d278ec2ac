#include "formats/agency/krv_batch.h"

namespace tovak::formats::agency {

bool refuseKrvBatch(const run::ExportContext& context) {
  context.message = {"KRV batch files cannot be converted by this version.", "KRV Batch", run::Icon::Exclamation};
  return false;
}

}  // namespace tovak::formats::agency
