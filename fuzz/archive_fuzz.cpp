// An article database of any bytes, opened through the store and read as the screens read it: it is refused
// or fails with a number and a text, or its articles stand in the till's records as they stand in its rows.
// Reading leaves the file as it was.

#include <QFile>
#include <QTemporaryDir>
#include <chrono>

#include "articles/article_database.h"
#include "articles/plu_image.h"
#include "articles/transfer.h"
#include "check.h"
#include "config/image.h"
#include "core/state.h"
#include "platform/text/windows1252.h"
#include "silent_user.h"

namespace {

/// Enough for every sound archive of a fuzzer's size; what goes on for ever costs no more.
constexpr std::chrono::milliseconds kLimit{20};

QString path() {
  static const QTemporaryDir folder;
  return folder.filePath(QStringLiteral("archivio.db"));
}

void write(const QByteArray& bytes) {
  for (const char* beside : {"-journal", "-wal", "-shm"}) QFile::remove(path() + QLatin1String(beside));
  QFile file(path());
  check(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray fileBytes() {
  QFile file(path());
  check(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

/// The characters of a text that a record's field holds.
QString asInRecord(const QString& text, const config::Campo& field) {
  const QString bytes =
      windows1252::toText(windows1252::toBytes(text)).left(static_cast<qsizetype>(field.limite));
  return bytes.section(QChar(u'\0'), 0, 0);
}

/// No box was shown: every field of every row had its place.
void compareRecords() {
  store::Recordset rows = varGlobal().DB_Articoli.OpenRecordset(
      u"SELECT Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler,VarPrezzo,PrezzoZero "
      u"from TAB_ARTICOLI");
  const config::ImmagineProgrammazione& image = config::immagineProgrammazione();
  for (std::size_t i = 0; !rows.atEnd(); rows.MoveNext(), ++i) {
    const config::RecordLetto record = image.record(config::kPLU, i);
    check(leggiTesto(record, config::plu::kCodiceEAN) == asInRecord(rows.text(0), config::plu::kCodiceEAN));
    check(leggiTesto(record, config::plu::kDescrizione) ==
          asInRecord(rows.text(2), config::plu::kDescrizione));
    check(leggiIntero(record, config::plu::kPrezzo) == rows.int64(3));
  }
}

void readAsTheScreensDo() {
  SilentUser user;
  varGlobal().DB_Articoli.CheckIntegrity();
  articles::CheckTabVarie(user);
  check(articles::CalcolaNumArticoli(user) >= -1);
  articles::GetCodiceEAN(1, QStringLiteral("8001"), user);
  articles::RicavaDettagliPC(user);
  articles::RicavaDettagliECR(user);
  articles::CheckErrTabArticoli(user);
  const int before = user.boxes;
  if (articles::RiempiPLU(user) == 0 && user.boxes == before) compareRecords();
}

void open() {
  store::Workspace area(systemClock(), kLimit);
  try {
    varGlobal().DB_Articoli = area.OpenDatabase(path());
    readAsTheScreensDo();
  } catch (const Errore& error) {
    check(error.numero != 0 && !error.descrizione.isEmpty());
  } catch (const ProgramEnded&) {
    // A database without the articles' table ends the program.
    check(varGlobal().FlagAnomalia != 0);
  }
  azzeraStato();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  const QByteArray bytes(static_cast<const char*>(static_cast<const void*>(data)),
                         static_cast<qsizetype>(count));
  write(bytes);
  open();
  check(fileBytes() == bytes);
  return 0;
}
