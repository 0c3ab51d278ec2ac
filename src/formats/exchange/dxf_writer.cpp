#include "formats/exchange/dxf_writer.h"

#include <initializer_list>
#include <string>
#include <string_view>

#include "formats/exchange/escaped_text.h"
#include "formats/target_figures.h"
#include "run/identification.h"
#include "text/number.h"
#include "text/strings.h"

namespace tovak::formats::exchange {
namespace {

constexpr std::string_view kLine = "CONTINUOUS";

/// A group of a DXF file: its code, in three columns, and its value.
struct Group {
  std::string_view code;
  std::string_view value;
};

/// Appends the lines of a group: its code, which has three columns, and its value.
void append(std::string& out, std::string_view code, std::string_view value) {
  for (const std::string_view line : {code, value}) {
    out += line;
    out += text::LineWriter::kLineEnd;
  }
}

std::string groups(std::initializer_list<Group> groups) {
  std::string text;
  for (const Group& group : groups) append(text, group.code, group.value);
  return text;
}

/// A layer with an entity for each point: what stands before the coordinates of the entity, and behind everything.
struct Layer {
  std::string_view name;
  std::string_view colour;
  std::string head;
  std::string tail;
};

Layer layerOf(std::string_view name, std::string_view colour, std::string_view entity) {
  return {.name = name, .colour = colour, .head = groups({{"  0", entity}, {"  8", name}}), .tail = {}};
}

/// `place` is the vertical alignment of a TEXT: 1 for the bottom of the text at the point, 3 for its top.
Layer textLayer(std::string_view name, std::string_view colour, std::string_view place) {
  Layer layer = layerOf(name, colour, "TEXT");
  layer.tail = groups({{" 73", place}});
  return layer;
}

class DxfWriter final : public run::PointWriter {
 public:
  explicit DxfWriter(const run::TargetContext& context)
      : lines_(context.lines),
        settings_(context.settings),
        doubts_(context.doubts),
        height_(context.settings.target.metres ? "1.0" : "3.0"),
        heightGroup_(groups({{" 40", height_}})) {}

  bool begin() override {
    value_.clear();
    appendDxf(value_, run::identificationLine(settings_));
    // Points are drawn as crosses of the height of the texts.
    block_ = groups({{"999", value_},       {"  0", "SECTION"},      {"  2", "HEADER"},    {"  9", "$ACADVER"},
                     {"  1", "AC1009"},     {"  9", "$DWGCODEPAGE"}, {"  3", "ANSI_1252"}, {"  9", "$PDMODE"},
                     {" 70", "3"},          {"  9", "$PDSIZE"},      {" 40", height_},     {"  0", "ENDSEC"},
                     {"  0", "SECTION"},    {"  2", "TABLES"},       {"  0", "TABLE"},     {"  2", "LTYPE"},
                     {" 70", "1"},          {"  0", "LTYPE"},        {"  2", kLine},       {" 70", "0"},
                     {"  3", "Solid line"}, {" 72", "65"},           {" 73", "0"},         {" 40", "0.0"},
                     {"  0", "ENDTAB"},     {"  0", "TABLE"},        {"  2", "LAYER"},     {" 70", "3"}});
    for (const Layer* const layer : {&points_, &numbers_, &descriptions_}) {
      block_ += groups({{"  0", "LAYER"}, {"  2", layer->name}, {" 70", "0"}, {" 62", layer->colour}, {"  6", kLine}});
    }
    block_ += groups({{"  0", "ENDTAB"}, {"  0", "ENDSEC"}, {"  0", "SECTION"}, {"  2", "ENTITIES"}});
    return lines_.write(block_);
  }

  bool write(const run::PointRecord& point) override {
    lengthFigures(settings_, point, figures_);
    if (figures_.elevation.empty()) figures_.elevation = "0";
    setPlace(place_, " 10", " 20", " 30");
    setPlace(alignment_, " 11", " 21", " 31");
    block_ = points_.head;
    block_ += place_;
    appendText(numbers_, point.pointNumber);
    appendText(descriptions_, point.description);
    return lines_.write(block_);
  }

  bool end() override { return lines_.write(groups({{"  0", "ENDSEC"}, {"  0", "EOF"}})); }

 private:
  void setPlace(std::string& out, std::string_view x, std::string_view y, std::string_view z) const {
    out.clear();
    append(out, x, figures_.easting);
    append(out, y, figures_.northing);
    append(out, z, figures_.elevation);
  }

  void appendText(const Layer& layer, std::string_view text) {
    if (text::unlessBlank(text).empty()) return;
    value_.clear();
    if (!appendDxf(value_, text)) doubts_.raise(run::Doubt::ReplacedCharacters);
    block_ += layer.head;
    block_ += place_;
    block_ += heightGroup_;
    append(block_, "  1", value_);
    block_ += alignment_;
    block_ += layer.tail;
  }

  text::LineWriter& lines_;
  const run::RunSettings& settings_;
  run::DoubtFlags& doubts_;
  const std::string_view height_;
  const std::string heightGroup_;
  const Layer points_ = layerOf("POINTS", "7", "POINT");
  const Layer numbers_ = textLayer("NUMBERS", "3", "1");
  const Layer descriptions_ = textLayer("DESCRIPTIONS", "2", "3");
  run::PointFigures figures_;
  std::string place_;      ///< the groups of the coordinates
  std::string alignment_;  ///< the same once more, as those to which a text is aligned
  std::string value_;
  std::string block_;  ///< the groups to be written together
};

}  // namespace

std::unique_ptr<run::PointWriter> makeDxfWriter(const run::TargetContext& context) {
  return std::make_unique<DxfWriter>(context);
}

}  // namespace tovak::formats::exchange
