#pragma once

#include "ecrcom/socket.h"

namespace ecrcom {

/// The waits as ecr_set_timeout left them.
std::chrono::milliseconds connectTimeout();
std::chrono::milliseconds replyTimeout();

}  // namespace ecrcom
