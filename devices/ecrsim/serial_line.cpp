#include "ecrsim/serial_line.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>

#include "ecrsim/keys.h"

namespace ecrsim {
namespace {

/// A sequence has no end mark on the line: what it asks for is recognised as soon as its last key is there,
/// and what is no sequence must not grow for ever.
constexpr std::size_t kMaxSequence = 1024;

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), "ecrsim " + what);
}

void raw(int descriptor) {
  termios modes{};
  if (tcgetattr(descriptor, &modes) != 0) return;
  cfmakeraw(&modes);
  tcsetattr(descriptor, TCSANOW, &modes);
}

bool replaceable(const std::string& name) {
  struct stat data {};
  return lstat(name.c_str(), &data) != 0 || S_ISLNK(data.st_mode);
}

void writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

SerialLine::SerialLine(std::string link, Press press) : link_(std::move(link)), press_(std::move(press)) {
  try {
    open();
    thread_ = std::thread([this] { listen(); });
  } catch (...) {
    close();
    throw;
  }
}

SerialLine::~SerialLine() {
  ::close(std::exchange(waker_[1], -1));
  thread_.join();
  unlink(link_.c_str());
  close();
}

void SerialLine::open() {
  till_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (till_ < 0 || grantpt(till_) != 0 || unlockpt(till_) != 0 || pipe(waker_) != 0) fail("seriale");
  const char* const name = ptsname(till_);
  if (name == nullptr) fail("seriale");
  pc_ = ::open(name, O_RDWR | O_NOCTTY);
  if (pc_ < 0) fail(name);
  raw(pc_);
  // A line that nobody reads must not hold the thread for ever.
  fcntl(till_, F_SETFL, fcntl(till_, F_GETFL) | O_NONBLOCK);
  errno = EEXIST;
  if (!replaceable(link_)) fail(link_);
  unlink(link_.c_str());
  if (symlink(name, link_.c_str()) != 0) fail(link_);
}

void SerialLine::close() {
  for (int* const one : {&till_, &pc_, &waker_[0], &waker_[1]})
    if (*one >= 0) ::close(std::exchange(*one, -1));
}

void SerialLine::listen() {
  for (;;) {
    std::array<pollfd, 2> waits{pollfd{till_, POLLIN, 0}, pollfd{waker_[0], POLLIN, 0}};
    if (poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) return;
    if (waits[1].revents != 0) return;
    std::array<char, 256> byte;
    const ssize_t count = ::read(till_, byte.data(), byte.size());
    if (count <= 0 && errno != EAGAIN && errno != EINTR) return;
    for (ssize_t i = 0; i < count; ++i) arrived(byte[static_cast<std::size_t>(i)]);
  }
}

/// On the serial line the till gives the sequence back before what it prints.
void SerialLine::arrived(char character) {
  if (character == '\r' || character == '\n' || sequence_.size() >= kMaxSequence) {
    sequence_.clear();
    return;
  }
  sequence_ += character;
  const std::string_view reading = kReadState;
  if (!std::string_view(sequence_).ends_with(reading)) return;
  sequence_.clear();
  writeAll(till_, std::string(reading) + press_(std::string(reading)));
}

}  // namespace ecrsim
