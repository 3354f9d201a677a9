#include "editors/changes.h"

#include <QWidget>
#include <algorithm>
#include <array>

#include "config/configuration_file.h"
#include "core/context.h"
#include "core/screens.h"
#include "platform/ui/user_port.h"

namespace editors {

namespace {

constexpr std::array kOrdine{
    Voce{"Form_Negozio", &VarGestionePRG::ModificaNegozio},
    Voce{"Form_Reparti", &VarGestionePRG::ModificaReparti},
    Voce{"Form_PLU", &VarGestionePRG::ModificaPLU},
    Voce{"Form_IVA", &VarGestionePRG::ModificaIVA},
    Voce{"Form_OPE", &VarGestionePRG::ModificaOperatori},
    Voce{"Form_Valuta", &VarGestionePRG::ModificaValuta},
    Voce{"Form_OpzioniGen", &VarGestionePRG::ModificaOpzioni},
};

/// Order of the refill; the shop's screen holds its block, the courtesy lines and the header.
constexpr std::array kRicarica{"Form_Reparti",    "Form_PLU",    "Form_IVA",    "Form_OPE",
                               "Form_OpzioniGen", "Form_Valuta", "Form_Negozio"};

bool segnata(const Voce& voce) {
  return varGestionePRG().*voce.modificato != kFalso;
}

Editor* aperto(const char* schermata, const Contesto& contesto) {
  return dynamic_cast<Editor*>(contesto.schermate.trova(QLatin1String(schermata)));
}

EsitoSalvataggio racconta(const config::Salvataggio& fatto) {
  if (fatto.esito != 0) return {};
  return {true, fatto.racconto.isEmpty() ? QStringLiteral("Salvato: nessuna differenza nel file")
                                         : QStringLiteral("Salvato: ") + fatto.racconto};
}

}  // namespace

bool ciSonoModifiche() {
  return std::ranges::any_of(kOrdine, segnata);
}

void azzeraModifiche() {
  for (const Voce& voce : kOrdine) varGestionePRG().*voce.modificato = kFalso;
}

bool chiediDiSalvare(Contesto& contesto) {
  return contesto.utente.MsgBox(QStringLiteral("Attenzione sono stati modificati dei parametri di "
                                               "configurazione: salvare prima di proseguire ?"),
                                Icon::Question, QStringLiteral("ATTENZIONE"), Buttons::YesNo) == Answer::Yes;
}

EsitoSalvataggio SalvaModificati(Contesto& contesto) {
  const auto prima = std::ranges::find_if(kOrdine, segnata);
  if (prima != kOrdine.end())
    if (Editor* editor = aperto(prima->schermata, contesto)) editor->salvaInMemoria();
  const config::Salvataggio fatto =
      config::SalvaConfigurazioneRaccontando(varGestionePRG().PathConfigurazione, contesto.utente);
  if (fatto.esito == 0) azzeraModifiche();
  return racconta(fatto);
}

void RicaricaEditor(Contesto& contesto) {
  for (const Voce& voce : kOrdine)
    if (voce.modificato != &VarGestionePRG::ModificaNegozio) varGestionePRG().*voce.modificato = kFalso;
  for (const char* schermata : kRicarica)
    if (Editor* editor = aperto(schermata, contesto)) editor->ricarica();
}

EsitoSalvataggio SalvaEditor(Editor& editor, Bandiera& modificato, Contesto& contesto) {
  editor.salvaInMemoria();
  const config::Salvataggio fatto =
      config::SalvaConfigurazioneRaccontando(varGestionePRG().PathConfigurazione, contesto.utente);
  if (fatto.esito == 0) modificato = kFalso;
  return racconta(fatto);
}

}  // namespace editors
