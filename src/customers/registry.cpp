#include "customers/registry.h"

#include <cstdlib>
#include <vector>

#include "core/context.h"
#include "core/key_filters.h"
#include "core/state.h"
#include "customers/customer_database.h"
#include "customers/customer_records.h"
#include "customers/vat_number.h"
#include "platform/text/windows1252.h"

namespace customers {

namespace {

constexpr QChar kApostrofo = u'\'';
constexpr QChar kVirgola = u',';
/// Digits of the mask of the number of customers.
constexpr int kCifreConteggio = 5;

void avvisa(const QString& messaggio, Icon icona, Contesto& contesto) {
  contesto.utente.MsgBox(messaggio, icona);
}

bool anonimo(const QString& codice) {
  bool numero = false;
  return codice.toLongLong(&numero) == kClienteAnonimo && numero;
}

RifiutoCliente nessunCliente() {
  return {QStringLiteral("Attenzione nessun cliente selezionato!!!"), Icon::Warning, kClienteCodice};
}

RifiutoCliente clienteAnonimo() {
  return {QStringLiteral("Attenzione il cliente anonimo non puo' essere eliminato o modificato !!!"),
          Icon::Warning, kClienteCodice, true};
}

std::optional<ColonnaCliente> obbligatorioVuoto(const CampiCliente& campi) {
  if (campi.ragioneSociale.isEmpty()) return kClienteRagioneSociale;
  if (campi.indirizzo.isEmpty()) return kClienteIndirizzo;
  if (campi.citta.isEmpty()) return kClienteCitta;
  if (campi.partitaIVA.isEmpty()) return kClientePartitaIVA;
  return std::nullopt;
}

EsitoCliente rifiuta(const RifiutoCliente& motivo, Contesto& contesto) {
  avvisa(motivo.messaggio, motivo.icona, contesto);
  return {.esito = EsitoRegistro::Rifiutato, .campo = motivo.campo, .anonimo = motivo.anonimo};
}

EsitoCliente fallito(const QString& messaggio, Contesto& contesto) {
  avvisa(messaggio, Icon::Critical, contesto);
  return {.esito = EsitoRegistro::Fallito};
}

/// The number of a failure, and its description on a line of its own.
QString suDueRighe(const Errore& errore) {
  return QString::number(errore.numero) + u'\n' + errore.descrizione;
}

/// The row as it is written.
Cliente riga(const CampiCliente& campi, std::int16_t stato) {
  return {.codice = campi.codice,
          .ragioneSociale = windows1252::toUpper(campi.ragioneSociale),
          .indirizzo = windows1252::toUpper(campi.indirizzo),
          .citta = windows1252::toUpper(campi.citta),
          .partitaIVA = campi.partitaIVA,
          .nota = windows1252::toUpper(campi.nota),
          .stato = stato};
}

/// Another customer, by his code, bears the VAT number.
bool partitaIVAAltrui(const CampiCliente& campi) {
  store::Recordset righe = varGlobal().DB_Clienti.OpenRecordset(
      u"SELECT ID_Cliente,Partita_IVA from TAB_ANAG_CLIENTI where Partita_Iva = '" +
      store::text(campi.partitaIVA) + u"';");
  for (; !righe.atEnd(); righe.MoveNext())
    if (righe.field(QStringLiteral("ID_Cliente")).int64() != campi.codice.toLongLong()) return true;
  return false;
}

bool haFatture(const QString& codice) {
  return !varGlobal()
              .DB_Clienti
              .OpenRecordset(u"SELECT ID_Cliente from TAB_FATTURE where ID_Cliente = " +
                             store::rowId(codice) + u";")
              .empty();
}

std::vector<store::Statement> condizioni(const CampiCliente& campi) {
  std::vector<store::Statement> tutte;
  if (!campi.ragioneSociale.isEmpty())
    tutte.push_back(
        store::beginsWith(u" Ragione_Sociale like '", windows1252::toUpper(campi.ragioneSociale)));
  if (!campi.indirizzo.isEmpty())
    tutte.push_back(store::beginsWith(u" Indirizzo like '", windows1252::toUpper(campi.indirizzo)));
  if (!campi.citta.isEmpty())
    tutte.push_back(store::beginsWith(u" Citta like '", windows1252::toUpper(campi.citta)));
  if (!campi.partitaIVA.isEmpty())
    tutte.push_back(store::beginsWith(u" Partita_IVA like '", campi.partitaIVA));
  if (!campi.nota.isEmpty())
    tutte.push_back(store::beginsWith(u" Nota like '", windows1252::toUpper(campi.nota)));
  return tutte;
}

}  // namespace

bool ApostrofoSolo(const QString& testo) {
  bool aperto = false;
  for (qsizetype i = 0; i < testo.size(); ++i) {
    if (testo[i] == kApostrofo)
      aperto = !aperto;
    else if (aperto)
      return true;
  }
  return aperto;
}

store::Statement StatementElencoClienti() {
  return store::Statement(
      u"SELECT ID_Cliente,  Ragione_Sociale,  Indirizzo,  Citta,  Partita_IVA,  Nota, Stato "
      u"FROM TAB_ANAG_CLIENTI ORDER BY ID_Cliente,Ragione_Sociale ASC;");
}

store::Statement StatementRicercaClienti(const CampiCliente& campi) {
  store::Statement istruzione(
      u"SELECT  ID_Cliente,  Ragione_Sociale,  Indirizzo,  citta,  Partita_IVA,  Nota,  Stato "
      u"FROM TAB_ANAG_CLIENTI");
  store::Wording davanti = u" WHERE ";
  for (const store::Statement& condizione : condizioni(campi)) {
    istruzione += davanti;
    istruzione += condizione;
    davanti = u" AND ";
  }
  istruzione += u" ORDER BY ID_Cliente,Ragione_Sociale ASC ";
  return istruzione;
}

std::optional<QString> ControllaCodiceCliente(const QString& codice) {
  const int numero = codice.toInt();
  if (numero > kClienteAnonimo && numero <= kUltimoCliente) return std::nullopt;
  return QStringLiteral("Attenzione il codice cliente deve essere compreso tra 1 e ") +
         QString::number(kUltimoCliente) + QStringLiteral(" !!!!");
}

std::optional<QString> ControllaVirgole(const QString& partitaIVA) {
  if (partitaIVA.count(kVirgola) <= 1) return std::nullopt;
  return QString::fromUtf16(kValoreNonNumerico);
}

std::optional<RifiutoCliente> ControllaPartitaIVA(const QString& partitaIVA) {
  if (partitaIVA.isEmpty())
    return RifiutoCliente{QStringLiteral("Attenzione il campo Partita IVA non e' valorizzato"), Icon::Warning,
                          kClientePartitaIVA};
  if (CheckPartitaIVA(partitaIVA) == 0) return std::nullopt;
  return RifiutoCliente{QStringLiteral("Attenzione il valore immesso per la partita IVA non e' corretto. "
                                       "Prego verificare le cifre immesse!!!"),
                        Icon::Critical, kClientePartitaIVA};
}

std::optional<RifiutoCliente> ControllaCliente(const CampiCliente& campi) {
  if (campi.codice.isEmpty()) return nessunCliente();
  if (const auto vuoto = obbligatorioVuoto(campi))
    return RifiutoCliente{QStringLiteral("Attenzione i campi Ragione Sociale, Indirizzo, Citta, Partita IVA "
                                         "sono obbligatori!!!"),
                          Icon::Critical, *vuoto};
  if (anonimo(campi.codice)) return clienteAnonimo();
  return ControllaPartitaIVA(campi.partitaIVA);
}

EsitoCliente MemorizzaCliente(CampiCliente& campi, Contesto& contesto) {
  if (const auto motivo = ControllaCliente(campi)) return rifiuta(*motivo, contesto);
  switch (CheckEsistenzaPartitaIVA(campi.partitaIVA, contesto.utente)) {
    case kPartitaIVALibera:
      break;
    case kPartitaIVAPresente:
      return rifiuta(
          {QStringLiteral("Attenzione la Partita IVA [%1] e' gia' presente!!!").arg(campi.partitaIVA),
           Icon::Warning, kClientePartitaIVA},
          contesto);
    default:
      return {.esito = EsitoRegistro::Fallito, .campo = kClientePartitaIVA};
  }
  campi.stato = StatoAVideo(kStatoOrdinario);
  try {
    const int righe = varGlobal().DB_Clienti.Execute(StatementNuovo(riga(campi, StatoDaVideo(campi.stato))));
    return {.righe = righe};
  } catch (const Errore& errore) {
    return fallito(QStringLiteral("Errore nell' inserimento cliente Errore n° ") + suDueRighe(errore),
                   contesto);
  }
}

EsitoCliente ModificaCliente(const CampiCliente& campi, Contesto& contesto) {
  if (const auto motivo = ControllaCliente(campi)) return rifiuta(*motivo, contesto);
  try {
    if (partitaIVAAltrui(campi))
      return rifiuta(
          {QString::fromUtf16(kPartitaIVAAssociata).arg(campi.partitaIVA), Icon::Warning, kClientePartitaIVA},
          contesto);
    store::Transaction transazione(contesto.area);
    // The four mandatory fields are filled, so the mark of who was made up from an invoice goes.
    const int righe = varGlobal().DB_Clienti.Execute(StatementModifica(riga(campi, kStatoOrdinario)));
    transazione.Commit();
    return {.righe = righe};
  } catch (const Errore& errore) {
    // Undone by now. Number and description stand side by side in this message.
    return fallito(QStringLiteral("Errore nella modifica dati cliente Errore n° ") +
                       QString::number(errore.numero) + errore.descrizione,
                   contesto);
  }
}

EsitoCliente EliminaCliente(const QString& codice, Contesto& contesto) {
  if (codice.isEmpty()) return rifiuta(nessunCliente(), contesto);
  if (anonimo(codice)) return rifiuta(clienteAnonimo(), contesto);
  try {
    store::Transaction transazione(contesto.area);
    if (haFatture(codice))
      return rifiuta(
          {QStringLiteral("Attenzione non e' possibile eliminare il cliente [%1] in quanto ha delle "
                          "fatture associate !!!")
               .arg(codice),
           Icon::Warning, kClienteCodice},
          contesto);
    if (contesto.utente.MsgBox(QStringLiteral("Attenzione questa operazione comporterà l'eliminazione "
                                              "definitiva del cliente. Continuare ?"),
                               Icon::Warning, QStringLiteral("Cancellazione Cliente"), Buttons::OkCancel,
                               Preset::Last) != Answer::Ok)
      return {.esito = EsitoRegistro::Annullato};
    const int righe = varGlobal().DB_Clienti.Execute(StatementElimina(codice));
    transazione.Commit();
    return {.righe = righe};
  } catch (const Errore& errore) {
    return fallito(QStringLiteral("Errore nell' eliminazione del cliente Errore n° ") + suDueRighe(errore),
                   contesto);
  }
}

QString QuantiClientiAVideo(std::int32_t clienti) {
  const QString cifre = QString::number(std::abs(clienti)).rightJustified(kCifreConteggio, u'0');
  return clienti < 0 ? u'-' + cifre : cifre;
}

}  // namespace customers
