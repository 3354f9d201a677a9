// A line of a list, any bytes, up to its statement and the row that it writes: the statement has the tokens
// of the one that it is worded as and writes the line's own values on the line's own slot, or it raises and
// writes nothing. The first byte chooses how many faults stand before it, and whether another line has come
// before.

#include <algorithm>
#include <array>
#include <optional>

#include "articles/article_database.h"
#include "articles/import_line.h"
#include "check.h"
#include "core/conversions.h"
#include "core/state.h"
#include "platform/text/windows1252.h"
#include "silent_user.h"
#include "small_archive.h"
#include "statement_shape.h"

namespace {

using articles::CampiImport;

constexpr int kFaults = 10;
constexpr std::int16_t kLastWithTail = 6;
constexpr std::uint8_t kAnotherLine = 128;

std::optional<CampiImport> fieldsOf(const QString& line) {
  CampiImport fields;
  try {
    const std::int16_t code = articles::PutArticolo(line, fields);
    if (code == articles::kSeparatori || code == articles::kPosizione) return std::nullopt;
    check(code == articles::kRigaSana ||
          (code >= articles::kEanAssente && code <= articles::kDescrizioneAssente));
  } catch (const Errore& error) {
    check(error.numero == errors::kTypeMismatch || error.numero == errors::kOverflow);
    return std::nullopt;
  }
  return fields;
}

std::optional<store::Statement> statementOf(const CampiImport& fields, std::int16_t faults) {
  try {
    store::Statement statement = articles::TestaIstruzione(fields);
    statement += articles::CodaIstruzione(faults, fields.auto_id);
    return statement;
  } catch (const Errore& error) {
    check(error.numero == errors::kOverflow);
    return std::nullopt;
  }
}

store::Statement pattern(std::int16_t faults) {
  CampiImport any;
  any.auto_id = kAnyNumber;
  any.Codice_EAN = any.Codice_Articolo = any.Descrizione = kAnyText;
  any.Prezzo = QStringLiteral("77,77");
  any.Reparto = QString::number(kAnyNumber);
  return *statementOf(any, faults);
}

QString plain(QString field) {
  return field.replace(QStringLiteral("''"), QStringLiteral("'"));
}

/// The article table as the line leaves it.
Rows written(Rows rows, const CampiImport& fields, std::int16_t faults) {
  if (fields.auto_id < 1 || fields.auto_id > static_cast<int>(rows.size())) return rows;
  std::vector<QString>& row = rows[static_cast<std::size_t>(fields.auto_id) - 1];
  constexpr std::size_t kEan = 2, kArticle = 3, kDescription = 4, kPrice = 5, kDepartment = 6, kMark = 7;
  row[kEan] = plain(fields.Codice_EAN);
  row[kArticle] = plain(fields.Codice_Articolo);
  row[kDescription] = plain(fields.Descrizione);
  row[kPrice] = QString::number(TestoInCent(fields.Prezzo));
  row[kDepartment] = QString::number(fields.Reparto.trimmed().toDouble(), 'f', 0);
  row[kMark] = faults == articles::kStatoPulito ? QStringLiteral(" ") : QStringLiteral("ERR");
  return rows;
}

/// What a sound statement may still fail with: a text that is too long, a number that its column does not
/// take, a zero byte, a number beyond a double.
bool mayFailWith(int error) {
  constexpr std::array kErrors{errors::kTextTooLong, errors::kConversionFailed, errors::kSyntax};
  return std::find(kErrors.begin(), kErrors.end(), error) != kErrors.end();
}

void execute(SmallArchive& archive, const store::Statement& statement, const CampiImport& fields,
             std::int16_t faults) {
  static const Tables untouched = archive.tables();
  const bool whole = faults <= kLastWithTail && !statement.broken();
  archive.tryOut([&] {
    Tables expected = untouched;
    try {
      archive.database().Execute(statement);
      check(whole);
      expected.front() = written(expected.front(), fields, faults);
    } catch (const Errore& error) {
      check(whole ? mayFailWith(error.numero)
                  : error.numero == errors::kSyntax || error.numero == errors::kCriteriaMismatch);
    }
    check(archive.tables() == expected);
  });
}

/// The look for another slot with the line's EAN, which the import has before the statement.
void lookForEan(SmallArchive& archive, const CampiImport& fields) {
  SilentUser user;
  varGlobal().DB_Articoli = archive.database();
  const std::int16_t found = articles::GetCodiceEAN(fields.auto_id, fields.Codice_EAN, user);
  check(found == articles::kEanLibero || found == articles::kEanDuplicato);
  const bool broken =
      store::text(fields.Codice_EAN).breaksAt().has_value() || fields.Codice_EAN.contains(QChar(u'\0'));
  check((user.boxes > 0) == broken);
  if (broken || found == articles::kEanLibero) return;
  int others = 0;
  const Tables tables = archive.tables();
  for (const std::vector<QString>& row : tables.front())
    if (row[0].toInt() != fields.auto_id &&
        row[2].compare(plain(fields.Codice_EAN), Qt::CaseInsensitive) == 0)
      ++others;
  check(others > 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  static SmallArchive archive;
  if (count == 0) return 0;
  const auto faults = static_cast<std::int16_t>(1 + data[0] % kFaults);
  const auto fields = fieldsOf(windows1252::toText(textOf(data, count).substr(1)));
  if (!fields) return 0;
  lookForEan(archive, *fields);
  const auto statement = statementOf(*fields, faults);
  if (!statement) return 0;
  if (data[0] >= kAnotherLine && faults <= kLastWithTail)
    archive.tryOut([&] { archive.database().Execute(pattern(faults)); });
  if (!statement->broken()) check(sameShape(statement->sql(), pattern(faults).sql()));
  execute(archive, *statement, *fields, faults);
  return 0;
}
