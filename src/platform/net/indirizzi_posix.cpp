#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <memory>

#include "platform/net/indirizzi.h"

namespace rete {

namespace {

QString puntatoDi(const sockaddr& presa) {
  return puntato(reinterpret_cast<const sockaddr_in&>(presa).sin_addr.s_addr);
}

bool mostrabile(const ifaddrs& voce) {
  const bool accesa = (voce.ifa_flags & IFF_UP) != 0 && (voce.ifa_flags & IFF_LOOPBACK) == 0;
  return accesa && voce.ifa_addr != nullptr && voce.ifa_addr->sa_family == AF_INET;
}

}  // namespace

QString puntato(std::uint32_t indirizzo) {
  const in_addr binario{indirizzo};
  std::array<char, INET_ADDRSTRLEN> testo{};
  ::inet_ntop(AF_INET, &binario, testo.data(), testo.size());
  return QString::fromLatin1(testo.data());
}

QStringList indirizziDelleInterfacce() {
  ifaddrs* prima = nullptr;
  if (::getifaddrs(&prima) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> voci(prima, &::freeifaddrs);
  QStringList indirizzi;
  for (const ifaddrs* voce = voci.get(); voce; voce = voce->ifa_next)
    if (mostrabile(*voce)) indirizzi.append(puntatoDi(*voce->ifa_addr));
  return indirizzi;
}

QStringList indirizziDelNome(const QString& nome) {
  addrinfo richiesta{};
  richiesta.ai_family = AF_INET;
  richiesta.ai_socktype = SOCK_STREAM;
  addrinfo* prima = nullptr;
  if (::getaddrinfo(nome.toLocal8Bit().constData(), nullptr, &richiesta, &prima) != 0)
    return {QStringLiteral("<error>")};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> voci(prima, &::freeaddrinfo);
  QStringList indirizzi;
  for (const addrinfo* voce = voci.get(); voce; voce = voce->ai_next)
    indirizzi.append(puntatoDi(*voce->ai_addr));
  return indirizzi;
}

}  // namespace rete
