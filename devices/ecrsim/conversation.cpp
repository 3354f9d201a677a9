#include "ecrsim/conversation.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "ecrcom/codes.h"
#include "ecrsim/key_faults.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

using namespace ecrcom;

constexpr std::chrono::hours kEver{24 * 365};
constexpr std::size_t kGarbageBytes = 256;
/// Room for data at first; it doubles as they arrive.
constexpr std::size_t kFirstRoom = std::size_t{64} * 1024;
/// What a file that is handed over too long has behind its end.
constexpr std::size_t kExtraBytes = 100;
constexpr std::uint8_t kAlienByte = 0x55;

std::vector<std::uint8_t> replyFrame(std::uint8_t mode, const Reply& reply) {
  Header head;
  head.kind = FrameType::Reply;
  head.mode = mode;
  head.code = reply.code;
  return compose(head, reply.data);
}

void falsifyLength(FaultKind what, std::vector<std::uint8_t>& data) {
  if (what == FaultKind::ShortFile)
    data.resize(data.size() / 2);
  else
    data.insert(data.end(), std::min(kExtraBytes, kMaxBytes - data.size()), kAlienByte);
}

}  // namespace

void Conversation::run() {
  while (serve()) continue;
}

/// One frame; whether the connection goes on.
bool Conversation::serve() {
  if (awaitEvent(socket_, POLLIN, std::nullopt) != IoResult::Done) return false;
  deadline_ = within(till_.wait());
  HeaderBytes head;
  if (receive(socket_, head, deadline_, true) != IoResult::Done) return false;
  const std::optional<Header> read = parseHeader(head);
  if (!read) return false;
  Frame frame{*read, std::move(buffer_)};
  const bool goesOn = serve(head, frame);
  buffer_ = std::move(frame.data);
  return goesOn;
}

bool Conversation::serve(const HeaderBytes& head, Frame& frame) {
  if (frame.header.kind == FrameType::Command) return command(head, frame);
  if (!complete(head, frame)) return false;
  if (frame.header.kind == FrameType::OpenKeys) return (keysOpen_ = answer(0, {}));
  if (frame.header.kind == FrameType::Keys) return keys({frame.data.begin(), frame.data.end()});
  return false;
}

bool Conversation::command(const HeaderBytes& head, Frame& frame) {
  const Header& what = frame.header;
  if (const std::optional<Fault> fault = till_.fault(what.mode, what.name)) return spoil(*fault, head, frame);
  if (!complete(head, frame)) return false;
  return answer(what.mode, till_.run(what.mode, what.name, frame.data));
}

/// A command that goes wrong. Only the kinds that let the work be done reach the memory.
bool Conversation::spoil(const Fault& fault, const HeaderBytes& head, Frame& frame) {
  const Header& what = frame.header;
  const bool sending = what.mode == ECR_SEND_MODE;
  if (fault.what == FaultKind::CutWithin && sending) {
    std::uint32_t unproven = 0;
    if (gather(what.length / 2, frame.data, unproven)) till_.note(what.mode, what.name, frame.data.size());
    return false;
  }
  if (!complete(head, frame)) return false;
  switch (fault.what) {
    case FaultKind::Code:
      till_.note(what.mode, what.name, frame.data.size());
      return answer(what.mode, {static_cast<std::int16_t>(fault.code), {}});
    case FaultKind::Silence:
      till_.note(what.mode, what.name, frame.data.size());
      awaitEnd();
      return false;
    case FaultKind::CutBefore:
      till_.note(what.mode, what.name, frame.data.size());
      return false;
    case FaultKind::Garbage:
      till_.note(what.mode, what.name, frame.data.size());
      send(std::vector<std::uint8_t>(kGarbageBytes, kAlienByte));
      awaitEnd();
      return false;
    default:
      return spoilData(fault, frame);
  }
}

/// The work is done, or in mode 6 done with what the till took for the file; then the answer goes wrong.
bool Conversation::spoilData(const Fault& fault, Frame& frame) {
  const Header& what = frame.header;
  const bool length = fault.what == FaultKind::ShortFile || fault.what == FaultKind::LongFile;
  if (length && what.mode == ECR_SEND_MODE) falsifyLength(fault.what, frame.data);
  Reply reply = till_.run(what.mode, what.name, frame.data);
  if (fault.what == FaultKind::CutAfter) return false;
  if (length) {
    if (reply.code == kDone && what.mode != ECR_SEND_MODE) falsifyLength(fault.what, reply.data);
    return answer(what.mode, reply);
  }
  const std::vector<std::uint8_t> whole = replyFrame(what.mode, reply);
  send(Bytes(whole).first(whole.size() / 2));
  return false;
}

bool Conversation::keys(const std::string& sequence) {
  if (!keysOpen_) return false;
  const std::optional<Fault> fault = till_.fault(kKeySequences, faultNameOf(sequence));
  return fault ? spoilKeys(*fault, sequence) : print(till_.press(sequence));
}

/// A sequence that goes wrong. Only what spoils its answer, or cuts the line behind it, lets it be obeyed.
bool Conversation::spoilKeys(const Fault& fault, const std::string& sequence) {
  if (spoilsAnswer(fault.what)) {
    KeyResult result = till_.press(sequence);
    for (LineAnswer& answer : result.answers) ecrsim::spoil(answer, fault.what);
    return print(result);
  }
  if (fault.what == FaultKind::Code) return answer(0, {static_cast<std::int16_t>(fault.code), {}});
  if (fault.what == FaultKind::CutAfter) till_.press(sequence);
  if (fault.what == FaultKind::Garbage) send(std::vector<std::uint8_t>(kGarbageBytes, kAlienByte));
  if (fault.what == FaultKind::Garbage || fault.what == FaultKind::Silence) awaitEnd();
  return false;
}

bool Conversation::print(const KeyResult& result) const {
  if (!answer(0, {result.code, {}})) return false;
  return std::all_of(result.answers.begin(), result.answers.end(),
                     [this](const LineAnswer& one) { return print(one); });
}

/// Block by block, so that a dump takes no more memory than one. The PC looks for the marker at the end of a
/// block: it is never parted, and never stands behind a text that broke off.
bool Conversation::print(const LineAnswer& answer) const {
  std::array<char, kMaxKeys> piece;
  std::uint64_t rest = answer.text->size();
  for (;; rest -= kMaxKeys) {
    const std::size_t count = answer.text->read(piece);
    const std::string_view block(piece.data(), count);
    if (count < std::min<std::uint64_t>(rest, kMaxKeys)) return false;
    if (count < kMaxKeys) return printEnd(block, answer.marker) && !answer.cut;
    if (!sendBlock(block)) return false;
  }
}

bool Conversation::printEnd(std::string_view block, const std::string& marker) const {
  if (block.size() + marker.size() <= kMaxKeys) return sendBlock(std::string(block) + marker);
  return sendBlock(block) && sendBlock(marker);
}

bool Conversation::sendBlock(std::string_view block) const {
  Header head;
  head.kind = FrameType::KeysReply;
  return block.empty() || send(compose(head, byteOf(block)));
}

bool Conversation::answer(std::uint8_t mode, const Reply& reply) const {
  return send(replyFrame(mode, reply));
}

bool Conversation::send(Bytes byte) const {
  return dispatch(socket_, byte, within(till_.wait())) == IoResult::Done;
}

bool Conversation::complete(const HeaderBytes& head, Frame& frame) const {
  std::uint32_t checksum = headerChecksum(head);
  return gather(frame.header.length, frame.data, checksum) && checksum == frame.header.checksum;
}

/// Data, and their checksum behind `checksum`. Memory follows what arrives: a header that announces megabytes
/// takes none.
bool Conversation::gather(std::size_t length, std::vector<std::uint8_t>& data,
                          std::uint32_t& checksum) const {
  std::size_t arrived = 0;
  data.resize(std::min(length, std::max(kFirstRoom, data.capacity())));
  while (arrived < length) {
    if (arrived == data.size()) data.resize(std::min(length, 2 * arrived));
    const std::span<std::uint8_t> rest = std::span(data).subspan(arrived);
    std::size_t count = 0;
    if (receiveSome(socket_, rest, deadline_, count) != IoResult::Done) return false;
    checksum = extendChecksum(checksum, rest.first(count));
    arrived += count;
  }
  return true;
}

/// Holds the line until the other side has had enough.
void Conversation::awaitEnd() const {
  std::array<std::uint8_t, 256> rest;
  std::size_t count = 0;
  while (receiveSome(socket_, rest, within(kEver), count) == IoResult::Done) continue;
}

}  // namespace ecrsim
