#pragma once

#include <QString>

class FlexGrid;
class Utente;

/// The catalogue in its grid: a heading, and one row a picture, the first in row 1.
namespace graphics {

inline constexpr int kNumero = 0;
inline constexpr int kTipologia = 1;
inline constexpr int kNomeFile = 2;
inline constexpr int kColonne = 3;

/// Headings and widths.
void GestGridGrafica(FlexGrid& griglia);
/// The twelve rows from RecGrafica. A failure has been shown.
void RiempiGridGrafica(FlexGrid& griglia, Utente& utente);

}  // namespace graphics
