#include "platform/store/other_process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace {

struct Tubo {
  Tubo() {
    std::array<int, 2> capi{};
    EXPECT_EQ(::pipe(capi.data()), 0);
    reading = capi[0];
    scrittura = capi[1];
  }
  int reading = -1;
  int scrittura = -1;
};

}  // namespace

OtherProcess::OtherProcess(const std::function<bool()>& body) {
  const Tubo direction;
  const Tubo from;
  figlio_ = ::fork();
  if (figlio_ == 0) {
    ::close(from.reading);
    ::close(direction.scrittura);
    const char ready = body() ? 1 : 0;
    const bool written = ::write(from.scrittura, &ready, 1) == 1;
    char end = 0;
    const bool liberato = ::read(direction.reading, &end, 1) == 0;  // the parent lets go by closing its end
    ::_exit(written && liberato ? 0 : 1);
  }
  EXPECT_GT(figlio_, 0);
  ::close(from.scrittura);
  ::close(direction.reading);
  reading_ = from.reading;
  guinzaglio_ = direction.scrittura;
}

OtherProcess::~OtherProcess() {
  if (figlio_ > 0) {
    ::close(guinzaglio_);
    ::waitpid(figlio_, nullptr, 0);
  } else {
    ::close(guinzaglio_);
  }
  ::close(reading_);
}

bool OtherProcess::ready() {
  char ready = 0;
  return ::read(reading_, &ready, 1) == 1 && ready == 1;
}

void OtherProcess::uccidi() {
  ::kill(figlio_, SIGKILL);
  ::waitpid(figlio_, nullptr, 0);
  figlio_ = -1;
}

int inOneOtherProcess(const std::function<int()>& body) {
  const Tubo tubo;
  const pid_t figlio = ::fork();
  if (figlio == 0) {
    const int result = body();
    ::_exit(::write(tubo.scrittura, &result, sizeof result) == sizeof result ? 0 : 1);
  }
  EXPECT_GT(figlio, 0);
  ::close(tubo.scrittura);
  int result = -1;
  if (::read(tubo.reading, &result, sizeof result) != sizeof result) result = -1;
  ::close(tubo.reading);
  ::waitpid(figlio, nullptr, 0);
  return result;
}
