#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

#include "sostegno/program_fixture.h"
#include "sostegno/statements.h"

/// The back room of a shop: the program around a screen, with an article archive made from the template.
class BackRoom : public ProgramFixture {
 public:
  /// `libraryFolder` holds the communications library.
  explicit BackRoom(const QString& libraryFolder = QStringLiteral(GESTIONALE_APP));

  /// Copies the template to `name` in the folder and opens it as the archive.
  void openArchive(const QString& name = QStringLiteral("archivio.mdb"));
  /// Opens an archive whose slots hold fullArchive().
  void openFullArchive();
  /// Opens a file with the tables that the statements make as the archive.
  void openWith(const QStringList& statements, const QString& name = QStringLiteral("altro.mdb"));
  /// Runs a statement on the archive.
  int execute(const QString& sql) { return varGlobal().DB_Articoli.Execute(asWritten(sql)); }
  /// First field of the first row of a query on the archive, as text.
  QString value(const QString& sql);
  int rows(const QString& sql) { return varGlobal().DB_Articoli.OpenRecordset(asWritten(sql)).RecordCount(); }
};

/// One article as a test writes it into the archive.
struct TestArticle {
  QString ean;
  QString description;
  std::int32_t price = 0;
  int department = 1;
  bool variablePrice = false;
  bool zeroPrice = false;
};

/// `count` articles with accents, the euro sign, every length of text and every pair of flags.
std::vector<TestArticle> testArticles(int count);
/// An article for each of the 5000 slots.
const std::vector<TestArticle>& fullArchive();
/// Writes them over the slots from 1, in one transaction.
void writeArticles(BackRoom& room, const std::vector<TestArticle>& articles);
/// The image that the till has to hold for these articles, packed here byte by byte over `under`.
QByteArray expectedImage(const std::vector<TestArticle>& articles,
                         QByteArray under = QByteArray(240000, '\0'));
/// The PLU records in memory as they stand.
QByteArray imageInMemory();
/// Fills the PLU records in memory with one byte.
void soilMemory(std::uint8_t byte);
