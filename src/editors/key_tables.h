#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

class ChiamanteTasti;

/// The codes of the keyboards, and what a key can do.
namespace editors {

/// Keys of the largest layout, numbered from 0.
inline constexpr std::size_t kTasti = 72;
/// Keys to a row of the grid that shows a table.
inline constexpr int kColonneTasti = 8;

/// The six keyboard layouts, each a value a key in the order of the keys' numbers. Which machine has which of
/// them is told nowhere: nothing here decides it, and nothing sends them.
inline constexpr std::array<std::string_view, 6> array_cod_tastiera{
    "&H00,&H00,&HF0,&HFF,&H18,&HFD,&HFF,&HFF,&HB0,&H87,&H84,&H81,&H8B,&H8E,&H88,&H85,"
    "&H82,&H80,&H8C,&H89,&H86,&H83,&H8A,&HC0,&HE0,&HC4,&H91,&H90,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HED,&HE8,&HC6,&HFF,&HFF,&HA2,&HA7,&HA6,"
    "&HFF,&HA0,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF",
    "&H00,&H00,&HF0,&HFF,&H01,&HFC,&HFF,&HFF,&HED,&HC4,&HC6,&H8F,&HB0,&HA1,&HE8,&H8C,"
    "&HC1,&H8E,&HA2,&H93,&H89,&H88,&H87,&HA6,&H92,&H86,&H85,&H84,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&H91,&H83,&H82,&H81,&HA0,&H90,&H8A,"
    "&H80,&H8B,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF",
    "&H82,&H07,&H00,&H00,&H00,&HFC,&HFF,&HFF,&HA0,&HFF,&HA6,&HA7,&HA2,&HA4,&HED,&HFF,"
    "&HFF,&HFF,&HFF,&HC3,&HC1,&HC0,&H90,&H91,&H92,&H93,&HB5,&HE5,&HE0,&H8A,&H83,&H86,"
    "&H89,&H8C,&H8D,&HE8,&H80,&H82,&H85,&H88,&H8F,&HC6,&HB1,&H8B,&H81,&H84,&H87,&H8E,"
    "&HC4,&HB0,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF",
    "&H82,&H07,&H00,&H00,&H00,&HFC,&HFF,&HFF,&HA0,&HFF,&HA6,&HA1,&HA2,&HA4,&HED,&HFF,"
    "&HFF,&HFF,&HFF,&HC3,&HC1,&HC0,&H90,&H91,&H92,&H93,&HB5,&HE5,&HE0,&H8A,&H83,&H86,"
    "&H89,&H8C,&H8D,&HE8,&H80,&H82,&H85,&H88,&H8F,&HC6,&HB1,&H8B,&H81,&H84,&H87,&H8E,"
    "&HC4,&HB0,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF",
    "&H10,&H00,&H02,&H00,&HF0,&HC0,&HF0,&HFF,&HB0,&HC4,&HC0,&HB1,&HFF,&HC6,&HC3,&HE8,"
    "&HED,&H8D,&HC1,&HB5,&HE0,&HE5,&HC2,&HB2,&H8F,&HFF,&H8C,&H8E,&H87,&H84,&H81,&H8B,"
    "&H88,&H85,&H82,&H80,&H89,&H86,&H83,&H8A,&H93,&H92,&H91,&H90,&HFF,&HFF,&HFF,&HFF,"
    "&H97,&H96,&H95,&H94,&HA5,&HA2,&HFF,&HFF,&HA4,&HA1,&HA6,&HA0,&HFF,&HFF,&HFF,&HFF,"
    "&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF,&HFF",
    "&H20,&H00,&H0A,&H00,&H00,&H00,&H00,&HF8,&HB0,&HB2,&HC7,&HB1,&HE8,&HFF,&HC0,&HC3,"
    "&HEA,&HE0,&HED,&HC1,&H8D,&HB5,&HE5,&H8F,&H8C,&HFF,&H8E,&HFF,&HC4,&H87,&H84,&H81,"
    "&H8B,&HC5,&H88,&H85,&H82,&H80,&HC6,&H89,&H86,&H83,&H8A,&H94,&H93,&H92,&H91,&H90,"
    "&H99,&H98,&H97,&H96,&H95,&H9E,&H9D,&H9C,&H9B,&H9A,&HAE,&HAD,&HAC,&HAB,&H9F,&HA2,"
    "&HA1,&HA6,&HA0,&HFF,&H00,&H00,&H00,&H00",
};

using CodiciTastiera = std::array<std::uint8_t, kTasti>;

/// The values of a table as bytes; nothing for a text that is not 72 values in the form "&HF0", parted by
/// commas.
constexpr std::optional<CodiciTastiera> leggiCodici(std::string_view testo) {
  constexpr std::string_view kPrefisso = "&H";
  constexpr std::string_view kCifre = "0123456789ABCDEF";
  constexpr std::size_t kLunghezza = kPrefisso.size() + 2;
  if (testo.size() != kTasti * kLunghezza + kTasti - 1) return std::nullopt;
  CodiciTastiera codici{};
  for (std::size_t tasto = 0; tasto < kTasti; ++tasto) {
    const std::string_view valore = testo.substr(tasto * (kLunghezza + 1), kLunghezza + 1);
    const std::size_t alta = kCifre.find(valore[kPrefisso.size()]);
    const std::size_t bassa = kCifre.find(valore[kPrefisso.size() + 1]);
    if (!valore.starts_with(kPrefisso) || alta == kCifre.npos || bassa == kCifre.npos) return std::nullopt;
    if (valore.size() > kLunghezza && valore.back() != ',') return std::nullopt;
    codici[tasto] = static_cast<std::uint8_t>(alta * kCifre.size() + bassa);
  }
  return codici;
}

static_assert(std::ranges::all_of(array_cod_tastiera,
                                  [](std::string_view tabella) { return leggiCodici(tabella).has_value(); }));

/// What a key can be given, in the order of the buttons of the choice.
inline constexpr std::array kFunzioniTasto{
    u"REP 1",
    u"REP 2",
    u"REP 3",
    u"REP 4",
    u"REP 5",
    u"REP 6",
    u"REP 7",
    u"REP 8",
    u"REP 9",
    u"REP 10",
    u"REP 11",
    u"REP 12",
    u"REP 13",
    u"REP 14",
    u"REP 15",
    u"REP 16",
    u"REP 17",
    u"REP 18",
    u"REP 19",
    u"REP 20",
    u"Prezzo",
    u"CREDITO ESCI",
    u"PAG DIVERSI",
    u"ASSEGNI",
    u"BUONI",
    u"TICKET",
    u"SUB TENDER 2",
    u"SUB TENDER 3",
    u"SUB TENDER 4",
    u"OPERAT",
    u"DATA ORA",
    u"MOVIMENTI CONTABILI",
    u"MAGGIORAZ",
    u"TOTAL VOID",
    u"ANNULLA",
    u"STORNO",
    u"AVANZ CARTA",
    u"P.IVA COD FIS",
    u"CASSETTO",
    u"SHIFT",
    u"FUNZIONE",
    u"SCONTO",
    u"VALUTA",
    u"NULLO",
    u"FATTURA",
    u"RICEVUTA FISCALE",
    u"SCONTRINO MENSILE",
    u"FATTURA MENSILE",
    u"RISTAMPA FATTURA",
};

/// Writes the values of a table, as it has them ("&HF0"), into the caller's grid: key n into row n / 8, and
/// into the column that is left. A cell that the grid does not have is the grid's to leave out. Throws
/// Errore 9 for a table of less than 72 values.
void CaricaTastiOpzione(ChiamanteTasti& chiamante, std::string_view tabella);

}  // namespace editors
