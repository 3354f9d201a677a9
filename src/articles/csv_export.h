#pragma once

#include <QString>
#include <functional>

struct Contesto;

namespace articles {

/// The rows that an export takes: what the grid shows.
struct RigheEsportate {
  int righe = 0;
  /// Text of a cell: row from 1, column 1 to 7.
  std::function<QString(int riga, int colonna)> testo;
};

/// One line without its end: the row's number, columns 1 to 7 and a blank, parted by ";". Texts go out as
/// they are shown.
QString RigaEsportata(int riga, const RigheEsportate& righe);

/// "Export Articoli": asks for a file and writes it in Windows-1252 with CR LF, whole or not at all, over one
/// that may be there; then tells so. A cancelled dialog or an empty name does nothing. Throws Errore 61, 75
/// or 76; then a file that was there is as before.
void EsportaArticoli(const RigheEsportate& righe, Contesto& contesto);

}  // namespace articles
