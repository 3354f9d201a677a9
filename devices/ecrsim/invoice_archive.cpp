#include "ecrsim/invoice_archive.h"

#include <algorithm>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {

bool InvoiceArchive::load() {
  if (!byte_.empty()) return true;
  if (!memory_.has(kInvoicesFile)) {
    byte_.resize(kInvoicesBytes);
  } else if (memory_.read(kInvoicesFile, byte_) != ecrcom::kDone || byte_.size() != kInvoicesBytes) {
    byte_.clear();
    return false;
  }
  before_ = byte_;
  return true;
}

int InvoiceArchive::freePlace() const {
  for (std::size_t start = 0; start < byte_.size(); start += kInvoiceBytes)
    if (byte_[start] == 0) return static_cast<int>(start / kInvoiceBytes) + 1;
  return 0;
}

void InvoiceArchive::add(const Invoice& invoice) {
  const int place = freePlace();
  if (place == 0) return;
  const InvoiceRecord record = recordOf(invoice);
  std::copy(record.begin(), record.end(),
            byte_.begin() + (place - 1) * static_cast<std::ptrdiff_t>(kInvoiceBytes));
}

bool InvoiceArchive::store() const {
  return byte_ == before_ || byte_.empty() || memory_.write(kInvoicesFile, byte_) == ecrcom::kDone;
}

void InvoiceArchive::restore() const {
  if (byte_ != before_ && !byte_.empty()) memory_.write(kInvoicesFile, before_);
}

}  // namespace ecrsim
