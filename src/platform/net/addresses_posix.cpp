#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <memory>

#include "platform/net/addresses.h"

namespace network {

namespace {

QString dottedOf(const sockaddr& address) {
  return dotted(reinterpret_cast<const sockaddr_in&>(address).sin_addr.s_addr);
}

bool showable(const ifaddrs& entry) {
  const bool on = (entry.ifa_flags & IFF_UP) != 0 && (entry.ifa_flags & IFF_LOOPBACK) == 0;
  return on && entry.ifa_addr != nullptr && entry.ifa_addr->sa_family == AF_INET;
}

}  // namespace

QString dotted(std::uint32_t address) {
  const in_addr binary{address};
  std::array<char, INET_ADDRSTRLEN> text{};
  ::inet_ntop(AF_INET, &binary, text.data(), text.size());
  return QString::fromLatin1(text.data());
}

QStringList interfaceAddresses() {
  ifaddrs* before = nullptr;
  if (::getifaddrs(&before) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> entries(before, &::freeifaddrs);
  QStringList addresses;
  for (const ifaddrs* entry = entries.get(); entry; entry = entry->ifa_next)
    if (showable(*entry)) addresses.append(dottedOf(*entry->ifa_addr));
  return addresses;
}

QStringList addressesOfName(const QString& name) {
  addrinfo request{};
  request.ai_family = AF_INET;
  request.ai_socktype = SOCK_STREAM;
  addrinfo* before = nullptr;
  if (::getaddrinfo(name.toLocal8Bit().constData(), nullptr, &request, &before) != 0)
    return {QStringLiteral("<error>")};
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> entries(before, &::freeaddrinfo);
  QStringList addresses;
  for (const addrinfo* entry = entries.get(); entry; entry = entry->ai_next)
    addresses.append(dottedOf(*entry->ai_addr));
  return addresses;
}

}  // namespace network
