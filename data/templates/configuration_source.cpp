#include "configuration_source.h"

#include <QRegularExpression>
#include <QSet>
#include <vector>

#include "config/configuration_file.h"
#include "field_value.h"
#include "source_refused.h"

using config::Campo;

namespace {

const QString kDepartment = QStringLiteral("reparto");

/// What a line may name: so many records of so many bytes, the first of them here in the file.
struct Family {
  QString word;
  std::size_t start;
  std::size_t records;
  std::size_t bytes;
  std::span<const Campo> fields;
};

Family inImage(const QString& word, const config::Famiglia& family) {
  return {word, config::kInizioImmagine + family.inizio, family.record, family.byte, family.campi};
}

const std::vector<Family>& families() {
  static const std::vector<Family> all{
      {QStringLiteral("testata"), 0, 1, config::testata::kByte, config::testata::kCampi},
      {QStringLiteral("negozio"), config::kInizioNegozio, 1, config::negozio::kByte, config::negozio::kCampi},
      inImage(QStringLiteral("intestazione"), config::kIntestazione),
      inImage(QStringLiteral("cortesia"), config::kCortesia),
      inImage(kDepartment, config::kReparto),
      inImage(QStringLiteral("plu"), config::kPLU),
      inImage(QStringLiteral("iva"), config::kIVA),
      inImage(QStringLiteral("valuta"), config::kValuta),
      inImage(QStringLiteral("operatore"), config::kOperatore),
      inImage(QStringLiteral("opzioni"), config::kParametri),
      inImage(QStringLiteral("logo"), config::kLogo),
  };
  return all;
}

QString nameOf(const Campo& field) {
  return QString::fromUtf8(field.nome.data(), static_cast<qsizetype>(field.nome.size()));
}

/// The field of this name; of several the one whose number stands behind it.
const Campo& fieldOf(const Family& family, const QString& name) {
  std::vector<const Campo*> equal;
  const QRegularExpressionMatch numbered = QRegularExpression(QStringLiteral("^(.*) ([1-9])$")).match(name);
  for (const Campo& field : family.fields) {
    if (field.nome == "riserva") continue;
    if (nameOf(field) == name || (numbered.hasMatch() && nameOf(field) == numbered.captured(1)))
      equal.push_back(&field);
  }
  if (equal.size() == 1 && nameOf(*equal.front()) == name) return *equal.front();
  const std::size_t which = numbered.hasMatch() ? numbered.captured(2).toUInt() : 0;
  if (equal.size() < 2 || which == 0 || which > equal.size())
    refuse(family.word + QStringLiteral(" has no field ") + quoted(name));
  return *equal[which - 1];
}

/// The line in its four pieces; records from 0.
struct Line {
  const Family* family = nullptr;
  std::size_t first = 0;
  std::size_t last = 0;
  QString field;
  QString value;
};

const Family& familyOf(const QString& word) {
  for (const Family& family : families())
    if (family.word == word) return family;
  refuse(QStringLiteral("no family ") + quoted(word));
}

Line piecesOf(const QString& text) {
  const QRegularExpression form(QStringLiteral("^(\\S+)(?: (\\d{1,4})(?:-(\\d{1,4}))?)? (\\D.*?) *=(.*)$"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) refuse(QStringLiteral("not of the form: family [record] field = value"));
  Line line{&familyOf(match.captured(1)), 0, 0, match.captured(4), match.captured(5).trimmed()};
  const bool counted = !match.captured(2).isEmpty();
  if (counted != (line.family->records > 1))
    refuse(line.family->word + (counted ? QStringLiteral(" has no records to count")
                                        : QStringLiteral(" wants the number of a record")));
  if (!counted) return line;
  const std::size_t first = match.captured(2).toUInt();
  const std::size_t last = match.captured(3).isEmpty() ? first : match.captured(3).toUInt();
  if (first == 0 || last < first || last > line.family->records)
    refuse(QStringLiteral("%1 has records 1 to %2").arg(line.family->word).arg(line.family->records));
  line.first = first - 1;
  line.last = last - 1;
  return line;
}

class Configuration {
 public:
  void take(const QString& text) {
    const Line line = piecesOf(text);
    for (std::size_t i = line.first; i <= line.last; ++i) {
      const QString number = QString::number(i + 1);
      const QString which = line.family->records == 1 ? QString() : number + u' ';
      const QString key = line.family->word + u' ' + which + line.field;
      if (told_.contains(key)) refuse(key + QStringLiteral(" is told twice"));
      told_.insert(key);
      QString value = line.value;
      if (line.first != line.last) value.replace(u'%', number);
      write(*line.family, i, line.field, value);
    }
  }

  QByteArray finished() {
    const Family& departments = familyOf(kDepartment);
    for (std::size_t i = 0; i < departments.records; ++i)
      if (leggiIntero(record(departments, i), config::reparto::kMinValore) >
          leggiIntero(record(departments, i), config::reparto::kMaxValore))
        refuse(QStringLiteral("reparto %1: the least value is above the greatest").arg(i + 1));
    if (!file_.startsWith(config::kVersioneFile))
      refuse(QStringLiteral("the version is not ") + QLatin1String(config::kVersioneFile));
    return file_;
  }

 private:
  config::Record record(const Family& family, std::size_t index) {
    auto* bytes = reinterpret_cast<std::uint8_t*>(file_.data());
    return config::Record(bytes, config::kByteFile)
        .subspan(family.start + index * family.bytes, family.bytes);
  }

  void write(const Family& family, std::size_t index, const QString& field, const QString& value) {
    const config::Record bytes = record(family, index);
    if (family.word == kDepartment && WriteDepartmentPart(bytes, field, value)) return;
    WriteValue(bytes, fieldOf(family, field), value);
  }

  QByteArray file_{static_cast<qsizetype>(config::kByteFile), '\0'};
  QSet<QString> told_;
};

}  // namespace

QByteArray ConfigurationOf(const QString& source) {
  Configuration configuration;
  int number = 0;
  for (const QString& line : source.split(u'\n')) {
    ++number;
    if (line.trimmed().isEmpty() || line.startsWith(u'#')) continue;
    try {
      configuration.take(line);
    } catch (const SourceRefused& refused) {
      throw SourceRefused{number, refused.reason};
    }
  }
  return configuration.finished();
}
