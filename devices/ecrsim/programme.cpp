#include "ecrsim/programme.h"

#include <algorithm>

#include "config/image.h"
#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"

namespace ecrsim {
namespace {

using Record = std::vector<std::uint8_t>;

constexpr std::string_view kDepartmentFile = "reparti.bin";
constexpr std::string_view kVatFile = "iva.bin";
constexpr std::string_view kOperatorFile = "operatori.bin";
constexpr std::string_view kOptionsFile = "prog_param.bin";
constexpr std::string_view kHeaderFile = "intestazione.bin";
constexpr std::string_view kCourtesyFile = "cortesia.bin";
/// Narrow lines of a till of class S: the same fields in a shorter record.
constexpr std::size_t kNarrowHeader = 26;
constexpr std::size_t kNarrowCourtesy = 27;
constexpr std::size_t kNarrowEnabled = 26;
/// Bits of a department's attributes that tell its VAT rate.
constexpr std::uint8_t kVatBits = 7;

static_assert(kPlus == static_cast<int>(config::kNumeroPLU));
static_assert(kDepartments == static_cast<int>(config::reparto::kRecord));
static_assert(kVatRates == static_cast<int>(config::iva::kRecord));
static_assert(kOperators == static_cast<int>(config::operatore::kRecord));

std::string text(const Record& record, std::size_t start, std::size_t width) {
  const auto begin = record.begin() + static_cast<std::ptrdiff_t>(std::min(start, record.size()));
  const auto limit = record.begin() + static_cast<std::ptrdiff_t>(std::min(start + width, record.size()));
  return {begin, std::find(begin, limit, std::uint8_t{0})};
}

std::string text(const Record& record, const config::Campo& field) {
  return text(record, field.inizio, field.larghezza);
}

Cents amount(const Record& record, const config::Campo& field) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8U | record[field.inizio + i - 1];
  return static_cast<std::int32_t>(value);
}

/// What nobody has described bears the name of its kind and its number.
std::string described(const std::string& description, const char* kind, int number) {
  return description.empty() ? kind + std::to_string(number) : description;
}

std::size_t place(int number) {
  return static_cast<std::size_t>(number) - 1;
}

}  // namespace

const std::vector<std::uint8_t>& Programme::file(std::string_view name) {
  const auto known = files_.find(name);
  if (known != files_.end()) return known->second;
  std::vector<std::uint8_t> byte;
  if (memory_.read(name, byte) != ecrcom::kDone) byte.clear();
  return files_.emplace(std::string(name), std::move(byte)).first->second;
}

std::vector<std::uint8_t> Programme::record(std::string_view name, std::size_t byte, std::size_t index) {
  const std::vector<std::uint8_t>& all = file(name);
  Record record(byte);
  if ((index + 1) * byte <= all.size())
    std::copy_n(all.begin() + static_cast<std::ptrdiff_t>(index * byte), byte, record.begin());
  return record;
}

Department Programme::department(int number) {
  namespace f = config::reparto;
  const Record byte = record(kDepartmentFile, f::kByte, place(number));
  Department department;
  department.description = described(text(byte, f::kDescrizione), "REPARTO ", number);
  department.vat = byte[f::kAttributi.inizio] & kVatBits;
  department.price = amount(byte, f::kPrezzo);
  department.lowest = amount(byte, f::kMinValore);
  department.highest = amount(byte, f::kMaxValore);
  return department;
}

Plu Programme::plu(int number) {
  namespace f = config::plu;
  const Record byte = record(kPluFile, config::kBytePLU, place(number));
  Plu plu;
  const std::string description = text(byte, f::kDescrizione);
  plu.description = described(description, "PLU ", number);
  plu.programmed = !description.empty() || !text(byte, f::kCodiceEAN).empty();
  plu.department = byte[f::kReparto.inizio] + 1;
  plu.price = amount(byte, f::kPrezzo);
  plu.freePrice = (byte[f::kAttributi.inizio] & f::kVarPrezzo) != 0;
  plu.zeroPrice = (byte[f::kAttributi.inizio] & f::kPrezzoZero) != 0;
  return plu;
}

std::int64_t Programme::vatRate(int index) {
  const Record byte = record(kVatFile, config::iva::kByte, static_cast<std::size_t>(index));
  const Cents rate = amount(byte, config::iva::kAliquota);
  return rate > 0 && rate <= kWholePercent ? rate : 0;
}

/// A till whose operators nobody has programmed takes them all.
bool Programme::operatorEnabled(int number) {
  namespace f = config::operatore;
  bool anyone = false;
  for (std::size_t i = 0; i < f::kRecord; ++i)
    anyone = anyone || record(kOperatorFile, f::kByte, i)[f::kAbilitazione.inizio] != 0;
  return !anyone || record(kOperatorFile, f::kByte, place(number))[f::kAbilitazione.inizio] != 0;
}

std::string Programme::operatorName(int number) {
  namespace f = config::operatore;
  return text(record(kOperatorFile, f::kByte, place(number)), f::kDescrizione);
}

Cents Programme::highestSale() {
  namespace f = config::parametri;
  return amount(record(kOptionsFile, f::kByte, 0), f::kMassimoImporto);
}

std::vector<std::string> Programme::header() {
  namespace f = config::intestazione;
  const bool wide = file(kHeaderFile).size() >= f::kRecord * f::kByte;
  const std::size_t byte = wide ? f::kByte : kNarrowHeader;
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < f::kRecord; ++i) {
    std::string line = text(record(kHeaderFile, byte, i), f::kTesto.inizio, f::kTesto.larghezza);
    if (!line.empty()) lines.push_back(std::move(line));
  }
  return lines;
}

std::vector<std::string> Programme::courtesy() {
  namespace f = config::cortesia;
  const bool wide = file(kCourtesyFile).size() >= f::kRecord * f::kByte;
  const std::size_t byte = wide ? f::kByte : kNarrowCourtesy;
  const std::size_t enabled = wide ? f::kAbilitazione.inizio : kNarrowEnabled;
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < f::kRecord; ++i) {
    const Record line = record(kCourtesyFile, byte, i);
    if (line[enabled] != 0) lines.push_back(text(line, f::kTesto.inizio, enabled - f::kTesto.inizio));
  }
  return lines;
}

int Programme::articles() {
  int count = 0;
  for (int number = 1; number <= kPlus; ++number) count += plu(number).programmed ? 1 : 0;
  return count;
}

}  // namespace ecrsim
