#include "articles/csv_import.h"

#include <optional>

#include "articles/article_database.h"
#include "articles/import_line.h"
#include "articles/import_report.h"
#include "articles/line_reader.h"
#include "articles/wait_pointer.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/error.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

constexpr double kPrezzoMassimo = 99999.99;
constexpr double kRepartoMassimo = 80;

// What each fault adds to StatoImport.
constexpr std::int16_t kFaultPrezzo = 2;
constexpr std::int16_t kFaultReparto = 3;

const QString kFineRiga = QStringLiteral("\r\n");

/// Wait box, pointer and busy guard of a running import; taken back once, at the latest with its scope.
class Attesa {
 public:
  explicit Attesa(const AttesaImport& schermo) : schermo_(schermo) {
    if (schermo_.apri) schermo_.apri();
  }
  Attesa(const Attesa&) = delete;
  Attesa& operator=(const Attesa&) = delete;
  ~Attesa() { chiudi(); }

  void avanza(const LettoreRighe& lettore) const {
    if (schermo_.avanza) schermo_.avanza(lettore.letti(), lettore.dimensione());
  }
  void chiudi() {
    if (!occupato_) return;
    occupato_.reset();
    if (schermo_.chiudi) schermo_.chiudi();
    puntatore_.reset();
  }

 private:
  const AttesaImport& schermo_;
  // Before the box: the pointer goes to work first and comes back last.
  std::optional<PuntatoreAttesa> puntatore_{std::in_place};
  std::optional<BusyGuard> occupato_{std::in_place};
};

/// One run of the import.
struct Corsa {
  Contesto& contesto;
  const Orologio& orologio;
  QString ingresso{};
  QString log{};
  bool logAperto = false;
  /// Never back to its start: after the first fault every later line is marked, and with the third (with the
  /// second, if both are departments) the statement loses its tail and fails, which undoes the import. The
  /// shops rely on "three faults, nothing imported".
  std::int16_t StatoImport = kStatoPulito;
  CampiImport campi{};
  EsitoImport esito{};
};

void annota(const Corsa& corsa, const QString& codice) {
  WriteFileLOG(corsa.log, codice, corsa.campi);
}

void contaErrore(Corsa& corsa, QLatin1String codice, std::int16_t peso) {
  annota(corsa, codice);
  ++corsa.esito.errori;
  corsa.StatoImport = static_cast<std::int16_t>(corsa.StatoImport + peso);
}

void chiudiLOG(Corsa& corsa) {
  if (!corsa.logAperto) return;
  corsa.logAperto = false;
  CloseFileLOG(corsa.log, corsa.esito.errori, corsa.orologio());
}

/// The amount in the field as it stands; a comma counts as the decimal point.
double valoreDi(const QString& campo) {
  QString copia = campo;
  return TestoInValore(copia);
}

void controllaPrezzoEReparto(Corsa& corsa) {
  const double prezzo = valoreDi(corsa.campi.Prezzo);
  const bool FlagPrezzo = prezzo < 0 || prezzo > kPrezzoMassimo;
  if (FlagPrezzo) contaErrore(corsa, kErrorePrezzo, kFaultPrezzo);
  if (!FlagPrezzo && valoreDi(corsa.campi.Reparto) > kRepartoMassimo)
    contaErrore(corsa, kErroreReparto, kFaultReparto);
}

/// True if the statement ran; else the person has been told and everything is undone.
bool esegui(Contesto& contesto, const QString& sql) {
  try {
    varGlobal().DB_Articoli.Execute(sql);
    return true;
  } catch (const Errore& errore) {
    contesto.utente.MsgBox(QStringLiteral("Errore nell'aggiornamento articoli Errore n° ") +
                               QString::number(errore.numero) + kFineRiga + errore.descrizione,
                           Icon::Critical);
    contesto.area.Rollback();
    return false;
  }
}

bool eanDuplicato(const Corsa& corsa) {
  const CampiImport& campi = corsa.campi;
  return !campi.Codice_EAN.isEmpty() &&
         GetCodiceEAN(campi.auto_id, campi.Codice_EAN, corsa.contesto.utente) == kEanDuplicato;
}

bool importaArticolo(Corsa& corsa) {
  if (eanDuplicato(corsa)) annota(corsa, kAvvisoEanDuplicato);
  QString sql = TestaIstruzione(corsa.campi);
  controllaPrezzoEReparto(corsa);
  sql += CodaIstruzione(corsa.StatoImport, corsa.campi.auto_id);
  return esegui(corsa.contesto, sql);
}

std::int16_t leggiArticolo(Corsa& corsa, LettoreRighe& lettore) {
  const Riga riga = lettore.prossima();
  if (!riga.intera) return kSeparatori;
  return PutArticolo(windows1252::toText(riga.byte), corsa.campi);
}

bool mancaUnCampo(std::int16_t codice) {
  return codice >= kEanAssente && codice <= kDescrizioneAssente;
}

/// Lines until the end of the file, or until one stops the import.
EsitoImport::Tipo importaRighe(Corsa& corsa, LettoreRighe& lettore, const Attesa& attesa) {
  while (!lettore.fine()) {
    attesa.avanza(lettore);
    corsa.contesto.utente.DoEventsAtRecord();
    const std::int16_t codice = leggiArticolo(corsa, lettore);
    if (mancaUnCampo(codice))
      annota(corsa, QString::number(codice));
    else if (codice != kRigaSana)
      return EsitoImport::Tipo::Fallito;
    if (!importaArticolo(corsa)) return EsitoImport::Tipo::Annullato;
    ++corsa.esito.righe;
  }
  return EsitoImport::Tipo::Importato;
}

void mostraFallita(Corsa& corsa, LettoreRighe& lettore, Attesa& attesa) {
  lettore.chiudi();
  chiudiLOG(corsa);
  attesa.chiudi();
  corsa.contesto.utente.MsgBox(QStringLiteral("OPERAZIONE DI IMPORTAZIONE ARTICOLI FALLITA"), Icon::Critical);
}

/// The closing box counts the faults of the lines; a statement that failed has had its own box before.
void mostraTotali(const Corsa& corsa) {
  Utente& utente = corsa.contesto.utente;
  if (corsa.esito.errori == 0) {
    utente.MsgBox(QStringLiteral("Operazione di Import ARTICOLI eseguita correttamente"), Icon::Information);
    return;
  }
  utente.MsgBox(QStringLiteral("Errore nell'importazione degli articoli") + kFineRiga + kFineRiga +
                    QStringLiteral("Totali errori riscontrati: [") + QString::number(corsa.esito.errori) +
                    QStringLiteral("]") + kFineRiga + QStringLiteral("Nome File da importare : [") +
                    NomeFile(corsa.ingresso) + QStringLiteral("]") + kFineRiga + kFineRiga +
                    QStringLiteral("Per maggiori dettagli esaminare il file : [") + corsa.log +
                    QStringLiteral("]") + kFineRiga,
                Icon::Information, QStringLiteral("ATTENZIONE"));
}

void importaFile(Corsa& corsa, const AttesaImport& schermo, const QDateTime& inizio) {
  Attesa attesa(schermo);
  LettoreRighe lettore(corsa.ingresso);
  corsa.log = NomeFileLOG(corsa.ingresso, inizio);
  CreaFileLOG(corsa.log, corsa.ingresso, corsa.orologio());
  corsa.logAperto = true;
  const EsitoImport::Tipo tipo = importaRighe(corsa, lettore, attesa);
  if (tipo == EsitoImport::Tipo::Importato) {
    attesa.chiudi();
    corsa.contesto.area.CommitTrans();
  }
  corsa.esito.tipo = tipo;
  if (tipo == EsitoImport::Tipo::Fallito) return mostraFallita(corsa, lettore, attesa);
  attesa.chiudi();
  mostraTotali(corsa);
  lettore.chiudi();
  chiudiLOG(corsa);
}

/// The end that every other failure comes to: silent, the transaction as it is. A report that could not be
/// closed takes nothing back.
void interrompi(Corsa& corsa, const Errore& errore) {
  if (corsa.esito.tipo == EsitoImport::Tipo::Abbandonato) corsa.esito.tipo = EsitoImport::Tipo::Interrotto;
  corsa.esito.dettaglio = errore.descrizione;
  try {
    chiudiLOG(corsa);
  } catch (const Errore& delReport) {
    corsa.esito.dettaglio += u' ' + delReport.descrizione;
  }
}

}  // namespace

EsitoImport ImportaArticoli(Contesto& contesto, const AttesaImport& attesa, const Orologio& orologio) {
  Corsa corsa{contesto, orologio};
  const QDateTime inizio = orologio();
  try {
    contesto.area.BeginTrans();
    const std::optional<QString> scelto = contesto.utente.AskOpenPath(
        {QStringLiteral("Importa Articoli"), QStringLiteral("csv (*.csv)|*.csv"), {}});
    if (!scelto || scelto->isEmpty()) return corsa.esito;
    corsa.ingresso = *scelto;
    importaFile(corsa, attesa, inizio);
  } catch (const Errore& errore) {
    interrompi(corsa, errore);
  }
  return corsa.esito;
}

}  // namespace articles
