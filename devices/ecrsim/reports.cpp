#include "ecrsim/reports.h"

#include <array>
#include <cstdio>

#include "ecrsim/paper.h"
#include "ecrsim/payment_forms.h"

namespace ecrsim::reports {
namespace {

std::string numbered(const char* what, std::size_t index) {
  return what + std::to_string(index + 1) + " ";
}

std::string fourDigits(int number) {
  std::array<char, 16> text;
  std::snprintf(text.data(), text.size(), "%04d", number);
  return text.data();
}

std::string signedQuantity(std::int64_t pieces) {
  std::string text(pieces < 0 ? "-" : "");
  return text += quantity(pieces < 0 ? -pieces : pieces);
}

}  // namespace

Lines day(const Counters& counters) {
  return {row("SCONTRINI FISCALI", std::to_string(counters.numbers[Counters::FiscalReceipts])),
          row("SCONTRINI NON FISCALI", std::to_string(counters.numbers[Counters::ManagementReceipts])),
          row("CORRISPETTIVI", euro(counters.day[Counters::Total])),
          row("SCONTI", euro(counters.day[Counters::Discounts])),
          row("MAGGIORAZIONI", euro(counters.day[Counters::Surcharges])),
          row("RESI", euro(counters.day[Counters::Refunds])),
          row("STORNI", euro(counters.day[Counters::Voids]))};
}

Lines departments(const Counters& counters, Programme& programme) {
  Lines lines;
  Cents total = 0;
  for (std::size_t i = 0; i < counters.departments.size(); ++i) {
    total += counters.departments[i];
    if (counters.departments[i] == 0 && counters.departmentPieces[i] == 0) continue;
    const std::int64_t pieces = counters.departmentPieces[i];
    lines.push_back(numbered("REP. ", i) + programme.department(static_cast<int>(i) + 1).description);
    lines.push_back(row("  " + signedQuantity(pieces), euro(counters.departments[i])));
  }
  lines.push_back(row("TOTALE REPARTI", euro(total)));
  return lines;
}

Lines payments(const Counters& counters) {
  Lines lines;
  for (std::size_t i = 0; i < kPaymentForms.size(); ++i) {
    lines.push_back(row(kPaymentForms[i].name, euro(counters.payments[i])));
    if (counters.cashIn[i] != 0) lines.push_back(row("  VERSAMENTI", euro(counters.cashIn[i])));
    if (counters.cashOut[i] != 0) lines.push_back(row("  PRELIEVI", euro(-counters.cashOut[i])));
  }
  lines.push_back(
      row("CONTANTI IN CASSA", euro(counters.payments[0] + counters.cashIn[0] - counters.cashOut[0])));
  return lines;
}

Lines operators(const Counters& counters, Programme& programme) {
  Lines lines;
  Cents total = 0;
  for (std::size_t i = 0; i < counters.operatorTotals.size(); ++i) {
    total += counters.operatorTotals[i];
    if (counters.operatorReceipts[i] == 0) continue;
    lines.push_back(numbered("OPERATORE ", i) + programme.operatorName(static_cast<int>(i) + 1));
    lines.push_back(
        row("  SCONTRINI " + std::to_string(counters.operatorReceipts[i]), euro(counters.operatorTotals[i])));
  }
  lines.push_back(row("TOTALE OPERATORI", euro(total)));
  return lines;
}

Lines vat(const Counters& counters, Programme& programme) {
  Lines lines;
  Cents total = 0;
  for (std::size_t i = 0; i < counters.vat.size(); ++i) {
    total += counters.vat[i];
    if (counters.vat[i] == 0) continue;
    const std::int64_t rate = programme.vatRate(static_cast<int>(i));
    lines.push_back(row(numbered("IVA ", i) + percentage(rate) + "%", euro(counters.vat[i])));
    lines.push_back(row("  IMPOSTA", euro(taxWithin(counters.vat[i], rate))));
  }
  lines.push_back(row("TOTALE IVA COMPRESA", euro(total)));
  return lines;
}

Lines closure(const Closure& closure) {
  return {row("AZZERAMENTO N. " + fourDigits(closure.number), longText(closure.when).substr(0, 16)),
          row("SCONTRINI FISCALI", std::to_string(closure.receipts)),
          row("CORRISPETTIVI", euro(closure.total)), row("TOTALE GENERALE", euro(closure.grandTotal))};
}

Counters withoutDay(Counters counters) {
  counters.numbers = {};
  counters.day = {};
  return counters;
}

Counters withoutDepartments(Counters counters) {
  counters.departments = {};
  counters.departmentPieces = {};
  return counters;
}

Counters withoutPayments(Counters counters) {
  counters.payments = {};
  counters.cashIn = {};
  counters.cashOut = {};
  return counters;
}

Counters withoutOperators(Counters counters) {
  counters.operatorReceipts = {};
  counters.operatorTotals = {};
  return counters;
}

Counters withoutVat(Counters counters) {
  counters.vat = {};
  return counters;
}

}  // namespace ecrsim::reports
