// The program's statements with any texts and numbers in them: a built one has the tokens of its template and
// does what the plain engine does with the same values bound by hand, or it raises and touches nothing. The
// first byte chooses the statement and whether the store has just met one of its shape; values follow, parted
// by the byte 255, which no UTF-8 text holds.

#include <algorithm>
#include <array>
#include <optional>

#include "check.h"
#include "small_archive.h"
#include "statement_shape.h"

namespace {

using store::StatementValue;

constexpr std::uint8_t kShapeMet = 128;

enum class Kind { Text, Whole, Real, Written, RowId, Truth };

struct Part {
  store::Wording before;
  Kind kind;
};

struct Template {
  std::vector<Part> parts;
  store::Wording end;
  /// What it means to the plain engine; ?1 is its first value.
  const char* meaning;
};

// One of each wording that the articles' and the sales' screens and procedures have; those of the customers'
// are of the same kinds, on tables that these archives do not hold.
const std::array kTemplates{
    Template{{{u"UPDATE TAB_ARTICOLI SET Codice_Articolo = '", Kind::Text},
              {u"',Descrizione = '", Kind::Text},
              {u"', Prezzo = ", Kind::Whole},
              {u",Codice_EAN ='", Kind::Text},
              {u"',VarPrezzo = ", Kind::Truth},
              {u",PrezzoZero = ", Kind::Truth},
              {u",Reparto = ", Kind::Real},
              {u",Filler =' ' WHERE auto_id=", Kind::RowId}},
             u"",
             "UPDATE TAB_ARTICOLI SET Codice_Articolo = ?1, Descrizione = ?2, Prezzo = ?3, Codice_EAN = ?4,"
             " VarPrezzo = ?5, PrezzoZero = ?6, Reparto = ?7, Filler = ' ' WHERE auto_id = ?8"},
    Template{{{u"UPDATE TAB_ARTICOLI SET  Codice_ean ='", Kind::Text},
              {u"', Codice_Articolo ='", Kind::Text},
              {u"',Descrizione ='", Kind::Text},
              {u"',Prezzo =", Kind::Whole},
              {u",Reparto =", Kind::Written},
              {u",Filler ='ERR' WHERE auto_id =", Kind::Whole}},
             u"",
             "UPDATE TAB_ARTICOLI SET Codice_EAN = ?1, Codice_Articolo = ?2, Descrizione = ?3, Prezzo = ?4,"
             " Reparto = ?5, Filler = 'ERR' WHERE auto_id = ?6"},
    Template{{{u"UPDATE TAB_ARTICOLI SET Descrizione = '", Kind::Text},
              {u"',Codice_EAN ='", Kind::Text},
              {u"',Prezzo =", Kind::Whole},
              {u",Reparto =", Kind::Whole},
              {u",varprezzo = ", Kind::Truth},
              {u",prezzozero = ", Kind::Truth},
              {u" WHERE auto_id =", Kind::RowId}},
             u"",
             "UPDATE TAB_ARTICOLI SET Descrizione = ?1, Codice_EAN = ?2, Prezzo = ?3, Reparto = ?4,"
             " VarPrezzo = ?5, PrezzoZero = ?6 WHERE auto_id = ?7"},
    Template{{{u"INSERT INTO TAB_ARTICOLI (Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler) "
               u"Values ('",
               Kind::Text},
              {u"','", Kind::Text},
              {u"','", Kind::Text},
              {u"',", Kind::Whole},
              {u",", Kind::Real}},
             u",' ');",
             "INSERT INTO TAB_ARTICOLI (Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto, Filler)"
             " VALUES (?1, ?2, ?3, ?4, ?5, ' ')"},
    Template{{{u"Delete  from TAB_ARTICOLI where Codice_EAN ='", Kind::Text}},
             u"';",
             "DELETE FROM TAB_ARTICOLI WHERE Codice_EAN = ?1"},
    Template{{{u"DELETE FROM TAB_VARIAZIONI where Codice_EAN = '", Kind::Text}},
             u"';",
             "DELETE FROM TAB_VARIAZIONI WHERE Codice_EAN = ?1"},
    Template{{{u"SELECT TipoOperazione from TAB_VARIAZIONI where Codice_EAN = '", Kind::Text}},
             u"' AND (TipoOperazione ='C') ;",
             "SELECT TipoOperazione FROM TAB_VARIAZIONI WHERE Codice_EAN = ?1 AND TipoOperazione = 'C'"},
    Template{{{u"UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I' WHERE Codice_EAN ='", Kind::Text}},
             u"'",
             "UPDATE TAB_VARIAZIONI SET TipoOperazione = 'I' WHERE Codice_EAN = ?1"},
    Template{{{u"INSERT INTO TAB_VARIAZIONI (Codice_EAN,TipoOperazione) Values ('", Kind::Text}},
             u"','I');",
             "INSERT INTO TAB_VARIAZIONI VALUES (?1, 'I')"},
    Template{
        {{u"UPDATE TAB_ARTICOLI SET ID_Position = '", Kind::Whole}, {u"' WHERE Codice_EAN ='", Kind::Text}},
        u"';",
        "UPDATE TAB_ARTICOLI SET ID_Position = CAST(?1 AS TEXT) WHERE Codice_EAN = ?2"},
    Template{{{u"INSERT INTO TAB_EAN_NUMERICI (Codice_EAN,Codice_EAN_Num,Index,Spare) Values ('", Kind::Text},
              {u"',", Kind::Real},
              {u",", Kind::Whole}},
             u",'');",
             "INSERT INTO TAB_EAN_NUMERICI VALUES (?1, ?2, ?3, '')"},
    Template{
        {{u"UPDATE TAB_EAN_NUMERICI SET Index = ", Kind::Whole}, {u" WHERE Codice_Ean_num = ", Kind::Real}},
        u";",
        "UPDATE TAB_EAN_NUMERICI SET \"Index\" = ?1 WHERE Codice_EAN_Num = ?2"},
    Template{
        {{u"insert into tab_venduto (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,"
          u"sconto_giornaliero,Tot_giorn_articoli_venduti) select FORMAT(DATE(), 'yyyymmdd'),",
          Kind::Whole},
         {u",codice_articolo,codice_ean,descrizione,", Kind::Whole},
         {u",", Kind::Whole},
         {u",", Kind::Whole},
         {u" from tab_articoli where auto_id=", Kind::Whole}},
        u"",
        "INSERT INTO TAB_VENDUTO SELECT '20240307', ?1, Codice_Articolo, Codice_EAN, Descrizione, ?2, ?3, ?4"
        " FROM TAB_ARTICOLI WHERE auto_id = ?5"},
    Template{{{u"SELECT Codice_EAN from TAB_ARTICOLI where auto_id <>", Kind::Whole},
              {u" and Codice_Ean ='", Kind::Text}},
             u"';",
             "SELECT Codice_EAN FROM TAB_ARTICOLI WHERE auto_id <> ?1 AND Codice_EAN = ?2"},
    Template{{{u"SELECT Codice_EAN from TAB_ARTICOLI where Codice_Articolo <> '", Kind::Text},
              {u"' and Codice_EAN = '", Kind::Text}},
             u"';",
             "SELECT Codice_EAN FROM TAB_ARTICOLI WHERE Codice_Articolo <> ?1 AND Codice_EAN = ?2"},
    Template{{{u"SELECT id_position,Codice_EAN,Codice_Articolo,Descrizione,Prezzo,Reparto,Filler from "
               u"TAB_ARTICOLI "
               u" WHERE   Codice_EAN LIKE '",
               Kind::Text},
              {u"*' AND  Codice_Articolo like '", Kind::Text},
              {u"*' AND  Descrizione like '", Kind::Text},
              {u"*' AND  Prezzo >=", Kind::Real},
              {u"  AND  Reparto =", Kind::Real}},
             u" ORDER BY Codice_EAN ASC",
             "SELECT ID_Position, Codice_EAN, Codice_Articolo, Descrizione, Prezzo, Reparto, Filler"
             " FROM TAB_ARTICOLI WHERE prende(?1 || '*', Codice_EAN) AND prende(?2 || '*', Codice_Articolo)"
             " AND prende(?3 || '*', Descrizione) AND Prezzo >= ?4 AND Reparto = ?5"},
    Template{{{u"SELECT id_position,Codice_EAN from TAB_ARTICOLI  WHERE  Descrizione like '", Kind::Text}},
             u"*'",
             "SELECT ID_Position, Codice_EAN FROM TAB_ARTICOLI WHERE prende(?1 || '*', Descrizione)"},
    Template{{{u"SELECT "
               u"Data,Codice_EAN,Codice_Articolo,Descrizione,Importo_giornaliero,Tot_giorn_articoli_venduti "
               u"from TAB_VENDUTO WHERE (Data >= '",
               Kind::Text},
              {u"' AND Data <= '", Kind::Text},
              {u"')  AND Codice_EAN like '", Kind::Text}},
             u"*' ORDER BY Data, Codice_EAN ASC",
             "SELECT Data, Codice_EAN, Codice_Articolo, Descrizione, Importo_giornaliero,"
             " Tot_giorn_articoli_venduti FROM TAB_VENDUTO WHERE Data >= ?1 AND Data <= ?2"
             " AND prende(?3 || '*', Codice_EAN)"},
};

/// The fuzzer's values, one behind the other; empty ones when there are no more.
class Values {
 public:
  explicit Values(std::string_view bytes) : rest_(bytes) {}

  StatementValue next(Kind kind) {
    const QString field = cut();
    switch (kind) {
      case Kind::Text:
        return store::text(field);
      case Kind::Whole:
        return store::number(std::int64_t{field.toLongLong()});
      case Kind::Real:
        return store::number(field.toDouble());
      case Kind::Written:
        return store::number(field);
      case Kind::RowId:
        return store::rowId(field);
      case Kind::Truth:
        break;
    }
    return store::flag(!field.isEmpty());
  }

 private:
  QString cut() {
    const std::string_view field = rest_.substr(0, rest_.find('\xFF'));
    rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
    return QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
  }

  std::string_view rest_;
};

StatementValue any(Kind kind) {
  if (kind == Kind::Text) return store::text(kAnyText);
  return kind == Kind::Truth ? store::flag(true) : store::number(std::int64_t{kAnyNumber});
}

/// What the dialect reads where a number stands: a sign, and a whole number as long as 64 bits hold it.
PlainArchive::Value numberOf(const QString& written) {
  const QString text = written.trimmed();
  const bool minus = text.startsWith(u'-');
  const QString digits = minus || text.startsWith(u'+') ? text.mid(1) : text;
  bool fits = false;
  const std::int64_t whole = digits.toLongLong(&fits);
  if (fits) return minus ? -whole : whole;
  return minus ? -digits.toDouble() : digits.toDouble();
}

PlainArchive::Value meaning(const StatementValue& value, Kind kind) {
  if (kind == Kind::Text) return QString(value.text()).replace(QStringLiteral("''"), QStringLiteral("'"));
  if (kind == Kind::Truth) return std::int64_t{value.text() == QStringLiteral("true")};
  return numberOf(value.text());
}

/// A built statement, the one it must look like, and its values.
struct Built {
  store::Statement statement;
  store::Statement pattern;
  std::vector<PlainArchive::Value> values;
  /// A value that the dialect has no place for, sound though it is: a zero byte, an open bracket in a
  /// pattern, a number beyond all that a double tells apart.
  bool mayRaise = false;
};

bool unusual(const StatementValue& value, Kind kind) {
  constexpr qsizetype kLongNumber = 300;
  if (kind == Kind::Text) return value.text().contains(QChar(u'\0')) || value.text().contains(u'[');
  return value.text().size() > kLongNumber || value.text().contains(u'e', Qt::CaseInsensitive);
}

Built build(const Template& model, Values values) {
  Built built;
  for (const Part& part : model.parts) {
    const StatementValue value = values.next(part.kind);
    built.statement += part.before;
    built.statement += value;
    built.pattern += part.before;
    // Between apostrophes a number is a text like any other.
    const bool quoted = part.kind != Kind::Text && part.before.view().endsWith(u'\'');
    built.pattern += quoted ? store::text(kAnyText) : any(part.kind);
    built.values.push_back(meaning(value, part.kind));
    built.mayRaise = built.mayRaise || unusual(value, part.kind);
  }
  built.statement += model.end;
  built.pattern += model.end;
  return built;
}

struct Outcome {
  Rows rows;
  Tables tables;
  std::optional<int> error;
};

Rows run(SmallArchive& archive, const store::Statement& statement) {
  if (statement.sql().startsWith(QStringLiteral("SELECT"))) return archive.query(statement);
  archive.database().Execute(statement);
  return {};
}

/// The store remembers the shape of a statement that it has run: the next one is taken by the short way.
void meetShape(SmallArchive& archive, const store::Statement& statement) {
  archive.tryOut([&] { run(archive, statement); });
}

Outcome throughStore(SmallArchive& archive, const store::Statement& statement) {
  Outcome outcome;
  archive.tryOut([&] {
    try {
      outcome.rows = run(archive, statement);
    } catch (const Errore& error) {
      check(!error.descrizione.isEmpty());
      outcome.error = error.numero;
    }
    outcome.tables = archive.tables();
  });
  std::sort(outcome.rows.begin(), outcome.rows.end());
  return outcome;
}

Outcome throughPlainEngine(PlainArchive& archive, const char* sql,
                           const std::vector<PlainArchive::Value>& values) {
  Outcome outcome;
  archive.tryOut([&] {
    if (!archive.run(sql, values, outcome.rows)) outcome.error = 0;
    outcome.tables = archive.tables();
  });
  std::sort(outcome.rows.begin(), outcome.rows.end());
  return outcome;
}

bool raisesAsToldFor(int error) {
  return error == errors::kSyntax || error == errors::kCriteriaMismatch;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t count) {
  static SmallArchive archive;
  static PlainArchive plain;
  static const Tables untouched = archive.tables();
  if (count == 0) return 0;
  const Template& model = kTemplates[data[0] % kTemplates.size()];
  const Built built = build(model, Values(textOf(data, count).substr(1)));
  if (data[0] >= kShapeMet) meetShape(archive, built.pattern);
  const Outcome ours = throughStore(archive, built.statement);
  if (ours.error) check(ours.tables == untouched);
  if (built.statement.broken()) {
    check(ours.error && raisesAsToldFor(*ours.error));
    return 0;
  }
  check(sameShape(built.statement.sql(), built.pattern.sql()));
  const Outcome plains = throughPlainEngine(plain, model.meaning, built.values);
  if (ours.error && raisesAsToldFor(*ours.error) && built.mayRaise) return 0;
  check(ours.error.has_value() == plains.error.has_value());
  check(ours.rows == plains.rows && ours.tables == plains.tables);
  return 0;
}
