#include "ecrlink/models.h"

namespace ecrlink {

namespace {

constexpr std::int16_t kRigaStretta = 24;
constexpr std::int16_t kRiga58 = 26;
constexpr std::int16_t kRiga80 = 36;
constexpr int kPrimo58 = 9;
constexpr int kPrimo80 = 11;
constexpr int kUltimo80 = 12;

}  // namespace

QString NomeModello(int indice) {
  if (indice < 0 || static_cast<std::size_t>(indice) >= kModelli.size()) return {};
  return QString::fromLatin1(kModelli[static_cast<std::size_t>(indice)].nome);
}

std::int16_t larghezzaRigaDelModello(int indice) {
  if (indice >= kPrimo58 && indice < kPrimo80) return kRiga58;
  if (indice >= kPrimo80 && indice <= kUltimo80) return kRiga80;
  return kRigaStretta;
}

bool classePiccola(const QString& infoTipoBitmap) {
  return infoTipoBitmap == QLatin1String("S");
}

QString nomeDellaClasse(const QString& infoTipoBitmap) {
  return classePiccola(infoTipoBitmap) ? QStringLiteral("SMALL") : QStringLiteral("LARGE");
}

std::optional<QString> larghezzaGrafica(const QString& infoTipoBitmap) {
  if (classePiccola(infoTipoBitmap)) return QStringLiteral("384");
  if (infoTipoBitmap == QLatin1String("L")) return QStringLiteral("640");
  return std::nullopt;
}

}  // namespace ecrlink
