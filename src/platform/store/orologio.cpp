#include "platform/store/orologio.h"

#include <ctime>
#include <utility>

namespace store {

namespace {
Orologio& corrente() {
  static Orologio orologio;
  return orologio;
}
}  // namespace

void ImpostaOrologio(Orologio orologio) {
  corrente() = std::move(orologio);
}

QDate OggiLocale() {
  if (corrente()) return corrente()().date();
  static std::time_t secondo = -1;
  static QDate data;
  const std::time_t ora = std::time(nullptr);
  if (ora != secondo) {
    data = QDate::currentDate();
    secondo = ora;
  }
  return data;
}

}  // namespace store
