/// The table in which the format editor shows its preview.
#pragma once

#include <QTableWidget>

#include "formats/delimited/format_preview.h"

namespace tovak::ui {

/// Fills the table anew. Coordinates that read as 0 are marked; lines without the delimiter span the whole table.
void showPreview(QTableWidget& table, const formats::delimited::FormatPreview& preview);

}  // namespace tovak::ui
