#include "articles/back_room.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "articles/article_database.h"
#include "config/image.h"
#include "platform/net/network.h"
#include "sostegno/sqlite_file.h"
#include "sostegno/statements.h"

namespace {

constexpr qsizetype kRecordBytes = 48;

QString sqlText(bool value) {
  return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// Code page bytes of the few characters that the test's articles use.
char byteDi(QChar character) {
  switch (character.unicode()) {
    case u'€':
      return '\x80';
    case u'’':
      return '\x92';
    case u'Œ':
      return '\x8C';
    case u'漢':
      return '?';
    default:
      return static_cast<char>(character.unicode());
  }
}

void writeText(QByteArray& image, qsizetype place, const QString& text, qsizetype limit) {
  const QString shortened = text.left(limit);
  for (qsizetype i = 0; i < shortened.size(); ++i) image[place + i] = byteDi(shortened[i]);
  image[place + shortened.size()] = '\0';
}

void pack(QByteArray& image, qsizetype place, const TestArticle& article) {
  writeText(image, place + 31, article.ean, 14);
  writeText(image, place, article.description, 24);
  const auto prezzo = static_cast<std::uint32_t>(article.price);
  for (int i = 0; i < 4; ++i) image[place + 27 + i] = static_cast<char>((prezzo >> (8 * i)) & 0xFF);
  image[place + 25] = static_cast<char>(article.department - 1);
  image[place + 26] = static_cast<char>((article.variablePrice ? 1 : 0) + (article.zeroPrice ? 2 : 0));
}

}  // namespace

BackRoom::BackRoom(const QString& libraryFolder) : ProgramFixture(libraryFolder) {
  soilMemory(0);
}

void BackRoom::openArchive(const QString& name) {
  articles::NuovoDatabase(folder.file(name), contesto);
}

void BackRoom::openFullArchive() {
  // Written once a program: five thousand statements for every test would take a third of their time.
  static QByteArray file;
  const QString name = QStringLiteral("archivio.mdb");
  if (file.isEmpty()) {
    openArchive(name);
    writeArticles(*this, fullArchive());
    articles::ChiudiDatabase();
    file = folder.read(name);
  } else {
    folder.write(name, file);
  }
  articles::ApriDatabase(folder.file(name), contesto);
}

void BackRoom::openWith(const QStringList& statements, const QString& name) {
  runInSqlite(folder.file(name), statements);
  articles::ApriDatabase(folder.file(name), contesto);
}

QString BackRoom::value(const QString& sql) {
  const store::Recordset rows = varGlobal().DB_Articoli.OpenRecordset(asWritten(sql));
  return rows.field(0).text();
}

std::vector<TestArticle> testArticles(int count) {
  static const std::array kWords{QStringLiteral("CAFFÈ MACINATO"), QStringLiteral("LATTE INTERO € 1"),
                                 QStringLiteral("TÈ ALL’ARANCIA"), QStringLiteral("ŒUF 漢 PASQUA"),
                                 QStringLiteral("PANE")};
  std::vector<TestArticle> articles;
  for (int i = 0; i < count; ++i) {
    const QString& word = kWords[static_cast<std::size_t>(i) % kWords.size()];
    articles.push_back({QString::number(8000000000000LL + i * 7919LL).left(i % 14),
                        (word + QStringLiteral(" %1 ABCDEFGHIJKLMNOPQRST").arg(i)).left(i % 31),
                        (i * 37) % 9999999, 1 + i % 80, i % 2 == 1, i % 4 >= 2});
  }
  return articles;
}

const std::vector<TestArticle>& fullArchive() {
  static const std::vector<TestArticle> articles = testArticles(5000);
  return articles;
}

void writeArticles(BackRoom& room, const std::vector<TestArticle>& articles) {
  store::Transaction transaction(room.workspace);
  int slot = 0;
  for (const TestArticle& article : articles) {
    ++slot;
    room.execute(
        QStringLiteral("UPDATE TAB_ARTICOLI SET Codice_EAN ='%1',Codice_Articolo ='A%2',Descrizione ='%3',"
                       "Prezzo =%4,Reparto =%5,VarPrezzo =%6,PrezzoZero =%7 WHERE auto_id =%8")
            .arg(article.ean)
            .arg(slot)
            .arg(article.description)
            .arg(article.price)
            .arg(article.department)
            .arg(sqlText(article.variablePrice), sqlText(article.zeroPrice))
            .arg(slot));
  }
  transaction.Commit();
}

QByteArray expectedImage(const std::vector<TestArticle>& articles, QByteArray under) {
  qsizetype place = 0;
  for (const TestArticle& article : articles) {
    pack(under, place, article);
    place += kRecordBytes;
  }
  return under;
}

QByteArray imageInMemory() {
  const config::RecordLetto byte = std::as_const(config::immagineProgrammazione()).blocco(config::kPLU);
  return {reinterpret_cast<const char*>(byte.data()), static_cast<qsizetype>(byte.size())};
}

void soilMemory(std::uint8_t byte) {
  std::ranges::fill(config::immagineProgrammazione().byte(), byte);
}
