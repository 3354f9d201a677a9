#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The record in which a till tells its state: 39 bytes of Windows-1252, and how a person reads them.
namespace auxcmd {

inline constexpr std::size_t kByteStato = 39;
using RecordStato = std::span<const std::uint8_t, kByteStato>;

/// How a part of the till is doing.
enum class Salute {
  Ignota,
  Bene,
  Attenzione,  ///< works on, or no more, until somebody sees to it
  Guasto,
};

/// What a letter of the record stands for.
struct Parola {
  std::uint8_t lettera;
  const char16_t* parola;
  Salute salute = Salute::Ignota;
};

struct CampoStato {
  enum class Genere {
    Testo,          ///< up to its first zero byte or its length
    Lettera,        ///< one byte: its word, or the letter itself where it has none
    TipoScontrino,  ///< the same while a receipt is open, dashes where none is
  };

  /// Object name of its box.
  const char* casella;
  const char16_t* didascalia;
  std::size_t inizio;
  std::size_t larghezza;
  Genere genere = Genere::Testo;
  std::span<const Parola> parole = {};
  /// Whether it tells how a part of the till is doing.
  bool distinto = false;
};

namespace stato {

using enum CampoStato::Genere;

inline constexpr Parola kFiscale[] = {{'F', u"FISCALE"}, {'N', u"NON FISCALE"}};
inline constexpr Parola kScontrino[] = {{'A', u"APERTO"}, {'C', u"CHIUSO"}};
inline constexpr Parola kTipoScontrino[] = {{'F', u"FISCALE"}, {'G', u"GESTIONALE"}};
inline constexpr Parola kPrinter[] = {
    {'O', u"OK", Salute::Bene}, {'T', u"TESTA ALTA", Salute::Attenzione}, {'E', u"ERRORE", Salute::Guasto}};
inline constexpr Parola kCarta[] = {{'O', u"OK", Salute::Bene}};
inline constexpr Parola kMMC[] = {{'P', u"PRESENTE", Salute::Bene},
                                  {'N', u"NON PRESENTE", Salute::Attenzione}};

/// The receipt's state, on which its kind depends.
inline constexpr CampoStato kStatoScontrino{
    "vkTextBox_Stato_Scontrino", u"Stato Scontr.", 14, 1, Lettera, kScontrino};

inline constexpr std::array kCampi{
    CampoStato{"vkTextBox_Tipo", u"Tipo", 0, 3},
    CampoStato{"vkTextBox_Costruttore", u"Costruttore", 3, 3},
    CampoStato{"vkTextBox_Matricola", u"Matricola", 6, 7},
    CampoStato{"vkTextBox_Stato_Fiscale", u"Stato Fiscale", 13, 1, Lettera, kFiscale},
    kStatoScontrino,
    CampoStato{"vkTextBox_Tipo_Scontrino", u"Tipo Scontr.", 15, 1, TipoScontrino, kTipoScontrino},
    CampoStato{"vkTextBox_Num_Scontr_F", u"N. Scontr. F.", 16, 6},
    CampoStato{"vkTextBox_Num_Scontr_G", u"N. Scontr. G.", 22, 6},
    CampoStato{"vkTextBox_Perc_MMC", u"% occup. MMC", 28, 4},
    CampoStato{"vkTextBox_Perc_MF", u"% occup. MF", 32, 4},
    CampoStato{"vkTextBox_Stato_Printer", u"Stato Printer", 36, 1, Lettera, kPrinter, true},
    CampoStato{"vkTextBox_Stato_Carta", u"Stato Carta", 37, 1, Lettera, kCarta, true},
    CampoStato{"vkTextBox_Stato_MMC", u"MMC Gestionale", 38, 1, Lettera, kMMC, true},
};

/// In order, without a gap, and the whole record.
constexpr bool coerente() {
  std::size_t prossimo = 0;
  for (const CampoStato& campo : kCampi) {
    if (campo.inizio != prossimo || campo.larghezza == 0) return false;
    if (campo.genere != Testo && campo.larghezza != 1) return false;
    prossimo += campo.larghezza;
  }
  return prossimo == kByteStato;
}
static_assert(coerente());

}  // namespace stato

/// Takes a till's answer over into `StatoECR`. False for one of another length: the record is as it was then.
bool RiempiStatoECR(std::span<const std::uint8_t> byte);

/// What stands in the box of a field.
QString testoStato(RecordStato record, const CampoStato& campo);
/// Of a field that is `distinto`: a letter without a word has to be looked at. Unknown for a till that told
/// nothing.
Salute saluteStato(RecordStato record, const CampoStato& campo);

}  // namespace auxcmd
