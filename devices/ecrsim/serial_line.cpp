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

#include "ecrsim/key_faults.h"

namespace ecrsim {
namespace {

/// Silence after which keys have come to rest: a sequence has no end mark on this line.
constexpr int kRestMs = 300;
/// How long a line that nobody reads is waited for.
constexpr int kPatienceMs = 10000;
constexpr std::size_t kPiece = 1024;
constexpr std::size_t kNoise = 256;
constexpr char kAlien = 'U';
constexpr char kAbort = 'Z';
/// Flow control: a pseudo-terminal has its own.
constexpr char kXon = 0x11;
constexpr char kXoff = 0x13;

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

}  // namespace

SerialLine::SerialLine(std::string link, Till& till) : link_(std::move(link)), till_(till) {
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
  port_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (port_ < 0 || grantpt(port_) != 0 || unlockpt(port_) != 0 || pipe(waker_) != 0) fail("seriale");
  const char* const name = ptsname(port_);
  if (name == nullptr) fail("seriale");
  pc_ = ::open(name, O_RDWR | O_NOCTTY);
  if (pc_ < 0) fail(name);
  raw(pc_);
  // A line that nobody reads must not hold the thread for ever.
  fcntl(port_, F_SETFL, fcntl(port_, F_GETFL) | O_NONBLOCK);
  errno = EEXIST;
  if (!replaceable(link_)) fail(link_);
  unlink(link_.c_str());
  if (symlink(name, link_.c_str()) != 0) fail(link_);
}

void SerialLine::close() {
  for (int* const one : {&port_, &pc_, &waker_[0], &waker_[1]})
    if (*one >= 0) ::close(std::exchange(*one, -1));
}

void SerialLine::listen() {
  for (;;) {
    const bool waiting = parser_.insideText() || till_.waits();
    std::array<pollfd, 2> waits{pollfd{port_, POLLIN, 0}, pollfd{waker_[0], POLLIN, 0}};
    const int count = poll(waits.data(), waits.size(), waiting ? kRestMs : -1);
    if (count < 0 && errno != EINTR) return;
    if (waits[1].revents != 0) return;
    if (count == 0) rest();
    if (count <= 0) continue;
    std::array<char, 256> byte;
    const ssize_t read = ::read(port_, byte.data(), byte.size());
    if (read <= 0 && errno != EAGAIN && errno != EINTR) return;
    for (ssize_t i = 0; i < read; ++i) arrived(byte[static_cast<std::size_t>(i)]);
  }
}

void SerialLine::arrived(char character) {
  if (character == kXon || character == kXoff) return;
  if (character == '\r' || character == '\n') return rest();
  if (const auto stroke = parser_.feed(character)) press(*stroke);
}

/// A text without its closing quotes would swallow all that follows.
void SerialLine::rest() {
  if (const auto stroke = parser_.end()) press(*stroke);
  till_.pause();
}

void SerialLine::press(const Stroke& stroke) {
  const std::optional<Fault> fault = till_.fault(kKeySequences, faultNameOf(stroke));
  if (fault && !spoilsAnswer(fault->what) && fault->what != FaultKind::CutAfter) {
    if (fault->what == FaultKind::Garbage) send(std::string(kNoise, kAlien));
    return;
  }
  KeyResult result = till_.press(stroke);
  if (fault && fault->what == FaultKind::CutAfter) return;
  abort_ = false;
  for (LineAnswer& answer : result.answers) {
    if (fault) spoil(answer, fault->what);
    if (!print(answer)) return;
  }
}

/// The command back, then what it prints.
bool SerialLine::print(const LineAnswer& answer) {
  if (!send(answer.command)) return false;
  if (answer.what == LineAnswer::What::Dump && !send("\r\n")) return false;
  std::array<char, kPiece> piece;
  for (std::uint64_t rest = answer.text->size(); rest > 0;) {
    const std::size_t count = answer.text->read(piece);
    // A text that broke off has no end.
    if (count == 0 || !send({piece.data(), count})) return false;
    rest -= count;
  }
  return send(answer.marker);
}

/// False once the dump is aborted, the line goes, or nobody reads it.
bool SerialLine::send(std::string_view text) {
  while (!text.empty()) {
    if (!goesOn(0, 0)) return false;
    const ssize_t written = write(port_, text.data(), text.size());
    if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    if (written < 0 && errno == EAGAIN && !goesOn(POLLOUT, kPatienceMs)) return false;
    if (written < 0 && errno != EAGAIN && errno != EINTR) return false;
  }
  return true;
}

/// Waits for the event and reads what the PC says meanwhile: while it prints, the till hears the abort alone.
bool SerialLine::goesOn(short event, int wait) {
  for (;;) {
    std::array<pollfd, 2> waits{pollfd{port_, static_cast<short>(POLLIN | event), 0},
                                pollfd{waker_[0], POLLIN, 0}};
    const int count = poll(waits.data(), waits.size(), wait);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0 && event == 0;
    if (waits[1].revents != 0) return false;
    char character = 0;
    if ((waits[0].revents & POLLIN) != 0 && ::read(port_, &character, 1) == 1) {
      const bool second = abort_ && character == kAbort;
      abort_ = character == kAbort;
      if (second) return false;
    }
    if (event != 0 && (waits[0].revents & event) != 0) return true;
  }
}

}  // namespace ecrsim
