#pragma once

#include <string>

/// The till's two files with every place taken.
namespace customer_files {

/// clienti.bin: customers 1 to 250.
std::string customers();
/// fatture.bin: 1000 invoices to customer 1, a second apart.
std::string invoices();

}  // namespace customer_files
