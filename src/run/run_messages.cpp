#include "run/run_messages.h"

#include "text/number.h"

namespace tovak::run::messages {

Message horizontalReferenceMissing() {
  return {"You must select a horizontal reference option.", "CSV Input Error", Icon::Exclamation, "lstHorizontal"};
}

Message countyZoneMissing() {
  return {"You must select a county zone.", "CSV Input Error", Icon::Exclamation, "lstCsvZone"};
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

Message finished() {
  return {"Output File Written", "Finished", Icon::Information};
}

std::string lineOfFile(std::uint64_t line, const std::string& fileName) {
  std::string where = "line ";
  text::appendWhole(where, static_cast<std::int64_t>(line));
  return where + " of " + fileName;
}

Message reportNameMissing() {
  return {"The report file has no name.", "Report File", Icon::Exclamation, "txtPrintFile"};
}

Message pointRefused(const std::string& reason, const std::string& fileName, std::uint64_t line) {
  Message message = {.text = reason, .title = "TovakX Conversion Error", .icon = Icon::None, .ofOnePoint = true};
  if (!fileName.empty()) message.detail = lineOfFile(line, fileName);
  return message;
}

std::string noAngle() {
  return "The minutes or seconds of a latitude or longitude are not below 60.";
}

}  // namespace tovak::run::messages
