#include <algorithm>
#include <cstdint>

#include "check.h"
#include "ecrcom/frame.h"

namespace {

using namespace ecrcom;

/// What is read as a frame must be the very bytes that its fields make, and must begin as frames do.
void rereads(Bytes byte) {
  const std::optional<ReadFrame> read = parseFrame(byte);
  if (!read) return;
  check(canBeFrame(byte));
  check(read->length <= byte.size());
  check(read->frame.data.size() == read->frame.header.length);
  check(read->frame.header.name.size() <= kMaxName);
  const std::vector<std::uint8_t> remade = compose(read->frame.header, read->frame.data);
  check(std::equal(remade.begin(), remade.end(), byte.begin(), byte.first(read->length).end()));
}

/// A frame made of the bytes: it must be read back, and no longer once one of its bytes has changed.
void composes(Bytes byte) {
  constexpr std::size_t kChoices = 2;
  if (byte.size() < kChoices) return;
  Header head;
  head.kind = static_cast<FrameType>(1 + byte[0] % 5);
  head.mode = byte[1];
  const std::size_t size = std::min<std::size_t>(byte[0] % (kMaxName + 1), byte.size() - kChoices);
  const Bytes name = byte.subspan(kChoices, size);
  if (std::find(name.begin(), name.end(), std::uint8_t{0}) == name.end())
    head.name.assign(name.begin(), name.end());
  const Bytes rest = byte.subspan(kChoices);
  std::vector<std::uint8_t> frame =
      compose(head, rest.first(std::min({rest.size(), kMaxKeys, maxData(head)})));
  check(parseFrame(frame).has_value());
  frame[byte[1] % frame.size()] ^= 1U;
  check(!parseFrame(frame).has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
  rereads({data, length});
  composes({data, length});
  return 0;
}
