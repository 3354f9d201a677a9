#include "articles/transfer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "articles/article_database.h"
#include "articles/plu_image.h"
#include "config/image.h"
#include "core/context.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/state.h"
#include "ecrlink/file_channel.h"
#include "platform/ui/user_port.h"

namespace articles {

namespace {

/// The image as the file channel wants it: one byte longer than the records, which the channel cuts off
/// again.
std::vector<std::uint8_t> immagineInvio() {
  const config::RecordLetto tabella = std::as_const(config::immagineProgrammazione()).blocco(config::kPLU);
  std::vector<std::uint8_t> immagine(config::kByteArchivioPLU + 1);
  std::copy(tabella.begin(), tabella.end(), immagine.begin());
  return immagine;
}

void leggiMomenti(const store::Recordset& righe, Utente& utente, const QString& prefisso) {
  for (const QString& colonna : {QStringLiteral("Data_end_update"), QStringLiteral("Data_end_scarico")}) {
    reazioni::prossimaIstruzione(utente, prefisso,
                                 [&] { static_cast<void>(scomponiMomento(righe.field(colonna).text())); });
  }
}

}  // namespace

void RicavaDettagliPC(Utente& utente) {
  const std::int32_t articoli = CalcolaNumArticoli(utente);
  if (articoli == 0)
    utente.MsgBox(QStringLiteral("Attenzione l'archivio degli articoli e' vuoto"), Icon::Warning);
  if (articoli == -1)
    utente.MsgBox(QStringLiteral("Errore nella determinazione del numero degli articoli"), Icon::Warning);
}

std::int16_t CheckErrTabArticoli(Utente& utente) {
  std::int16_t esito = kNessunErrato;
  reazioni::prossimaIstruzione(utente, QStringLiteral("Errore CheckErrTabArticoli "), [&] {
    const store::Recordset righe =
        varGlobal().DB_Articoli.OpenRecordset(u"SELECT Filler from TAB_ARTICOLI where Filler ='ERR';");
    if (!righe.empty()) esito = kArticoliErrati;
  });
  return esito;
}

Momento scomponiMomento(const QString& testo) {
  return {testo.mid(0, 4), testo.mid(4, 2),  testo.mid(6, 2),
          testo.mid(8, 2), testo.mid(10, 2), testo.mid(12, 2)};
}

void RicavaDettagliECR(Utente& utente) {
  const QString prefisso = QStringLiteral("RicavaDettagliECR ");
  reazioni::prossimaIstruzione(utente, prefisso, [&] {
    store::Recordset righe = varGlobal().DB_Articoli.OpenRecordset(
        u"SELECT Num_Articoli_Cassa,Data_end_update,Data_end_scarico from TAB_VARIE");
    for (; !righe.atEnd(); righe.MoveNext()) leggiMomenti(righe, utente, prefisso);
  });
}

EsitoInvio InviaArchivio(Contesto& contesto) {
  if (RiempiPLU(contesto.utente) != 0) return EsitoInvio::NonRiempito;
  const int esito = ecrlink::SendPRGTo_ECR(immagineInvio(), QLatin1String(ecrlink::kFilePLU), contesto);
  return esito == 0 ? EsitoInvio::Inviato : EsitoInvio::Fallito;
}

int ArticoliInMemoria() {
  int articoli = 0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(config::kNumeroPLU); ++i) {
    const config::RecordLetto record =
        std::as_const(config::immagineProgrammazione()).record(config::kPLU, i);
    if (!config::senzaTesto(record, config::plu::kCodiceEAN) ||
        !config::senzaTesto(record, config::plu::kDescrizione))
      ++articoli;
  }
  return articoli;
}

QString RaccontoInvio() {
  const int articoli = ArticoliInMemoria();
  return QStringLiteral("%1 %2, %3 byte")
      .arg(articoli == 1 ? QStringLiteral("Trasferito") : QStringLiteral("Trasferiti"),
           quanti(articoli, QStringLiteral("articolo"), QStringLiteral("articoli")),
           cifra(static_cast<qint64>(config::kByteArchivioPLU)));
}

}  // namespace articles
