#include "bench/customer_files.h"

#include <cstdint>

#include "customers/customer_records.h"

namespace {

namespace cliente = customers::cliente;
namespace fattura = customers::fattura;

/// Of 5 June 2026, eight o'clock, in the till's encoding.
constexpr std::uint32_t kFirstMoment = ((((26U * 13 + 6) * 32 + 5) * 24 + 8) * 60) * 60;

/// The fields of one record, zeros around them.
class Record {
 public:
  explicit Record(std::size_t size) : bytes_(size, '\0') {}

  void text(const record::Campo& field, const std::string& text) {
    bytes_.replace(field.inizio, text.size(), text);
  }
  void integer(const record::Campo& field, std::uint32_t value) {
    for (std::size_t i = 0; i < field.larghezza; ++i)
      bytes_[field.inizio + i] = static_cast<char>((value >> (8 * i)) & 0xff);
  }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace

namespace customer_files {

std::string customers() {
  std::string file;
  for (std::uint32_t code = 1; code <= cliente::kRecord; ++code) {
    Record one(cliente::kByte);
    const std::string number = std::to_string(code);
    one.integer(cliente::kFlag, 1);
    one.text(cliente::kRagioneSociale, "CAFF\xC8 " + number);
    one.text(cliente::kIndirizzo, "VIA MAZZINI " + number);
    one.text(cliente::kCitta, "FORL\xCC");
    one.text(cliente::kPartitaIVA, std::to_string(70000000000 + code));
    one.text(cliente::kNota, "CHIUSO IL " + number);
    file += one.bytes();
  }
  return file;
}

std::string invoices() {
  std::string file;
  for (std::uint32_t i = 0; i < fattura::kRecord; ++i) {
    Record one(fattura::kByte);
    one.integer(fattura::kTipo, 1);
    one.integer(fattura::kCliente, 1);
    one.text(fattura::kIntestatario, "CAFF\xC8 CENTRALE DI FORL\xCC");
    // A second a record: minutes and hours follow, since each unit holds as many of the smaller one.
    one.integer(fattura::kMomento, kFirstMoment + i);
    one.integer(fattura::kImporto, 122 * i);
    one.integer(fattura::kImponibile, 100 * i);
    one.integer(fattura::kImposta, 22 * i);
    file += one.bytes();
  }
  return file;
}

}  // namespace customer_files
