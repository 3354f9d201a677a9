#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "ecrlink/models.h"
#include "platform/store/statement.h"

class SteadyProgress;
struct Contesto;

/// The day's sales from the till into TAB_VENDUTO, and their clearing on the till.
namespace sales {

inline constexpr int kSlot = ecrlink::kNumeroPLU;
/// Name of the sales file on both sides, and its size: amounts, pieces, discounts of every slot, signed
/// 32-bit little endian, money in hundredths.
inline constexpr const char* kFileVenduto = "venduto.bin";
inline constexpr std::size_t kByteVenduto = std::size_t{3} * 4 * std::size_t{kSlot};

/// The sales of one slot.
struct VendutoSlot {
  std::int32_t importo = 0;
  std::int32_t pezzi = 0;
  std::int32_t sconto = 0;
  bool operator==(const VendutoSlot&) const = default;
};
/// Sales of `slot`, from 0. `venduto` holds kByteVenduto bytes.
VendutoSlot vendutoDi(std::span<const std::uint8_t> venduto, int slot);

/// The statement that adds the sales row of `slot`, from 0.
store::Statement inserimento(int slot, const VendutoSlot& venduto);

enum class EsitoVenduto {
  Fatto,          ///< the closing text has been shown
  NonCaricato,    ///< the store refused: told, undone, the till keeps its sales
  Comunicazione,  ///< the till or its file failed: told; the screen is to be unloaded
};

struct Ricezione {
  EsitoVenduto esito = EsitoVenduto::Comunicazione;
  /// Bytes that the till handed over; nothing where it did not. Behind the size they are passed over, before
  /// it those that are missing count as nothing sold.
  std::optional<std::int64_t> byte = std::nullopt;
  /// Sales rows that were committed.
  int righe = 0;
  /// The archive, by its path, that holds the same sales from a reception whose clearing the till did not
  /// confirm; empty for none.
  QString giaRicevute{};
};

/// Takes the sales into the open archive in one transaction, then clears them on the till. The bar moves with
/// the slots and is at its end with the commit. A damaged archive is not written on. Every message has been
/// shown.
///
/// Between the commit and the till's word that it has cleared, a note in the current folder tells which sales
/// were received: a till that was not cleared hands the same ones over again, and they are stored twice.
Ricezione RiceviVenduto(Contesto& contesto, SteadyProgress& avanzamento);
/// What the person should know of a reception beyond its boxes; empty where the till handed nothing over.
QString RaccontoRicezione(const Ricezione& ricezione);
/// What a clearing alone did.
QString RaccontoAzzeramento();
/// Of an earlier reception whose clearing the connected till did not confirm, else of the last such one;
/// empty for none.
QString AvvisoAzzeramentoInSospeso();
/// Clears the sales on the till without taking them.
EsitoVenduto AzzeraVenduto(Contesto& contesto);

}  // namespace sales
