#include "platform/net/network.h"

#include <unistd.h>

#include <array>

#include "platform/net/addresses.h"
#include "platform/net/echo.h"

namespace {

constexpr std::size_t kMaxName = 256;

class SystemNetwork : public Network {
 public:
  QString computerName() override {
    std::array<char, kMaxName + 1> name{};
    if (::gethostname(name.data(), kMaxName) != 0) return QStringLiteral("<Error>");
    return QString::fromLocal8Bit(name.data()).trimmed();
  }

  QStringList localAddresses(const QString& name) override {
    const QStringList own = network::interfaceAddresses();
    return own.isEmpty() ? network::addressesOfName(name) : own;
  }

  int echo(const QString& address, const QByteArray& data, int milliseconds) override {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    const auto target = ::echo::convert(address);
    return target ? ::echo::send(*target, data, deadline) : ::echo::kNotSent;
  }
};

}  // namespace

Network& systemNetwork() {
  static SystemNetwork only;
  return only;
}
