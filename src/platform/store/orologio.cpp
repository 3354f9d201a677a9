#include "platform/store/orologio.h"

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

QDateTime AdessoLocale() {
  return corrente() ? corrente()() : QDateTime::currentDateTime();
}

}  // namespace store
