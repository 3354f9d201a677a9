#pragma once

#include <functional>

/// Watches the calls with which the process asks the disk to keep what was written. Linking this file puts
/// the program's own fsync and fdatasync before the system's.
namespace sync_count {

/// Forgets the count; `atEach` is called before each of the calls that follow, with its number from 1.
void start(std::function<void(int)> atEach = {});
int soFar();

}  // namespace sync_count
