#pragma once

#include <QString>

/// A program that works without a window, in a folder.
struct HiddenProgram {
  QString program;
  /// Words parted by blanks. A quote opens the last of them, which goes to the end, blanks included: that is
  /// how a program reads a quote that is never closed.
  QString parameters;
  QString folder;
};

/// What a start came to: one of the platform's numbers for a failure, or `kStarted`.
namespace launch {
inline constexpr int kFileMissing = 2;
inline constexpr int kPathMissing = 3;
inline constexpr int kNotAllowed = 5;
inline constexpr int kNoProgram = 11;
/// All failures are below.
inline constexpr int kFailures = 32;
inline constexpr int kStarted = 33;
}  // namespace launch

/// Starts it without waiting for its end. Shows nothing and throws nothing.
int StartHidden(const HiddenProgram& what);
