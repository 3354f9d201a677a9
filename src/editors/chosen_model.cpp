#include "editors/chosen_model.h"

#include "core/state.h"
#include "ecrlink/models.h"
#include "platform/error.h"

namespace editors {

namespace {

std::optional<int>& scelto() {
  static std::optional<int> unico;
  return unico;
}

}  // namespace

void scegliModello(int indice) {
  if (indice < 0 || static_cast<std::size_t>(indice) >= ecrlink::kModelli.size()) throw errors::outOfRange();
  scelto() = indice;
  varGestionePRG().LarghezzaRiga = ecrlink::larghezzaRigaDelModello(indice);
}

std::optional<int> modelloScelto() {
  return scelto();
}

QString numeroTasti() {
  if (!scelto()) return {};
  const int tasti = ecrlink::kModelli[static_cast<std::size_t>(*scelto())].tasti;
  return tasti == 0 ? QStringLiteral("N/A") : QString::number(tasti);
}

void azzeraModelloScelto() {
  scelto().reset();
}

}  // namespace editors
