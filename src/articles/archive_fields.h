#pragma once

#include <QChar>
#include <QString>
#include <cstdint>
#include <optional>

class Utente;

/// The fields of the archive screen as plain texts, and the rules on them.
namespace articles {

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

// Keys that edit, by their character codes.
inline constexpr QChar kTastoIndietro{8};
inline constexpr QChar kTastoTaglia{24};

/// Whether a field that holds `testo` takes the key; one that is not taken is dropped. Deleting, moving and
/// copying are no keys in this sense.
using FiltroTasto = bool (*)(const QString& testo, QChar tasto);
/// Digits, comma, backspace and cut. With a comma and two decimals there, backspace only, wherever the cursor
/// stands.
bool accettaPrezzo(const QString& testo, QChar tasto);
/// Digits, backspace and cut.
bool accettaReparto(const QString& testo, QChar tasto);
/// S and N in both cases, backspace and cut.
bool accettaSiNo(const QString& testo, QChar tasto);

/// What is wrong with a field that the person leaves, and what it is set to then.
struct Rifiuto {
  QString messaggio;
  QString valore;
};
/// More than one comma, or a price above the greatest: set to "0".
std::optional<Rifiuto> controllaPrezzo(const QString& testo);
/// A number above 80 or below 0: emptied. Zero and empty pass here; the save stops them.
std::optional<Rifiuto> controllaReparto(const QString& testo);

/// True for S and s; anything else is no.
bool siNo(const QString& testo);

/// The description in upper case, as long as it was. A letter whose upper case is not in Windows-1252 ("µ")
/// stays, since the till would show a "?" in its place.
QString DescrizioneMaiuscola(QString testo);

/// Four checks in a row, each with its own box: description, price, department, S/N of the price. 0 if all
/// pass, -1 if one fails. The zero-price field is not looked at.
std::int16_t CheckCampiArticolo(const CampiArticolo& campi, Utente& utente);

}  // namespace articles
