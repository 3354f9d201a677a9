#pragma once

#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "platform/clock.h"
#include "platform/store/store.h"

struct sqlite3;

/// Rows as texts, with a mark of its own for null.
using Rows = std::vector<std::vector<QString>>;
/// The five tables of an article database, in the order of its template.
using Tables = std::vector<Rows>;

/// The day on which all of it happens.
class StoppedClock : public Clock {
 public:
  QDateTime now() const override { return QDateTime(QDate(2024, 3, 7), QTime(9, 5, 1)); }
};

/// An article database of six slots, some of them filled, in a folder of its own and open through the store.
class SmallArchive {
 public:
  SmallArchive();

  store::Database& database() { return database_; }
  Rows query(const store::Statement& statement);
  Tables tables();
  /// Runs a work and takes back what it wrote; what it throws passes. Nothing ever reaches the file.
  template <typename Work>
  void tryOut(Work&& work) {
    store::Transaction transaction(area_);
    std::forward<Work>(work)();
    transaction.Rollback();
  }

 private:
  QTemporaryDir folder_;
  StoppedClock clock_;
  store::Workspace area_{clock_};
  store::Database database_;
};

struct EngineClosing {
  void operator()(sqlite3* db) const;
};

/// The same database in the engine as it comes: in memory, without the dialect and without the store, its
/// values bound by hand. `prende(pattern, text)` is the dialect's LIKE without an index.
class PlainArchive {
 public:
  using Value = std::variant<std::int64_t, double, QString>;

  PlainArchive();

  /// The rows that a statement gives. False if the engine fails it.
  bool run(const char* sql, const std::vector<Value>& values, Rows& rows);
  Tables tables();
  /// Runs a work and takes back what it wrote.
  template <typename Work>
  void tryOut(Work&& work) {
    command("BEGIN");
    std::forward<Work>(work)();
    command("ROLLBACK");
  }

 private:
  void command(const char* sql);

  std::unique_ptr<sqlite3, EngineClosing> db_;
};
