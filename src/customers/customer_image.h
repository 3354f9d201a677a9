#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>

#include "customers/customer_records.h"

class SteadyProgress;
class Utente;
struct Contesto;

/// The till's customer table, made from the open archive and sent whole: the till takes it in place of its
/// own.
namespace customers {

inline constexpr std::size_t kByteClienti = cliente::kRecord * cliente::kByte;

/// Tells that the open archive has no customers, or that they could not be counted. Returns the highest
/// customer code: 0 for none, -1 where the store failed.
std::int32_t RicavaDettagliPC(Utente& utente);

/// Writes "clienti.bin" anew into the current folder: 250 records, the n-th that of the customer with code n,
/// empty where the archive has none; customers behind them are left out. The file of an earlier transfer is
/// gone first, and the new one takes its name once it is whole. The bar moves with the records.
///
/// Returns 0, or 1 where the file could not be made by a failure that is passed over in silence. Any other
/// failure is told and ends the program. `clienti` becomes the number of the records that are not empty.
std::int16_t RiempiCLI(Contesto& contesto, SteadyProgress& avanzamento, int& clienti);

enum class EsitoInvio {
  Inviato,      ///< the till has the table
  NonRiempito,  ///< RiempiCLI gave up without a word; nothing was sent
  Fallito,      ///< the till refused, or another program exchanges in this folder; told
};
struct Invio {
  EsitoInvio esito = EsitoInvio::Fallito;
  /// Those in the file.
  int clienti = 0;
};
/// Makes the file and sends it; nobody else exchanges in the folder meanwhile. The bar is at its end once the
/// till has it.
Invio InviaClienti(Contesto& contesto, SteadyProgress& avanzamento);
/// What the person should know of a sending beyond its boxes. `massimo`: the highest code of the archive.
QString RaccontoInvio(const Invio& invio, std::int32_t massimo);
/// Of customers whose code is too high for the till; empty for none.
QString AvvisoClientiEsclusi(std::int32_t massimo);

}  // namespace customers
