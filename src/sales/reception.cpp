#include "sales/reception.h"

#include <QStringList>
#include <vector>

#include "controls/steady_progress.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/state.h"
#include "ecrlink/file_channel.h"
#include "ecrlink/session.h"
#include "ecrlink/till_step.h"
#include "platform/store/store.h"
#include "platform/text/file_name.h"
#include "platform/ui/user_port.h"
#include "sales/reception_note.h"

namespace sales {

namespace {

constexpr std::size_t kByteIntero = 4;
constexpr std::size_t kByteSerie = kByteIntero * kSlot;
constexpr std::size_t kInizioImporti = 0;
constexpr std::size_t kInizioPezzi = kByteSerie;
constexpr std::size_t kInizioSconti = 2 * kByteSerie;
static_assert(kInizioSconti + kByteSerie == kByteVenduto);

using Venduto = std::vector<std::uint8_t>;

EsitoVenduto fallita(Contesto& contesto, const QString& messaggio) {
  contesto.utente.MsgBox(messaggio, Icon::Warning);
  return EsitoVenduto::Comunicazione;
}

void caricaSlot(store::Database& archivio, const Venduto& venduto, int slot, Ricezione& ricezione) {
  const VendutoSlot riga = vendutoDi(venduto, slot);
  // Returns alone, or nothing: passed over whatever the amounts hold.
  if (riga.pezzi > 0) ricezione.righe += archivio.Execute(inserimento(slot, riga));
}

void carica(const Venduto& venduto, Contesto& contesto, SteadyProgress& avanzamento, Ricezione& ricezione) {
  store::Database archivio = varGlobal().DB_Articoli;
  archivio.CheckIntegrity();
  store::Transaction transazione(contesto.area);
  for (int slot = 0; slot < kSlot; ++slot) {
    avanzamento.to(slot);
    contesto.utente.DoEventsAtRecord();
    caricaSlot(archivio, venduto, slot, ricezione);
  }
  transazione.Commit();
  avanzamento.end();
}

void segnalaCaricamento(Contesto& contesto, const Errore& errore) {
  contesto.utente.MsgBox(QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° ") +
                             QString::number(errore.numero) + QLatin1Char('\n') + errore.descrizione,
                         Icon::Critical);
}

/// Another program may exchange again before the box is answered.
EsitoVenduto azzera(Contesto& contesto, const QString& riuscita,
                    std::optional<ecrlink::ScambioEsclusivo>& scambio) {
  const int codice = ecrlink::avviaECR({}, ecrlink::Modo::AzzeraVenduto, contesto);
  if (codice == 0) nota::togli(commonForKora().IP_ECR);
  scambio.reset();
  if (codice != 0)
    return fallita(contesto, QStringLiteral("Errore nell'invio richiesta reset dati del venduto"));
  contesto.utente.MsgBox(riuscita, Icon::Warning);
  return EsitoVenduto::Fatto;
}

QByteArray improntaDi(const Venduto& venduto) {
  return nota::impronta(QByteArray::fromRawData(reinterpret_cast<const char*>(venduto.data()),
                                                static_cast<qsizetype>(venduto.size())));
}

/// Sales that cannot be noted are cleared all the same: the till must not keep what is stored.
void annota(const QByteArray& impronta) {
  try {
    nota::scrivi(impronta, varGlobal().NomeDB_Articoli, commonForKora().IP_ECR);
  } catch (const Errore&) {
    nota::togli(commonForKora().IP_ECR);
  }
}

}  // namespace

VendutoSlot vendutoDi(std::span<const std::uint8_t> venduto, int slot) {
  const std::size_t posto = kByteIntero * static_cast<std::size_t>(slot);
  const auto intero = [&](std::size_t serie) {
    return QuattroByteInIntero(venduto.subspan(serie + posto, kByteIntero));
  };
  return {intero(kInizioImporti), intero(kInizioPezzi), intero(kInizioSconti)};
}

store::Statement inserimento(int slot, const VendutoSlot& venduto) {
  const auto auto_id = store::number(std::int64_t{slot} + 1);
  // Code and EAN cross on their way: the archives in the shops hold the article code under Codice_EAN and the
  // EAN under Codice_Articolo, and the sales archive shows and filters the columns as they stand.
  return u"insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
         u"sconto_giornaliero,Tot_giorn_articoli_venduti) "
         u"select FORMAT(DATE(), 'yyyymmdd')," +
         auto_id + u",codice_articolo,codice_ean,descrizione," +
         store::number(std::int64_t{venduto.importo}) + u"," + store::number(std::int64_t{venduto.sconto}) +
         u"," + store::number(std::int64_t{venduto.pezzi}) + u" from tab_articoli where auto_id=" + auto_id;
}

Ricezione RiceviVenduto(Contesto& contesto, SteadyProgress& avanzamento) {
  Ricezione ricezione;
  // Held until the till has answered the clearing: who received in between would store the same sales again,
  // and clear what the till sold meanwhile.
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  // Neither size nor date decides: slots that a short file does not reach have sold nothing.
  Venduto venduto(kByteVenduto);
  ricezione.byte = ecrlink::RiceviFile(venduto, QLatin1String(kFileVenduto), ecrlink::Precedente::Tenuto,
                                       contesto, scambio);
  if (!ricezione.byte) {
    scambio.reset();
    fallita(contesto, QStringLiteral("Errore nell'invio richiesta dati del venduto"));
    return ricezione;
  }
  const QByteArray impronta = improntaDi(venduto);
  ricezione.giaRicevute = nota::archivioDi(impronta);
  try {
    carica(venduto, contesto, avanzamento, ricezione);
  } catch (const Errore& errore) {
    // Undone by now, a failed commit too. The till is cleared only behind a commit.
    scambio.reset();
    avanzamento.rest();
    segnalaCaricamento(contesto, errore);
    ricezione.esito = EsitoVenduto::NonCaricato;
    ricezione.righe = 0;
    return ricezione;
  }
  annota(impronta);
  ricezione.esito =
      azzera(contesto, QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"),
             scambio);
  return ricezione;
}

QString RaccontoRicezione(const Ricezione& ricezione) {
  if (!ricezione.byte) return {};
  QStringList frasi;
  const auto previsti = static_cast<std::int64_t>(kByteVenduto);
  const QString ricevuti = QStringLiteral("Ricevuti %1 byte").arg(cifra(*ricezione.byte));
  if (*ricezione.byte < previsti)
    frasi += ricevuti + QStringLiteral(" invece di %1: quelli che mancano contano come nessuna vendita.")
                            .arg(cifra(previsti));
  else if (*ricezione.byte > previsti)
    frasi +=
        ricevuti + QStringLiteral(" invece di %1: quelli in più non sono stati letti.").arg(cifra(previsti));
  else
    frasi += ricevuti + QStringLiteral(", %1.").arg(quanti(ricezione.righe, QStringLiteral("riga di venduto"),
                                                           QStringLiteral("righe di venduto")));
  if (ricezione.esito == EsitoVenduto::Comunicazione)
    frasi += QStringLiteral("La cassa non ha confermato l'azzeramento.");
  if (ricezione.esito == EsitoVenduto::NonCaricato)
    frasi += QStringLiteral("Nulla è stato scritto nell'archivio: la cassa conserva il suo venduto.");
  else if (ricezione.righe > 0 && !ricezione.giaRicevute.isEmpty())
    frasi +=
        QStringLiteral(
            "Le stesse vendite erano già state ricevute nell'archivio %1 e la cassa non aveva confermato "
            "l'azzeramento: ora risultano due volte.")
            .arg(FileName(ricezione.giaRicevute));
  return frasi.join(u' ');
}

QString RaccontoAzzeramento() {
  return QStringLiteral("Azzerato il venduto della cassa ") + ecrlink::indirizzoDetto();
}

QString AvvisoAzzeramentoInSospeso() {
  const QString archivio = nota::archivio(commonForKora().IP_ECR);
  if (archivio.isEmpty()) return {};
  return QStringLiteral(
             "L'ultimo venduto ricevuto è nell'archivio %1, ma la cassa non ha confermato l'azzeramento: se "
             "lo consegna di nuovo, le stesse vendite risulteranno due volte.")
      .arg(FileName(archivio));
}

EsitoVenduto AzzeraVenduto(Contesto& contesto) {
  std::optional<ecrlink::ScambioEsclusivo> scambio;
  if (!ecrlink::prendiODillo(scambio, contesto.utente)) return EsitoVenduto::Comunicazione;
  return azzera(contesto, QStringLiteral("ARCHIVIO DEL VENDUTO AZZERATO CORRETTAMENTE SULLA CASSA"), scambio);
}

}  // namespace sales
