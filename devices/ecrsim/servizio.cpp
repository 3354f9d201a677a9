#include "ecrsim/servizio.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "ecrsim/dialogo.h"

namespace ecrsim {
namespace {

using ecrcom::Presa;

constexpr std::uint32_t kReteLocale = 127;
constexpr int kCoda = 64;
/// Pause before the next try when the process has no descriptor left.
constexpr std::chrono::milliseconds kRespiro{10};
/// How long the other side of a connection that has ended may take to close its own end.
constexpr std::chrono::milliseconds kCongedo{1000};

[[noreturn]] void fallisci(int errore, const std::string& indirizzo) {
  throw std::system_error(errore, std::generic_category(), "ecrsim " + indirizzo);
}

Presa ascolta(const std::string& testo) {
  const std::optional<in_addr> indirizzo = indirizzoLocale(testo);
  if (!indirizzo) fallisci(EADDRNOTAVAIL, testo);
  sockaddr_in dove{};
  dove.sin_family = AF_INET;
  dove.sin_port = htons(ecrcom::kPorta);
  dove.sin_addr = *indirizzo;
  Presa presa(socket(AF_INET, SOCK_STREAM, 0));
  if (!presa.aperta()) fallisci(errno, testo);
  const int si = 1;
  setsockopt(presa.descrittore(), SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
  if (bind(presa.descrittore(), reinterpret_cast<sockaddr*>(&dove), sizeof dove) != 0) fallisci(errno, testo);
  if (listen(presa.descrittore(), kCoda) != 0) fallisci(errno, testo);
  // Waiting in accept(), not in poll(), each connection wakes one thread.
  fcntl(presa.descrittore(), F_SETFL, fcntl(presa.descrittore(), F_GETFL) & ~O_NONBLOCK);
  return presa;
}

}  // namespace

std::optional<in_addr> indirizzoLocale(const std::string& testo) {
  const std::optional<in_addr> indirizzo = ecrcom::indirizzo(testo);
  return indirizzo && ntohl(indirizzo->s_addr) >> 24U == kReteLocale ? indirizzo : std::nullopt;
}

Servizio::Servizio(const std::string& indirizzo, Registratore& registratore)
    : registratore_(registratore), ascolto_(ascolta(indirizzo)) {
  const std::lock_guard guardia(serratura_);
  assumi();
}

Servizio::~Servizio() {
  {
    const std::lock_guard guardia(serratura_);
    chiude_ = true;
    shutdown(ascolto_.descrittore(), SHUT_RDWR);
    for (Addetto& uno : addetti_)
      if (uno.presa.aperta()) shutdown(uno.presa.descrittore(), SHUT_RDWR);
  }
  for (Addetto& uno : addetti_) uno.filo.join();
}

/// With the lock held. A thread that cannot be had is one connection served later.
void Servizio::assumi() {
  Addetto& nuovo = addetti_.emplace_back();
  try {
    nuovo.filo = std::thread([this, &nuovo] { lavora(nuovo); });
    ++liberi_;
  } catch (const std::system_error&) {
    addetti_.pop_back();
  }
}

void Servizio::lavora(Addetto& addetto) {
  for (;;) {
    Presa presa(accept(ascolto_.descrittore(), nullptr, nullptr));
    if (!presa.aperta() && (errno == EMFILE || errno == ENFILE)) std::this_thread::sleep_for(kRespiro);
    if (prendi(addetto, std::move(presa))) {
      Dialogo(addetto.presa, registratore_, addetto.deposito).conduci();
      addetto.presa.congeda(ecrcom::fra(kCongedo));
    }
    const std::lock_guard guardia(serratura_);
    if (chiude_) return;
    if (addetto.presa.aperta()) ++liberi_;
    addetto.presa.chiudi();
  }
}

bool Servizio::prendi(Addetto& addetto, Presa presa) {
  const std::lock_guard guardia(serratura_);
  if (chiude_ || !presa.aperta()) return false;
  addetto.presa = std::move(presa);
  if (--liberi_ == 0) assumi();
  return true;
}

}  // namespace ecrsim
