/// What the tests of point file formats share: files made of bytes, and points as one line of text.
#pragma once

#include <cmath>
#include <span>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "run/projection_code.h"
#include "support/allocation_counter.h"
#include "support/row.h"
#include "support/scripted_engine.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"

namespace tovak::tests {

using MakeReader = decltype(run::SourceFormat::makeReader);
using MakeWriter = decltype(run::TargetFormat::makeWriter);
/// What a test tells of a point.
using Show = std::string (*)(const run::PointRecord&);

inline std::string row(const run::Tally& tally) {
  return row(tally.count, tally.firstLine);
}

/// A table of inputs and of what a function makes of each.
struct Case {
  std::string in;
  std::string out;
};
template <typename Function>
void expectEach(std::span<const Case> cases, const Function& function) {
  for (const Case& c : cases) EXPECT_EQ(function(c.in), c.out) << c.in;
}

/// The same system on both sides.
inline run::RunSettings settingsFor(std::int16_t code, bool metres = false, int accuracy = 0) {
  run::RunSettings settings;
  settings.SourceProjectionCode = settings.TargetProjectionCode = code;
  settings.source.metres = settings.target.metres = metres;
  settings.accuracy = static_cast<text::Accuracy>(accuracy);
  return settings;
}

struct ReadFile {
  std::string points = {};  ///< what is told of each, a blank between them, and a word for an end that is none
  run::Message message = {};
  run::RecordCounts counts = {};
  run::DoubtFlags doubts = {};  ///< about any of the points
  std::string name;
};

inline ReadFile readFile(MakeReader make, std::string_view bytes, run::RunSettings settings, Show show) {
  const TemporaryFolder folder;
  ReadFile file{.name = folder.write("points", bytes)};
  text::LineReader lines;
  lines.open(file.name);
  const auto reader =
      make({.lines = lines,
            .settings = settings,
            .counts = file.counts,
            .doubts = file.doubts,
            .message = file.message,
            .oneCountyZone =
                formats::formatTables().targets[static_cast<std::size_t>(settings.targetFormat)].oneCountyZone ||
                settings.TargetProjectionCode >= run::kFirstNeighbouringZone});
  if (!reader->check()) return file;
  run::PointRecord point;
  while (true) {
    run::resetPoint(point);
    const run::ReadState state = reader->read(point);
    if (!file.points.empty() && state != run::ReadState::End) file.points += ' ';
    if (state == run::ReadState::Stopped) file.points += "stopped";
    if (state == run::ReadState::EndedEarly) file.points += "ended";
    if (state != run::ReadState::Point) break;
    file.points += point.refusal.empty() ? show(point) : "refused";
  }
  return file;
}

inline std::string number(const run::PointRecord& p) {
  return p.pointNumber;
}

/// "name=value" of each field that a reader has filled with anything but its default.
inline std::string filledFields(const run::PointRecord& point) {
  const auto values = [](const run::PointRecord& p) {
    Values all = {{"number", p.pointNumber},
                  {"description", p.description},
                  {"station", p.station},
                  {"offset", p.offset},
                  {"RA", p.raField},
                  {"comment", p.comment},
                  {"ellipsoid", p.ellipsoidHeight},
                  {"geoid", p.geoidHeight},
                  {"latitude", p.latitude},
                  {"longitude", p.longitude},
                  {"feature", p.featureCode},
                  {"figure", p.figure},
                  {"PH", p.phField},
                  {"OW", p.owField},
                  {"OD", p.odField},
                  {"rest", p.anythingElse},
                  {"code", p.code},
                  {"class", p.classCode},
                  {"trailer", p.trailerGroup},
                  {"section", p.sectionLine},
                  {"packed", p.packedAngles ? row(p.packedAngles->latitude, p.packedAngles->longitude) : ""},
                  {"alignment", row(p.alignmentPoint)},
                  {"decimals", row(p.elevationAccuracy)},
                  {"N", row(p.InNorthLat)},
                  {"E", row(p.InEastLon)},
                  {"Z", row(p.Elevation)},
                  {"line", row(p.sourceLine)}};
    for (std::size_t i = 0; i < p.attributes.size(); ++i) all["attribute" + row(i + 1)] = p.attributes[i];
    for (std::size_t i = 0; i < p.furtherFields.size(); ++i)
      all["further"] += (i < p.furtherFieldCount ? p.furtherFields[i] : "") + ";";
    return all;
  };
  run::PointRecord empty;
  run::resetPoint(empty);
  empty.furtherFields.resize(point.furtherFields.size());
  return changes(values(empty), values(point));
}

/// A record with other characters from a column on.
inline std::string with(std::string record, std::size_t column, std::string_view characters) {
  return record.replace(column - 1, characters.size(), characters);
}

/// Reads a file whose last record has each text in place of what stands from a column on.
inline void expectFields(MakeReader make, std::int16_t code, const std::string& before, const std::string& record,
                         std::size_t column, Show show, std::span<const Case> cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(readFile(make, before + with(record, column, c.in), settingsFor(code, true), show).points, c.out) << c.in;
  }
}

/// A line that is cut off counts as if padded with blanks, and nothing behind column 80 counts.
inline void expectSameWhenPadded(MakeReader make, const std::string& before, const std::string& line,
                                 const run::RunSettings& settings) {
  for (std::size_t length = 1; length <= 80; ++length) {
    const std::string cut = before + line.substr(0, length);
    const std::string padded = cut + std::string(80 - length, ' ') + "OBLIQUE beyond";
    EXPECT_EQ(readFile(make, cut, settings, filledFields).points,
              readFile(make, padded, settings, filledFields).points);
  }
}

/// Reads a file that is cut off, has odd bytes in it or outgrows a line: whatever comes out of it, the reader comes to
/// an end, has no number that is none, and gives some points.
inline void expectToSurviveDamage(MakeReader make, const std::string& bytes, const run::RunSettings& settings) {
  std::uint32_t state = 1;
  const auto random = [&state](std::size_t below) { return ((state = state * 1664525U + 1013904223U) >> 16) % below; };
  std::string points;
  for (int i = 0; i < 100; ++i) {
    std::string damaged = bytes;
    for (std::size_t edits = random(9); edits > 0; --edits) {
      using namespace std::string_view_literals;
      constexpr std::string_view kOdd = "0123456789.,;\"- +eE~*:\n\r\t\0\xFF$x"sv;
      damaged[random(damaged.size())] = kOdd[random(kOdd.size())];
    }
    if (i % 4 == 1) damaged.resize(random(damaged.size()));
    if (i == 0) damaged += std::string(text::LineReader::kMaxLineLength + 1, '9');
    points += readFile(make, damaged, settings, [](const run::PointRecord& p) { return row(p.InNorthLat); }).points;
  }
  EXPECT_EQ(points.find("nan"), std::string::npos);
  EXPECT_NE(points, "");
}

/// A converted point with the defaults of every other field.
inline run::PointRecord pointAt(double northing, double easting, double elevation = 0) {
  run::PointRecord point;
  run::resetPoint(point);
  point.OutNorthLat = northing;
  point.OutEastLon = easting;
  point.Elevation = elevation;
  return point;
}

/// What a writer puts into a file for a point, the given number of times.
inline std::string written(MakeWriter make, const run::PointRecord& point, const run::RunSettings& settings,
                           int times = 1) {
  const TemporaryFolder folder;
  run::DoubtFlags doubts;
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = make({.lines = lines, .settings = settings, .doubts = doubts, .targetSystem = {}});
  EXPECT_TRUE(writer->begin());
  for (int i = 0; i < times; ++i) EXPECT_TRUE(writer->write(point));
  EXPECT_TRUE(writer->end() && lines.commit());
  return contentsOf(folder.file("out"));
}

inline std::string sample(const char* name) {
  return contentsOf(std::string(TOVAK_SAMPLES_FOLDER "/") + name);
}

/// Whole runs from one file into another.
struct Conversion {
  Conversion(std::int16_t source, std::int16_t target, std::int16_t code = 4,
             ScriptedEngine::Arithmetic arithmetic = ScriptedEngine::leave)
      : settings(settingsFor(code)) {
    engine.arithmetic = std::move(arithmetic);
    engine.keepsCalls = false;
    settings.sourceFormat = source;
    settings.targetFormat = target;
    settings.target.projectionText = "4";
    settings.BatchMode = 2;
  }

  /// The target without its identification line.
  std::string of(std::string_view source) {
    const TemporaryFolder folder;
    settings.source.fileName = folder.write("in", source);
    settings.target.fileName = folder.file("out");
    ScriptedPerson person;
    const std::size_t before = allocationCount();
    result = run::convert(settings, engine, formats::formatTables(), person.audience());
    allocations = allocationCount() - before;
    const std::string target = contentsOf(settings.target.fileName);
    return target.substr(target.find('\n') + 1);
  }

  run::RunSettings settings;
  ScriptedEngine engine;
  run::RunResult result;
  std::size_t allocations = 0;
};

}  // namespace tovak::tests
