#pragma once

#include <QString>
#include <functional>

namespace sales {

/// Text of a cell of the list: row from 1, column as in ColonnaVenduto.
using CellaDiElenco = std::function<QString(int riga, int colonna)>;

/// Writes the rows from 1 to `ultima`, totals included, to a CSV file without heading: columns 1 to 8 parted
/// by ";", Windows-1252, CR LF. Whole or not at all; throws Errore 61, 75 or 76.
void EsportaVenduto(const QString& percorso, int ultima, const CellaDiElenco& cella);

}  // namespace sales
