#include "articles/csv_import.h"

#include <optional>

#include "articles/archive_fields.h"
#include "articles/article_database.h"
#include "articles/import_line.h"
#include "articles/import_report.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/list_table.h"
#include "core/reactions.h"
#include "core/state.h"
#include "core/wait_box.h"
#include "platform/clock.h"
#include "platform/text/file_name.h"
#include "platform/text/line_reader.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

// What each fault adds to StatoImport.
constexpr std::int16_t kFaultPrezzo = 2;
constexpr std::int16_t kFaultReparto = 3;

const QString kFineRiga = QStringLiteral("\r\n");

/// One run of the import.
struct Corsa {
  Contesto& contesto;
  /// Of the transactions that stood open before.
  int livello = contesto.area.level();
  QString ingresso{};
  bool logAperto = false;
  /// Never back to its start: after the first fault every later line is marked, and with the third (with the
  /// second, if both are departments) the statement loses its tail and fails, which undoes the import. The
  /// shops rely on "three faults, nothing imported".
  std::int16_t StatoImport = kStatoPulito;
  CampiImport campi{};
  EsitoImport esito{};
};

void annota(const Corsa& corsa, const QString& codice) {
  WriteFileLOG(corsa.esito.log, codice, corsa.campi);
}

void contaErrore(Corsa& corsa, QLatin1String codice, std::int16_t peso) {
  annota(corsa, codice);
  ++corsa.esito.errori;
  corsa.StatoImport = static_cast<std::int16_t>(corsa.StatoImport + peso);
}

void chiudiLOG(Corsa& corsa) {
  if (!corsa.logAperto) return;
  corsa.logAperto = false;
  CloseFileLOG(corsa.esito.log, corsa.esito.errori, corsa.contesto.orologio.now());
}

/// The amount in the field as it stands; a comma counts as the decimal point.
double valoreDi(const QString& campo) {
  QString copia = campo;
  return TestoInValore(copia);
}

void controllaPrezzoEReparto(Corsa& corsa, double prezzo) {
  const bool FlagPrezzo = prezzo < 0 || prezzo > kPrezzoMassimo;
  if (FlagPrezzo) contaErrore(corsa, kErrorePrezzo, kFaultPrezzo);
  if (!FlagPrezzo && valoreDi(corsa.campi.Reparto) > kRepartoMassimo)
    contaErrore(corsa, kErroreReparto, kFaultReparto);
}

/// True if the step ran; else the person has been told and everything is undone.
template <typename Passo>
bool oAnnulla(Contesto& contesto, Passo&& passo) {
  try {
    passo();
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
  // Writes the point over the comma of the field itself: from here on the report shows it so.
  const double prezzo = TestoInValore(corsa.campi.Prezzo);
  store::Statement sql = TestaIstruzione(corsa.campi);
  controllaPrezzoEReparto(corsa, prezzo);
  sql += CodaIstruzione(corsa.StatoImport, corsa.campi.auto_id);
  return oAnnulla(corsa.contesto, [&] { corsa.esito.scritte += varGlobal().DB_Articoli.Execute(sql); });
}

std::int16_t leggiArticolo(Corsa& corsa, LineReader& lettore) {
  const Line riga = lettore.next();
  if (!riga.whole) return kSeparatori;
  return PutArticolo(windows1252::toText(riga.bytes), corsa.campi);
}

bool mancaUnCampo(std::int16_t codice) {
  return codice >= kEanAssente && codice <= kDescrizioneAssente;
}

/// Lines until the end of the file, or until one stops the import.
EsitoImport::Tipo importaRighe(Corsa& corsa, LineReader& lettore, Attesa& attesa) {
  while (!lettore.atEnd()) {
    attesa.avanza(lettore.done(), lettore.size());
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

void mostraFallita(Corsa& corsa, LineReader& lettore, Attesa& attesa) {
  lettore.close();
  chiudiLOG(corsa);
  attesa.chiudi();
  try {
    corsa.contesto.area.CommitDownTo(corsa.livello);
  } catch (const Errore& errore) {
    corsa.esito.nonConfermate = errore.descrizione;
  }
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
                    FileName(corsa.ingresso) + QStringLiteral("]") + kFineRiga + kFineRiga +
                    QStringLiteral("Per maggiori dettagli esaminare il file : [") + corsa.esito.log +
                    QStringLiteral("]") + kFineRiga,
                Icon::Information, QStringLiteral("ATTENZIONE"));
}

void importaFile(Corsa& corsa, const QDateTime& inizio) {
  const BusyGuard occupato;
  Attesa attesa(corsa.contesto);
  LineReader lettore(corsa.ingresso);
  corsa.esito.log = NomeFileLOG(corsa.ingresso, inizio);
  CreaFileLOG(corsa.esito.log, corsa.ingresso, corsa.contesto.orologio.now());
  corsa.logAperto = true;
  using Tipo = EsitoImport::Tipo;
  const bool integro = oAnnulla(corsa.contesto, [] { varGlobal().DB_Articoli.CheckIntegrity(); });
  const Tipo tipo = integro ? importaRighe(corsa, lettore, attesa) : Tipo::Annullato;
  if (tipo == Tipo::Fallito) {
    corsa.esito.tipo = tipo;
    return mostraFallita(corsa, lettore, attesa);
  }
  attesa.chiudi();
  const bool scritto =
      tipo == Tipo::Importato && oAnnulla(corsa.contesto, [&] { corsa.contesto.area.CommitTrans(); });
  corsa.esito.tipo = scritto ? tipo : Tipo::Annullato;
  // An archive that could not be written on at all must not be told a success behind its failure.
  if (integro && scritto == (tipo == Tipo::Importato)) mostraTotali(corsa);
  lettore.close();
  chiudiLOG(corsa);
}

/// The end that every other failure comes to: silent, the transaction as it is. A report that could not be
/// closed takes nothing back.
void interrompi(Corsa& corsa, const Errore& errore) {
  if (corsa.esito.tipo == EsitoImport::Tipo::Abbandonato) corsa.esito.tipo = EsitoImport::Tipo::Interrotto;
  corsa.esito.dettaglio = errore.descrizione;
  reazioni::oppure([&] { chiudiLOG(corsa); },
                   [&](const Errore& delReport) { corsa.esito.dettaglio += u' ' + delReport.descrizione; });
}

}  // namespace

EsitoImport ImportaArticoli(Contesto& contesto) {
  Corsa corsa{contesto};
  const QDateTime inizio = contesto.orologio.now();
  reazioni::oppure(
      [&] {
        contesto.area.BeginTrans();
        const std::optional<QString> scelto = contesto.utente.AskOpenPath(
            {QStringLiteral("Importa Articoli"), QLatin1String(elenco::kFiltroCSV), {}});
        if (!scelto || scelto->isEmpty()) return;
        corsa.ingresso = *scelto;
        importaFile(corsa, inizio);
      },
      [&](const Errore& errore) { interrompi(corsa, errore); });
  return corsa.esito;
}

}  // namespace articles
