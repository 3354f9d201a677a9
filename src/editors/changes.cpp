#include "editors/changes.h"

#include <QWidget>
#include <algorithm>
#include <array>
#include <memory>

#include "config/configuration_file.h"
#include "controls/outcome_bar.h"
#include "core/context.h"
#include "core/screens.h"
#include "core/wait_box.h"
#include "platform/ui/user_port.h"

namespace editors {

namespace {

/// An editor by its screen's name, and its flag.
struct Voce {
  const char* schermata;
  Bandiera VarGestionePRG::*modificato;
};
/// In the order in which their changes are looked at.
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

/// What the editors write to, put back unless `tieni` is called: what the file does not hold must not travel
/// to the till, nor come back to the screen as if it were saved.
class MemoriaDiPrima {
 public:
  ~MemoriaDiPrima() {
    if (tenuta_) return;
    config::bloccoNegozio() = negozio_;
    config::immagineProgrammazione() = *immagine_;
  }
  void tieni() { tenuta_ = true; }

 private:
  config::BloccoNegozio negozio_ = config::bloccoNegozio();
  std::unique_ptr<config::ImmagineProgrammazione> immagine_ =
      std::make_unique<config::ImmagineProgrammazione>(config::immagineProgrammazione());
  bool tenuta_ = false;
};

/// Titles of the open screens whose flags are set behind the first one.
QStringList dietroLaPrima(const Contesto& contesto) {
  QStringList titoli;
  bool dietro = false;
  for (const Voce& voce : kOrdine) {
    if (!segnata(voce)) continue;
    const QWidget* schermata = dietro ? contesto.schermate.trova(QLatin1String(voce.schermata)) : nullptr;
    if (schermata) titoli << schermata->windowTitle();
    dietro = true;
  }
  return titoli;
}

EsitoSalvataggio racconta(const config::Salvataggio& fatto) {
  if (fatto.esito != 0) return {};
  return {true,
          fatto.racconto.isEmpty() ? QStringLiteral("Salvato: nessuna differenza nel file")
                                   : QStringLiteral("Salvato: ") + fatto.racconto,
          {}};
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
  MemoriaDiPrima prima;
  const auto voce = std::ranges::find_if(kOrdine, segnata);
  if (voce != kOrdine.end())
    if (Editor* editor = aperto(voce->schermata, contesto)) {
      if (!editor->pronto()) return {};
      editor->salvaInMemoria();
    }
  const config::Salvataggio fatto =
      config::SalvaConfigurazioneRaccontando(varGestionePRG().PathConfigurazione, contesto.utente);
  EsitoSalvataggio esito = racconta(fatto);
  if (fatto.esito == 0) {
    esito.perse = dietroLaPrima(contesto);
    prima.tieni();
    azzeraModifiche();
  }
  return esito;
}

void RicaricaEditor(Contesto& contesto) {
  for (const Voce& voce : kOrdine)
    if (voce.modificato != &VarGestionePRG::ModificaNegozio) varGestionePRG().*voce.modificato = kFalso;
  for (const char* schermata : kRicarica)
    if (Editor* editor = aperto(schermata, contesto)) editor->ricarica();
}

EsitoSalvataggio SalvaEditor(Editor& editor, Bandiera& modificato, Contesto& contesto) {
  MemoriaDiPrima prima;
  editor.salvaInMemoria();
  const config::Salvataggio fatto =
      config::SalvaConfigurazioneRaccontando(varGestionePRG().PathConfigurazione, contesto.utente);
  if (fatto.esito == 0) {
    prima.tieni();
    modificato = kFalso;
  }
  return racconta(fatto);
}

void SalvaEditorRaccontando(Editor& editor, Bandiera& modificato, const std::function<void()>& salvato,
                            OutcomeBar& piede, Contesto& contesto) {
  EsitoSalvataggio esito;
  {
    const Attesa attesa(contesto, Attesa::Quando::Subito);
    esito = SalvaEditor(editor, modificato, contesto);
    if (esito.salvato) salvato();
  }
  if (esito.salvato) return piede.tell(OutcomeBar::Kind::Done, esito.racconto);
  piede.tell(OutcomeBar::Kind::Failed,
             QStringLiteral("Non salvato nel file: togliere la causa e salvare di nuovo"));
}

}  // namespace editors
