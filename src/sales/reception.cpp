#include "sales/reception.h"

#include <QFile>
#include <QStringBuilder>
#include <optional>
#include <vector>

#include "articles/transaction.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/state.h"
#include "ecrlink/file_channel.h"
#include "ecrlink/session.h"
#include "platform/store/store.h"
#include "platform/ui/user_port.h"

namespace sales {

namespace {

constexpr std::size_t kByteIntero = 4;
constexpr std::size_t kByteSerie = kByteIntero * kSlot;
constexpr std::size_t kInizioImporti = 0;
constexpr std::size_t kInizioPezzi = kByteSerie;
constexpr std::size_t kInizioSconti = 2 * kByteSerie;
static_assert(kInizioSconti + kByteSerie == kByteVenduto);

using Venduto = std::vector<std::uint8_t>;

Esito fallita(Contesto& contesto, const QString& messaggio) {
  contesto.utente.MsgBox(messaggio, Icon::Warning);
  return Esito::Comunicazione;
}

/// Fetches and reads the sales file; nothing if either failed, the reading having told why.
std::optional<Venduto> preleva(Contesto& contesto) {
  const QString file = QLatin1String(kFileVenduto);
  // The sales of an earlier day must not pass for today's, should the till hand nothing over.
  QFile::remove(file);
  if (ecrlink::avviaECR(file, ecrlink::Modo::Ricevi, contesto) != 0) return std::nullopt;
  // Neither size nor date is looked at: slots that a short file does not reach have sold nothing.
  Venduto venduto(kByteVenduto);
  if (ecrlink::ReadByteFromFile(venduto, file, contesto) != 0) return std::nullopt;
  return venduto;
}

void caricaSlot(store::Database& archivio, const Venduto& venduto, int slot) {
  const VendutoSlot riga = vendutoDi(venduto, slot);
  // Returns alone, or nothing: passed over whatever the amounts hold.
  if (riga.pezzi > 0) archivio.Execute(inserimento(slot, riga));
}

void carica(const Venduto& venduto, Contesto& contesto, const std::function<void(int)>& avanza) {
  store::Database archivio = varGlobal().DB_Articoli;
  articles::Transazione transazione(contesto.area);
  for (int slot = 0; slot < kSlot; ++slot) {
    avanza(slot);
    contesto.utente.DoEventsAtRecord();
    caricaSlot(archivio, venduto, slot);
  }
  transazione.conferma();
}

void segnalaCaricamento(Contesto& contesto, const Errore& errore) {
  contesto.utente.MsgBox(QStringLiteral("Errore nel caricamento dati nella TAB_VENDUTO n° ") +
                             QString::number(errore.numero) + QLatin1Char('\n') + errore.descrizione,
                         Icon::Critical);
}

Esito azzera(Contesto& contesto, const QString& riuscita) {
  if (ecrlink::avviaECR({}, ecrlink::Modo::AzzeraVenduto, contesto) != 0)
    return fallita(contesto, QStringLiteral("Errore nell'invio richiesta reset dati del venduto"));
  contesto.utente.MsgBox(riuscita, Icon::Warning);
  return Esito::Fatto;
}

}  // namespace

VendutoSlot vendutoDi(std::span<const std::uint8_t> venduto, int slot) {
  const std::size_t posto = kByteIntero * static_cast<std::size_t>(slot);
  const auto intero = [&](std::size_t serie) {
    return QuattroByteInIntero(venduto.subspan(serie + posto, kByteIntero));
  };
  return {intero(kInizioImporti), intero(kInizioPezzi), intero(kInizioSconti)};
}

QString inserimento(int slot, const VendutoSlot& venduto) {
  const QString auto_id = QString::number(slot + 1);
  // Code and EAN cross on their way: the archives in the shops hold the article code under Codice_EAN and the
  // EAN under Codice_Articolo, and the sales archive shows and filters the columns as they stand.
  return QStringLiteral(
             "insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,"
             "Importo_giornaliero,sconto_giornaliero,Tot_giorn_articoli_venduti) "
             "select FORMAT(DATE(), 'yyyymmdd'),") %
         auto_id % QStringLiteral(",codice_articolo,codice_ean,descrizione,") %
         QString::number(venduto.importo) % QLatin1Char(',') % QString::number(venduto.sconto) %
         QLatin1Char(',') % QString::number(venduto.pezzi) %
         QStringLiteral(" from tab_articoli where auto_id=") % auto_id;
}

Esito RiceviVenduto(Contesto& contesto, const std::function<void(int)>& avanza) {
  const std::optional<Venduto> venduto = preleva(contesto);
  if (!venduto) return fallita(contesto, QStringLiteral("Errore nell'invio richiesta dati del venduto"));
  try {
    carica(*venduto, contesto, avanza);
  } catch (const Errore& errore) {
    // Undone by now, a failed commit too. The till is cleared only behind a commit.
    segnalaCaricamento(contesto, errore);
    return Esito::NonCaricato;
  }
  return azzera(contesto,
                QStringLiteral("ARCHIVIO DEL VENDUTO RICEVUTO E AZZERATO CORRETTAMENTE SULLA CASSA"));
}

Esito AzzeraVenduto(Contesto& contesto) {
  return azzera(contesto, QStringLiteral("ARCHIVIO DEL VENDUTO AZZERATO CORRETTAMENTE SULLA CASSA"));
}

}  // namespace sales
