#pragma once

#include <functional>

/// Stands between the engine and the file system while it lives: counts the syncs and may break any write.
/// Connections opened before it are not seen.
class VfsOfTry {
 public:
  VfsOfTry();
  ~VfsOfTry();
  VfsOfTry(const VfsOfTry&) = delete;
  VfsOfTry& operator=(const VfsOfTry&) = delete;

  int sincronizzazioni() const;
  /// Writes, truncations and syncs so far.
  int operazioni() const;
  void clear();
  /// Asked before each of those with its number from 1; returns the engine's code to fail with, 0 to go on.
  void before(std::function<int(int)> fault);
  /// The same before each read, which have a number of their own.
  void beforeRead(std::function<int(int)> fault);
};
