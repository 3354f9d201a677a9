#include "articles/archive_grid.h"

#include "core/conversions.h"
#include "core/reactions.h"
#include "core/state.h"
#include "platform/store/store.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

/// `Filler` of an article that the import found faulty.
const QString kErrato = QStringLiteral("ERR");

/// A column of the query, known to be there or not at all.
constexpr int kAssente = -1;

/// Positions of the columns, looked up once.
struct Posti {
  explicit Posti(const store::Recordset& righe, bool conBandiere)
      : posizione(righe.column(QStringLiteral("ID_Position"))),
        ean(righe.column(QStringLiteral("Codice_EAN"))),
        codice(righe.column(QStringLiteral("Codice_Articolo"))),
        descrizione(righe.column(QStringLiteral("Descrizione"))),
        prezzo(righe.column(QStringLiteral("Prezzo"))),
        reparto(righe.column(QStringLiteral("Reparto"))) {
    if (!conBandiere) return;
    filler = righe.column(QStringLiteral("Filler"));
    varPrezzo = righe.column(QStringLiteral("VarPrezzo"));
    prezzoZero = righe.column(QStringLiteral("PrezzoZero"));
  }

  int posizione, ean, codice, descrizione, prezzo, reparto;
  int filler = kAssente, varPrezzo = kAssente, prezzoZero = kAssente;
};

QString prezzo(const store::Recordset& righe, int colonna) {
  return righe.isNull(colonna) ? QString() : CentInTesto(righe.field(colonna).int32());
}

QString lettera(const store::Recordset& righe, int colonna) {
  if (colonna == kAssente || righe.isNull(colonna)) return {};
  return righe.field(colonna).boolean() ? QStringLiteral("S") : QStringLiteral("N");
}

RigaArticolo articolo(const store::Recordset& righe, const Posti& posti) {
  return {.testi = {righe.text(posti.posizione), righe.text(posti.ean), righe.text(posti.codice),
                    righe.text(posti.descrizione), prezzo(righe, posti.prezzo), righe.text(posti.reparto),
                    lettera(righe, posti.varPrezzo), lettera(righe, posti.prezzoZero)},
          .errata = posti.filler != kAssente && righe.text(posti.filler) == kErrato};
}

void riempi(const QString& istruzione, bool conBandiere, const GrigliaArticoli& griglia, Utente& utente) {
  const BusyGuard occupato;
  store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(istruzione);
  const Posti posti(righe, conBandiere);
  griglia.dimensiona(righe.RecordCount());
  for (int riga = 1; !righe.atEnd(); righe.MoveNext(), ++riga) {
    griglia.scrivi(riga, articolo(righe, posti));
    utente.DoEventsAtRecord();
  }
}

}  // namespace

const std::array<ColonnaGriglia, kColonneArticoli>& ColonneArticoli() {
  static const std::array<ColonnaGriglia, kColonneArticoli> colonne{{
      {QStringLiteral("N."), 500, Qt::AlignCenter},
      {QStringLiteral("COD. EAN"), 1600, Qt::AlignLeft | Qt::AlignVCenter},
      {QStringLiteral("COD. ARTICOLI"), 1600, Qt::AlignLeft | Qt::AlignVCenter},
      {QStringLiteral("DESCRIZIONE "), 2600, Qt::AlignLeft | Qt::AlignVCenter},
      {QStringLiteral("PREZZO"), 1100, Qt::AlignRight | Qt::AlignVCenter},
      {QStringLiteral("N.REP"), 900, Qt::AlignRight | Qt::AlignVCenter},
      {QStringLiteral("VAR.PRZ"), 1000, Qt::AlignCenter},
      {QStringLiteral("PREZZO 0"), 1000, Qt::AlignCenter},
  }};
  return colonne;
}

void RiempiGridCentral(const GrigliaArticoli& griglia, Utente& utente) {
  const auto esito = reazioni::prossimaIstruzioneRiempimento(
      utente, QStringLiteral("RiempiGridCentral: uscita dal programma per condizione anomala "), [&] {
        riempi(
            QStringLiteral("SELECT ID_Position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,"
                           "VarPrezzo,PrezzoZero from TAB_ARTICOLI"),
            true, griglia, utente);
      });
  // A grid half filled must not be worked on.
  if (esito == reazioni::Esito::Segnalato) utente.Terminate();
}

void RiempiRicerca(const QString& istruzione, const GrigliaArticoli& griglia, Utente& utente) {
  // An apostrophe among what was typed is no reason to end the day's work: the person is told, and the list
  // stays as it was.
  reazioni::prossimaIstruzioneRiempimento(utente, {}, [&] { riempi(istruzione, false, griglia, utente); });
}

}  // namespace articles
