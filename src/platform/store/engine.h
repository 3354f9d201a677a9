#pragma once

#include <QString>
#include <memory>

struct sqlite3;

namespace store {

struct EngineCloser {
  void operator()(sqlite3* db) const;
};
/// A bare handle of the engine, closed with its owner.
using Engine = std::unique_ptr<sqlite3, EngineCloser>;

/// Settings of the whole process; the engine takes them before its first handle only.
void PrepareEngine();

/// Opens a file with the engine's flags `mode`. Throws as Workspace::OpenDatabase.
Engine OpenEngine(const QString& path, int mode);

}  // namespace store
