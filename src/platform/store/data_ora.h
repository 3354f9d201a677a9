#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace store {

/// A moment of the calendar, to the second. In the file it stands as `yyyy-mm-dd hh:mm:ss`, which sorts.
struct DataOra {
  int anno = 0;
  int mese = 0;
  int giorno = 0;
  int ora = 0;
  int minuto = 0;
  int secondo = 0;
};

/// Reads `dd/mm/yy[yy]`, day first, or `yyyy-mm-dd`, with an optional time parted by `:` or `.`. A year of
/// two digits is of this century. Nothing where the text is no existing moment.
std::optional<DataOra> LeggiDataOra(std::string_view testo);

/// `yyyy-mm-dd hh:mm:ss`
std::string FormaOrdinabile(const DataOra& momento);
/// `dd/mm/yyyy hh:mm:ss`
std::string FormaItaliana(const DataOra& momento);

/// The dialect's FORMAT on a moment: d dd m mm yy yyyy h hh n nn s ss, `m` behind hours being minutes. `:`
/// stands for the time separator, which is a dot, as an Italian system renders it: the duplicate test of the
/// received invoices compares with dots.
std::string FormattaDataOra(const DataOra& momento, std::string_view maschera);

}  // namespace store
