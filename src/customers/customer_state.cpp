#include "customers/customer_state.h"

namespace customers {

StatoClienti& statoClienti() {
  static StatoClienti stato;
  return stato;
}

}  // namespace customers
