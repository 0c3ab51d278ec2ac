#include "run/keyboard_reader.h"

namespace tovak::run {
namespace {

class KeyboardReader final : public PointReader {
 public:
  explicit KeyboardReader(const SourceContext& context) : typedPoints_(context.typedPoints) {}

  bool check() override { return true; }

  ReadState read(PointRecord& point) override {
    if (typedPoints_ == nullptr || !typedPoints_->typePoint(point)) return ReadState::End;
    point.sourceLine = ++typed_;
    return ReadState::Point;
  }

 private:
  TypedPoints* const typedPoints_;
  std::uint64_t typed_ = 0;
};

}  // namespace

std::unique_ptr<PointReader> makeKeyboardReader(const SourceContext& context) {
  return std::make_unique<KeyboardReader>(context);
}

}  // namespace tovak::run
