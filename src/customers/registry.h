#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "platform/store/statement.h"
#include "platform/ui/user_port.h"

struct Contesto;

/// The registry's rules and writes, on the fields as plain texts.
namespace customers {

/// The fields of the screen and the columns of its list, by position.
enum ColonnaCliente : int {
  kClienteCodice,
  kClienteStato,
  kClienteRagioneSociale,
  kClienteIndirizzo,
  kClienteCitta,
  kClientePartitaIVA,
  kClienteNota,
};

/// What stands in the fields, as typed or as picked from the list.
struct CampiCliente {
  QString codice{};
  /// As StatoAVideo shows it.
  QString stato{};
  QString ragioneSociale{};
  QString indirizzo{};
  QString citta{};
  QString partitaIVA{};
  QString nota{};

  bool operator==(const CampiCliente&) const = default;
};

/// Whether an apostrophe of the text would end the text in a statement: two in a row stand for one.
bool ApostrofoSolo(const QString& testo);

/// Every customer, the anonymous one among them.
store::Statement StatementElencoClienti();
/// A condition for each filled field, in the order name, address, town, VAT number, note. Texts match by
/// their beginning, in capitals as they are stored, "*" is the wild card, and an apostrophe breaks the
/// statement. With no field filled, every customer.
store::Statement StatementRicercaClienti(const CampiCliente& campi);

/// The message for a code that is empty or not from 1 to 250; nothing for one that may stay.
std::optional<QString> ControllaCodiceCliente(const QString& codice);
/// The message for a VAT number with more than one comma.
std::optional<QString> ControllaVirgole(const QString& partitaIVA);

/// Why a store or a change is not begun.
struct RifiutoCliente {
  QString messaggio;
  Icon icona;
  /// The field that it is about.
  ColonnaCliente campo;
  bool anonimo = false;

  bool operator==(const RifiutoCliente&) const = default;
};
/// An empty VAT number, and one that the check refuses.
std::optional<RifiutoCliente> ControllaPartitaIVA(const QString& partitaIVA);
/// The first that applies: no code, an empty mandatory field, the anonymous customer, the VAT number.
std::optional<RifiutoCliente> ControllaCliente(const CampiCliente& campi);

enum class EsitoRegistro {
  Rifiutato,  ///< a field was refused and the person told; nothing was written
  Annullato,  ///< the question was not answered with OK
  Fallito,    ///< the store failed: told, and undone
  Fatto,
};

struct EsitoCliente {
  EsitoRegistro esito = EsitoRegistro::Fatto;
  /// Of a refusal.
  std::optional<ColonnaCliente> campo = std::nullopt;
  /// Refused since it is the anonymous customer's: the fields are to be cleared.
  bool anonimo = false;
  /// Rows that were written: none where the archive has no customer of that code.
  int righe = 0;
};

/// Stores a new customer: the checks, the VAT number that nobody else may bear, one statement. Once they are
/// passed `campi.stato` is that of an ordinary customer, whatever becomes of the statement.
EsitoCliente MemorizzaCliente(CampiCliente& campi, Contesto& contesto);
/// Changes the customer of that code, in a transaction. He is an ordinary one from then on, though made up
/// from an invoice: what he lacked has been filled in.
EsitoCliente ModificaCliente(const CampiCliente& campi, Contesto& contesto);
/// Deletes the customer of that code in a transaction, unless he has invoices, after asking.
EsitoCliente EliminaCliente(const QString& codice, Contesto& contesto);

/// The number of customers under the mask "00000".
QString QuantiClientiAVideo(std::int32_t clienti);

}  // namespace customers
