#include "platform/net/addresses.h"

#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>

#include "platform/net/network.h"
#include "platform/net/new_namespace.h"

namespace {

constexpr std::size_t kInterfacceMassime = 64;
constexpr std::uint32_t kReteLocale = 127;

/// The addresses of the interfaces that are up, asked of the system by another road than the program's.
QStringList indirizziDelSistema() {
  std::array<ifreq, kInterfacceMassime> voci{};
  ifconf elenco{};
  elenco.ifc_len = sizeof voci;
  elenco.ifc_req = voci.data();
  const int presa = ::socket(AF_INET, SOCK_DGRAM, 0);
  EXPECT_EQ(::ioctl(presa, SIOCGIFCONF, &elenco), 0);
  QStringList indirizzi;
  for (std::size_t i = 0; i < static_cast<std::size_t>(elenco.ifc_len) / sizeof(ifreq); ++i) {
    const in_addr_t uno = reinterpret_cast<const sockaddr_in&>(voci[i].ifr_addr).sin_addr.s_addr;
    EXPECT_EQ(::ioctl(presa, SIOCGIFFLAGS, &voci[i]), 0);
    const bool accesa = (voci[i].ifr_flags & IFF_UP) != 0;
    if (accesa && ntohl(uno) >> 24 != kReteLocale) indirizzi.append(network::dotted(uno));
  }
  ::close(presa);
  return indirizzi;
}

}  // namespace

TEST(IndirizziLocali, LeInterfacceDannoGliIPv4DelSistemaSenzaLoopback) {
  EXPECT_EQ(network::interfaceAddresses(), indirizziDelSistema());
}

TEST(IndirizziLocali, IlSoloLoopbackNonHaIndirizziDaMostrare) {
  for (const bool acceso : {true, false})
    EXPECT_EQ(inFreshNetwork([] { return static_cast<int>(network::interfaceAddresses().size()); }, acceso),
              0);
}

TEST(IndirizziLocali, SenzaInterfacceSiCercaIlNome) {
  EXPECT_EQ(inFreshNetwork([] {
              const QStringList trovati = systemNetwork().localAddresses(QStringLiteral("127.0.0.7"));
              return trovati == QStringList{QStringLiteral("127.0.0.7")} ? 1 : 2;
            }),
            1);
}

TEST(IndirizziLocali, ConUnInterfacciaIlNomeNonSiCerca) {
  const QStringList propri = network::interfaceAddresses();
  const QStringList previsti = propri.isEmpty() ? QStringList{QStringLiteral("<error>")} : propri;
  EXPECT_EQ(systemNetwork().localAddresses(QString(200, QLatin1Char('a'))), previsti);
}

TEST(IndirizziLocali, UnNumeroSiScriveInFormaPuntata) {
  EXPECT_EQ(network::dotted(htonl(0x7F010203)), QStringLiteral("127.1.2.3"));
  EXPECT_EQ(network::dotted(0xFFFFFFFF), QStringLiteral("255.255.255.255"));
  EXPECT_EQ(network::dotted(0), QStringLiteral("0.0.0.0"));
}

TEST(IndirizziLocali, UnNomeSiRisolveInFormaPuntata) {
  EXPECT_EQ(network::addressesOfName(QStringLiteral("127.0.0.7")), QStringList{QStringLiteral("127.0.0.7")});
}

TEST(IndirizziLocali, UnNomeCheNonSiRisolveDaErroreFraParentesiAcute) {
  // A label of more than 63 letters: no resolver asks anybody for it.
  EXPECT_EQ(network::addressesOfName(QString(200, QLatin1Char('a'))), QStringList{QStringLiteral("<error>")});
}

TEST(IndirizziLocali, IlComputerHaUnNomeSenzaSpaziIntorno) {
  const QString nome = systemNetwork().computerName();
  EXPECT_FALSE(nome.isEmpty());
  EXPECT_EQ(nome, nome.trimmed());
}
