#include "platform/net/indirizzi.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QHostAddress>
#include <QNetworkInterface>
#include <memory>

namespace rete {

QStringList indirizziDelleInterfacce() {
  QStringList indirizzi;
  for (const QNetworkInterface& interfaccia : QNetworkInterface::allInterfaces()) {
    const auto stato = interfaccia.flags();
    if (!stato.testFlag(QNetworkInterface::IsUp) || stato.testFlag(QNetworkInterface::IsLoopBack)) continue;
    for (const QNetworkAddressEntry& voce : interfaccia.addressEntries())
      if (voce.ip().protocol() == QAbstractSocket::IPv4Protocol) indirizzi.append(voce.ip().toString());
  }
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
    indirizzi.append(QHostAddress(voce->ai_addr).toString());
  return indirizzi;
}

}  // namespace rete
