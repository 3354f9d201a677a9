#pragma once

#include <array>

#include "config/field.h"

/// The small records of the programme, each described once: field, offset, width, kind and the longest text.
/// Records are numbered from 0 here, from 1 on the screens. Amounts and percentages are hundredths. The types
/// named after the records are their bytes alone; inside the image a record is a span.
namespace config {

/// One line of the receipt's header: 8 records.
namespace intestazione {
inline constexpr Campo kDoppiaAltezza{"doppia altezza", 0, 1, Tipo::Flag};
inline constexpr Campo kTesto{"testo", 1, 37, Tipo::CampoTesto, 36};
inline constexpr std::array kCampi{kDoppiaAltezza, kTesto};
inline constexpr std::size_t kByte = 38;
inline constexpr std::size_t kRecord = 8;
static_assert(coerente(kCampi, kByte));
}  // namespace intestazione
using RecordIntestazione = std::array<std::uint8_t, intestazione::kByte>;

/// One courtesy line: 2 records.
namespace cortesia {
inline constexpr Campo kDoppiaAltezza{"doppia altezza", 0, 1, Tipo::Flag};
inline constexpr Campo kTesto{"testo", 1, 37, Tipo::CampoTesto, 36};
inline constexpr Campo kAbilitazione{"abilitazione", 38, 1, Tipo::Flag};
inline constexpr std::array kCampi{kDoppiaAltezza, kTesto, kAbilitazione};
inline constexpr std::size_t kByte = 39;
inline constexpr std::size_t kRecord = 2;
static_assert(coerente(kCampi, kByte));
}  // namespace cortesia
using RecordCortesia = std::array<std::uint8_t, cortesia::kByte>;

/// One department: 80 records. `attributi` is packed as department_attributes.h tells.
namespace reparto {
inline constexpr Campo kDescrizione{"descrizione", 0, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kAttributi{"attributi", 25, 1, Tipo::Byte};
inline constexpr Campo kPrezzo{"prezzo", 26, 4, Tipo::Intero32};
inline constexpr Campo kMinValore{"min valore", 30, 4, Tipo::Intero32};
inline constexpr Campo kMaxValore{"max valore", 34, 4, Tipo::Intero32};
inline constexpr Campo kSconto{"sconto", 38, 4, Tipo::Intero32};
inline constexpr std::array kCampi{kDescrizione, kAttributi, kPrezzo, kMinValore, kMaxValore, kSconto};
inline constexpr std::size_t kByte = 42;
inline constexpr std::size_t kRecord = 80;
static_assert(coerente(kCampi, kByte));
}  // namespace reparto
using RecordReparto = std::array<std::uint8_t, reparto::kByte>;

/// One VAT rate: 8 records.
namespace iva {
inline constexpr Campo kDescrizione{"descrizione", 0, 25, Tipo::CampoTesto, 10};
inline constexpr Campo kAliquota{"aliquota", 25, 4, Tipo::Intero32};
inline constexpr std::array kCampi{kDescrizione, kAliquota};
inline constexpr std::size_t kByte = 29;
inline constexpr std::size_t kRecord = 8;
static_assert(coerente(kCampi, kByte));
}  // namespace iva
using RecordIVA = std::array<std::uint8_t, iva::kByte>;

/// One currency: 4 records.
namespace valuta {
inline constexpr Campo kDescrizione{"descrizione", 0, 25, Tipo::CampoTesto, 10};
inline constexpr Campo kCambio{"cambio", 25, 4, Tipo::Intero32};
inline constexpr std::array kCampi{kDescrizione, kCambio};
inline constexpr std::size_t kByte = 29;
inline constexpr std::size_t kRecord = 4;
static_assert(coerente(kCampi, kByte));
}  // namespace valuta
using RecordValuta = std::array<std::uint8_t, valuta::kByte>;

/// One operator: 10 records.
namespace operatore {
inline constexpr Campo kDescrizione{"descrizione", 0, 25, Tipo::CampoTesto, 10};
inline constexpr Campo kAbilitazione{"abilitazione", 25, 1, Tipo::Flag};
inline constexpr Campo kPassword{"password", 26, 7, Tipo::CampoTesto, 6};
inline constexpr std::array kCampi{kDescrizione, kAbilitazione, kPassword};
inline constexpr std::size_t kByte = 33;
inline constexpr std::size_t kRecord = 10;
static_assert(coerente(kCampi, kByte));
}  // namespace operatore
using RecordOperatore = std::array<std::uint8_t, operatore::kByte>;

/// One entry of the calendar of graphics: 12 records. Dates are day and month in the till's encoding.
namespace logo {
inline constexpr Campo kAbilitazione{"abilitazione", 0, 1, Tipo::Flag};
inline constexpr Campo kDataInizio{"data inizio", 1, 4, Tipo::SenzaSegno32};
inline constexpr Campo kDataFine{"data fine", 5, 4, Tipo::SenzaSegno32};
inline constexpr Campo kRiserva{"riserva", 9, 1, Tipo::Riservato};
inline constexpr std::array kCampi{kAbilitazione, kDataInizio, kDataFine, kRiserva};
inline constexpr std::size_t kByte = 10;
inline constexpr std::size_t kRecord = 12;
static_assert(coerente(kCampi, kByte));

/// What an entry is called, and the picture that it prints in the catalogue of graphics.
struct Voce {
  const char16_t* nome;
  const char16_t* immagine;
};
inline constexpr std::array kVoci{
    Voce{u"Logo intestazione", u"Logo"},
    Voce{u"Merceologico", u"Merceologico1"},
    Voce{u"Natale", u"Natale"},
    Voce{u"Pasqua", u"Pasqua"},
    Voce{u"Festa della Mamma", u"FestaMamma"},
    Voce{u"Festa del papà", u"FestaPapà"},
    Voce{u"Festa della donna", u"FestaDonna"},
    Voce{u"Vacanze", u"Vacanze"},
    Voce{u"Carnevale", u"Carnevale"},
    Voce{u"San Valentino", u"SanValentino"},
    Voce{u"1° Promozione", u"Promozione1"},
    Voce{u"2° Promozione", u"Promozione2"},
};
static_assert(kVoci.size() == kRecord);
}  // namespace logo
using RecordLogo = std::array<std::uint8_t, logo::kByte>;

/// The shop's own data: one block of the configuration file, which never travels to the till as such.
namespace negozio {
inline constexpr Campo kRagioneSociale{"ragione sociale", 0, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kPartitaIVA{"partita IVA", 25, 12, Tipo::CampoTesto, 11};
inline constexpr Campo kIndirizzo{"indirizzo", 37, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kCitta{"città", 62, 15, Tipo::CampoTesto, 14};
inline constexpr Campo kCAP{"CAP", 77, 6, Tipo::CampoTesto, 5};
inline constexpr Campo kProvincia{"provincia", 83, 3, Tipo::CampoTesto, 2};
inline constexpr Campo kTelefono{"telefono", 86, 13, Tipo::CampoTesto, 12};
inline constexpr Campo kFax{"fax", 99, 13, Tipo::CampoTesto, 12};
inline constexpr Campo kEmail{"email", 112, 25, Tipo::CampoTesto, 24};
inline constexpr std::array kCampi{kRagioneSociale, kPartitaIVA, kIndirizzo, kCitta, kCAP,
                                   kProvincia,      kTelefono,   kFax,       kEmail};
inline constexpr std::size_t kByte = 137;
static_assert(coerente(kCampi, kByte));
}  // namespace negozio
using BloccoNegozio = std::array<std::uint8_t, negozio::kByte>;

}  // namespace config
