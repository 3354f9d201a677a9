#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "demo/expectations.h"

/// What the two archive screens must show and export, computed a second time with nothing of the program's
/// own code. Texts keep the bytes of the article list.
namespace expectations {

/// Articles whose description begins so, letter case aside (ASCII), by EAN.
std::vector<Article> startingWith(const std::vector<Article>& articles, const std::string& start);
/// ASCII letters only.
std::string upperCase(std::string text);

/// The export of the article archive: number of the row, fields, flags "N", a blank behind the last ";". CR
/// LF.
std::string csvArticles(const std::vector<Article>& articles, char decimal);

/// One line for each sold slot, in no order, without line end: day (dd/mm/yyyy), code, EAN, description,
/// average price, pieces, amount, discount.
std::vector<std::string> salesRows(const std::vector<Sales>& sold, const std::vector<Article>& articles,
                                   const std::string& day, char decimal);
/// The line of totals in the same columns: sum of the averages, pieces, amounts, discounts.
std::string salesTotals(const std::vector<Sales>& sold, char decimal);

/// Lines of a text with CR LF; throws std::runtime_error where a line ends otherwise.
std::vector<std::string> crLfLines(const std::string& text);

}  // namespace expectations
