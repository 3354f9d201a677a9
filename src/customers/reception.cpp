#include "customers/reception.h"

#include <QSet>
#include <QStringBuilder>
#include <QStringList>
#include <algorithm>
#include <vector>

#include "controls/steady_progress.h"
#include "core/context.h"
#include "core/figures.h"
#include "core/state.h"
#include "customers/customer_image.h"
#include "ecrlink/file_channel.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "ecrlink/transfer_lock.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/text/windows1252.h"
#include "platform/ui/user_port.h"

namespace customers {

namespace {

using record::RecordLetto;
using Byte = std::vector<std::uint8_t>;

constexpr int kSecolo = 2000;

const QString kErroreCliente = QStringLiteral("Errore nel caricamento cliente dai dati fatture n° ");
const QString kErroreFatture = QStringLiteral("Errore nel caricamento dati nella TAB_FATTURE n° ");
const QString kErroreClienti = QStringLiteral("Errore nel caricamento dati nella TAB_ANAG_CLIENTI n° ");

EsitoRicezione comunicazione(Contesto& contesto, const QString& messaggio) {
  contesto.utente.MsgBox(messaggio, Icon::Warning);
  return EsitoRicezione::Comunicazione;
}

/// Fetches a file into `byte`, which holds zeros; told if that failed.
std::optional<std::int64_t> richiedi(const char* file, const QString& messaggio, Byte& byte,
                                     Contesto& contesto) {
  const std::optional<std::int64_t> arrivati =
      ecrlink::RiceviFile(byte, QLatin1String(file), ecrlink::Precedente::Rimosso, contesto);
  if (!arrivati) comunicazione(contesto, messaggio);
  return arrivati;
}

/// One load of a file into the open archive: `record` handles the record of a number, from 1.
template <typename Record>
void carica(int records, Contesto& contesto, SteadyProgress& avanzamento, Record&& record) {
  store::Database archivio = varGlobal().DB_Clienti;
  archivio.CheckIntegrity();
  store::Transaction transazione(contesto.area);
  for (int numero = 1; numero <= records; ++numero) {
    avanzamento.to(numero);
    contesto.utente.DoEventsAtRecord();
    record(archivio, numero);
  }
  transazione.Commit();
  avanzamento.end();
}

EsitoRicezione nonCaricato(const QString& parole, const Errore& errore, Contesto& contesto,
                           SteadyProgress& avanzamento) {
  avanzamento.rest();
  contesto.utente.MsgBox(parole + QString::number(errore.numero) + QLatin1Char('\n') + errore.descrizione,
                         Icon::Critical);
  return EsitoRicezione::NonCaricato;
}

RecordLetto recordDi(const Byte& byte, int numero, std::size_t larghezza) {
  return RecordLetto(byte).subspan(static_cast<std::size_t>(numero - 1) * larghezza, larghezza);
}

/// The file up to its last whole record. Half an invoice would stand in the archive for good: the whole one,
/// come again, would be taken for it.
void svuotaRecordIncompleto(Byte& byte, std::int64_t arrivati) {
  const auto interi = static_cast<std::size_t>(arrivati) / fattura::kByte * fattura::kByte;
  if (interi < byte.size()) std::fill(byte.begin() + static_cast<std::ptrdiff_t>(interi), byte.end(), 0);
}

/// One load of the invoices.
class CaricamentoFatture {
 public:
  CaricamentoFatture(const Byte& byte, Contesto& contesto, RicezioneFatture& ricezione)
      : byte_(byte), contesto_(contesto), ricezione_(ricezione) {}

  void record(store::Database& archivio, int posto) {
    const RecordLetto byte = recordDi(byte_, posto, fattura::kByte);
    const MomentoFattura momento(windows1252::toText(
        contesto_.libreria.ecr_oro_encode(record::leggiSenzaSegno(byte, fattura::kMomento))));
    const int codice = record::leggiSenzaSegno16(byte, fattura::kCliente);
    // Of an empty place too: without the anonymous customer his invoices would stand with nobody.
    if (!noti_.contains(codice)) esigiCliente(archivio, codice);
    const bool nota = !archivio.OpenRecordset(StatementFatturaNota(codice, momento)).empty();
    if (record::leggiByte(byte, fattura::kTipo) == 0) return;
    if (nota)
      ++ricezione_.giaPresenti;
    else
      ricezione_.nuove += archivio.Execute(StatementFatturaRicevuta(byte, momento, posto));
  }

  /// Of the message for a failure of what runs at the moment.
  const QString& parole() const { return *parole_; }

 private:
  /// Asked once for each code: within the transaction nobody else takes a customer away.
  void esigiCliente(store::Database& archivio, int codice) {
    parole_ = &kErroreCliente;
    if (archivio.OpenRecordset(StatementClienteNoto(codice)).empty())
      ricezione_.creati += archivio.Execute(StatementClienteDaFattura(codice));
    parole_ = &kErroreFatture;
    noti_.insert(codice);
  }

  const Byte& byte_;
  Contesto& contesto_;
  RicezioneFatture& ricezione_;
  const QString* parole_ = &kErroreFatture;
  QSet<int> noti_;
};

void caricaCliente(store::Database& archivio, RecordLetto byte, int codice, RicezioneClienti& ricezione) {
  const bool noto = !archivio.OpenRecordset(StatementClienteNoto(codice)).empty();
  const bool sullaCassa = record::leggiByte(byte, cliente::kFlag) != 0;
  if (noto && sullaCassa)
    ricezione.cambiati += archivio.Execute(StatementClienteCambiato(byte, codice));
  else if (noto)
    // The till is the master, and his invoices stay.
    ricezione.tolti += archivio.Execute(StatementClienteTolto(codice));
  else if (sullaCassa)
    ricezione.nuovi += archivio.Execute(StatementClienteRicevuto(byte, codice));
}

std::int64_t importo(RecordLetto byte, const record::Campo& quale) {
  return record::leggiIntero(byte, quale);
}

std::int64_t stato(RecordLetto byte) {
  return record::leggiByte(byte, cliente::kFlag);
}

/// "Ricevuti 154 byte", and how many there should have been.
QString ricevuti(std::int64_t byte, std::size_t previsti) {
  QString testo = QStringLiteral("Ricevuti %1 byte").arg(cifra(byte));
  if (byte != static_cast<std::int64_t>(previsti))
    testo += QStringLiteral(" invece di %1").arg(cifra(static_cast<qint64>(previsti)));
  return testo;
}

QString senzaQuelliInPiu() {
  return QStringLiteral("Quelli in più non sono stati letti.");
}

QString nullaScritto() {
  return QStringLiteral("Nulla è stato scritto nell'archivio.");
}

}  // namespace

MomentoFattura::MomentoFattura(const QString& testo) {
  // The first characters, from 1, are those of day 1, year 7, hours 10, minutes 13 and seconds 16.
  const auto parte = [&testo](int inizio, int lunghezza) {
    return QStringView(testo).mid(inizio, lunghezza);
  };
  data = parte(0, 8) % u' ' % parte(9, 8);
  confronto = parte(0, 8) % u' ' % parte(9, 2) % u'.' % parte(12, 2) % u'.' % parte(15, 2);
  anno = kSecolo + parte(6, 2).toInt();
}

store::Statement StatementClienteNoto(int codice) {
  return u"SELECT ID_Cliente From TAB_ANAG_CLIENTI where ID_Cliente =" + store::number(std::int64_t{codice});
}

store::Statement StatementClienteDaFattura(int codice) {
  return u"INSERT INTO TAB_ANAG_CLIENTI VALUES (" + store::number(std::int64_t{codice}) +
         u",'','','','','',2)";
}

store::Statement StatementFatturaNota(int codice, const MomentoFattura& momento) {
  return u"SELECT NumFattura From TAB_FATTURE where ID_Cliente =" + store::number(std::int64_t{codice}) +
         u" and format(datafattura,'dd/mm/yy hh:mm:ss') = '" + store::text(momento.confronto) + u"'";
}

store::Statement StatementFatturaRicevuta(RecordLetto byte, const MomentoFattura& momento, int posto) {
  const auto etichetta = QStringLiteral("%1/%2").arg(momento.anno).arg(posto);
  // The blank is that of a number's sign.
  const auto tipo = u' ' + QString::number(record::leggiByte(byte, fattura::kTipo));
  return u"INSERT INTO TAB_FATTURE VALUES (" +
         store::number(std::int64_t{record::leggiSenzaSegno16(byte, fattura::kCliente)}) + u",'" +
         store::text(etichetta) + u"','" + store::text(tipo) + u"','" + store::text(momento.data) + u"'," +
         store::number(importo(byte, fattura::kNonPagato)) + u"," +
         store::number(importo(byte, fattura::kImporto)) + u"," +
         store::number(importo(byte, fattura::kImponibile)) + u"," +
         store::number(importo(byte, fattura::kImposta)) + u",'" +
         store::text(record::leggiTesto(byte, fattura::kIntestatario)) + u"')";
}

store::Statement StatementClienteTolto(int codice) {
  return u"DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente =" + store::number(std::int64_t{codice});
}

store::Statement StatementClienteCambiato(RecordLetto byte, int codice) {
  return u"UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale ='" +
         store::text(record::leggiTesto(byte, cliente::kRagioneSociale)) + u"',Indirizzo ='" +
         store::text(record::leggiTesto(byte, cliente::kIndirizzo)) + u"',Citta ='" +
         store::text(record::leggiTesto(byte, cliente::kCitta)) + u"',Partita_IVA ='" +
         store::text(record::leggiTesto(byte, cliente::kPartitaIVA)) + u"',Nota ='" +
         store::text(record::leggiTesto(byte, cliente::kNota)) + u"',Stato = " + store::number(stato(byte)) +
         u" WHERE ID_Cliente =" + store::number(std::int64_t{codice});
}

store::Statement StatementClienteRicevuto(RecordLetto byte, int codice) {
  return u"INSERT INTO TAB_ANAG_CLIENTI VALUES (" + store::number(std::int64_t{codice}) + u",'" +
         store::text(record::leggiTesto(byte, cliente::kRagioneSociale)) + u"','" +
         store::text(record::leggiTesto(byte, cliente::kIndirizzo)) + u"','" +
         store::text(record::leggiTesto(byte, cliente::kCitta)) + u"','" +
         store::text(record::leggiTesto(byte, cliente::kPartitaIVA)) + u"','" +
         store::text(record::leggiTesto(byte, cliente::kNota)) + u"'," + store::number(stato(byte)) + u")";
}

RicezioneFatture RiceviFatture(Contesto& contesto, SteadyProgress& avanzamento) {
  RicezioneFatture ricezione;
  Byte byte(kByteFatture);
  ricezione.byte = richiedi(kFileFatture, QStringLiteral("Errore nell'invio richiesta dati delle fatture"),
                            byte, contesto);
  if (!ricezione.byte) return ricezione;
  svuotaRecordIncompleto(byte, *ricezione.byte);
  CaricamentoFatture caricamento(byte, contesto, ricezione);
  try {
    carica(static_cast<int>(fattura::kRecord), contesto, avanzamento,
           [&](store::Database& archivio, int posto) { caricamento.record(archivio, posto); });
  } catch (const Errore& errore) {
    // Undone by now, a failed commit too. The file was read whole and is closed: nothing stands in the way of
    // a second attempt.
    return {.esito = nonCaricato(caricamento.parole(), errore, contesto, avanzamento),
            .byte = ricezione.byte};
  }
  contesto.utente.MsgBox(QStringLiteral("ARCHIVIO DELLE FATTURE CORRETTAMENTE RICEVUTO"), Icon::Warning);
  ricezione.esito = EsitoRicezione::Fatto;
  return ricezione;
}

RicezioneClienti RiceviClienti(Contesto& contesto, SteadyProgress& avanzamento) {
  RicezioneClienti ricezione;
  Byte byte(kByteClienti);
  ricezione.byte =
      richiedi(kFileClienti, QStringLiteral("Errore nell'invio richiesta dati dei clienti"), byte, contesto);
  if (!ricezione.byte) return ricezione;
  try {
    if (*ricezione.byte < std::int64_t{kByteClienti}) throw errors::pastEnd(QLatin1String(kFileClienti));
    carica(kUltimoCliente, contesto, avanzamento, [&](store::Database& archivio, int codice) {
      caricaCliente(archivio, recordDi(byte, codice, cliente::kByte), codice, ricezione);
    });
  } catch (const Errore& errore) {
    return {.esito = nonCaricato(kErroreClienti, errore, contesto, avanzamento), .byte = ricezione.byte};
  }
  contesto.utente.MsgBox(QStringLiteral("ARCHIVIO DEI CLIENTI CORRETTAMENTE RICEVUTO"), Icon::Warning);
  ricezione.esito = EsitoRicezione::Fatto;
  return ricezione;
}

EsitoRicezione AzzeraFatture(Contesto& contesto) {
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  if (!ecrlink::prendiODillo(scambio, contesto.utente)) return EsitoRicezione::Comunicazione;
  if (ecrlink::avviaECR({}, ecrlink::Modo::AzzeraFatture, contesto) != 0)
    return EsitoRicezione::Comunicazione;
  // Another program may exchange again before the box is answered.
  scambio.reset();
  contesto.utente.MsgBox(QStringLiteral("ARCHIVIO DELLE FATTURE AZZERATO CORRETTAMENTE SULLA CASSA"),
                         Icon::Warning);
  return EsitoRicezione::Fatto;
}

QString RaccontoRicezione(const RicezioneFatture& ricezione) {
  if (!ricezione.byte) return {};
  QStringList frasi{ricevuti(*ricezione.byte, kByteFatture) + u'.'};
  const std::int64_t inPiu = *ricezione.byte - std::int64_t{kByteFatture};
  if (inPiu > 0)
    frasi += senzaQuelliInPiu();
  else if (*ricezione.byte % std::int64_t{fattura::kByte} != 0)
    frasi += QStringLiteral("L'ultima fattura è incompleta e non è stata presa.");
  else if (inPiu < 0)
    frasi += QStringLiteral("I posti che mancano contano come vuoti.");
  if (ricezione.esito != EsitoRicezione::Fatto) return (frasi << nullaScritto()).join(u' ');
  QString figure = quanti(ricezione.nuove, QStringLiteral("fattura nuova"), QStringLiteral("fatture nuove"));
  figure += QStringLiteral(", ") +
            quanti(ricezione.giaPresenti, QStringLiteral("già presente"), QStringLiteral("già presenti"));
  if (ricezione.creati > 0)
    figure += QStringLiteral(", ") + quanti(ricezione.creati, QStringLiteral("cliente da completare"),
                                            QStringLiteral("clienti da completare"));
  return (frasi << figure + u'.').join(u' ');
}

QString RaccontoRicezione(const RicezioneClienti& ricezione) {
  if (!ricezione.byte) return {};
  QStringList frasi{ricevuti(*ricezione.byte, kByteClienti) + u'.'};
  if (*ricezione.byte > std::int64_t{kByteClienti}) frasi += senzaQuelliInPiu();
  if (ricezione.esito != EsitoRicezione::Fatto) return (frasi << nullaScritto()).join(u' ');
  return (frasi << QStringLiteral("Clienti: %1, %2, %3.")
                       .arg(
                           quanti(ricezione.nuovi, QStringLiteral("nuovo"), QStringLiteral("nuovi")),
                           quanti(ricezione.cambiati, QStringLiteral("aggiornato"),
                                  QStringLiteral("aggiornati")),
                           quanti(ricezione.tolti, QStringLiteral("eliminato"), QStringLiteral("eliminati"))))
      .join(u' ');
}

QString RaccontoAzzeramentoFatture() {
  return QStringLiteral("Azzerate le fatture della cassa ") + ecrlink::indirizzoDetto();
}

}  // namespace customers
