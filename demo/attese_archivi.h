#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/attese.h"

/// What the two archive screens must show and export, computed a second time with nothing of the program's
/// own code. Texts keep the bytes of the article list.
namespace attese {

/// Articles whose description begins so, letter case aside (ASCII), by EAN.
std::vector<Articolo> cheCominciano(const std::vector<Articolo>& articoli, const std::string& inizio);
/// ASCII letters only.
std::string maiuscole(std::string testo);

/// The export of the article archive: number of the row, fields, flags "N", a blank behind the last ";". CR
/// LF.
std::string csvArticoli(const std::vector<Articolo>& articoli, char decimale);

/// One line for each sold slot, in no order, without line end: day (dd/mm/yyyy), code, EAN, description,
/// average price, pieces, amount, discount.
std::vector<std::string> righeVenduto(const std::vector<Venduto>& venduti,
                                      const std::vector<Articolo>& articoli, const std::string& giorno,
                                      char decimale);
/// The line of totals in the same columns: sum of the averages, pieces, amounts, discounts.
std::string totaliVenduto(const std::vector<Venduto>& venduti, char decimale);

/// Lines of a text with CR LF; throws std::runtime_error where a line ends otherwise.
std::vector<std::string> righeCrLf(const std::string& testo);

}  // namespace attese
