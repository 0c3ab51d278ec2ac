/// The path of the points from the source's reader through numbering and engine to the outputs, with everything that
/// has to be settled before the first point. Whoever sends points through it asks the person, opens the outputs and
/// reports the result.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "run/conversion_engine.h"
#include "run/formats.h"
#include "run/run_settings.h"
#include "text/line_reader.h"

namespace tovak::run {

/// Why a point was refused.
struct Refusal {
  Tally RecordCounts::*tally = nullptr;  ///< null for a point that was converted
  std::string reason = {};

  explicit operator bool() const { return tally != nullptr; }
};

class Corridor {
 public:
  /// In `settings` it changes only what a run changes: the next default number, and the choices that a source format
  /// forces. The fate of each record is counted in `counts`.
  Corridor(RunSettings& settings, ConversionEngine& engine, const FormatTables& formats, RecordCounts& counts);
  Corridor(const Corridor&) = delete;
  Corridor& operator=(const Corridor&) = delete;
  ~Corridor() = default;

  // The preparations, in this order. Each gives the message that stops the run; nothing when all is well.
  std::optional<Message> checkChoices() const;
  /// Puts the layouts and choices that the formats force, and the datum of the user-defined project, into the settings.
  void prepareFormats();
  std::optional<Message> checkProjections() const;
  /// Names, texts and units of user-defined projects. A message without a text: the source has no project.
  std::optional<Message> takeProjectionTexts();
  std::optional<Message> openSource(TypedPoints* typedPoints);
  /// The usual areas of both systems, and what the source says about itself.
  void findDoubts();

  /// Reads the next record into `point`.
  ReadState read(PointRecord& point);
  /// Numbers a point and converts it.
  Refusal convert(PointRecord& point);
  void countConverted(const PointRecord& point);
  void countRefused(const PointRecord& point, const Refusal& refusal);
  /// Once all points are through: settles the doubts that concern only a file as a whole.
  void settleDoubts();

  const SourceFormat& source() const { return source_; }
  const TargetFormat& target() const { return target_; }
  /// The name of the record's file where there are several files; otherwise empty.
  std::string_view recordFile() const;
  /// The message of a read that gave neither a point nor lines.
  const Message& readerMessage() const { return readerMessage_; }
  text::LineReader& lines() { return lines_; }
  /// The doubts about the point being converted; a writer raises its own.
  DoubtFlags& doubts() { return doubts_; }

 private:
  void takeProject();
  std::optional<Message> takeUserDefinedProject(SideSettings& side);
  std::string refusalOf(const SideSettings& side);
  AreaLimits usualLimits(std::int16_t code, const SideSettings& side, Doubt doubt);
  void compareWithIdentification();
  void takeSourceInfo(PointRecord& point);

  RunSettings& settings_;
  ConversionEngine& engine_;
  const SourceFormat& source_;
  const TargetFormat& target_;
  const UsualAreas* const areas_;
  RecordCounts& counts_;
  AreaLimits sourceLimits_;
  AreaLimits targetLimits_;
  DoubtFlags doubts_;
  std::string projectFault_;  ///< why the project of a job cannot be used
  Message readerMessage_;
  text::LineReader lines_;
  std::unique_ptr<PointReader> reader_;
};

}  // namespace tovak::run
