#include "platform/net/new_namespace.h"

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

/// The status that `body` gives in a child process, where `prepare` came before it.
int inFiglio(const std::function<bool()>& prepare, const Body& body) {
  const pid_t figlio = ::fork();
  if (figlio == 0) ::_exit(prepare() ? body().value_or(kNiente) : kNotPreparato);
  int state = 0;
  EXPECT_EQ(::waitpid(figlio, &state, 0), figlio);
  return WIFEXITED(state) ? WEXITSTATUS(state) : kNotPreparato;
}

bool accendiLoopback() {
  const int connection = ::socket(AF_INET, SOCK_DGRAM, 0);
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool on = ::ioctl(connection, SIOCSIFFLAGS, &request) == 0;
  ::close(connection);
  return on;
}

}  // namespace

int fromUserQualunque(const Body& body) {
  return inFiglio([] { return ::getuid() != 0 || (::setgid(kNessuno) == 0 && ::setuid(kNessuno) == 0); },
                  body);
}

int inNetworkFresh(const Body& body, bool loopback) {
  return inFiglio(
      [loopback] {
        const QByteArray group = "0 " + QByteArray::number(::getgid()) + " 1";
        if (::unshare(::getuid() == 0 ? CLONE_NEWNET : CLONE_NEWNET | CLONE_NEWUSER) != 0) return false;
        if (::getuid() != 0 &&
            !(writeOfSystem("/proc/self/setgroups", "deny") && writeOfSystem("/proc/self/gid_map", group)))
          return false;
        return !loopback || accendiLoopback();
      },
      body);
}

bool writeOfSystem(const char* file, const QByteArray& text) {
  QFile output(QLatin1String{file});
  return output.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && output.write(text) == text.size();
}
