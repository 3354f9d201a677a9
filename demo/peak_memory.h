#pragma once

#include <optional>

/// Megabytes that this process has had resident at most; nothing where the system does not tell.
std::optional<double> peakMemory();
