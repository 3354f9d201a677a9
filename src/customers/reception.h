#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "customers/customer_records.h"
#include "platform/store/statement.h"

class SteadyProgress;
struct Contesto;

/// The till's invoices and customers into the open archive, and the clearing of the invoices on the till.
namespace customers {

inline constexpr std::size_t kByteFatture = fattura::kRecord * fattura::kByte;

/// The moment of an invoice as its statements want it.
struct MomentoFattura {
  /// `testo`: "dd/mm/yy hh:mm:ss", as the till's library gives it. Read by position.
  explicit MomentoFattura(const QString& testo);

  /// "dd/mm/yy hh:mm:ss", stored.
  QString data;
  /// "dd/mm/yy hh.mm.ss", compared with what is stored.
  QString confronto;
  /// Of this century: the till knows no other.
  int anno = 0;
};

// The statements. Texts go in as the till sent them: an apostrophe breaks its statement, and the reception
// with it.

store::Statement StatementClienteNoto(int codice);
/// A customer that only an invoice knows.
store::Statement StatementClienteDaFattura(int codice);
store::Statement StatementFatturaNota(int codice, const MomentoFattura& momento);
/// `posto`: of the record in the file, from 1.
store::Statement StatementFatturaRicevuta(record::RecordLetto byte, const MomentoFattura& momento, int posto);
store::Statement StatementClienteTolto(int codice);
store::Statement StatementClienteCambiato(record::RecordLetto byte, int codice);
store::Statement StatementClienteRicevuto(record::RecordLetto byte, int codice);

enum class EsitoRicezione {
  Fatto,          ///< the closing text has been shown
  NonCaricato,    ///< the store or the file refused: told, undone
  Comunicazione,  ///< the till or its file failed: told; the screen is to be unloaded
};

struct RicezioneFatture {
  EsitoRicezione esito = EsitoRicezione::Comunicazione;
  /// Bytes that the till handed over; nothing where it did not.
  std::optional<std::int64_t> byte = std::nullopt;
  int nuove = 0;
  /// With a customer and a moment that stood in the archive.
  int giaPresenti = 0;
  /// Customers made up.
  int creati = 0;
};

struct RicezioneClienti {
  EsitoRicezione esito = EsitoRicezione::Comunicazione;
  std::optional<std::int64_t> byte = std::nullopt;
  int nuovi = 0;
  int cambiati = 0;
  int tolti = 0;
};

// Each takes its file into the open archive in one transaction, all or nothing. The bar moves with the
// records and is at its end with the commit. A damaged archive is not written on. Every message has been
// shown.

/// An invoice whose customer and moment stand in the archive is passed over, so that the same file may come
/// again. A record that the file does not hold whole is an empty one.
RicezioneFatture RiceviFatture(Contesto& contesto, SteadyProgress& avanzamento);
/// The till's table over the archive's customers of code 1 to 250: those that it does not have go. A file
/// that does not hold all the records is refused, since it would take the missing customers away.
RicezioneClienti RiceviClienti(Contesto& contesto, SteadyProgress& avanzamento);
/// Clears the invoices on the till without taking them.
EsitoRicezione AzzeraFatture(Contesto& contesto);

/// What the person should know of a reception beyond its boxes; empty where the till handed nothing over.
QString RaccontoRicezione(const RicezioneFatture& ricezione);
QString RaccontoRicezione(const RicezioneClienti& ricezione);
/// What a clearing did.
QString RaccontoAzzeramentoFatture();

}  // namespace customers
