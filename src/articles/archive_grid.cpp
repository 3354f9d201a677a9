#include "articles/archive_grid.h"

#include <array>

#include "controls/FlexGrid.h"
#include "core/state.h"

namespace articles {

namespace {

using elenco::Colonna;
using elenco::kCentro;
using elenco::kDestra;
using elenco::kSinistra;

constexpr auto kVariabile =
    u"S: il prezzo si può variare in cassa. «Cerca» non legge questa colonna, «Visualizza Tutti» sì";
constexpr auto kZero =
    u"S: si può vendere a prezzo zero. «Cerca» non legge questa colonna, «Visualizza Tutti» sì";

constexpr std::array kColonne{
    Colonna{u"N.", 500, kCentro, "ID_Position", elenco::testo, "vkTextBoxPLUid", 0, false}.larga(u"00000"),
    Colonna{u"COD. EAN", 1600, kSinistra, "Codice_EAN", elenco::testo, "vkTextBoxCodEan", 13}
        .larga(u"0000000000000")
        .copiata(u"Copia EAN"),
    Colonna{u"COD. ARTICOLI", 1600, kSinistra, "Codice_Articolo", elenco::testo, "vkTextBoxCodArt", 13}.larga(
        u"0000000000000"),
    Colonna{u"DESCRIZIONE ", 2600, kSinistra, "Descrizione", elenco::testo, "vkTextBoxDesc", 30}
        .larga(u"LATTE UHT INTERO 1 LITRO")
        .cedevole(),
    Colonna{u"PREZZO", 1100, kDestra, "Prezzo", elenco::importo, "vkTextBoxPrezzo", 8}.larga(u"99999,99"),
    Colonna{u"N.REP", 900, kDestra, "Reparto", elenco::testo, "vkTextBoxRep", 2}.larga(u"0000"),
    Colonna{u"VAR.PRZ", 1000, kCentro, "VarPrezzo", elenco::siNo, "vkTextBoxVarPrz", 1}
        .larga(u"0000")
        .spiegata(kVariabile),
    Colonna{u"PREZZO 0", 1000, kCentro, "PrezzoZero", elenco::siNo, "vkTextBoxPrz0", 1}
        .larga(u"0000")
        .spiegata(kZero),
};
static_assert(kColonne.size() == kColonnaPrezzoZero + 1);

/// The columns whose heading is blue: what an article is, before what the till may do with it.
constexpr int kTestateBlu = kColonnaVarPrezzo;
const QColor kGialloChiaro(255, 255, 224);

/// The mark of an article that the import found faulty.
elenco::Marca marcaErrati() {
  return {.campo = "Filler",
          .valore = u"ERR",
          .marcata = QColor(255, 128, 0),
          .altre = Qt::white,
          .prima = kColonnaEan,
          .ultima = kColonnaReparto};
}

}  // namespace

elenco::Colonne ColonneArticoli() {
  return kColonne;
}

void GestGridCentral(FlexGrid& griglia) {
  elenco::Disponi(griglia, kColonne, kGialloChiaro, kTestateBlu);
}

elenco::EsitoElenco RiempiGridCentral(FlexGrid& griglia, Contesto& contesto, Attesa* attesa) {
  return elenco::Riempi(
      griglia, varGlobal().DB_Articoli,
      store::Statement(u"SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,"
                       u"VarPrezzo,PrezzoZero from TAB_ARTICOLI"),
      {.colonne = kColonne,
       .prefisso = QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala "),
       .alGuasto = elenco::AlGuasto::Termina,
       .marca = marcaErrati(),
       .attesa = attesa,
       .senzaRighe = QStringLiteral("Nessun articolo in archivio")},
      contesto);
}

elenco::EsitoElenco RiempiRicerca(FlexGrid& griglia, const store::Statement& istruzione, Contesto& contesto) {
  // Neither an apostrophe among what was typed nor a value that cannot be shown is a reason to end the day's
  // work: the person is told, and the list stays as it was or goes on.
  return elenco::Riempi(griglia, varGlobal().DB_Articoli, istruzione,
                        {.colonne = kColonne,
                         .prefisso = {},
                         .alGuasto = elenco::AlGuasto::Prosegue,
                         .senzaRighe = QStringLiteral("Nessun articolo trovato")},
                        contesto);
}

elenco::EsitoElenco Tasto_Refresh(FlexGrid& griglia, Contesto& contesto, Attesa* attesa) {
  const FlexGrid::Frozen ferma(griglia);
  GestGridCentral(griglia);
  return RiempiGridCentral(griglia, contesto, attesa);
}

}  // namespace articles
