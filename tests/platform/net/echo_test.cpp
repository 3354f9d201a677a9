#include "platform/net/echo.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>
#include <atomic>
#include <thread>

#include "platform/net/icmp_packet.h"
#include "platform/net/network.h"
#include "platform/net/new_namespace.h"
#include "sostegno/temporary_folder.h"

namespace {

using namespace std::chrono_literals;

const QByteArray kDati("hello");
constexpr int kMillisecondi = 250;

echo::Deadline scadenza(std::chrono::milliseconds limite = 250ms) {
  return std::chrono::steady_clock::now() + limite;
}

echo::Address indirizzo(const char* testo) {
  return echo::convert(QLatin1String(testo)).value();
}

sockaddr_in presaDi(const char* testo) {
  sockaddr_in presa{};
  presa.sin_family = AF_INET;
  presa.sin_addr.s_addr = indirizzo(testo);
  return presa;
}

/// Sends, as from an address, the reply that this process's request would get, until it is told to stop.
void rispondiDa(const char* mittente, const std::atomic<bool>& finito) {
  QByteArray risposta = icmp::echoRequest(static_cast<std::uint16_t>(::getpid() & 0xFFFF), 1, kDati);
  risposta[0] = 0;
  const int presa = ::socket(AF_INET, SOCK_RAW, IPPROTO_ICMP);
  const sockaddr_in da = presaDi(mittente);
  const sockaddr_in a = presaDi("127.0.0.1");
  EXPECT_EQ(::bind(presa, reinterpret_cast<const sockaddr*>(&da), sizeof da), 0);
  while (!finito)
    ::sendto(presa, risposta.constData(), static_cast<std::size_t>(risposta.size()), 0,
             reinterpret_cast<const sockaddr*>(&a), sizeof a);
  ::close(presa);
}

/// Status of an echo to 127.0.61.10, where nobody answers but who stands at `mittente`.
int conRispostaDa(const char* mittente) {
  return inFreshNetwork([mittente]() -> std::optional<int> {
    if (!writeSystemFile("/proc/sys/net/ipv4/icmp_echo_ignore_all", "1")) return kNotPrepared;
    std::atomic<bool> finito = false;
    std::thread altro([&] { rispondiDa(mittente, finito); });
    const auto stato = echo::byRaw(indirizzo("127.0.61.10"), kDati, scadenza(300ms));
    finito = true;
    altro.join();
    return stato ? std::optional(*stato == echo::kExpired ? 1 : *stato) : std::nullopt;
  });
}

}  // namespace

TEST(Eco, UnIndirizzoCheNonSiConverteDaMenoUnoSenzaTraffico) {
  for (const char* testo : {"", "300.0.0.1", "999.1.1.x", "0.0.0.0", "0", "255.255.255.255", "a.0.0.1",
                            "1.2.3.4.5", "127.0.0.1.", "-1", "\xE0.1.1.1"})
    EXPECT_EQ(systemNetwork().echo(QString::fromLatin1(testo), kDati, kMillisecondi), -1) << testo;
}

TEST(Eco, LeFormeBreviEOttaliSiConvertono) {
  EXPECT_EQ(echo::convert(QStringLiteral("127.1")), ::inet_addr("127.0.0.1"));
  EXPECT_EQ(echo::convert(QStringLiteral("10.1")), ::inet_addr("10.0.0.1"));
  EXPECT_EQ(echo::convert(QStringLiteral("0177.0.0.010")), ::inet_addr("127.0.0.8"));
  EXPECT_EQ(echo::convert(QStringLiteral("0x7f.0.0.1")), ::inet_addr("127.0.0.1"));
}

TEST(Eco, ChiRispondeDaZero) {
  EXPECT_EQ(systemNetwork().echo(QStringLiteral("127.0.61.1"), kDati, kMillisecondi), 0);
  EXPECT_EQ(systemNetwork().echo(QStringLiteral("127.1"), kDati, kMillisecondi), 0);
}

TEST(Eco, LaPresaGrezzaRispondeAChiNeHaIlDiritto) {
  EXPECT_EQ(inFreshNetwork([] { return echo::byRaw(indirizzo("127.0.61.2"), kDati, scadenza(5s)); }),
            echo::kAnswered);
}

TEST(Eco, LaPresaADatagrammiRispondeAChiNeHaIlDiritto) {
  EXPECT_EQ(inFreshNetwork([]() -> std::optional<int> {
              if (!writeSystemFile("/proc/sys/net/ipv4/ping_group_range", "0 0")) return kNotPrepared;
              return echo::byDatagram(indirizzo("127.0.61.2"), kDati, scadenza(5s));
            }),
            echo::kAnswered);
}

TEST(Eco, LaPresaADatagrammiSenzaDirittoLasciaIlPostoAllaVoceSeguente) {
  // A new network grants these sockets to no group.
  EXPECT_EQ(inFreshNetwork([] { return echo::byDatagram(indirizzo("127.0.61.2"), kDati, scadenza(5s)); }),
            kNothing);
}

TEST(Eco, DoveNonCEStradaLaRispostaENonRaggiungibile) {
  constexpr bool kSpento = false;
  EXPECT_EQ(inFreshNetwork(
                [] {
                  const auto stato = echo::byRaw(indirizzo("127.0.61.2"), kDati, scadenza(5s));
                  return stato ? std::optional(*stato == echo::kUnreachable ? 1 : 2) : std::nullopt;
                },
                kSpento),
            1);
}

TEST(Eco, LaRispostaDiUnAltroIndirizzoNonConta) {
  EXPECT_EQ(conRispostaDa("127.0.61.99"), 1);
  EXPECT_EQ(conRispostaDa("127.0.61.10"), echo::kAnswered);
}

TEST(Eco, LaPresaGrezzaSenzaDirittoLasciaIlPostoAllaVoceSeguente) {
  EXPECT_EQ(asOrdinaryUser([] { return echo::byRaw(indirizzo("127.0.61.3"), kDati, scadenza()); }), kNothing);
}

TEST(Eco, IlProgrammaDelSistemaRispondeAllUtenteQualunque) {
  EXPECT_EQ(asOrdinaryUser([] { return echo::byPing(indirizzo("127.0.61.4"), kDati, scadenza(5s)); }), 0);
}

TEST(Eco, UnUtenteQualunqueRiceveLaRispostaPerLaViaCheHa) {
  EXPECT_EQ(asOrdinaryUser([] { return echo::send(indirizzo("127.0.61.5"), kDati, scadenza(5s)); }), 0);
}

TEST(Eco, SenzaIlProgrammaNonCEVia) {
  EXPECT_EQ(echo::byPing(indirizzo("127.0.61.6"), kDati, scadenza(), QStringLiteral("ping-che-non-esiste")),
            std::nullopt);
}

TEST(Eco, UnProgrammaCheTaceEFermatoAllaScadenza) {
  const TemporaryFolder cartella;
  const QString programma = cartella.write(QStringLiteral("muto"), "#!/bin/sh\nexec sleep 30\n");
  ASSERT_TRUE(QFile::setPermissions(programma, QFile::ReadOwner | QFile::ExeOwner));
  const auto inizio = std::chrono::steady_clock::now();
  EXPECT_EQ(echo::byPing(indirizzo("127.0.61.7"), kDati, scadenza(), programma), echo::kExpired);
  const auto durata = std::chrono::steady_clock::now() - inizio;
  EXPECT_GE(durata, 250ms);
  EXPECT_LT(durata, 5s);
}

TEST(Eco, IlProgrammaCheNonPuoSpedireNonEUnaVia) {
  const TemporaryFolder cartella;
  const QString programma = cartella.write(QStringLiteral("guasto"), "#!/bin/sh\nexit 2\n");
  ASSERT_TRUE(QFile::setPermissions(programma, QFile::ReadOwner | QFile::ExeOwner));
  EXPECT_EQ(echo::byPing(indirizzo("127.0.61.8"), kDati, scadenza(5s), programma), std::nullopt);
}

TEST(Eco, IlProgrammaRiceveUnTentativoECinqueByte) {
  const TemporaryFolder cartella;
  const QString programma =
      cartella.write(QStringLiteral("spia"), "#!/bin/sh\nprintf '%s\\n' \"$*\" >detto\nexit 1\n");
  ASSERT_TRUE(QFile::setPermissions(programma, QFile::ReadOwner | QFile::ExeOwner));
  EXPECT_EQ(echo::byPing(indirizzo("127.061.1"), kDati, scadenza(5s), programma), echo::kExpired);
  EXPECT_EQ(cartella.read(QStringLiteral("detto")), "-n -c1 -W1 -s 5 -p 68656c6c6f 127.49.0.1\n");
}

TEST(Eco, ScadutoIlTempoLaRispostaNonSiAspetta) {
  EXPECT_EQ(inFreshNetwork([] {
              const auto stato = echo::byRaw(indirizzo("127.0.61.9"), kDati, scadenza(0ms));
              return stato ? std::optional(*stato == echo::kExpired ? 1 : 2) : std::nullopt;
            }),
            1);
}
