/// What the tests of point file formats share: files made of bytes, and points told in one line of text.
#pragma once

#include <cmath>
#include <iomanip>
#include <locale>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include "formats/format_tables.h"
#include "run/conversion_run.h"
#include "run/format_index.h"
#include "support/allocation_counter.h"
#include "support/scripted_person.h"
#include "support/temporary_folder.h"
#include "support/unchanging_engine.h"

namespace tovak::tests {

using MakeReader = decltype(run::SourceFormat::makeReader);
using MakeWriter = decltype(run::TargetFormat::makeWriter);
/// What a test tells of a point.
using Show = std::string (*)(const run::PointRecord&);

/// Values as one text, "|" between them.
template <typename... Values>
std::string row(const Values&... values) {
  std::ostringstream out;
  out.imbue(std::locale::classic());  // the tests set the global one to that of their environment
  out << std::setprecision(15);
  const char* separator = "";
  ((out << std::exchange(separator, "|") << values), ...);
  return out.str();
}

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
  settings.accuracy = accuracy;
  return settings;
}

struct ReadFile {
  std::string points = {};  ///< what is told of each, a blank between them, and a word for an end that is none
  run::Message message = {};
  run::RecordCounts counts = {};
  std::string name;
};

inline ReadFile readFile(MakeReader make, std::string_view bytes, run::RunSettings settings, Show show) {
  const TemporaryFolder folder;
  ReadFile file{.name = folder.write("points", bytes)};
  text::LineReader lines;
  lines.open(file.name);
  ScriptedPerson person;
  const auto reader =
      make({.lines = lines, .settings = settings, .counts = file.counts, .person = person, .message = file.message});
  if (!reader->check()) return file;
  run::PointRecord point;
  while (true) {
    run::resetPoint(point);
    const run::ReadState state = reader->read(point);
    if (!file.points.empty() && state != run::ReadState::End) file.points += ' ';
    if (state == run::ReadState::Stopped) file.points += "stopped";
    if (state == run::ReadState::EndedEarly) file.points += "ended";
    if (state != run::ReadState::Point) break;
    file.points += show(point);
  }
  return file;
}

inline std::string number(const run::PointRecord& p) {
  return p.pointNumber;
}

/// The fields that layouts in fixed columns fill.
inline std::string columnFields(const run::PointRecord& p) {
  return row(p.pointNumber, p.description, p.InNorthLat, p.InEastLon, p.Elevation, p.elevationDecimals, p.classCode,
             p.code, p.phField, p.owField, p.odField, p.trailerGroup, p.station, p.raField, p.alignmentPoint,
             p.reportNorthing, p.reportEasting, p.geoidHeight, p.ellipsoidHeight, p.heightRemark, p.oblique,
             p.verticalDatum88);
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
    EXPECT_EQ(readFile(make, cut, settings, columnFields).points,
              readFile(make, padded, settings, columnFields).points);
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
  text::LineWriter lines;
  EXPECT_TRUE(lines.open(folder.file("out")));
  const auto writer = make({.lines = lines, .settings = settings, .targetSystem = {}});
  EXPECT_TRUE(writer->begin());
  for (int i = 0; i < times; ++i) EXPECT_TRUE(writer->write(point));
  EXPECT_TRUE(writer->end() && lines.commit());
  return contentsOf(folder.file("out"));
}

inline std::string sample(const char* name) {
  return contentsOf(std::string(TOVAK_SAMPLES_FOLDER "/") + name);
}

/// Whole runs from one file into another.
template <typename Engine = UnchangingEngine>
struct Conversion {
  Conversion(std::int16_t source, std::int16_t target, std::int16_t code = 4) : settings(settingsFor(code)) {
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
    result = run::convert(settings, engine, formats::formatTables(), person);
    allocations = allocationCount() - before;
    const std::string target = contentsOf(settings.target.fileName);
    return target.substr(target.find('\n') + 1);
  }

  run::RunSettings settings;
  Engine engine;
  run::RunResult result;
  std::size_t allocations = 0;
};

}  // namespace tovak::tests
