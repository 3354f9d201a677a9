#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "platform/store/store.h"

/// The list of the sales archive: its columns, the text of each cell, its totals.
namespace sales {

/// Columns of the list, by position.
enum ColonnaVenduto {
  kNr,
  kData,
  kCodEan,
  kCodArt,
  kDescrizione,
  kPrezzoMedio,
  kPezzi,
  kImporto,
  kSconto,
  kColonneVenduto
};

struct DescrizioneColonna {
  QString testata;
  int twip = 0;
  /// Right aligned.
  bool numero = false;
};
const std::array<DescrizioneColonna, kColonneVenduto>& colonneVenduto();

/// Totals of a list. The prices are the sum of the rows' averages, not weighted by pieces.
struct SommeVenduto {
  double prezzi = 0;
  std::int64_t pezzi = 0;
  /// Hundredths.
  std::int64_t importi = 0;
  std::int64_t sconti = 0;
};

/// Which list a row stands in: they differ in the mask of a null amount, "0.000" or "000".
enum class Elenco { Tutti, Cerca };

/// A number under the mask "0.000": three decimals, halves away from zero, the platform's decimal sign.
QString Maschera(double valore);
/// The same with a decimal sign that the caller has looked up.
QString Maschera(double valore, const QString& decimale);
/// yyyymmdd as dd/mm/yyyy, by the characters where they stand: no day is checked.
QString DataAVideo(const QString& data);

/// The rows of a query on TAB_VENDUTO, one after the other, as texts of cells.
class LettoreVenduto {
 public:
  /// `righe` must hold every column of the list, the discount aside.
  LettoreVenduto(store::Recordset righe, Elenco elenco);

  int quante() const { return righe_.RecordCount(); }
  bool fine() const { return righe_.atEnd(); }
  /// To the next row.
  void avanti();

  /// Text of a cell of the current row; what it shows is added to `somme`, unless it failed. Null texts are
  /// empty, null numbers count 0. Throws Errore 11 for an average over no pieces, 3265 for a column that the
  /// query lacks, 6 or 13 for a number that is none.
  QString cella(ColonnaVenduto colonna, SommeVenduto& somme) const;

 private:
  QString testo(int posizione) const;
  std::int32_t numero(int posizione) const;
  QString prezzoMedio(SommeVenduto& somme) const;
  QString importo(int posizione, std::int64_t& somma) const;

  store::Recordset righe_;
  Elenco elenco_;
  int data_;
  int ean_;
  int articolo_;
  int descrizione_;
  int importo_;
  int pezzi_;
  int sconto_;
  QString decimale_;
  int riga_ = 1;
};

/// Cells of the line of totals; the columns without one are empty.
std::array<QString, kColonneVenduto> rigaTotale(const SommeVenduto& somme);
/// Whether the line of totals stands out in this column.
bool inEvidenza(ColonnaVenduto colonna);

}  // namespace sales
