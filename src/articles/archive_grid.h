#pragma once

#include <QString>
#include <Qt>
#include <array>
#include <functional>

class Utente;

/// What the archive's grid shows, as data: a screen draws it.
namespace articles {

inline constexpr int kColonneArticoli = 8;
enum ColonnaArticoli : int {
  kColonnaPosizione,
  kColonnaEan,
  kColonnaCodice,
  kColonnaDescrizione,
  kColonnaPrezzo,
  kColonnaReparto,
  kColonnaVarPrezzo,
  kColonnaPrezzoZero,
};
/// The columns that a mark colours.
inline constexpr int kPrimaColorata = kColonnaEan;
inline constexpr int kUltimaColorata = kColonnaReparto;

struct ColonnaGriglia {
  QString testata;
  int twip;  ///< width
  Qt::Alignment allineamento;
};
/// Headings, widths and alignments.
const std::array<ColonnaGriglia, kColonneArticoli>& ColonneArticoli();

struct RigaArticolo {
  /// Null values are empty texts.
  std::array<QString, kColonneArticoli> testi;
  /// Bears the import's mark "ERR".
  bool errata = false;
};

/// Where a fill goes to.
struct GrigliaArticoli {
  /// How many articles come: called first and once, with 0 for an empty set.
  std::function<void(int articoli)> dimensiona;
  /// The n-th article, from 1.
  std::function<void(int riga, const RigaArticolo& articolo)> scrivi;
};

/// Every article in the table's order. One event pass a record, input eaten meanwhile. A missing table shows
/// the grave message and ends the program; any other failure, those aside that every procedure passes over,
/// shows its message and ends the program too.
void RiempiGridCentral(const GrigliaArticoli& griglia, Utente& utente);
/// The articles of a search statement, which lacks the two flags: their columns stay empty and no row is
/// marked. A missing table ends the program as above; any other failure shows its number and description, and
/// the grid stays as far as the fill came.
void RiempiRicerca(const QString& istruzione, const GrigliaArticoli& griglia, Utente& utente);

}  // namespace articles
