#include "ecrcom/presa.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace ecrcom {
namespace {

#ifdef MSG_NOSIGNAL
constexpr int kSenzaSegnale = MSG_NOSIGNAL;
#else
constexpr int kSenzaSegnale = 0;
#endif

void prepara(int descrittore) {
  fcntl(descrittore, F_SETFD, FD_CLOEXEC);
  fcntl(descrittore, F_SETFL, fcntl(descrittore, F_GETFL) | O_NONBLOCK);
  const int si = 1;
  setsockopt(descrittore, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
#ifdef SO_NOSIGPIPE
  setsockopt(descrittore, SOL_SOCKET, SO_NOSIGPIPE, &si, sizeof si);
#endif
}

/// Milliseconds left, rounded up so that no wait ends before its deadline.
int restanti(std::optional<Scadenza> scadenza) {
  if (!scadenza) return -1;
  const auto resto = std::chrono::ceil<std::chrono::milliseconds>(*scadenza - Orologio::now()).count();
  return static_cast<int>(std::clamp<std::int64_t>(resto, 0, 24L * 3600 * 1000));
}

bool passeggero() {
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

}  // namespace

Presa::Presa(int descrittore) : descrittore_(descrittore) {
  if (aperta()) prepara(descrittore_);
}

Presa::~Presa() {
  chiudi();
}

Presa::Presa(Presa&& altra) noexcept : descrittore_(std::exchange(altra.descrittore_, -1)) {}

Presa& Presa::operator=(Presa&& altra) noexcept {
  std::swap(descrittore_, altra.descrittore_);
  return *this;
}

void Presa::chiudi() {
  if (aperta()) close(std::exchange(descrittore_, -1));
}

void Presa::congeda(Scadenza scadenza) const {
  if (!aperta()) return;
  shutdown(descrittore_, SHUT_WR);
  std::array<std::uint8_t, 4096> resto;
  std::size_t quanti = 0;
  while (riceviQualcosa(*this, resto, scadenza, quanti) == Esito::Fatto) continue;
}

std::optional<in_addr> indirizzo(const std::string& testo) {
  in_addr risultato{};
  if (inet_pton(AF_INET, testo.c_str(), &risultato) != 1) return std::nullopt;
  return risultato;
}

Esito attendi(const Presa& presa, short evento, std::optional<Scadenza> scadenza) {
  for (;;) {
    pollfd attesa{presa.descrittore(), evento, 0};
    const int pronti = poll(&attesa, 1, restanti(scadenza));
    if (pronti > 0) return Esito::Fatto;
    if (pronti == 0) return Esito::Scaduto;
    if (errno != EINTR) return Esito::Risorse;
  }
}

Esito connetti(in_addr indirizzo, Scadenza scadenza, Presa& presa) {
  presa = Presa(socket(AF_INET, SOCK_STREAM, 0));
  if (!presa.aperta()) return Esito::Risorse;
  sockaddr_in verso{};
  verso.sin_family = AF_INET;
  verso.sin_port = htons(kPorta);
  verso.sin_addr = indirizzo;
  if (connect(presa.descrittore(), reinterpret_cast<sockaddr*>(&verso), sizeof verso) == 0)
    return Esito::Fatto;
  if (errno != EINPROGRESS && errno != EINTR) return Esito::Rifiutato;
  const Esito attesa = attendi(presa, POLLOUT, scadenza);
  if (attesa != Esito::Fatto) return attesa;
  int errore = 0;
  socklen_t lunghezza = sizeof errore;
  getsockopt(presa.descrittore(), SOL_SOCKET, SO_ERROR, &errore, &lunghezza);
  return errore == 0 ? Esito::Fatto : Esito::Rifiutato;
}

Esito spedisci(const Presa& presa, Byte byte, Scadenza scadenza) {
  while (!byte.empty()) {
    const ssize_t quanti = send(presa.descrittore(), byte.data(), byte.size(), kSenzaSegnale);
    if (quanti >= 0) {
      byte = byte.subspan(static_cast<std::size_t>(quanti));
    } else if (!passeggero()) {
      return Esito::Tagliato;
    }
    if (byte.empty()) break;
    const Esito attesa = attendi(presa, POLLOUT, scadenza);
    if (attesa != Esito::Fatto) return attesa;
  }
  return Esito::Fatto;
}

Esito riceviQualcosa(const Presa& presa, std::span<std::uint8_t> byte, Scadenza scadenza,
                     std::size_t& quanti) {
  for (;;) {
    // The clock is asked before the line: a peer that never stops sending must not outrun the deadline.
    if (Orologio::now() >= scadenza) return Esito::Scaduto;
    const ssize_t letti = recv(presa.descrittore(), byte.data(), byte.size(), 0);
    if (letti == 0) return Esito::Tagliato;
    if (letti > 0) {
      quanti = static_cast<std::size_t>(letti);
      return Esito::Fatto;
    }
    if (!passeggero()) return Esito::Tagliato;
    const Esito attesa = attendi(presa, POLLIN, scadenza);
    if (attesa != Esito::Fatto) return attesa;
  }
}

Esito ricevi(const Presa& presa, std::span<std::uint8_t> byte, Scadenza scadenza, bool controlla) {
  std::size_t arrivati = 0;
  while (arrivati < byte.size()) {
    std::size_t quanti = 0;
    const Esito esito = riceviQualcosa(presa, byte.subspan(arrivati), scadenza, quanti);
    if (esito != Esito::Fatto) return esito;
    arrivati += quanti;
    if (controlla && !puoEssereTrama(byte.first(arrivati))) return Esito::Spazzatura;
  }
  return Esito::Fatto;
}

// Summed up piece by piece, while the rest is still on its way.
Esito riceviDati(const Presa& presa, const ByteIntestazione& testa, Scadenza scadenza, Trama& trama) {
  trama.dati.resize(trama.intestazione.lunghezza);
  std::uint32_t controllo = controlloTesta(testa);
  for (std::span<std::uint8_t> resto = trama.dati; !resto.empty();) {
    std::size_t quanti = 0;
    const Esito esito = riceviQualcosa(presa, resto, scadenza, quanti);
    if (esito != Esito::Fatto) return esito;
    controllo = prosegui(controllo, resto.first(quanti));
    resto = resto.subspan(quanti);
  }
  return controllo == trama.intestazione.controllo ? Esito::Fatto : Esito::Spazzatura;
}

Esito riceviTrama(const Presa& presa, Scadenza scadenza, Trama& trama) {
  ByteIntestazione testa;
  const Esito esito = ricevi(presa, testa, scadenza, true);
  if (esito != Esito::Fatto) return esito;
  const std::optional<Intestazione> letta = leggiIntestazione(testa);
  if (!letta) return Esito::Spazzatura;
  trama.intestazione = *letta;
  return riceviDati(presa, testa, scadenza, trama);
}

}  // namespace ecrcom
