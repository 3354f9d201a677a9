#include "bench/fed_line.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <QScopeGuard>
#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <stdexcept>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kMarker = 46;
constexpr int kWait = 10000;
constexpr const char* kCommand = "X\"000101991201\"10F";
constexpr char kCommandEnd = 'F';

/// On the processor: all of the process but the thread that asks.
double othersSeconds() {
  timespec all{};
  timespec taken{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &all);
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &taken);
  return static_cast<double>(all.tv_sec - taken.tv_sec) +
         static_cast<double>(all.tv_nsec - taken.tv_nsec) / 1e9;
}

/// Whether the whole command came in.
bool heard(int line) {
  for (char last = 0; last != kCommandEnd;) {
    pollfd wait{line, POLLIN, 0};
    if (poll(&wait, 1, kWait) <= 0 || read(line, &last, 1) != 1) return false;
  }
  return true;
}

int openDump(const std::filesystem::path& folder) {
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().filename().string().starts_with("DGFE_")) return open(entry.path().c_str(), O_RDONLY);
  return -1;
}

long size(int file) {
  struct stat about {};
  return fstat(file, &about) == 0 ? static_cast<long>(about.st_size) : -1;
}

}  // namespace

FedLine::FedLine(int speed, std::filesystem::path folder) : speed_(speed), folder_(std::move(folder)) {
  std::array<char, 128> name{};
  termios mode{};
  cfmakeraw(&mode);
  mode.c_cflag |= CS8 | CREAD | CLOCAL;
  if (openpty(&ours_, &theirs_, name.data(), &mode, nullptr) != 0) throw std::runtime_error("no line");
  device_ = name.data();
  thread_ = std::thread([this] { feed(); });
}

FedLine::~FedLine() {
  await();
  close(theirs_);
  close(ours_);
}

void FedLine::await() {
  if (thread_.joinable()) thread_.join();
}

double FedLine::processor() {
  await();
  return processor_;
}

double FedLine::behind() {
  await();
  return behind_;
}

void FedLine::feed() {
  if (!heard(ours_)) return;
  const int dump = openDump(folder_);
  const auto closed = qScopeGuard([dump] { close(dump); });
  const long head = size(dump);
  const std::chrono::duration<double> pace(static_cast<double>(kBitsOfCharacter) / speed_);
  const Clock::time_point start = Clock::now();
  const double before = othersSeconds();
  long worst = 0;
  for (int i = 0; i < length(); ++i) {
    std::this_thread::sleep_until(start + std::chrono::duration_cast<Clock::duration>(i * pace));
    worst = std::max(worst, i - (size(dump) - head));
    const char one = i < length() - kMarker ? static_cast<char>('A' + i % 26) : '@';
    if (write(ours_, &one, 1) != 1) return;
  }
  if (head >= 0) behind_ = static_cast<double>(worst) * pace.count();
  processor_ = othersSeconds() - before;
}

void FedLine::copyInto(const std::filesystem::path& file) const {
  const int line = open(device_.c_str(), O_RDWR | O_NOCTTY);
  const int copy = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND, 0644);
  const auto closed = qScopeGuard([&] {
    close(line);
    close(copy);
  });
  const std::string command = kCommand;
  if (write(line, command.data(), command.size()) != static_cast<ssize_t>(command.size()))
    throw std::runtime_error("no command");
  for (int i = 0; i < length(); ++i) {
    char one = 0;
    if (read(line, &one, 1) != 1 || write(copy, &one, 1) != 1) throw std::runtime_error("cut");
  }
}
