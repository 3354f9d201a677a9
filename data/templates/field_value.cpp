#include "field_value.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

#include "config/department_attributes.h"
#include "config/general_options.h"
#include "config/records.h"
#include "platform/ecrcom/ecrcom.h"
#include "platform/text/windows1252.h"
#include "source_refused.h"

using config::Campo;
using config::Tipo;

namespace {

/// What the screens take into a field: from `least` to `most`, hundredths where the field holds them, and
/// zero in any case where it stands for none.
struct Bounds {
  std::string_view field;
  int least;
  int most;
  bool orNone = false;
};

constexpr int kMostAmount = 9999999;
constexpr int kMostPercent = 9999;
constexpr int kMostByte = 255;
constexpr std::array kBounds{
    Bounds{"reparto", 0, 79},
    Bounds{"attributi", 0, 3},
    Bounds{"prezzo", 0, kMostAmount},
    Bounds{"min valore", 0, kMostAmount},
    Bounds{"max valore", 0, kMostAmount},
    Bounds{"sconto", 0, kMostPercent},
    Bounds{"aliquota", 0, kMostPercent},
    Bounds{"cambio", 0, kMostPercent},
    Bounds{"percentuale A", 0, kMostPercent},
    Bounds{"percentuale B", 0, kMostPercent},
    Bounds{"massimo importo in vendita", 0, kMostAmount},
    Bounds{"numero cassa", 0, kMostByte},
    Bounds{"velocità stampante", 0, 3},
    Bounds{"apparato su COM 1", 0, 7},
    Bounds{"velocità COM 1", 0, 3},
    Bounds{"apparato su COM 3", 0, 7},
    Bounds{"velocità COM 3", 0, 3},
    Bounds{"modo azzeramento", 0, 2},
    Bounds{"tipo azzeramento", 0, 2},
    Bounds{"linee vuote", 0, 30},
    Bounds{"linee del corpo", 10, 99},
    Bounds{"reparti da shiftare", 0, 20},
    Bounds{"printer AUX fatture", 5, 7, true},
    Bounds{"printer AUX tavoli", 5, 6, true},
};

/// The groups of a value that has this form whole.
QStringList groups(const QString& value, const char* form, const char* called) {
  const QRegularExpression expression(QRegularExpression::anchoredPattern(QString::fromUtf8(form)));
  const QRegularExpressionMatch match = expression.match(value);
  if (!match.hasMatch()) refuse(quoted(value) + QLatin1String(" is not ") + QString::fromUtf8(called));
  return match.capturedTexts();
}

int within(int value, const Bounds& bounds) {
  const bool none = bounds.orNone && value == 0;
  if (!none && (value < bounds.least || value > bounds.most))
    refuse(QStringLiteral("out of range, %1 to %2").arg(bounds.least).arg(bounds.most));
  return value;
}

int within(int value, const Campo& field) {
  for (const Bounds& bounds : kBounds)
    if (bounds.field == field.nome) return within(value, bounds);
  refuse(QStringLiteral("no range is known for this field"));
}

int wholeNumber(const QString& value) {
  return groups(value, "[0-9]{1,4}", "a number").first().toInt();
}

int hundredths(const QString& value) {
  const QStringList parts = groups(value, "([0-9]{1,6}),([0-9]{2})", "an amount as 12,50");
  return parts[1].toInt() * 100 + parts[2].toInt();
}

bool yesOrNo(const QString& value) {
  return groups(value, "sì|no", "sì or no").first() == QStringLiteral("sì");
}

/// The till's own encoding of a moment; 0 is what the library gives for none.
std::uint32_t moment(const QString& value, const Campo& field) {
  std::uint32_t encoded = 0;
  if (field.nome == config::parametri::kTempoAzzeramento.nome) {
    const QStringList parts = groups(value, "(\\d\\d):(\\d\\d):(\\d\\d)", "a time as 21:00:00");
    encoded = ecr_time_decode(parts[1].toInt(), parts[2].toInt(), parts[3].toInt());
  } else if (field.nome == config::parametri::kDataRevisione.nome) {
    const QStringList parts = groups(value, "(\\d\\d)/(\\d\\d)/(\\d\\d)", "a date as 31/12/30");
    encoded = ecr_date_decode(parts[1].toInt(), parts[2].toInt(), parts[3].toInt());
  } else {
    const QStringList parts = groups(value, "(\\d\\d)/(\\d\\d)", "a day as 31/12");
    encoded = ecr_dates_decode(parts[1].toInt(), parts[2].toInt());
  }
  if (encoded == 0) refuse(quoted(value) + QStringLiteral(" is not in the calendar or on the clock"));
  return encoded;
}

/// A text in the tills' code page, whole.
QByteArray bytesOf(const QString& value) {
  QByteArray bytes = windows1252::toBytes(value);
  if (windows1252::toText(bytes) != value || bytes.contains('\0'))
    refuse(quoted(value) + QStringLiteral(" holds characters that the till does not know"));
  return bytes;
}

void writeText(config::Record record, const Campo& field, const QString& value) {
  const QByteArray bytes = bytesOf(value);
  if (bytes.size() > static_cast<qsizetype>(field.limite))
    refuse(QStringLiteral("%1 characters, at most %2 fit").arg(bytes.size()).arg(field.limite));
  if (field.nome.starts_with("password")) groups(value, "[0-9]{6}", "a password of six digits");
  scriviTesto(record, field, value);
}

/// The head's fields are as wide as their texts, without a NUL.
void writeHead(config::Record record, const Campo& field, const QString& value) {
  const QByteArray bytes = bytesOf(value);
  if (static_cast<std::size_t>(bytes.size()) != field.larghezza)
    refuse(QStringLiteral("%1 characters, it takes %2").arg(bytes.size()).arg(field.larghezza));
  std::copy(bytes.begin(), bytes.end(), record.begin() + static_cast<std::ptrdiff_t>(field.inizio));
}

}  // namespace

void WriteValue(config::Record record, const Campo& field, const QString& value) {
  switch (field.tipo) {
    case Tipo::Flag:
      return scriviFlag(record, field, yesOrNo(value));
    case Tipo::Byte:
      return scriviByte(record, field, static_cast<std::uint8_t>(within(wholeNumber(value), field)));
    case Tipo::SenzaSegno16:
      return ::record::scriviSenzaSegno16(record, field,
                                          static_cast<std::uint16_t>(within(wholeNumber(value), field)));
    case Tipo::Intero32:
      return scriviIntero(record, field, within(hundredths(value), field));
    case Tipo::SenzaSegno32:
      return scriviSenzaSegno(record, field, moment(value, field));
    case Tipo::CampoTesto:
    case Tipo::TestoPieno:
      return writeText(record, field, value);
    case Tipo::Riservato:
      return writeHead(record, field, value);
  }
}

bool WriteDepartmentPart(config::Record record, const QString& part, const QString& value) {
  constexpr Bounds kEight{"", 1, 8};
  const Campo& field = config::reparto::kAttributi;
  config::AttributiReparto attributes = config::sballaAttributi(leggiByte(record, field));
  if (part == QStringLiteral("IVA"))
    attributes.iva = within(wholeNumber(value), kEight);
  else if (part == QStringLiteral("tallon"))
    attributes.tallon = within(wholeNumber(value), kEight);
  else if (part == QStringLiteral("battuta singola"))
    attributes.battutaSingola = groups(value, "[SN]", "S or N").first();
  else if (part == QStringLiteral("tipo"))
    attributes.tipo = groups(value, "[SM]", "S or M").first();
  else if (part == QStringLiteral("attributi"))
    refuse(QStringLiteral("IVA, battuta singola, tipo and tallon are fields of their own"));
  else
    return false;
  scriviByte(record, field, config::imballaAttributi(attributes));
  return true;
}
