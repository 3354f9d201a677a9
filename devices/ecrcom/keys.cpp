#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <string>

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
    while (texts_.empty()) {
      Frame frame;
      const std::int16_t code = next(deadline, frame);
      if (code != kDone) return -code;
      if (frame.header.kind != FrameType::KeysReply) return -kGarbledReply;
      keep(frame);
    }
    return copyFirst(buffer);
  }

 private:
  /// The till's code for what was just sent. Blocks that were already on their way are kept for later.
  std::int16_t reply(Deadline deadline) {
    for (;;) {
      Frame frame;
      const std::int16_t code = next(deadline, frame);
      if (code != kDone) return abort(code);
      if (frame.header.kind == FrameType::Reply) return frame.header.code;
      if (frame.header.kind != FrameType::KeysReply || !keep(frame)) return abort(kGarbledReply);
    }
  }

  /// Hangs up: an answer that came after all would be taken for the next sequence's.
  std::int16_t abort(std::int16_t code) {
    socket_.close();
    return code;
  }

  bool keep(const Frame& frame) {
    if (!frame.data.empty()) texts_.push_back(frame.data);
    pending_ += frame.data.size();
    return pending_ <= kPendingBytes;
  }

  /// One block a call: the end of a dump is looked for at the end of a block. What does not fit stays.
  std::int32_t copyFirst(std::span<char> buffer) {
    std::vector<std::uint8_t>& first = texts_.front();
    const std::size_t count = std::min(buffer.size(), first.size());
    std::memcpy(buffer.data(), first.data(), count);
    first.erase(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(count));
    if (first.empty()) texts_.erase(texts_.begin());
    pending_ -= count;
    return static_cast<std::int32_t>(count);
  }

  /// A wait that ends in the middle of a frame keeps what has come for the next one.
  std::int16_t next(Deadline deadline, Frame& frame) {
    while (!extract(frame)) {
      if (!mightBecomeOne()) return kGarbledReply;
      std::array<std::uint8_t, 4096> piece;
      std::size_t count = 0;
      const IoResult outcome = receiveSome(socket_, piece, deadline, count);
      if (outcome != IoResult::Done) return codeOf(outcome);
      arrived_.insert(arrived_.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(count));
    }
    return kDone;
  }

  bool extract(Frame& frame) {
    std::optional<ReadFrame> read = parseFrame(arrived_);
    if (!read) return false;
    frame = std::move(read->frame);
    arrived_.erase(arrived_.begin(), arrived_.begin() + static_cast<std::ptrdiff_t>(read->length));
    return true;
  }

  /// Whether what has arrived is the beginning of a frame that is not there whole yet.
  bool mightBecomeOne() const {
    if (!canBeFrame(arrived_)) return false;
    if (arrived_.size() < kHeaderBytes) return true;
    HeaderBytes head;
    std::copy_n(arrived_.begin(), kHeaderBytes, head.begin());
    const std::optional<Header> read = parseHeader(head);
    return read && read->length <= kMaxKeys && arrived_.size() < kHeaderBytes + read->length;
  }

  Socket socket_;
  std::vector<std::uint8_t> arrived_;
  std::vector<std::vector<std::uint8_t>> texts_;
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
  const std::optional<in_addr> direction = ip == nullptr ? std::nullopt : address(ip);
  if (!direction) return -kBadAddress;
  Socket connection;
  const IoResult connected = connect(*direction, within(connectTimeout()), connection);
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
