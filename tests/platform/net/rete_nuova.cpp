#include "platform/net/rete_nuova.h"

#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFile>
#include <cstring>

namespace {

/// What an ordinary user is on the test machine.
constexpr uid_t kNessuno = 65534;

/// The status that `corpo` gives in a child process, where `prepara` came before it.
int nelFiglio(const std::function<bool()>& prepara, const Corpo& corpo) {
  const pid_t figlio = ::fork();
  if (figlio == 0) ::_exit(prepara() ? corpo().value_or(kNiente) : kNonPreparato);
  int stato = 0;
  EXPECT_EQ(::waitpid(figlio, &stato, 0), figlio);
  return WIFEXITED(stato) ? WEXITSTATUS(stato) : kNonPreparato;
}

bool accendiLoopback() {
  const int presa = ::socket(AF_INET, SOCK_DGRAM, 0);
  ifreq richiesta{};
  std::strcpy(richiesta.ifr_name, "lo");
  richiesta.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool acceso = ::ioctl(presa, SIOCSIFFLAGS, &richiesta) == 0;
  ::close(presa);
  return acceso;
}

}  // namespace

int daUtenteQualunque(const Corpo& corpo) {
  return nelFiglio([] { return ::getuid() != 0 || (::setgid(kNessuno) == 0 && ::setuid(kNessuno) == 0); },
                   corpo);
}

int inReteNuova(const Corpo& corpo, bool loopback) {
  return nelFiglio(
      [loopback] {
        const QByteArray gruppo = "0 " + QByteArray::number(::getgid()) + " 1";
        if (::unshare(::getuid() == 0 ? CLONE_NEWNET : CLONE_NEWNET | CLONE_NEWUSER) != 0) return false;
        if (::getuid() != 0 && !(scriviDiSistema("/proc/self/setgroups", "deny") &&
                                 scriviDiSistema("/proc/self/gid_map", gruppo)))
          return false;
        return !loopback || accendiLoopback();
      },
      corpo);
}

bool scriviDiSistema(const char* file, const QByteArray& testo) {
  QFile uscita(QLatin1String{file});
  return uscita.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && uscita.write(testo) == testo.size();
}
