#pragma once

#include <gtest/gtest.h>

#include <QString>

#include "platform/store/store.h"
#include "sostegno/fixed_clock.h"
#include "sostegno/statements.h"
#include "sostegno/temporary_folder.h"

/// Number of the Errore that `step` throws, 0 where it throws none.
template <typename Step>
int numberError(Step&& step) {
  try {
    step();
  } catch (const Errore& error) {
    EXPECT_FALSE(error.descrizione.isEmpty());
    return error.numero;
  }
  return 0;
}

/// Description of the Errore that `step` throws.
template <typename Step>
QString descriptionError(Step&& step) {
  try {
    step();
  } catch (const Errore& error) {
    return error.descrizione;
  }
  ADD_FAILURE() << "no failure";
  return {};
}

/// An article archive fresh from the template, open, in a folder of its own.
class ArchiveOfTry : public testing::Test {
 protected:
  ArchiveOfTry() : path_(folder_.file(QStringLiteral("negozio.mdb"))) {
    store::CopyArchive(pattern(), path_);
    archive_ = workspace_.OpenDatabase(path_);
  }

  static QString pattern() { return QStringLiteral(GESTIONALE_APP "/QzDB.bck"); }

  int run(const char* sql) { return archive_.Execute(asWritten(QString::fromUtf8(sql))); }
  store::Recordset read(const char* sql) { return archive_.OpenRecordset(asWritten(QString::fromUtf8(sql))); }
  /// First field of the first row, as text.
  QString value(const char* sql) { return read(sql).field(0).text(); }
  int numberOf(const char* sql) {
    return numberError([&] { run(sql); });
  }
  int numberOfReading(const char* sql) {
    return numberError([&] { read(sql); });
  }
  /// How the engine goes about a statement, in its words.
  QString piano(const char* sql) {
    QString text;
    for (auto rows = read((std::string("EXPLAIN QUERY PLAN ") + sql).c_str()); !rows.atEnd(); rows.MoveNext())
      text += rows.field(QStringLiteral("detail")).text() + QLatin1Char('\n');
    return text;
  }

  TemporaryFolder folder_;
  FixedClock clock_;
  store::Workspace workspace_{clock_};
  QString path_;
  store::Database archive_;
};
