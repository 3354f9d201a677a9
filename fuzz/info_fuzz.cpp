// A reply is what the library left in its buffer: no more characters than that, whatever they are.

#include "check.h"
#include "core/state.h"
#include "ecrlink/ecr_info.h"
#include "ecrlink/models.h"
#include "platform/text/windows1252.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t lunghezza) {
  const QString risposta = windows1252::toText(textOf(dati, lunghezza));
  check(ecrlink::ParseInfoECR(risposta) == 0);
  const EcrInfo& info = commonForKora().ECR_INFO;
  for (const QString& campo : info.campo) {
    check(!campo.contains(QLatin1Char(',')));
    check(campo.isEmpty() || risposta.contains(campo));
  }
  const bool ammesso = ecrlink::statoAmmesso(info.InfoStato);
  check(!ammesso || ecrlink::parolaDelloStato(info.InfoStato).has_value());
  check(ecrlink::larghezzaGrafica(info.InfoTipoBitmap).has_value() ||
        ecrlink::nomeDellaClasse(info.InfoTipoBitmap) == QLatin1String("LARGE"));
  return 0;
}
