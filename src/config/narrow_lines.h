#pragma once

#include <array>

#include "config/records.h"

/// The narrow header and courtesy lines, which travel to and from a till of the small size class only; the
/// configuration file never holds them.
namespace config {

/// Whether a till of this size class is sent its lines narrow: "S" alone.
bool invioStretto(const QString& infoTipoBitmap);
/// Whether the lines come back narrow from it: every class but "L". The two part on a class that is neither:
/// such a till is sent the full lines, and of what it hands back only the narrow form is read.
bool ricezioneStretta(const QString& infoTipoBitmap);

/// As many records as the wide lines.
namespace intestazione_corta {
inline constexpr Campo kDoppiaAltezza{"doppia altezza", 0, 1, Tipo::Flag};
inline constexpr Campo kPrimaLettera{"prima lettera", 1, 1, Tipo::Byte};
inline constexpr Campo kRiserva{"riserva", 2, 24, Tipo::Riservato};
inline constexpr std::array kCampi{kDoppiaAltezza, kPrimaLettera, kRiserva};
inline constexpr std::size_t kByte = 26;
inline constexpr std::size_t kTotale = intestazione::kRecord * kByte;
static_assert(coerente(kCampi, kByte));
}  // namespace intestazione_corta
using RecordIntestazioneCorta = std::array<std::uint8_t, intestazione_corta::kByte>;

/// As many records as the wide lines.
namespace cortesia_corta {
inline constexpr Campo kDoppiaAltezza{"doppia altezza", 0, 1, Tipo::Flag};
inline constexpr Campo kPrimaLettera{"prima lettera", 1, 1, Tipo::Byte};
inline constexpr Campo kRiserva{"riserva", 2, 24, Tipo::Riservato};
inline constexpr Campo kAbilitazione{"abilitazione", 26, 1, Tipo::Flag};
inline constexpr std::array kCampi{kDoppiaAltezza, kPrimaLettera, kRiserva, kAbilitazione};
inline constexpr std::size_t kByte = 27;
inline constexpr std::size_t kTotale = cortesia::kRecord * kByte;
static_assert(coerente(kCampi, kByte));
}  // namespace cortesia_corta
using RecordCortesiaCorta = std::array<std::uint8_t, cortesia_corta::kByte>;

/// Of each line the height flag and the first character of the text, of a courtesy line its enable flag too:
/// that is all that the small tills exchange. Every other byte of the destination stays as it was. An image
/// may be longer than its records (the channel's are, by one byte); a shorter one throws Errore 9 with
/// nothing copied.
void restringiIntestazione(RecordLetto piena, Record corta);
void allargaIntestazione(RecordLetto corta, Record piena);
void restringiCortesia(RecordLetto piena, Record corta);
void allargaCortesia(RecordLetto corta, Record piena);

}  // namespace config
