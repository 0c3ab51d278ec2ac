/// The sample files, and the selections that read each of them correctly.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/tovakx.h"
#include "formats/delimited/built_in_formats.h"
#include "formats/format_tables.h"
#include "run/format_index.h"
#include "selection/selections.h"
#include "selection/suggestions.h"
#include "text/angle.h"

namespace tovak::tests {

struct Sample {
  std::string name;
  std::int16_t format;
  std::int16_t code;
  bool metres = false;
  text::AngleForm form = text::AngleForm::DegreesMinutesSeconds;
};

inline const std::vector<Sample>& samples() {
  namespace source = run::source;
  static const std::vector<Sample> kSamples = {
      {"blue_book.txt", source::BlueBook, 0},
      {"control.csv", source::CommaDelimited, 0, false, text::AngleForm::DecimalDegrees},
      {"coords_geographic.log", source::CoordsLog, 0},
      {"coords_south.log", source::CoordsLogNumberInDescription, 4},
      {"field_book.sdms", source::Sdms, 4, true},
      {"geopak_ne.lst", source::GeopakPrintPoints, 4},
      {"geopak_xy.lst", source::GeopakPrintPoints, 4},
      {"maptech.mxf", source::Maptech, 0},
      {"vesko80_alignment_english.txt", source::Vesko80Column, 4},
      {"vesko80_alignment_metric.txt", source::Vesko80Column, 4, true},
      {"vesko80_points.txt", source::Vesko80Column, 4},
  };
  return kSamples;
}

inline std::string samplePath(const std::string& name) {
  return std::string(TOVAK_SAMPLES_FOLDER "/") + name;
}

/// The engine and the tables a program starts with.
struct Program {
  std::unique_ptr<engine::TovakX> engine;
  run::UsualAreas areas;
  run::FormatTables formats = formats::formatTables();
  std::vector<run::DelimitedFormat> layouts = {formats::delimited::standardFormat()};

  Program() {
    std::string reason;
    engine = engine::TovakX::create(reason);
    text::Result<run::UsualAreas> read = run::readUsualAreas(TOVAK_DATA_FOLDER "/areas.txt");
    if (engine == nullptr || !read) throw std::runtime_error(reason + read.error);
    areas = *read;
    formats.areas = &areas;
  }
  selection::SuggestionTools tools() { return {.engine = *engine, .formats = formats, .layouts = layouts}; }

  selection::Selections reading(const std::string& path, std::int16_t format, std::int16_t code, bool metres,
                                text::AngleForm form) const {
    selection::Selections selections;
    selection::nameFile(selections, selection::Side::Source, path);
    selection::chooseLayout(selections, selection::Side::Source, layouts.front());
    selection::chooseLayout(selections, selection::Side::Target, layouts.front());
    selection::chooseLatLongForm(selections, form);
    selection::pickProjection(selections, selection::Side::Source, code);
    selection::chooseUnit(selections, selection::Side::Source, metres);
    selection::chooseSourceFormat(selections, formats, format);
    return selections;
  }
  selection::Selections reading(const Sample& sample) const {
    return reading(samplePath(sample.name), sample.format, sample.code, sample.metres, sample.form);
  }
};

}  // namespace tovak::tests
