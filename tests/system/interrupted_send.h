#pragma once

#include <cstddef>

/// Ends this process as a cut of power would while it sends. Linking this file puts the program's own `send`
/// before the system's.
namespace interrupted_send {

/// From now on: the process dies once it has handed the network so many bytes; 0: never.
void dieAfter(std::size_t bytes);

}  // namespace interrupted_send
