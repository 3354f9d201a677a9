#include "ecrsim/listener.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

#include "ecrsim/conversation.h"

namespace ecrsim {
namespace {

using ecrcom::Socket;

constexpr std::uint32_t kLoopbackNet = 127;
constexpr int kBacklog = 64;
/// Threads that may wait for a connection at once: a PC's commands come one after the other.
constexpr int kMaxFree = 4;
/// What a thread keeps of its buffer from one connection to the next: room for the largest file that tills
/// know.
constexpr std::size_t kKeptBytes = std::size_t{256} * 1024;
/// Pause before the next try when the process has no descriptor left.
constexpr std::chrono::milliseconds kPause{10};
/// How long the other side of a connection that has ended may take to close its own end.
constexpr std::chrono::milliseconds kFarewell{1000};

[[noreturn]] void fail(int error, const std::string& address) {
  throw std::system_error(error, std::generic_category(), "ecrsim " + address);
}

Socket listen(const std::string& text) {
  const std::optional<in_addr> address = loopbackAddress(text);
  if (!address) fail(EADDRNOTAVAIL, text);
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(ecrcom::kPort);
  where.sin_addr = *address;
  Socket connection(socket(AF_INET, SOCK_STREAM, 0));
  if (!connection.isOpen()) fail(errno, text);
  const int yes = 1;
  setsockopt(connection.descriptor(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  if (bind(connection.descriptor(), reinterpret_cast<sockaddr*>(&where), sizeof where) != 0)
    fail(errno, text);
  if (::listen(connection.descriptor(), kBacklog) != 0) fail(errno, text);
  // Waiting in accept(), not in poll(), each connection wakes one thread.
  fcntl(connection.descriptor(), F_SETFL, fcntl(connection.descriptor(), F_GETFL) & ~O_NONBLOCK);
  return connection;
}

}  // namespace

std::optional<in_addr> loopbackAddress(const std::string& text) {
  const std::optional<in_addr> address = ecrcom::address(text);
  return address && ntohl(address->s_addr) >> 24U == kLoopbackNet ? address : std::nullopt;
}

Listener::Listener(const std::string& address, Till& till) : till_(till), listener_(listen(address)) {
  const std::lock_guard lock(mutex_);
  addWorker();
}

Listener::~Listener() {
  {
    const std::lock_guard lock(mutex_);
    closes_ = true;
    shutdown(listener_.descriptor(), SHUT_RDWR);
    for (Worker& one : workers_)
      if (one.connection.isOpen()) shutdown(one.connection.descriptor(), SHUT_RDWR);
  }
  // From here on no thread starts, and none moves from one list to the other.
  for (Workers* const all : {&workers_, &ended_})
    for (Worker& one : *all) one.thread.join();
}

/// With the lock held. A thread that cannot be had is one connection served later.
void Listener::addWorker() {
  const auto fresh = workers_.emplace(workers_.end());
  try {
    fresh->thread = std::thread([this, fresh] { work(fresh); });
    ++free_;
  } catch (const std::system_error&) {
    workers_.erase(fresh);
  }
}

void Listener::work(Workers::iterator worker) {
  std::vector<std::uint8_t> buffer;
  for (bool stays = true; stays;) {
    Socket connection(accept(listener_.descriptor(), nullptr, nullptr));
    if (!connection.isOpen() && (errno == EMFILE || errno == ENFILE)) std::this_thread::sleep_for(kPause);
    if (take(*worker, std::move(connection))) {
      Conversation(worker->connection, till_, buffer).run();
      // A conversation that ended within a frame left the buffer there.
      buffer.clear();
      if (buffer.capacity() > kKeptBytes) buffer = std::vector<std::uint8_t>();
      worker->connection.dismiss(ecrcom::within(kFarewell));
    }
    stays = release(worker);
  }
}

bool Listener::take(Worker& worker, Socket connection) {
  const std::lock_guard lock(mutex_);
  if (closes_ || !connection.isOpen()) return false;
  worker.connection = std::move(connection);
  if (--free_ == 0) addWorker();
  return true;
}

bool Listener::release(Workers::iterator worker) {
  Workers before;
  {
    const std::lock_guard lock(mutex_);
    if (closes_) return false;
    if (!worker->connection.isOpen()) return true;
    worker->connection.close();
    if (free_ < kMaxFree) {
      ++free_;
      return true;
    }
    before.swap(ended_);
    ended_.splice(ended_.end(), workers_, worker);
  }
  for (Worker& one : before) one.thread.join();
  return false;
}

}  // namespace ecrsim
