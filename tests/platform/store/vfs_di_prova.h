#pragma once

#include <functional>

/// Stands between the engine and the file system while it lives: counts the syncs and may break any write.
/// Connections opened before it are not seen.
class VfsDiProva {
 public:
  VfsDiProva();
  ~VfsDiProva();
  VfsDiProva(const VfsDiProva&) = delete;
  VfsDiProva& operator=(const VfsDiProva&) = delete;

  int sincronizzazioni() const;
  /// Writes, truncations and syncs so far.
  int operazioni() const;
  void azzera();
  /// Asked before each of those with its number from 1; returns the engine's code to fail with, 0 to go on.
  void prima(std::function<int(int)> guasto);
};
