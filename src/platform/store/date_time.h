#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace store {

/// A moment of the calendar, to the second. In the file it stands as `yyyy-mm-dd hh:mm:ss`, which sorts.
struct DateTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// Reads `dd/mm/yy[yy]`, day first, or `yyyy-mm-dd`, with an optional time parted by `:` or `.`. A year of
/// two digits is of this century. Nothing where the text is no existing moment.
std::optional<DateTime> ReadDateTime(std::string_view text);

/// `yyyy-mm-dd hh:mm:ss`
std::string SortableForm(const DateTime& moment);
/// `dd/mm/yyyy hh:mm:ss`
std::string ItalianForm(const DateTime& moment);

/// The dialect's FORMAT on a moment: d dd m mm yy yyyy h hh n nn s ss, `m` behind hours being minutes. `:`
/// stands for the time separator, which is a dot, as an Italian system renders it: the duplicate test of the
/// received invoices compares with dots.
std::string FormatDateTime(const DateTime& moment, std::string_view mask);

}  // namespace store
