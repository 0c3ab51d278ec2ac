#include "run/run_messages.h"

#include "run/point_figures.h"
#include "run/projection_code.h"
#include "text/number.h"

namespace tovak::run {

Message systemMessage(const std::string& error) {
  return {.text = error, .title = "File Error", .icon = Icon::Exclamation};
}

}  // namespace tovak::run

namespace tovak::run::messages {

Message sourceNameMissing() {
  return {"Source File Was Not Specified.", "Source File", Icon::Exclamation, "txtSourceFile"};
}

Message targetNameMissing() {
  return {"Target File Was Not Specified.", "Target File", Icon::Exclamation, "txtTargetFile"};
}

Message unknownSourceProjection() {
  return {"The source has an unknown projection: its box holds no number.", "Invalid map projection", Icon::Exclamation,
          "txtSourceProjection"};
}

Message unknownTargetProjection() {
  return {"The target has an unknown projection: its box holds no number.", "Invalid map projection", Icon::Exclamation,
          "txtTargetProjection"};
}

Message batchSourceMissing() {
  return {"The source format must be the one that goes with this target.", "Invalid source", Icon::Exclamation};
}

Message waypointsInLatLong() {
  return {
      "Trimble documentation indicates that latitude and longitude are not valid\n"
      "options for waypoint import files.  This may have changed in later versions.\n"
      "Do you want to continue?",
      "Warning", Icon::None};
}

Message crossingDatums() {
  return {
      "You are converting between the 1927 and 1983 North American Datums,\n"
      "  and the conversion will not retain survey level accuracy.\n"
      "Results are based on the NADCON method of interpolation, which\n"
      "  introduces about 0.15 m of uncertainty at the 67% confidence level.",
      "Warning", Icon::Information};
}

Message projectUnusable(const std::string& reason) {
  return {"The user-defined project cannot be used.\n" + reason, "User-Defined Project", Icon::Exclamation};
}

Message changeFileName() {
  return {
      "Waypoints+ requires a .TXT extension on its input files.\n"
      "Tovak will add .TXT to the specified output file name.\n"
      "Do you want to accept the modification and proceed?  ",
      "Change File Name?", Icon::Question};
}

Message addEnding(std::string_view ending) {
  return {
      "The name of such a file ends in " + std::string(ending) + ".\nTovak will add it to the name of the target file.",
      "Change File Name?", Icon::Question};
}

Message finished() {
  return {"Output File Written", "Finished", Icon::Information};
}

Message finishedInDoubt() {
  return {"The conversion is finished, but there are doubts.", "Finished", Icon::Exclamation};
}

Message nothingWritten(const std::string& standing) {
  return {standing, "Finished", Icon::Exclamation};
}

std::string targetStands(TargetState state, const RecordCounts& counts, const std::string& name) {
  switch (state) {
    case TargetState::OlderKept:
      return (counts.converted == 0 ? "No point was converted; " : "") + name + " was left as it was.";
    case TargetState::NoFile:
      return name + " was not written.";
    case TargetState::Incomplete:
      return name + " received only a part of the points.";
    case TargetState::NotOpened:
    case TargetState::Written:
      break;
  }
  return {};
}

std::string lineOfFile(std::uint64_t line, const std::string& fileName) {
  std::string where = "line ";
  text::appendWhole(where, static_cast<std::int64_t>(line));
  return where + " of " + fileName;
}

Message reportNameMissing() {
  return {"The report file has no name.", "Report File", Icon::Exclamation, "txtPrintFile"};
}

Message replaceTarget(const std::string& fileName) {
  return {fileName + "\nexists already. Do you want to replace it?", "Replace File?", Icon::Question, "txtTargetFile"};
}

Message pointRefused(const std::string& reason, const std::string& fileName, const PointRecord& point,
                     const RunSettings& settings) {
  Message message = {.text = reason, .title = "TovakX Conversion Error", .icon = Icon::None, .ofOnePoint = true};
  if (fileName.empty()) return message;
  message.mayStop = true;
  message.detail = lineOfFile(point.sourceLine, fileName);
  const auto [northing, easting] = sourceCoordinates(settings, point);
  if (northing.empty() && easting.empty()) return message;
  const bool angles = isLatLong(settings.SourceProjectionCode);
  message.detail += angles ? "\nLatitude " : "\nNorthing ";
  message.detail += northing + (angles ? ", longitude " : ", easting ") + easting;
  return message;
}

}  // namespace tovak::run::messages
