#include "platform/net/eco.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QProcess>
#include <algorithm>
#include <array>
#include <cerrno>
#include <span>

#include "platform/net/indirizzi.h"
#include "platform/net/pacchetto_icmp.h"

namespace eco {

namespace {

constexpr std::uint16_t kSequenza = 1;
constexpr std::size_t kPacchettoMassimo = 65536;

/// Milliseconds left, rounded up so that a wait never ends before its time; 0 when it is over.
int restano(Scadenza scadenza) {
  const auto resto =
      std::chrono::ceil<std::chrono::milliseconds>(scadenza - std::chrono::steady_clock::now());
  return static_cast<int>(std::max<std::chrono::milliseconds::rep>(resto.count(), 0));
}

class Presa {
 public:
  explicit Presa(int tipo) : numero_(::socket(AF_INET, tipo | SOCK_CLOEXEC | SOCK_NONBLOCK, IPPROTO_ICMP)) {}
  ~Presa() {
    if (numero_ >= 0) ::close(numero_);
  }
  Presa(const Presa&) = delete;
  Presa& operator=(const Presa&) = delete;

  bool aperta() const { return numero_ >= 0; }

  /// Connected, so that what others say meanwhile, an earlier address's late reply say, is not heard.
  bool invia(Indirizzo indirizzo, const QByteArray& messaggio) const {
    sockaddr_in meta{};
    meta.sin_family = AF_INET;
    meta.sin_addr.s_addr = indirizzo;
    const auto* generica = reinterpret_cast<const sockaddr*>(&meta);
    return ::connect(numero_, generica, sizeof meta) == 0 &&
           ::send(numero_, messaggio.constData(), static_cast<std::size_t>(messaggio.size()), MSG_NOSIGNAL) ==
               messaggio.size();
  }

  /// Waits for a packet for which `nostro` is true; any other (a raw socket hears them all) is passed over.
  template <typename Nostro>
  int attendi(Scadenza scadenza, Nostro nostro) const {
    std::array<std::uint8_t, kPacchettoMassimo> byte;
    while (const int resto = restano(scadenza)) {
      pollfd attesa{numero_, POLLIN, 0};
      if (::poll(&attesa, 1, resto) <= 0) continue;
      const ssize_t letti = ::recv(numero_, byte.data(), byte.size(), MSG_DONTWAIT);
      if (letti < 0 && errno != EAGAIN && errno != EINTR) return kNonRaggiungibile;
      if (letti > 0 && nostro(std::span(byte).first(static_cast<std::size_t>(letti)))) return kRisposto;
    }
    return kScaduto;
  }

 private:
  int numero_;
};

std::uint16_t identificatore() {
  return static_cast<std::uint16_t>(::getpid() & 0xFFFF);
}

}  // namespace

std::optional<Indirizzo> converti(const QString& testo) {
  const in_addr_t indirizzo = ::inet_addr(testo.toLatin1().constData());
  if (indirizzo == INADDR_NONE || indirizzo == INADDR_ANY) return std::nullopt;
  return indirizzo;
}

std::optional<int> perDatagramma(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza) {
  const Presa presa(SOCK_DGRAM);
  if (!presa.aperta()) return std::nullopt;
  if (!presa.invia(indirizzo, icmp::richiestaEco(identificatore(), kSequenza, dati)))
    return kNonRaggiungibile;
  return presa.attendi(scadenza, [&](std::span<const std::uint8_t> messaggio) {
    return icmp::risponde(messaggio, std::nullopt, kSequenza, dati);
  });
}

std::optional<int> perGrezzo(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza) {
  const Presa presa(SOCK_RAW);
  if (!presa.aperta()) return std::nullopt;
  if (!presa.invia(indirizzo, icmp::richiestaEco(identificatore(), kSequenza, dati)))
    return kNonRaggiungibile;
  // On the loopback the request itself comes in first.
  return presa.attendi(scadenza, [&](std::span<const std::uint8_t> pacchetto) {
    return icmp::risponde(icmp::messaggioDi(pacchetto), identificatore(), kSequenza, dati);
  });
}

std::optional<int> perPing(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza,
                           const QString& programma) {
  constexpr int kNessunaRisposta = 1;
  QProcess ping;
  ping.setStandardOutputFile(QProcess::nullDevice());
  ping.setStandardErrorFile(QProcess::nullDevice());
  ping.start(programma, {QStringLiteral("-n"), QStringLiteral("-c1"), QStringLiteral("-W1"),
                         QStringLiteral("-s"), QString::number(dati.size()), QStringLiteral("-p"),
                         QString::fromLatin1(dati.toHex()), rete::puntato(indirizzo)});
  if (!ping.waitForStarted()) return std::nullopt;
  if (!ping.waitForFinished(restano(scadenza))) {
    ping.kill();
    ping.waitForFinished();
    return kScaduto;
  }
  if (ping.exitStatus() != QProcess::NormalExit || ping.exitCode() > kNessunaRisposta) return std::nullopt;
  return ping.exitCode() == 0 ? kRisposto : kScaduto;
}

int invia(Indirizzo indirizzo, const QByteArray& dati, Scadenza scadenza) {
  if (const auto stato = perDatagramma(indirizzo, dati, scadenza)) return *stato;
  if (const auto stato = perGrezzo(indirizzo, dati, scadenza)) return *stato;
  return perPing(indirizzo, dati, scadenza).value_or(kNonInviato);
}

}  // namespace eco
