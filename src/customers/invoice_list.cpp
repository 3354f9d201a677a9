#include "customers/invoice_list.h"

#include <QPalette>
#include <array>
#include <limits>

#include "controls/FlexGrid.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/state.h"
#include "customers/invoice_search.h"

namespace customers {

namespace {

using elenco::Cella;
using elenco::Colonna;
using elenco::kDestra;
using elenco::kSinistra;

const QColor kRosso(255, 0, 0);

bool nulla(const Cella& cella) {
  return cella.righe.isNull(cella.posto);
}

/// Shows the number of an invoice and counts it.
QString numeroFattura(const Cella& cella) {
  if (nulla(cella)) return {};
  ++cella.totale.intero;
  return cella.righe.text(cella.posto);
}

std::int64_t sommaA32Bit(std::int64_t somma, std::int32_t addendo) {
  using Limiti = std::numeric_limits<std::int32_t>;
  somma += addendo;
  if (somma < Limiti::min() || somma > Limiti::max()) throw errors::overflow();
  return somma;
}

QString importoSommato(const Cella& cella) {
  if (nulla(cella)) return {};
  const std::int32_t centesimi = cella.righe.field(cella.posto).int32();
  cella.totale.intero += centesimi;
  cella.totale.parziale = sommaA32Bit(cella.totale.parziale, centesimi);
  return CentInTesto(centesimi);
}

constexpr std::array kColonne{
    Colonna{u"CODICE CLIENTE", 900, kDestra, "GET_ID_Cliente", elenco::testo, nullptr, 0, false}.larga(
        u"000"),
    Colonna{u"RAGIONE SOCIALE", 1500, kSinistra, "Ragione_Sociale"}.larga(u"PANIFICIO ROSSI").cedevole(),
    Colonna{u"PARTITA IVA", 1300, kSinistra, "Partita_IVA"}
        .larga(u"00000000000")
        .copiata(u"Copia partita IVA"),
    Colonna{u"NUMERO FATTURA", 1100, kSinistra, "NumFattura", numeroFattura}
        .larga(u"0000/0000")
        .copiata(u"Copia numero fattura"),
    Colonna{u"DATA", 1900, kSinistra, "DataFattura"}.larga(u"00/00/0000 00:00:00"),
    Colonna{u"IMPORTO", 1100, kDestra, "Importo_Fattura", importoSommato}.larga(u"00000,00"),
    Colonna{u"IMPONIBILE", 1100, kDestra, "Imponibile", importoSommato}.larga(u"00000,00"),
    Colonna{u"IMPOSTA", 1100, kDestra, "Imposta", importoSommato}.larga(u"00000,00"),
    Colonna{u"CORRISPETTIVO NON PAGATO", 1100, kDestra, "Corr_Non_Pagato", importoSommato}.larga(u"00000,00"),
    Colonna{u"INTESTATARIO", 1400, kSinistra, "Nota"}.larga(u"ROSSI MARIO"),
};
static_assert(kColonne.size() == kFatturaIntestatario + 1);

bool diSomma(int colonna) {
  return colonna >= kFatturaImporto && colonna <= kFatturaNonPagato;
}

/// No amount is cut: its column takes the longest that is there.
void allargaImporti(FlexGrid& griglia) {
  for (int colonna = kFatturaImporto; colonna <= kFatturaNonPagato; ++colonna) {
    QString piuLungo = QString::fromUtf16(kColonne[static_cast<std::size_t>(colonna)].campione);
    for (int riga = FlexGrid::kFirstRow; riga < griglia.Rows(); ++riga) {
      const QString importo = griglia.TextMatrix(riga, colonna);
      if (importo.size() > piuLungo.size()) piuLungo = importo;
    }
    griglia.setColSample(colonna, piuLungo);
  }
}

elenco::EsitoElenco riempi(FlexGrid& griglia, const store::Statement& istruzione, elenco::Riempimento come,
                           Contesto& contesto) {
  const FlexGrid::Frozen ferma(griglia);
  come.colonne = kColonne;
  come.alGuasto = elenco::AlGuasto::Termina;
  come.rottura = elenco::Rottura{.campo = "GET_ID_Cliente", .scrivi = StampaRiga};
  elenco::EsitoElenco esito = elenco::Riempi(griglia, varGlobal().DB_Clienti, istruzione, come, contesto);
  if (!esito.intero) return esito;
  allargaImporti(griglia);
  if (esito.righe > 0) griglia.setCell(FlexGrid::kFirstRow, kFatturaCliente);
  return esito;
}

}  // namespace

elenco::Colonne ColonneFatture() {
  return kColonne;
}

void GestGridCentral(FlexGrid& griglia) {
  elenco::Disponi(griglia, kColonne);
  griglia.Clear();
  griglia.setRows(FlexGrid::kFirstRow + 1);
}

elenco::EsitoElenco RiempiGridCentral(FlexGrid& griglia, Contesto& contesto) {
  return riempi(
      griglia, StatementFatture(),
      {.colonne = {},
       .prefisso = QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala "),
       .senzaRighe = QStringLiteral("Nessun cliente in archivio")},
      contesto);
}

elenco::EsitoElenco CercaFatture(FlexGrid& griglia, const store::Statement& istruzione, Contesto& contesto) {
  return riempi(griglia, istruzione,
                {.colonne = {},
                 .prefisso = QStringLiteral("Cmd_Cerca_Click: uscita dal programma per condizione anomala "),
                 .senzaRighe = QStringLiteral("Nessuna fattura trovata"),
                 .nonPassa = reazioni::kRipresaSenzaErrore},
                contesto);
}

void StampaRiga(FlexGrid& griglia, int riga, const std::vector<elenco::Totale>& totali) {
  // The system paints buttons and windows alike; the buttons of this program are as white as its paper, on
  // which the row would not stand out.
  const QColor fondo = griglia.palette().color(QPalette::Active, QPalette::Window);
  for (int colonna = 0; colonna < griglia.Cols(); ++colonna) {
    const auto somma = static_cast<std::int32_t>(totali[static_cast<std::size_t>(colonna)].parziale);
    griglia.setTextMatrix(riga, colonna, diSomma(colonna) ? CentInTesto(somma) : QStringLiteral(" "));
    griglia.setCellBackColor(riga, colonna, fondo);
    griglia.setCellForeColor(riga, colonna, kRosso);
  }
}

QString RaccontoFatture(const elenco::EsitoElenco& esito) {
  const auto quanto = [&](ColonnaFatture colonna) {
    return esito.totali[static_cast<std::size_t>(colonna)].intero;
  };
  const std::int64_t fatture = quanto(kFatturaNumero);
  const std::int64_t senza = esito.righe - fatture;
  const QString clienti =
      quanti(senza, QStringLiteral("cliente senza fatture"), QStringLiteral("clienti senza fatture"));
  if (fatture == 0) return QStringLiteral("Nessuna fattura; ") + clienti;
  const QString somme = QStringLiteral("%1: totale %2, imponibile %3, imposta %4, non pagato %5")
                            .arg(quanti(fatture, QStringLiteral("fattura"), QStringLiteral("fatture")),
                                 euro(quanto(kFatturaImporto)), euro(quanto(kFatturaImponibile)),
                                 euro(quanto(kFatturaImposta)), euro(quanto(kFatturaNonPagato)));
  return senza == 0 ? somme : somme + QStringLiteral("; ") + clienti;
}

}  // namespace customers
