#include "editors/Form_IVA.h"

#include <array>

namespace editors {

namespace {

constexpr std::array kColonne{
    numero(u"NUM.", u"0"),
    colonna<config::iva::kDescrizione>(u"DESCRIZIONE", u"ALIQ. RIDOTTA", kLibera),
    colonna<config::iva::kAliquota>(u"ALIQUOTA", u"99,99", kPercentuale),
};

constexpr std::array kLegenda{u"Aliquota --> 0 ..... 99,99"};

constexpr Tabella kTabella{.schermata = "Form_IVA",
                           .titolo = u"IVA",
                           .griglia = "MSFlexGridIVA",
                           .riempimento = "RiempiGridIVA",
                           .famiglia = config::kIVA,
                           .modificato = &VarGestionePRG::ModificaIVA,
                           .colonne = kColonne,
                           .uno = u"aliquota",
                           .molti = u"aliquote",
                           .legenda = kLegenda};

}  // namespace

const Tabella& TabellaIVA() {
  return kTabella;
}

void SalvaIVA(const FlexGrid& griglia) {
  SalvaGriglia(griglia, kTabella);
}

}  // namespace editors

Form_IVA::Form_IVA(Contesto& contesto) : EditorGriglia(contesto, editors::kTabella, editors::SalvaIVA) {}
