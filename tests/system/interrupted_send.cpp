#include "system/interrupted_send.h"

#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace {

std::size_t restano = 0;
bool contato = false;

ssize_t manda(int presa, const void* byte, std::size_t quanti, int modo) {
  return syscall(SYS_sendto, presa, byte, quanti, modo, nullptr, 0);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t send(int presa, const void* byte, size_t quanti,
                                                               int modo) {
  if (!contato || quanti < restano) {
    if (contato) restano -= quanti;
    return manda(presa, byte, quanti, modo);
  }
  while (restano > 0) {
    const ssize_t mandati = manda(presa, byte, restano, modo);
    if (mandati <= 0) break;
    byte = static_cast<const char*>(byte) + mandati;
    restano -= std::min(restano, static_cast<std::size_t>(mandati));
  }
  return raise(SIGKILL);
}

namespace invio_interrotto {

void muoriDopo(std::size_t byte) {
  contato = byte > 0;
  restano = byte;
}

}  // namespace invio_interrotto
