#include "ecrsim/conversation.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "ecrcom/codes.h"
#include "ecrsim/keys.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

using namespace ecrcom;

constexpr std::chrono::hours kEver{24 * 365};
constexpr std::size_t kGarbageBytes = 256;
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
    std::vector<std::uint8_t> target(what.length / 2);
    if (receive(socket_, target, deadline_) == IoResult::Done)
      till_.note(what.mode, what.name, target.size());
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
  const KeyResult outcome = press(till_, sequence);
  if (!answer(0, {outcome.code, {}})) return false;
  Header head;
  head.kind = FrameType::KeysReply;
  for (Bytes rest = byteOf(outcome.text); !rest.empty();) {
    const Bytes block = rest.first(std::min(rest.size(), kMaxKeys));
    if (!send(compose(head, block))) return false;
    rest = rest.subspan(block.size());
  }
  return true;
}

bool Conversation::answer(std::uint8_t mode, const Reply& reply) const {
  return send(replyFrame(mode, reply));
}

bool Conversation::send(Bytes byte) const {
  return dispatch(socket_, byte, within(till_.wait())) == IoResult::Done;
}

bool Conversation::complete(const HeaderBytes& head, Frame& frame) const {
  return receiveData(socket_, head, deadline_, frame) == IoResult::Done;
}

/// Holds the line until the other side has had enough.
void Conversation::awaitEnd() const {
  std::array<std::uint8_t, 256> rest;
  std::size_t count = 0;
  while (receiveSome(socket_, rest, within(kEver), count) == IoResult::Done) continue;
}

}  // namespace ecrsim
