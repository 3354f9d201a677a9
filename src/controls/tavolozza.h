#pragma once

#include <QPalette>
#include <QString>

namespace stile {

/// The colours that everything is painted with. Every text colour stands at 4.5:1 or more on the grounds it
/// is used on, the disabled one aside.
struct Tinte {
  QColor sfondo;     ///< ground of windows
  QColor carta;      ///< ground of boxes to type into, cards and grids
  QColor rilievo;    ///< headings, alternate rows, hovered buttons
  QColor testo;      ///< text
  QColor tenue;      ///< secondary text
  QColor spento;     ///< disabled text
  QColor bordo;      ///< lines around controls
  QColor accento;    ///< primary buttons, selection, focus
  QColor suAccento;  ///< text on the accent
  QColor velo;       ///< accent as a wash: highlighted entries, progress
  QColor pronto;     ///< text of a good state, and its ground
  QColor fondoPronto;
  QColor occupato;
  QColor fondoOccupato;
  QColor guasto;
  QColor fondoGuasto;
};

const Tinte& tinte(bool scuro);
QPalette tavolozza(const Tinte& tinte);
QString foglioDiStile(const Tinte& tinte);

}  // namespace stile
