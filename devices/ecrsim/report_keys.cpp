#include "ecrsim/report_keys.h"

#include "ecrsim/reports.h"

namespace ecrsim {
namespace {

/// Numbers of the reports. The first four can be read or zeroed, the others close the fiscal day as well.
enum Report {
  kDay = 1,
  kDepartmentReport,
  kPaymentReport,
  kOperatorReport,
  kDepartmentsAndClosure,
  kVatAndClosure,
  kDepartmentsVatAndClosure
};

int numberOf(const std::string& text, int highest) {
  const auto number = integerOf(text, 2);
  demand(number && *number >= kDay && *number <= highest, "FUNZIONE INESISTENTE");
  return static_cast<int>(*number);
}

}  // namespace

void ReportKeys::reading(const std::string& number) {
  const int report = numberOf(number, kOperatorReport);
  const Counters& counters = desk_.books().counters();
  Programme& programme = desk_.programme();
  if (report == kDay) print("LETTURA GIORNALIERA", reports::day(counters), counters);
  if (report == kDepartmentReport)
    print("LETTURA REPARTI", reports::departments(counters, programme), counters);
  if (report == kPaymentReport) print("LETTURA FINANZIARIA", reports::payments(counters), counters);
  if (report == kOperatorReport)
    print("LETTURA OPERATORI", reports::operators(counters, programme), counters);
}

void ReportKeys::zeroing(const std::string& number) {
  const int report = numberOf(number, kDepartmentsVatAndClosure);
  const Counters& counters = desk_.books().counters();
  const bool closes = report == kDay || report >= kDepartmentsAndClosure;
  if (closes) checkFiscalMemory();
  if (report == kPaymentReport)
    print("AZZERAMENTO FINANZIARIO", reports::payments(counters), reports::withoutPayments(counters));
  if (report == kOperatorReport)
    print("AZZERAMENTO OPERATORI", reports::operators(counters, desk_.programme()),
          reports::withoutOperators(counters));
  if (report == kDepartmentReport || report == kDepartmentsAndClosure || report == kDepartmentsVatAndClosure)
    zeroDepartments();
  if (report == kVatAndClosure || report == kDepartmentsVatAndClosure) zeroVat();
  if (closes) fiscalClosure();
}

void ReportKeys::zeroDepartments() {
  const Counters& counters = desk_.books().counters();
  print("AZZERAMENTO REPARTI", reports::departments(counters, desk_.programme()),
        reports::withoutDepartments(counters));
}

void ReportKeys::zeroVat() {
  const Counters& counters = desk_.books().counters();
  print("AZZERAMENTO IVA", reports::vat(counters, desk_.programme()), reports::withoutVat(counters));
}

void ReportKeys::print(const char* title, const std::vector<std::string>& lines, Counters left) {
  ++left.numbers[Counters::ManagementReceipts];
  std::vector<std::string> tail{centred(title)};
  tail.insert(tail.end(), lines.begin(), lines.end());
  desk_.wholeDocument({kManagement, left, {}, {}, std::move(tail)});
  desk_.display(title, "");
}

void ReportKeys::checkFiscalMemory() const {
  demand(desk_.closures() < FiscalMemory::kCapacity, "MEM. FISCALE PIENA");
}

void ReportKeys::fiscalClosure() {
  checkFiscalMemory();
  const Counters& counters = desk_.books().counters();
  const Closure closure{desk_.closures() + 1, desk_.now(),
                        static_cast<int>(counters.numbers[Counters::FiscalReceipts]),
                        counters.day[Counters::Total], counters.grandTotal[0]};
  std::vector<std::string> tail{centred("CHIUSURA FISCALE")};
  for (const auto& part : {reports::day(counters), reports::closure(closure)})
    tail.insert(tail.end(), part.begin(), part.end());
  desk_.wholeDocument({kFiscalClosure, reports::withoutDay(counters), {}, closure, std::move(tail)});
  desk_.display("CHIUSURA FISCALE", "");
}

}  // namespace ecrsim
