#include "platform/net/rete.h"

#include <unistd.h>

#include <array>

#include "platform/net/eco.h"
#include "platform/net/indirizzi.h"

namespace {

constexpr std::size_t kNomeMassimo = 256;

class ReteDiSistema : public Rete {
 public:
  QString nomeComputer() override {
    std::array<char, kNomeMassimo + 1> nome{};
    if (::gethostname(nome.data(), kNomeMassimo) != 0) return QStringLiteral("<Error>");
    return QString::fromLocal8Bit(nome.data()).trimmed();
  }

  QStringList indirizziLocali(const QString& nome) override {
    const QStringList propri = rete::indirizziDelleInterfacce();
    return propri.isEmpty() ? rete::indirizziDelNome(nome) : propri;
  }

  int eco(const QString& indirizzo, const QByteArray& dati, int millisecondi) override {
    const auto scadenza = std::chrono::steady_clock::now() + std::chrono::milliseconds(millisecondi);
    const auto meta = ::eco::converti(indirizzo);
    return meta ? ::eco::invia(*meta, dati, scadenza) : ::eco::kNonInviato;
  }
};

}  // namespace

Rete& reteDiSistema() {
  static ReteDiSistema unica;
  return unica;
}
