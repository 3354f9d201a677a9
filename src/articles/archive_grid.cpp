#include "articles/archive_grid.h"

#include "core/conversioni.h"
#include "core/reazioni.h"
#include "core/stato.h"
#include "platform/store/store.h"
#include "platform/ui/occupato.h"
#include "platform/ui/utente.h"

namespace articles {

namespace {

/// `Filler` of an article that the import found faulty.
const QString kErrato = QStringLiteral("ERR");

/// A column of the query, known to be there or not at all.
constexpr int kAssente = -1;

/// Positions of the columns, looked up once.
struct Posti {
  explicit Posti(const store::Recordset& righe, bool conBandiere)
      : posizione(righe.colonna(QStringLiteral("ID_Position"))),
        ean(righe.colonna(QStringLiteral("Codice_EAN"))),
        codice(righe.colonna(QStringLiteral("Codice_Articolo"))),
        descrizione(righe.colonna(QStringLiteral("Descrizione"))),
        prezzo(righe.colonna(QStringLiteral("Prezzo"))),
        reparto(righe.colonna(QStringLiteral("Reparto"))) {
    if (!conBandiere) return;
    filler = righe.colonna(QStringLiteral("Filler"));
    varPrezzo = righe.colonna(QStringLiteral("VarPrezzo"));
    prezzoZero = righe.colonna(QStringLiteral("PrezzoZero"));
  }

  int posizione, ean, codice, descrizione, prezzo, reparto;
  int filler = kAssente, varPrezzo = kAssente, prezzoZero = kAssente;
};

QString prezzo(const store::Recordset& righe, int colonna) {
  return righe.nullo(colonna) ? QString() : CentInTesto(righe.campo(colonna).intero());
}

QString lettera(const store::Recordset& righe, int colonna) {
  if (colonna == kAssente || righe.nullo(colonna)) return {};
  return righe.campo(colonna).booleano() ? QStringLiteral("S") : QStringLiteral("N");
}

RigaArticolo articolo(const store::Recordset& righe, const Posti& posti) {
  return {.testi = {righe.testo(posti.posizione), righe.testo(posti.ean), righe.testo(posti.codice),
                    righe.testo(posti.descrizione), prezzo(righe, posti.prezzo), righe.testo(posti.reparto),
                    lettera(righe, posti.varPrezzo), lettera(righe, posti.prezzoZero)},
          .errata = posti.filler != kAssente && righe.testo(posti.filler) == kErrato};
}

void riempi(const QString& istruzione, bool conBandiere, const GrigliaArticoli& griglia, Utente& utente) {
  const Occupato occupato;
  store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(istruzione);
  const Posti posti(righe, conBandiere);
  griglia.dimensiona(righe.RecordCount());
  for (int riga = 1; !righe.fine(); righe.MoveNext(), ++riga) {
    griglia.scrivi(riga, articolo(righe, posti));
    utente.DoEventsAlRecord();
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
  if (esito == reazioni::Esito::Segnalato) utente.Termina();
}

void RiempiRicerca(const QString& istruzione, const GrigliaArticoli& griglia, Utente& utente) {
  // An apostrophe among what was typed is no reason to end the day's work: the person is told, and the list
  // stays as it was.
  reazioni::prossimaIstruzioneRiempimento(utente, {}, [&] { riempi(istruzione, false, griglia, utente); });
}

}  // namespace articles
