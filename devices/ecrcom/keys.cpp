#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <new>
#include <string>

#include "ecrcom/ecrcom_service.h"
#include "ecrcom/result_code.h"
#include "ecrcom/timeouts.h"
#include "platform/ecrcom/ecrcom.h"

// The key-sequence connections: the one kind that stays open from call to call.
namespace {

using namespace ecrcom;

constexpr std::size_t kLinks = 16;
/// Blocks nobody has asked for yet; a till that goes on beyond is cut off.
constexpr std::size_t kPendingBytes = std::size_t{1024} * 1024;
constexpr std::int32_t kMaxTenths = 6000;
constexpr std::chrono::milliseconds kTenth{100};
constexpr std::int32_t kMaxReadyMs = 60000;
/// Taken from the line at a time; room for the longest frame of this connection many times over.
constexpr std::size_t kArrival = std::size_t{64} * 1024;
static_assert(kArrival > kHeaderBytes + kMaxKeys);

class Link {
 public:
  explicit Link(Socket connection) : socket_(std::move(connection)) {}

  std::int16_t send(FrameType kind, std::string_view text) {
    Header head;
    head.kind = kind;
    const Deadline deadline = within(replyTimeout());
    const IoResult dispatched = dispatch(socket_, compose(head, byteOf(text)), deadline);
    return dispatched == IoResult::Done ? reply(deadline) : abort(codeOf(dispatched));
  }

  /// Bytes copied, or a code below 0.
  std::int32_t take(std::span<char> buffer, Deadline deadline) {
    if (!texts_.empty()) return copyFirst(buffer);
    Arrived frame;
    do {
      const std::int16_t code = next(deadline, frame);
      if (code != kDone) return -code;
      if (frame.header.kind != FrameType::KeysReply) return -kGarbledReply;
    } while (frame.data.empty());
    if (frame.data.size() <= buffer.size()) return copy(frame.data, buffer);
    keep(frame.data);
    return copyFirst(buffer);
  }

  /// Whether `take` would come back at once, be it with a failure.
  bool ready(Deadline deadline) {
    if (!texts_.empty()) return true;
    while (look() == Look::Partial) {
      const IoResult outcome = fetch(deadline);
      if (outcome != IoResult::Done) return outcome != IoResult::Expired;
    }
    return true;
  }

 private:
  /// A frame where it arrived; its data stay there until the line is read again.
  struct Arrived {
    Header header;
    Bytes data;
  };
  enum class Look { Whole, Partial, Garbage };

  /// The till's code for what was just sent. Blocks that were already on their way are kept for later.
  std::int16_t reply(Deadline deadline) {
    for (;;) {
      Arrived frame;
      const std::int16_t code = next(deadline, frame);
      if (code != kDone) return abort(code);
      if (frame.header.kind == FrameType::Reply) return frame.header.code;
      if (frame.header.kind != FrameType::KeysReply || !keep(frame.data)) return abort(kGarbledReply);
    }
  }

  /// Hangs up: an answer that came after all would be taken for the next sequence's.
  std::int16_t abort(std::int16_t code) {
    socket_.close();
    return code;
  }

  bool keep(Bytes data) {
    if (!data.empty()) texts_.emplace_back(data.begin(), data.end());
    pending_ += data.size();
    return pending_ <= kPendingBytes;
  }

  static std::int32_t copy(Bytes data, std::span<char> buffer) {
    std::memcpy(buffer.data(), data.data(), data.size());
    return static_cast<std::int32_t>(data.size());
  }

  /// One block a call: the end of a dump is looked for at the end of a block. What does not fit stays.
  std::int32_t copyFirst(std::span<char> buffer) {
    std::vector<std::uint8_t>& first = texts_.front();
    const std::size_t count = std::min(buffer.size(), first.size());
    copy(Bytes(first).first(count), buffer);
    first.erase(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(count));
    if (first.empty()) texts_.pop_front();
    pending_ -= count;
    return static_cast<std::int32_t>(count);
  }

  /// A wait that ends in the middle of a frame keeps what has come for the next one.
  std::int16_t next(Deadline deadline, Arrived& frame) {
    for (;;) {
      switch (look(&frame)) {
        case Look::Whole:
          start_ += kHeaderBytes + frame.data.size();
          return kDone;
        case Look::Garbage:
          return kGarbledReply;
        case Look::Partial:
          break;
      }
      const IoResult outcome = fetch(deadline);
      if (outcome != IoResult::Done) return codeOf(outcome);
    }
  }

  /// More of the line behind what is there; a part of a frame moves to the front.
  IoResult fetch(Deadline deadline) {
    end_ -= start_;
    std::memmove(arrived_.data(), arrived_.data() + start_, end_);
    start_ = 0;
    std::size_t count = 0;
    const IoResult outcome = receiveSome(socket_, std::span(arrived_).subspan(end_), deadline, count);
    end_ += count;
    return outcome;
  }

  /// What the bytes not taken yet begin with.
  Look look(Arrived* frame = nullptr) const {
    const Bytes rest = Bytes(arrived_).subspan(start_, end_ - start_);
    if (!canBeFrame(rest)) return Look::Garbage;
    if (rest.size() < kHeaderBytes) return Look::Partial;
    HeaderBytes head;
    std::copy_n(rest.begin(), kHeaderBytes, head.begin());
    const std::optional<Header> read = parseHeader(head);
    if (!read || read->length > kMaxKeys) return Look::Garbage;
    if (rest.size() < kHeaderBytes + read->length) return Look::Partial;
    if (!frame) return Look::Whole;
    const Bytes data = rest.subspan(kHeaderBytes, read->length);
    if (extendChecksum(headerChecksum(head), data) != read->checksum) return Look::Garbage;
    *frame = {*read, data};
    return Look::Whole;
  }

  Socket socket_;
  /// From `start_` to `end_`: what came from the line and was not taken yet.
  std::vector<std::uint8_t> arrived_ = std::vector<std::uint8_t>(kArrival);
  std::size_t start_ = 0;
  std::size_t end_ = 0;
  std::deque<std::vector<std::uint8_t>> texts_;
  std::size_t pending_ = 0;
};

std::mutex mutex;
std::array<std::shared_ptr<Link>, kLinks> links;

/// The connection of a handle, or null.
std::shared_ptr<Link> link(std::int32_t handle) {
  const std::lock_guard lock(mutex);
  if (handle < 1 || static_cast<std::size_t>(handle) > kLinks) return nullptr;
  return links[static_cast<std::size_t>(handle) - 1];
}

std::int32_t registerFunction(std::shared_ptr<Link> fresh) {
  const std::lock_guard lock(mutex);
  const auto free = std::find(links.begin(), links.end(), nullptr);
  if (free == links.end()) return -kTooManyConnections;
  *free = std::move(fresh);
  return static_cast<std::int32_t>(free - links.begin()) + 1;
}

std::int32_t open(const char* ip) {
  const std::optional<in_addr> till = ip == nullptr ? std::nullopt : address(ip);
  if (!till) return -kBadAddress;
  Socket connection;
  const IoResult connected = connect(*till, within(connectTimeout()), connection);
  if (connected != IoResult::Done) return -codeOf(connected);
  auto fresh = std::make_shared<Link>(std::move(connection));
  const std::int16_t code = fresh->send(FrameType::OpenKeys, {});
  return code == kDone ? registerFunction(std::move(fresh)) : -std::abs(code);
}

}  // namespace

int32_t ecr_conn_xonxoff_ntw(char* ip) try { return open(ip); } catch (...) {
  return -kNoResources;
}

int16_t ecr_disc_xonxoff_ntw(int32_t handle) {
  const std::lock_guard lock(mutex);
  if (handle < 1 || static_cast<std::size_t>(handle) > kLinks) return kBadHandle;
  std::shared_ptr<Link>& place = links[static_cast<std::size_t>(handle) - 1];
  if (place == nullptr) return kBadHandle;
  place.reset();
  return kDone;
}

int16_t ecr_send_xonxoff_ntw(int32_t handle, char* text) try {
  const std::shared_ptr<Link> open = link(handle);
  if (open == nullptr) return kBadHandle;
  if (text == nullptr || std::strlen(text) > kMaxKeys) return kBadText;
  return open->send(FrameType::Keys, text);
} catch (...) {
  return kNoResources;
}

int32_t ecr_recv_xonxoff_ntw(int32_t handle, char* buffer, int32_t length, int32_t timeout) try {
  const std::shared_ptr<Link> open = link(handle);
  if (open == nullptr || buffer == nullptr || length <= 0) return -kBadHandle;
  const auto wait = kTenth * std::clamp(timeout, 0, kMaxTenths);
  return open->take({buffer, static_cast<std::size_t>(length)}, within(wait));
} catch (...) {
  return -kNoResources;
}

int32_t ecr_ready_xonxoff_ntw(int32_t handle, int32_t wait_ms) try {
  const std::shared_ptr<Link> open = link(handle);
  if (open == nullptr) return 0;
  return open->ready(within(std::chrono::milliseconds(std::clamp(wait_ms, 1, kMaxReadyMs)))) ? 1 : 0;
} catch (...) {
  return 0;
}
