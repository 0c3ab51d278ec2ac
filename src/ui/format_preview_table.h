/// The table in which the format editor shows its preview.
#pragma once

#include <QTableWidget>

#include "formats/delimited/format_preview.h"

namespace tovak::ui {

/// Fills the table anew. Coordinates that read as 0 are marked, lines without the delimiter span its width.
void showPreview(QTableWidget& table, const formats::FormatPreview& preview);

}  // namespace tovak::ui
