#pragma once

#include <array>

#include "core/record_field.h"

/// The two files of the till's customers and invoices, little endian, texts in Windows-1252, each record
/// described once. Amounts are signed hundredths.
namespace customers {

inline constexpr const char* kFileClienti = "clienti.bin";
inline constexpr const char* kFileFatture = "fatture.bin";

/// One customer: 250 records, the n-th, from 1, that of code n.
namespace cliente {
/// 0 for an empty place, else the customer's state.
inline constexpr record::Campo kFlag{"flag", 0, 1, record::Tipo::Byte};
inline constexpr record::Campo kRagioneSociale{"ragione sociale", 1, 41, record::Tipo::TestoPieno, 41};
inline constexpr record::Campo kIndirizzo{"indirizzo", 42, 41, record::Tipo::TestoPieno, 41};
inline constexpr record::Campo kCitta{"citta", 83, 41, record::Tipo::TestoPieno, 41};
inline constexpr record::Campo kPartitaIVA{"partita IVA", 124, 12, record::Tipo::TestoPieno, 12};
inline constexpr record::Campo kNota{"nota", 136, 41, record::Tipo::TestoPieno, 41};
inline constexpr std::array kCampi{kFlag, kRagioneSociale, kIndirizzo, kCitta, kPartitaIVA, kNota};
inline constexpr std::size_t kByte = 177;
inline constexpr std::size_t kRecord = 250;
static_assert(record::coerente(kCampi, kByte));
}  // namespace cliente

/// The code of who buys without a name, and the last one that the till has a place for.
inline constexpr int kClienteAnonimo = 0;
inline constexpr int kUltimoCliente = static_cast<int>(cliente::kRecord);

/// One invoice: up to 1000 records.
namespace fattura {
/// 0 for an empty place; else what the till calls the kind of the invoice.
inline constexpr record::Campo kTipo{"tipo", 0, 1, record::Tipo::Byte};
inline constexpr record::Campo kCliente{"cliente", 1, 2, record::Tipo::SenzaSegno16};
inline constexpr record::Campo kIntestatario{"intestatario", 3, 41, record::Tipo::TestoPieno, 41};
/// In the till's encoding of a moment.
inline constexpr record::Campo kMomento{"momento", 44, 4, record::Tipo::SenzaSegno32};
inline constexpr record::Campo kImporto{"importo", 48, 4, record::Tipo::Intero32};
inline constexpr record::Campo kImponibile{"imponibile", 52, 4, record::Tipo::Intero32};
inline constexpr record::Campo kImposta{"imposta", 56, 4, record::Tipo::Intero32};
inline constexpr record::Campo kNonPagato{"corrispettivo non pagato", 60, 4, record::Tipo::Intero32};
inline constexpr record::Campo kRiserva{"riserva", 64, 13, record::Tipo::Riservato};
inline constexpr std::array kCampi{kTipo,       kCliente, kIntestatario, kMomento, kImporto,
                                   kImponibile, kImposta, kNonPagato,    kRiserva};
inline constexpr std::size_t kByte = 77;
inline constexpr std::size_t kRecord = 1000;
static_assert(record::coerente(kCampi, kByte));
}  // namespace fattura

}  // namespace customers
