#pragma once

#include <cstdint>
#include <span>

#include "bench/sqlite_base.h"

/// The till's two files into a customer archive by prepared statements, each file in one transaction.
namespace plain_reception {

/// A customer that an invoice lacks is made up; an invoice that stands there with customer and moment is left
/// out. Returns the number of those that went in.
int invoices(base::Sqlite& sqlite, std::span<const std::uint8_t> file);
/// Inserted, changed or taken away as the file tells. Returns the number of those in the file.
int customers(base::Sqlite& sqlite, std::span<const std::uint8_t> file);

}  // namespace plain_reception
