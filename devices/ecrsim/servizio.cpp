#include "ecrsim/servizio.h"

#include <arpa/inet.h>
#include <poll.h>
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
  return presa;
}

}  // namespace

std::optional<in_addr> indirizzoLocale(const std::string& testo) {
  const std::optional<in_addr> indirizzo = ecrcom::indirizzo(testo);
  return indirizzo && ntohl(indirizzo->s_addr) >> 24U == kReteLocale ? indirizzo : std::nullopt;
}

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
    if (descrittore < 0 && (errno == EMFILE || errno == ENFILE)) std::this_thread::sleep_for(kRespiro);
    const std::lock_guard guardia(serratura_);
    Presa presa(descrittore);
    if (chiude_) return;
    raccogli();
    if (presa.aperta()) accogli(std::move(presa));
  }
}

void Servizio::accogli(Presa presa) {
  Collegamento& nuovo = collegamenti_.emplace_back();
  nuovo.presa = std::move(presa);
  try {
    nuovo.filo = std::thread([this, &nuovo] { servi(nuovo); });
  } catch (const std::system_error&) {
    collegamenti_.pop_back();
  }
}

void Servizio::servi(Collegamento& collegamento) {
  Dialogo(collegamento.presa, registratore_).conduci();
  collegamento.presa.congeda(ecrcom::fra(kCongedo));
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
