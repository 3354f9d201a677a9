#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

struct Contesto;

/// The day's sales from the till into TAB_VENDUTO, and their clearing on the till.
namespace sales {

inline constexpr int kSlot = 5000;
/// Name of the sales file on both sides, and its size: amounts, pieces, discounts of every slot, signed
/// 32-bit little endian, money in hundredths.
inline constexpr const char* kFileVenduto = "venduto.bin";
inline constexpr std::size_t kByteVenduto = 60000;

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
QString inserimento(int slot, const VendutoSlot& venduto);

enum class Esito {
  Fatto,          ///< the closing text has been shown
  NonCaricato,    ///< the store refused: told, undone, the till keeps its sales
  Comunicazione,  ///< the till or its file failed: told; the screen is to be unloaded
};

/// Takes the sales into the open archive in one transaction, then clears them on the till. `avanza` is called
/// at every slot, from 0, before its row is added. Every message has been shown.
Esito RiceviVenduto(Contesto& contesto, const std::function<void(int)>& avanza);
/// Clears the sales on the till without taking them.
Esito AzzeraVenduto(Contesto& contesto);

}  // namespace sales
