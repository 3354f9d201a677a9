#pragma once

#include <QString>
#include <QStringList>

#include "customers/customer_state.h"
#include "sostegno/program_fixture.h"
#include "sostegno/statements.h"

/// The office of a shop: the program around a screen, with a customer archive made from the template.
class Office : public ProgramFixture {
 public:
  /// `libraryFolder` holds the communications library.
  explicit Office(const QString& libraryFolder = QStringLiteral(GESTIONALE_APP));

  /// Copies the template to `name` in the folder and opens it as the archive.
  void openArchive(const QString& name = QStringLiteral("clienti.mdb"));
  /// Opens a file with the tables that the statements make as the archive.
  void openWith(const QStringList& statements, const QString& name = QStringLiteral("altro.mdb"));
  /// Runs a statement on the archive.
  int execute(const QString& sql) { return varGlobal().DB_Clienti.Execute(asWritten(sql)); }
  /// Rows of a query on the archive, the columns of each joined with "|", nulls as "NULL".
  QStringList rows(const QString& sql);
  /// First field of the first row of a query on the archive, as text.
  QString value(const QString& sql);
  /// How the engine finds the rows of a query, one line a step.
  QString plan(const QString& sql);

  /// Adds a customer with a name, and further columns where they matter.
  void customer(int code, const QString& name, const QString& vat = {}, int state = 1);
  /// Adds an invoice of `total` hundredths, moment as "dd/mm/yyyy hh:mm:ss".
  void invoice(int code, const QString& number, const QString& moment, int total, int taxable = 0,
               int tax = 0, int unpaid = 0, const QString& holder = {});
};
