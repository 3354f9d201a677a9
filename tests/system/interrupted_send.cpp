#include "system/interrupted_send.h"

#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace {

std::size_t left = 0;
bool counted = false;

ssize_t deliver(int socket, const void* bytes, std::size_t count, int flags) {
  return syscall(SYS_sendto, socket, bytes, count, flags, nullptr, 0);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t send(int socket, const void* bytes, size_t count,
                                                               int flags) {
  if (!counted || count < left) {
    if (counted) left -= count;
    return deliver(socket, bytes, count, flags);
  }
  while (left > 0) {
    const ssize_t sent = deliver(socket, bytes, left, flags);
    if (sent <= 0) break;
    bytes = static_cast<const char*>(bytes) + sent;
    left -= std::min(left, static_cast<std::size_t>(sent));
  }
  return raise(SIGKILL);
}

namespace interrupted_send {

void dieAfter(std::size_t bytes) {
  counted = bytes > 0;
  left = bytes;
}

}  // namespace interrupted_send
