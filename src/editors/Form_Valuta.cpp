#include "editors/Form_Valuta.h"

#include <array>

namespace editors {

namespace {

constexpr std::array kColonne{
    numero(u"NUM.", u"0"),
    colonna<config::valuta::kDescrizione>(u"Descrizione", u"DOLLARO USA", kLibera),
    // An exchange rate ends where a percentage does.
    colonna<config::valuta::kCambio>(u"Cambio", u"99,99", kPercentuale),
};

constexpr std::array kLegenda{u"Cambio --> 0 ..... 99,99"};

constexpr Tabella kTabella{.schermata = "Form_Valuta",
                           .titolo = u"Valuta",
                           .griglia = "MSFlexGridVAL",
                           .riempimento = "RiempiGridVAL",
                           .famiglia = config::kValuta,
                           .modificato = &VarGestionePRG::ModificaValuta,
                           .colonne = kColonne,
                           .uno = u"valuta",
                           .molti = u"valute",
                           .legenda = kLegenda};

}  // namespace

const Tabella& TabellaValute() {
  return kTabella;
}

void SalvaValute(const FlexGrid& griglia) {
  SalvaGriglia(griglia, kTabella);
}

}  // namespace editors

Form_Valuta::Form_Valuta(Contesto& contesto)
    : EditorGriglia(contesto, editors::kTabella, editors::SalvaValute) {}
