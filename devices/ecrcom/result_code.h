#pragma once

#include "ecrcom/codes.h"
#include "ecrcom/socket.h"

namespace ecrcom {

/// The code that a caller of the library gets for what happened on the line.
inline std::int16_t codeOf(IoResult outcome) {
  switch (outcome) {
    case IoResult::Done:
      return kDone;
    case IoResult::Expired:
      return kTimedOut;
    case IoResult::Refused:
      return kUnreachable;
    case IoResult::Cut:
      return kLineCut;
    case IoResult::Garbage:
      return kGarbledReply;
    case IoResult::Resources:
      break;
  }
  return kNoResources;
}

}  // namespace ecrcom
