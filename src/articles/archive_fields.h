#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "controls/guarded_field.h"

class Utente;

/// The fields of the archive screen as plain texts, and the rules on them.
namespace articles {

/// The fields, and the columns of the list, by position.
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

/// What stands in the fields, as typed or as picked from the grid.
struct CampiArticolo {
  QString id;  ///< slot of the picked row, empty with none picked
  QString ean;
  QString codice;
  QString descrizione;
  QString prezzo;
  QString reparto;
  QString varPrezzo;
  QString prezzoZero;

  bool operator==(const CampiArticolo&) const = default;
};

inline constexpr int kRepartoMassimo = 80;
/// The greatest price that a field takes, in the currency's unit.
inline constexpr double kPrezzoMassimo = 99999.99;

/// More than one comma, or a price above the greatest: set to "0".
std::optional<Rejection> controllaPrezzo(const QString& testo);
/// A number above 80 or below 0: emptied. Zero and empty pass here; the save stops them.
std::optional<Rejection> controllaReparto(const QString& testo);

struct CampoRifiutato {
  ColonnaArticoli campo;
  QString messaggio;
};
/// What a save refuses, by four checks in a row: description, price, department, S/N of the price. The
/// zero-price field is not looked at.
std::vector<CampoRifiutato> CampiRifiutati(const CampiArticolo& campi);
/// A box for each refused field. 0 if there is none, else -1.
std::int16_t CheckCampiArticolo(const CampiArticolo& campi, Utente& utente);

}  // namespace articles
