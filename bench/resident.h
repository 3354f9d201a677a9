#pragma once

/// Memory of this process that is in the machine's, in KiB: at this moment, and at its most since
/// `forgetPeak`. These throw std::runtime_error where the system does not tell.
namespace resident {

long now();
long peak();
void forgetPeak();

}  // namespace resident
