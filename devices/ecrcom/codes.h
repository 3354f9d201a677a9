#pragma once

#include <cstddef>
#include <cstdint>

/// Error codes of the communications library and of the till, one numbering for both: a code that the till
/// answers with reaches the caller of the library unchanged.
namespace ecrcom {

inline constexpr std::int16_t kDone = 0;
inline constexpr std::int16_t kBadAddress = 1;
inline constexpr std::int16_t kUnreachable = 2;
inline constexpr std::int16_t kTimedOut = 3;
inline constexpr std::int16_t kLineCut = 4;
inline constexpr std::int16_t kGarbledReply = 5;
inline constexpr std::int16_t kUnknownCommand = 6;
inline constexpr std::int16_t kWrongState = 7;
inline constexpr std::int16_t kTransferClosed = 8;
inline constexpr std::int16_t kTransferOpen = 9;
inline constexpr std::int16_t kUnknownFile = 10;
inline constexpr std::int16_t kBadLength = 11;
inline constexpr std::int16_t kFileTooLarge = 12;
inline constexpr std::int16_t kLocalFileMissing = 13;
inline constexpr std::int16_t kLocalFileNotWritten = 14;
inline constexpr std::int16_t kBadFileName = 15;
inline constexpr std::int16_t kTillMemory = 16;
inline constexpr std::int16_t kBadHandle = 17;
inline constexpr std::int16_t kTooManyConnections = 18;
inline constexpr std::int16_t kBadText = 19;
inline constexpr std::int16_t kNoResources = 20;

/// The longest message: some callers hand over 80 bytes, the NUL among them.
inline constexpr std::size_t kMaxMessage = 79;

/// Italian message of a code, Windows-1252, at most kMaxMessage characters. A negative code, as the
/// key-sequence calls return it, reads like its positive one. Never null.
const char* message(std::int16_t code);

}  // namespace ecrcom
