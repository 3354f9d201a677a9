#include "auxcmd/bench_screens.h"

#include "auxcmd/test_bench.h"
#include "auxcmd/test_sequences.h"
#include "core/screens.h"

namespace auxcmd {

void registraBanchi(Schermate& schermate) {
  for (const BancoDiProva& (*banco)() : {ProveVendita, ProveModificatori, ProvePagamento, ProveUtilita})
    schermate.registra(QString::fromUtf16(banco().schermata),
                       [banco](Contesto& contesto) { return new BancoProva(contesto, banco()); });
}

}  // namespace auxcmd
