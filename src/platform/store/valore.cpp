#include "platform/store/valore.h"

#include <cmath>
#include <limits>

#include "platform/errore.h"

namespace store {

namespace {

/// Beyond it a double no longer tells neighbouring whole numbers apart.
constexpr double kInteriEsatti = 9007199254740992.0;
constexpr double kLimite64 = 9223372036854775808.0;
constexpr int kCifreSignificative = 15;

[[noreturn]] void nullo94() {
  throw Errore{errore::kNullo, QStringLiteral("Utilizzo non valido di Null")};
}
[[noreturn]] void tipo13() {
  throw Errore{errore::kTipo, QStringLiteral("Tipo non corrispondente")};
}
[[noreturn]] void overflow6() {
  throw Errore{errore::kOverflow, QStringLiteral("Overflow")};
}

double numeroDaTesto(const QString& testo) {
  bool riuscito = false;
  const double valore = testo.trimmed().toDouble(&riuscito);
  if (!riuscito || !std::isfinite(valore)) tipo13();
  return valore;
}

/// Halves go to the even neighbour, as the conversions of the callers expect.
std::int64_t arrotonda(double valore) {
  const double intero = std::nearbyint(valore);
  if (!(intero >= -kLimite64 && intero < kLimite64)) overflow6();
  return static_cast<std::int64_t>(intero);
}

template <typename Intero>
Intero stretto(std::int64_t valore) {
  if (valore < std::numeric_limits<Intero>::min() || valore > std::numeric_limits<Intero>::max()) overflow6();
  return static_cast<Intero>(valore);
}

QString testoReale(double valore) {
  if (std::abs(valore) < kInteriEsatti && std::nearbyint(valore) == valore)
    return QString::number(static_cast<std::int64_t>(valore));
  return QString::number(valore, 'g', kCifreSignificative);
}

}  // namespace

QString Valore::testo() const {
  if (nullo()) nullo94();
  if (const auto* intero = std::get_if<std::int64_t>(&valore_)) return QString::number(*intero);
  if (const auto* reale = std::get_if<double>(&valore_)) return testoReale(*reale);
  return std::get<QString>(valore_);
}

std::int64_t Valore::intero64() const {
  if (nullo()) nullo94();
  if (const auto* intero = std::get_if<std::int64_t>(&valore_)) return *intero;
  if (const auto* reale = std::get_if<double>(&valore_)) return arrotonda(*reale);
  const QString& testo = std::get<QString>(valore_);
  bool riuscito = false;
  const std::int64_t esatto = testo.trimmed().toLongLong(&riuscito);
  return riuscito ? esatto : arrotonda(numeroDaTesto(testo));
}

std::int32_t Valore::intero() const {
  return stretto<std::int32_t>(intero64());
}

std::int16_t Valore::intero16() const {
  return stretto<std::int16_t>(intero64());
}

double Valore::doppio() const {
  if (nullo()) nullo94();
  if (const auto* intero = std::get_if<std::int64_t>(&valore_)) return static_cast<double>(*intero);
  if (const auto* reale = std::get_if<double>(&valore_)) return *reale;
  return numeroDaTesto(std::get<QString>(valore_));
}

bool Valore::booleano() const {
  return doppio() != 0.0;
}

}  // namespace store
