#pragma once

#include <QString>
#include <memory>

struct sqlite3;

namespace store {

struct ChiusuraMotore {
  void operator()(sqlite3* db) const;
};
/// A bare handle of the engine, closed with its owner.
using Motore = std::unique_ptr<sqlite3, ChiusuraMotore>;

/// Settings of the whole process; the engine takes them before its first handle only.
void PreparaMotore();

/// Opens a file with the engine's flags `modo`. Throws as Workspace::OpenDatabase.
Motore ApriMotore(const QString& percorso, int modo);

}  // namespace store
