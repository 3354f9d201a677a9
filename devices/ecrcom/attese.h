#pragma once

#include "ecrcom/presa.h"

namespace ecrcom {

/// The waits as ecr_set_timeout left them.
std::chrono::milliseconds attesaConnessione();
std::chrono::milliseconds attesaRisposta();

}  // namespace ecrcom
