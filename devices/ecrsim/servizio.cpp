#include "ecrsim/servizio.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <system_error>

#include "ecrsim/dialogo.h"

namespace ecrsim {
namespace {

using ecrcom::Presa;

constexpr std::uint32_t kReteLocale = 127;
constexpr int kCoda = 64;
/// How long a connection that has ended may still be read away.
constexpr std::chrono::milliseconds kCongedo{1000};

[[noreturn]] void fallisci(int errore, const std::string& indirizzo) {
  throw std::system_error(errore, std::generic_category(), "ecrsim " + indirizzo);
}

in_addr indirizzoLocale(const std::string& testo) {
  const std::optional<in_addr> indirizzo = ecrcom::indirizzo(testo);
  if (!indirizzo || ntohl(indirizzo->s_addr) >> 24U != kReteLocale) fallisci(EADDRNOTAVAIL, testo);
  return *indirizzo;
}

Presa ascolta(const std::string& testo) {
  sockaddr_in dove{};
  dove.sin_family = AF_INET;
  dove.sin_port = htons(ecrcom::kPorta);
  dove.sin_addr = indirizzoLocale(testo);
  Presa presa(socket(AF_INET, SOCK_STREAM, 0));
  if (!presa.aperta()) fallisci(errno, testo);
  const int si = 1;
  setsockopt(presa.descrittore(), SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
  if (bind(presa.descrittore(), reinterpret_cast<sockaddr*>(&dove), sizeof dove) != 0) fallisci(errno, testo);
  if (listen(presa.descrittore(), kCoda) != 0) fallisci(errno, testo);
  return presa;
}

}  // namespace

Servizio::Servizio(const std::string& indirizzo, Registratore& registratore)
    : registratore_(registratore), ascolto_(ascolta(indirizzo)), filo_([this] { accetta(); }) {}

Servizio::~Servizio() {
  {
    const std::lock_guard guardia(serratura_);
    chiude_ = true;
    shutdown(ascolto_.descrittore(), SHUT_RDWR);
    for (Collegamento& uno : collegamenti_)
      if (uno.presa.aperta()) shutdown(uno.presa.descrittore(), SHUT_RDWR);
  }
  filo_.join();
  for (Collegamento& uno : collegamenti_) uno.filo.join();
}

void Servizio::accetta() {
  while (ecrcom::attendi(ascolto_, POLLIN, std::nullopt) == ecrcom::Esito::Fatto) {
    const int descrittore = accept(ascolto_.descrittore(), nullptr, nullptr);
    const int errore = errno;
    const std::lock_guard guardia(serratura_);
    if (chiude_) {
      if (descrittore >= 0) Presa(descrittore).chiudi();
      return;
    }
    raccogli();
    if (descrittore >= 0)
      accogli(descrittore);
    else if (errore == EINVAL || errore == EBADF)
      return;
  }
}

void Servizio::accogli(int descrittore) {
  Collegamento& nuovo = collegamenti_.emplace_back();
  nuovo.presa = Presa(descrittore);
  try {
    nuovo.filo = std::thread([this, &nuovo] { servi(nuovo); });
  } catch (const std::system_error&) {
    collegamenti_.pop_back();
  }
}

void Servizio::servi(Collegamento& collegamento) {
  Dialogo(collegamento.presa, registratore_).conduci();
  ::shutdown(collegamento.presa.descrittore(), SHUT_WR);
  const std::lock_guard guardia(serratura_);
  collegamento.presa.chiudi();
  collegamento.finito = true;
}

void Servizio::raccogli() {
  for (auto uno = collegamenti_.begin(); uno != collegamenti_.end();) {
    if (uno->finito) {
      uno->filo.join();
      uno = collegamenti_.erase(uno);
    } else {
      ++uno;
    }
  }
}

}  // namespace ecrsim
