#pragma once

#include <string>
#include <vector>

#include "ecrsim/counters.h"
#include "ecrsim/fiscal_memory.h"
#include "ecrsim/programme.h"

/// What the till's reports print, and what a zeroing leaves of the counters.
namespace ecrsim::reports {

using Lines = std::vector<std::string>;

Lines day(const Counters& counters);
Lines departments(const Counters& counters, Programme& programme);
Lines payments(const Counters& counters);
Lines operators(const Counters& counters, Programme& programme);
Lines vat(const Counters& counters, Programme& programme);
/// A closure, on paper and in a dump of the fiscal memory.
Lines closure(const Closure& closure);

Counters withoutDay(Counters counters);
Counters withoutDepartments(Counters counters);
Counters withoutPayments(Counters counters);
Counters withoutOperators(Counters counters);
Counters withoutVat(Counters counters);

}  // namespace ecrsim::reports
