#pragma once

#include "ecrcom/codici.h"
#include "ecrcom/presa.h"

namespace ecrcom {

/// The code that a caller of the library gets for what happened on the line.
inline std::int16_t codiceDi(Esito esito) {
  switch (esito) {
    case Esito::Fatto:
      return kFatto;
    case Esito::Scaduto:
      return kTempoScaduto;
    case Esito::Rifiutato:
      return kNonRaggiungibile;
    case Esito::Tagliato:
      return kLineaInterrotta;
    case Esito::Spazzatura:
      return kRispostaIncomprensibile;
    case Esito::Risorse:
      break;
  }
  return kRisorseEsaurite;
}

}  // namespace ecrcom
