#include "config/department_attributes.h"

#include "platform/error.h"

namespace config {

namespace {

constexpr int kMassimoByte = 255;
constexpr int kTreBit = 7;
constexpr int kBattutaSingola = 8;
constexpr int kTipoMultiplo = 16;
constexpr int kPassoTallon = 32;

bool affermativo(const QString& colonna) {
  return colonna == QLatin1String("S");
}
QString lettera(bool si, const char* altrimenti) {
  return si ? QStringLiteral("S") : QString::fromLatin1(altrimenti);
}

}  // namespace

std::uint8_t imballaAttributi(const AttributiReparto& attributi) {
  int somma = attributi.iva - 1;
  if (affermativo(attributi.battutaSingola)) somma += kBattutaSingola;
  if (!affermativo(attributi.tipo)) somma += kTipoMultiplo;
  somma += (attributi.tallon - 1) * kPassoTallon;
  if (somma < 0 || somma > kMassimoByte) throw errors::overflow();
  return static_cast<std::uint8_t>(somma);
}

AttributiReparto sballaAttributi(std::uint8_t byte) {
  return {.iva = (byte & kTreBit) + 1,
          .battutaSingola = lettera((byte & kBattutaSingola) != 0, "N"),
          .tipo = lettera((byte & kTipoMultiplo) == 0, "M"),
          .tallon = byte / kPassoTallon + 1};
}

}  // namespace config
