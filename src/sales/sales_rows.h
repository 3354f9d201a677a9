#pragma once

#include <QString>
#include <cstdint>

#include "core/list_table.h"

/// The list of the sales archive: its columns, the text of each cell, its totals.
namespace sales {

/// Columns of the list, by position.
enum ColonnaVenduto : int {
  kNr,
  kData,
  kCodEan,
  kCodArt,
  kDescrizione,
  kPrezzoMedio,
  kPezzi,
  kImporto,
  kSconto,
};

/// Which list a row stands in: they differ in the mask of a null amount, "0.000" or "000", and in what
/// becomes of the list when a cell fails.
enum class Elenco { Tutti, Cerca };

elenco::Colonne ColonneVenduto(Elenco quale);

/// Headings and widths over an empty list.
void GestGridCentral(FlexGrid& griglia);
/// The rows of a statement, a blank row, and the totals.
elenco::EsitoElenco RiempiVenduto(FlexGrid& griglia, const store::Statement& istruzione, Elenco quale,
                                  Contesto& contesto);
/// Rows, pieces, takings and discounts of a list that has rows, in a line for the foot.
QString RaccontoVenduto(const elenco::EsitoElenco& esito, Elenco quale);
/// A blank in column 1 of `riga`, and the line of totals behind it.
void SetTailGriglia(FlexGrid& griglia, int riga, const std::vector<elenco::Totale>& totali);

/// A number under the mask "0.000": three decimals, halves away from zero, the platform's decimal sign.
QString Maschera(double valore);
/// The same for a whole number and for hundredths, exact whatever their size.
QString MascheraIntero(std::int64_t valore);
QString MascheraCentesimi(std::int64_t centesimi);
/// yyyymmdd as dd/mm/yyyy, by the characters where they stand: no day is checked.
QString DataAVideo(const QString& data);

}  // namespace sales
