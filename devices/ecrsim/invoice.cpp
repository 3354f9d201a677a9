#include "ecrsim/invoice.h"

#include <algorithm>
#include <string_view>

#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

constexpr int kCentury = 100;

struct Field {
  std::size_t start;
  std::size_t width;
  constexpr std::size_t end() const { return start + width; }
};

constexpr Field kType{0, 1};
constexpr Field kCustomer{kType.end(), 2};
constexpr Field kHolder{kCustomer.end(), 41};
constexpr Field kMoment{kHolder.end(), 4};
constexpr Field kTotal{kMoment.end(), 4};
constexpr Field kTaxable{kTotal.end(), 4};
constexpr Field kTax{kTaxable.end(), 4};
constexpr Field kUnpaid{kTax.end(), 4};
constexpr Field kReserved{kUnpaid.end(), 13};
static_assert(kReserved.end() == kInvoiceBytes);

/// Little endian; of a negative number the two's complement.
void put(InvoiceRecord& record, const Field& field, std::int64_t value) {
  for (std::size_t i = 0; i < field.width; ++i)
    record[field.start + i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> 8U * i);
}

/// A text that fills its field has no NUL behind it.
void put(InvoiceRecord& record, const Field& field, std::string_view text) {
  const std::string_view cut = text.substr(0, field.width);
  std::copy(cut.begin(), cut.end(), record.begin() + static_cast<std::ptrdiff_t>(field.start));
}

std::int64_t packed(const Moment& when) {
  const std::uint32_t date = ecr_date_decode(when.day, when.month, when.year % kCentury);
  return std::int64_t{date} + ecr_time_decode(when.hour, when.minute, when.second);
}

}  // namespace

InvoiceRecord recordOf(const Invoice& invoice) {
  InvoiceRecord record{};
  put(record, kType, invoice.type);
  put(record, kCustomer, invoice.customer);
  put(record, kHolder, invoice.holder);
  put(record, kMoment, packed(invoice.when));
  put(record, kTotal, invoice.total);
  put(record, kTaxable, invoice.taxable);
  put(record, kTax, invoice.tax);
  put(record, kUnpaid, invoice.unpaid);
  return record;
}

}  // namespace ecrsim
