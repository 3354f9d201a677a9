#include "ecrsim/key_faults.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace ecrsim {
namespace {

constexpr char kAlien = 'U';
constexpr std::string_view kReadState = "89";
/// How much of a dump comes before it breaks off in its head, of a record, and of the marker.
constexpr std::uint64_t kHeadPart = 20;
constexpr std::uint64_t kRecordPart = 3;
constexpr std::size_t kMarkerPart = 20;

/// The beginning of another text.
class PartOf : public LineText {
 public:
  PartOf(std::unique_ptr<LineText> whole, std::uint64_t size)
      : whole_(std::move(whole)), rest_(std::min(size, whole_->size())), size_(rest_) {}
  std::uint64_t size() const override { return size_; }
  std::size_t read(std::span<char> piece) override {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(piece.size(), rest_));
    const std::size_t done = whole_->read(piece.first(count));
    rest_ -= done;
    return done;
  }

 private:
  std::unique_ptr<LineText> whole_;
  std::uint64_t rest_;
  std::uint64_t size_;
};

void breakOff(LineAnswer& answer, std::uint64_t size) {
  answer.text = std::make_unique<PartOf>(std::move(answer.text), size);
  answer.marker.clear();
  answer.cut = true;
}

/// One character more than the record has; in a dump one that breaks the marker off, which begins anew.
void lengthen(LineAnswer& answer) {
  if (answer.what == LineAnswer::What::Dump) {
    answer.marker.insert(0, answer.marker.substr(1) + kAlien);
    return;
  }
  std::string text(answer.text->size(), '\0');
  answer.text->read(text);
  answer.text = std::make_unique<PlainText>(text + kAlien);
}

void shorten(LineAnswer& answer) {
  if (answer.what == LineAnswer::What::Dump)
    answer.marker.pop_back();
  else
    answer.text = std::make_unique<PartOf>(std::move(answer.text), answer.text->size() - 1);
}

void drown(LineAnswer& answer) {
  constexpr std::uint64_t kNoise = 256;
  const std::uint64_t size = std::min(answer.text->size(), kNoise);
  answer.text = std::make_unique<PlainText>(std::string(size, kAlien));
  answer.command.assign(answer.command.size(), kAlien);
  answer.marker.clear();
}

}  // namespace

std::string faultNameOf(const Stroke& stroke) {
  if (stroke.key != Key::Extended) return {};
  return stroke.number == kReadState ? kStateSequence : kDumpSequence;
}

std::string faultNameOf(std::string_view sequence) {
  KeyParser parser;
  for (const char one : sequence) {
    const auto stroke = parser.feed(one);
    std::string name = stroke ? faultNameOf(*stroke) : std::string();
    if (!name.empty()) return name;
  }
  return {};
}

bool spoilsAnswer(FaultKind kind) {
  switch (kind) {
    case FaultKind::CutWithin:
    case FaultKind::ShortFile:
    case FaultKind::LongFile:
    case FaultKind::Noise:
    case FaultKind::CutHead:
    case FaultKind::CutMarker:
      return true;
    case FaultKind::Code:
    case FaultKind::Silence:
    case FaultKind::CutBefore:
    case FaultKind::CutAfter:
    case FaultKind::Garbage:
      break;
  }
  return false;
}

void spoil(LineAnswer& answer, FaultKind kind) {
  const bool dump = answer.what == LineAnswer::What::Dump;
  if (kind == FaultKind::Noise) drown(answer);
  if (kind == FaultKind::ShortFile) shorten(answer);
  if (kind == FaultKind::LongFile) lengthen(answer);
  if (kind == FaultKind::CutHead) breakOff(answer, dump ? kHeadPart : kRecordPart);
  if (kind == FaultKind::CutWithin || (kind == FaultKind::CutMarker && !dump))
    breakOff(answer, answer.text->size() / 2);
  if (kind == FaultKind::CutMarker && dump) {
    answer.marker.resize(kMarkerPart);
    answer.cut = true;
  }
}

}  // namespace ecrsim
