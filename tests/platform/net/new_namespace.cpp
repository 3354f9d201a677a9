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
constexpr uid_t kNobody = 65534;

/// The status that `body` gives in a child process, where `prepare` came before it.
int inChild(const std::function<bool()>& prepare, const Body& body) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(prepare() ? body().value_or(kNothing) : kNotPrepared);
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : kNotPrepared;
}

bool switchLoopbackOn() {
  const int connection = ::socket(AF_INET, SOCK_DGRAM, 0);
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool on = ::ioctl(connection, SIOCSIFFLAGS, &request) == 0;
  ::close(connection);
  return on;
}

}  // namespace

int asOrdinaryUser(const Body& body) {
  return inChild([] { return ::getuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0); }, body);
}

int inFreshNetwork(const Body& body, bool loopback) {
  return inChild(
      [loopback] {
        const QByteArray group = "0 " + QByteArray::number(::getgid()) + " 1";
        if (::unshare(::getuid() == 0 ? CLONE_NEWNET : CLONE_NEWNET | CLONE_NEWUSER) != 0) return false;
        if (::getuid() != 0 && !(writeSystemFile("/proc/self/setgroups", "deny") &&
                                 writeSystemFile("/proc/self/gid_map", group)))
          return false;
        return !loopback || switchLoopbackOn();
      },
      body);
}

bool writeSystemFile(const char* file, const QByteArray& text) {
  QFile output(QLatin1String{file});
  return output.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && output.write(text) == text.size();
}
