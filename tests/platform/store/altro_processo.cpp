#include "platform/store/altro_processo.h"

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
    lettura = capi[0];
    scrittura = capi[1];
  }
  int lettura = -1;
  int scrittura = -1;
};

}  // namespace

AltroProcesso::AltroProcesso(const std::function<bool()>& corpo) {
  const Tubo verso;
  const Tubo da;
  figlio_ = ::fork();
  if (figlio_ == 0) {
    ::close(da.lettura);
    ::close(verso.scrittura);
    const char pronto = corpo() ? 1 : 0;
    const bool scritto = ::write(da.scrittura, &pronto, 1) == 1;
    char fine = 0;
    const bool liberato = ::read(verso.lettura, &fine, 1) == 0;  // the parent lets go by closing its end
    ::_exit(scritto && liberato ? 0 : 1);
  }
  EXPECT_GT(figlio_, 0);
  ::close(da.scrittura);
  ::close(verso.lettura);
  lettura_ = da.lettura;
  guinzaglio_ = verso.scrittura;
}

AltroProcesso::~AltroProcesso() {
  if (figlio_ > 0) {
    ::close(guinzaglio_);
    ::waitpid(figlio_, nullptr, 0);
  } else {
    ::close(guinzaglio_);
  }
  ::close(lettura_);
}

bool AltroProcesso::pronto() {
  char pronto = 0;
  return ::read(lettura_, &pronto, 1) == 1 && pronto == 1;
}

void AltroProcesso::uccidi() {
  ::kill(figlio_, SIGKILL);
  ::waitpid(figlio_, nullptr, 0);
  figlio_ = -1;
}

int inUnAltroProcesso(const std::function<int()>& corpo) {
  const Tubo tubo;
  const pid_t figlio = ::fork();
  if (figlio == 0) {
    const int risultato = corpo();
    ::_exit(::write(tubo.scrittura, &risultato, sizeof risultato) == sizeof risultato ? 0 : 1);
  }
  EXPECT_GT(figlio, 0);
  ::close(tubo.scrittura);
  int risultato = -1;
  if (::read(tubo.lettura, &risultato, sizeof risultato) != sizeof risultato) risultato = -1;
  ::close(tubo.lettura);
  ::waitpid(figlio, nullptr, 0);
  return risultato;
}
