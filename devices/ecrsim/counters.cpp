#include "ecrsim/counters.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "ecrcom/frame.h"

namespace ecrsim {
namespace {

constexpr std::string_view kSum = "somma ";
constexpr std::string_view kLineEnd = "\r\n";

struct Section {
  std::string_view name;
  std::span<std::int64_t> values;
};

auto sections(Counters& counters) {
  return std::array{
      Section{"numeri", counters.numbers},          Section{"giorno", counters.day},
      Section{"grantotale", counters.grandTotal},   Section{"pezzi", counters.departmentPieces},
      Section{"reparti", counters.departments},     Section{"iva", counters.vat},
      Section{"pagamenti", counters.payments},      Section{"versamenti", counters.cashIn},
      Section{"prelievi", counters.cashOut},        Section{"operazioni", counters.operatorReceipts},
      Section{"operatori", counters.operatorTotals}};
}

std::string withSum(std::string body) {
  std::array<char, 16> sum;
  std::snprintf(sum.data(), sum.size(), "%08x", ecrcom::extendChecksum(0, ecrcom::byteOf(body)));
  body += std::string(kSum) + sum.data();
  return body.append(kLineEnd);
}

/// Takes the text up to `end` off; nothing if it is not there.
std::optional<std::string_view> take(std::string_view& text, std::string_view end) {
  const std::size_t where = text.find(end);
  if (where == std::string_view::npos) return std::nullopt;
  const std::string_view taken = text.substr(0, where);
  text.remove_prefix(where + end.size());
  return taken;
}

std::optional<std::int64_t> number(std::string_view text) {
  std::int64_t value = 0;
  const auto [where, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || where != text.data() + text.size()) return std::nullopt;
  return value;
}

/// "reparti 3 1250"
bool readLine(Counters& counters, std::string_view line) {
  const auto name = take(line, " ");
  const auto place = take(line, " ");
  if (!name || !place) return false;
  const auto index = number(*place);
  const auto value = number(line);
  if (!index || !value || *index < 0) return false;
  for (const Section& one : sections(counters)) {
    if (one.name != *name || static_cast<std::size_t>(*index) >= one.values.size()) continue;
    one.values[static_cast<std::size_t>(*index)] = *value;
    return true;
  }
  return false;
}

}  // namespace

std::string textOf(const Counters& counters) {
  Counters copy = counters;
  std::string body;
  for (const Section& one : sections(copy))
    for (std::size_t i = 0; i < one.values.size(); ++i)
      if (one.values[i] != 0)
        body +=
            std::string(one.name) + " " + std::to_string(i) + " " + std::to_string(one.values[i]) + "\r\n";
  return withSum(std::move(body));
}

std::optional<Counters> countersOf(std::string_view text) {
  Counters counters;
  std::string_view rest = text;
  while (!rest.empty() && !rest.starts_with(kSum)) {
    const auto line = take(rest, kLineEnd);
    if (!line || !readLine(counters, *line)) return std::nullopt;
  }
  if (textOf(counters) != text) return std::nullopt;
  return counters;
}

}  // namespace ecrsim
