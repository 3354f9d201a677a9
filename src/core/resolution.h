#pragma once

#include <QString>
#include <functional>

class Utente;

/// Pixels of the display: whole as read from the platform, single-precision after a change of mode.
struct MisureSchermo {
  float larghezza = 0;
  float altezza = 0;

  bool operator==(const MisureSchermo&) const = default;
};

/// What every screen of the program needs.
inline constexpr MisureSchermo kMisureMinime{1024, 768};

/// Changes the display mode, as far as the platform can.
using CambioModo = std::function<void(float larghezza, float altezza)>;

/// The question put to who works on a smaller display; each number with two blanks before it.
QString TestoRisoluzione(MisureSchermo misure);

/// Asks whether a display smaller than the minimum in either direction is to be changed. On anything but
/// "Annulla" calls `cambia` and returns the minimum; otherwise returns `misure`.
MisureSchermo ControllaRisoluzione(MisureSchermo misure, Utente& utente, const CambioModo& cambia);
