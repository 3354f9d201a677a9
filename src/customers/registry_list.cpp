#include "customers/registry_list.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "controls/FlexGrid.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/state.h"
#include "core/table_text.h"
#include "customers/customer_database.h"
#include "customers/customer_records.h"

namespace customers {

namespace {

using elenco::Colonna;
using elenco::kCentro;
using elenco::kDestra;
using elenco::kSinistra;

QString stato(const elenco::Cella& cella) {
  if (cella.righe.isNull(cella.posto)) return {};
  return StatoAVideo(cella.righe.field(cella.posto).int64());
}

constexpr auto kSpiegaStato =
    u"Vuoto: cliente ordinario. *: nato da una fattura, da completare. 0: non assegnato";

constexpr std::array kColonne{
    Colonna{u"CODICE CLIENTE", 900, kDestra, "ID_Cliente", elenco::testo, "vkTextBoxIdCliente", 3, false}
        .larga(u"00000"),
    Colonna{u"STATO", 700, kCentro, "Stato", stato, "vkTextBoxStato", 1}.larga(u"***").spiegata(kSpiegaStato),
    Colonna{u"RAGIONE SOCIALE", 2600, kSinistra, "Ragione_Sociale", elenco::testo, "vkTextBoxRagioneSociale",
            40}
        .larga(u"PANIFICIO F.LLI ROSSI")
        .cedevole(),
    Colonna{u"INDIRIZZO", 2200, kSinistra, "Indirizzo", elenco::testo, "vkTextboxIndirizzo", 40},
    Colonna{u"CITTA", 1500, kSinistra, "Citta", elenco::testo, "vkTextBoxCitta", 40},
    Colonna{u"PARTITA IVA", 1400, kSinistra, "Partita_IVA", elenco::testo, "vkTextBoxPartitaIVA", 11}.copiata(
        u"Copia partita IVA"),
    Colonna{u"NOTE", 1300, kSinistra, "Nota", elenco::testo, "vkTextboxNOTE", 40},
};
static_assert(kColonne.size() == kClienteNota + 1);

/// The texts whose columns are narrower than their fields, which take what the screen leaves.
constexpr std::array kCampioniElenco{
    std::pair{kClienteIndirizzo, u"VIA GARIBALDI 12"},
    std::pair{kClienteCitta, u"REGGIO EMILIA"},
    std::pair{kClientePartitaIVA, u"00000000000"},
    std::pair{kClienteNota, u"PAGA A 30 GG"},
};

/// Pixels beside the text of a cell, with a few to spare.
constexpr int kMargine = 12;

int larghezza(const FlexGrid& griglia, const QString& testo) {
  return griglia.fontMetrics().horizontalAdvance(testo) + kMargine;
}

/// Sample of a column whose texts may be longer than it; empty for any other.
QString campione(int colonna) {
  for (const auto& [sua, esempio] : kCampioniElenco)
    if (sua == colonna) return QString::fromUtf16(esempio);
  const Colonna& questa = kColonne[static_cast<std::size_t>(colonna)];
  return questa.elastica ? testo(questa.campione) : QString();
}

QString piuLungo(const FlexGrid& griglia, int colonna) {
  QString trovato;
  for (int riga = 1; riga < griglia.Rows(); ++riga) {
    const QString questo = griglia.TextMatrix(riga, colonna);
    if (questo.size() > trovato.size()) trovato = questo;
  }
  return trovato;
}

/// A column between its sample and its longest text.
struct Stretta {
  int colonna;
  int minima;
  int mancante;
};

Stretta stretta(const FlexGrid& griglia, int colonna) {
  const int minima = std::max(kColonne[static_cast<std::size_t>(colonna)].twip / FlexGrid::kTwipsPerPixel,
                              larghezza(griglia, campione(colonna)));
  return {colonna, minima, std::max(0, larghezza(griglia, piuLungo(griglia, colonna)) - minima)};
}

elenco::EsitoElenco riempi(FlexGrid& griglia, const store::Statement& istruzione, elenco::Riempimento come,
                           Contesto& contesto) {
  come.colonne = kColonne;
  come.alGuasto = elenco::AlGuasto::Termina;
  const FlexGrid::Frozen ferma(griglia);
  elenco::EsitoElenco esito = elenco::Riempi(griglia, varGlobal().DB_Clienti, istruzione, come, contesto);
  AllargaTesti(griglia);
  return esito;
}

}  // namespace

elenco::Colonne ColonneClienti() {
  return kColonne;
}

void GestGridClienti(FlexGrid& griglia) {
  elenco::Disponi(griglia, kColonne);
  for (const auto& [colonna, campione] : kCampioniElenco)
    griglia.setColSample(colonna, QString::fromUtf16(campione));
}

void AllargaTesti(FlexGrid& griglia) {
  std::vector<Stretta> strette;
  int libera = griglia.viewport()->width();
  int mancante = 0;
  for (int colonna = 0; colonna < griglia.Cols(); ++colonna) {
    if (campione(colonna).isEmpty() || griglia.isSizedByHand(colonna)) {
      libera -= griglia.columnWidth(colonna);
      continue;
    }
    const Stretta questa = stretta(griglia, colonna);
    libera -= questa.minima;
    if (kColonne[static_cast<std::size_t>(colonna)].elastica) {
      // The name comes first, and what nobody needs is its.
      libera -= questa.mancante;
      continue;
    }
    strette.push_back(questa);
    mancante += questa.mancante;
  }
  const int concessa = std::clamp(libera, 0, mancante);
  for (const Stretta& una : strette) {
    const int quota = mancante == 0 ? 0 : una.mancante * concessa / mancante;
    griglia.setColWidth(una.colonna, quota == 0 ? kColonne[static_cast<std::size_t>(una.colonna)].twip
                                                : (una.minima + quota) * FlexGrid::kTwipsPerPixel);
  }
}

elenco::EsitoElenco CheckCampiClienti(FlexGrid& griglia, Contesto& contesto, Attesa* attesa) {
  const FlexGrid::Frozen ferma(griglia);
  GestGridClienti(griglia);
  elenco::EsitoElenco esito =
      riempi(griglia, StatementElencoClienti(),
             {.colonne = {},
              .prefisso = QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala "),
              .attesa = attesa,
              .senzaRighe = QStringLiteral("Nessun cliente in archivio")},
             contesto);
  griglia.setCell(1, kClienteCodice);
  return esito;
}

elenco::EsitoElenco CercaClienti(FlexGrid& griglia, const CampiCliente& campi, Contesto& contesto) {
  return riempi(griglia, StatementRicercaClienti(campi),
                {.colonne = {},
                 .prefisso = QStringLiteral("Vmd_Cerca_Click: uscita dal programma per condizione anomala "),
                 .senzaRighe = QStringLiteral("Nessun cliente trovato"),
                 .nonPassa = reazioni::kRipresaSenzaErrore},
                contesto);
}

int ClientiInElenco(const FlexGrid& griglia) {
  int clienti = 0;
  for (int riga = 1; riga < griglia.Rows(); ++riga) {
    const QString codice = griglia.TextMatrix(riga, kClienteCodice);
    clienti += codice.isEmpty() || codice == QString::number(kClienteAnonimo) ? 0 : 1;
  }
  return clienti;
}

QString RaccontoClienti(const FlexGrid& griglia) {
  if (!griglia.Notice().isEmpty()) return griglia.Notice();
  const int clienti = ClientiInElenco(griglia);
  if (clienti == 0) return QStringLiteral("Soltanto il cliente anonimo");
  return quanti(clienti, QStringLiteral("cliente"), QStringLiteral("clienti"));
}

}  // namespace customers
