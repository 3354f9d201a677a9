#include "customers/office.h"

#include <gtest/gtest.h>

#include "customers/customer_database.h"
#include "sostegno/sqlite_file.h"

Office::Office(const QString& libraryFolder) : ProgramFixture(libraryFolder) {
  customers::statoClienti() = {};
}

void Office::openArchive(const QString& name) {
  customers::NuovoDatabase(folder.file(name), contesto);
}

void Office::openWith(const QStringList& statements, const QString& name) {
  runInSqlite(folder.file(name), statements);
  customers::ApriDatabase(folder.file(name), contesto);
}

QStringList Office::rows(const QString& sql) {
  store::Recordset rows = varGlobal().DB_Clienti.OpenRecordset(asWritten(sql));
  QStringList all;
  for (; !rows.atEnd(); rows.MoveNext()) {
    QStringList fields;
    for (int column = 0; column < rows.columns(); ++column)
      fields << (rows.isNull(column) ? QStringLiteral("NULL") : rows.text(column));
    all << fields.join(u'|');
  }
  return all;
}

QString Office::value(const QString& sql) {
  return varGlobal().DB_Clienti.OpenRecordset(asWritten(sql)).field(0).text();
}

QString Office::plan(const QString& sql) {
  store::Recordset steps =
      varGlobal().DB_Clienti.OpenRecordset(asWritten(QStringLiteral("EXPLAIN QUERY PLAN ") + sql));
  QStringList lines;
  for (; !steps.atEnd(); steps.MoveNext()) lines << steps.field(QStringLiteral("detail")).text();
  return lines.join(u'\n');
}

void Office::customer(int code, const QString& name, const QString& vat, int state) {
  execute(QStringLiteral("INSERT INTO TAB_ANAG_CLIENTI VALUES (%1,'%2','','','%3','',%4)")
              .arg(code)
              .arg(name, vat)
              .arg(state));
}

void Office::invoice(int code, const QString& number, const QString& moment, int total, int taxable, int tax,
                     int unpaid, const QString& holder) {
  execute(QStringLiteral("INSERT INTO TAB_FATTURE VALUES (%1,'%2',' 1','%3',%4,%5,%6,%7,'%8')")
              .arg(code)
              .arg(number, moment)
              .arg(unpaid)
              .arg(total)
              .arg(taxable)
              .arg(tax)
              .arg(holder));
}
