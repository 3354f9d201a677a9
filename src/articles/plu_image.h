#pragma once

#include <cstdint>

class Utente;
struct Contesto;

/// The way between the article table and the 5000 RecordPLU of the configuration image. Row n of the table,
/// counted from 1, is record n - 1. Departments count from 0 in the records and from 1 in the table; a
/// department of 0 becomes byte 255.
namespace articles {

/// Fills the records from the open archive, in table order. Records behind the table's last row keep what
/// they held. 0 done, 1 if some statement failed, which has been shown; the fill goes on behind it, but no
/// row beyond the 5000th is taken. A database without the table ends the program.
std::int16_t RiempiPLU(Utente& utente);

/// Writes the 5000 records over the rows of the open archive by `auto_id`, all or none. An apostrophe in a
/// text breaks its row's statement, and with it the whole; a damaged archive is not written on. 0 done, 1
/// failed, which has been shown.
std::int16_t SalvaPLU(Contesto& contesto);

}  // namespace articles
