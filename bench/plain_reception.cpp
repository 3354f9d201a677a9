#include "bench/plain_reception.h"

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "customers/customer_records.h"

namespace plain_reception {

namespace {

namespace cliente = ::customers::cliente;
namespace fattura = ::customers::fattura;
using Bytes = std::span<const std::uint8_t>;

std::uint32_t integer(Bytes record, const record::Campo& field) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < field.larghezza; ++i)
    value |= std::uint32_t{record[field.inizio + i]} << (8 * i);
  return value;
}

/// A statement whose values are bound from 1 on.
class Sentence {
 public:
  Sentence(base::Sqlite& sqlite, const char* sql) : sqlite_(sqlite), statement_(sqlite.prepare(sql)) {}

  Sentence& number(std::int64_t value) {
    sqlite3_bind_int64(statement_, ++place_, value);
    return *this;
  }
  Sentence& text(const char* bytes, int size) {
    sqlite3_bind_text(statement_, ++place_, bytes, size, SQLITE_TRANSIENT);
    return *this;
  }
  Sentence& text(Bytes record, const record::Campo& field) {
    const auto bytes = record.subspan(field.inizio, field.larghezza);
    const auto size = std::find(bytes.begin(), bytes.end(), 0) - bytes.begin();
    const QByteArray utf8 =
        QString::fromLatin1(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(size)).toUtf8();
    return text(utf8.constData(), static_cast<int>(utf8.size()));
  }
  void run() {
    place_ = 0;
    sqlite_.step(statement_);
  }
  bool finds() {
    place_ = 0;
    const int outcome = sqlite3_step(statement_);
    sqlite3_reset(statement_);
    if (outcome != SQLITE_ROW && outcome != SQLITE_DONE) throw std::runtime_error("a search failed");
    return outcome == SQLITE_ROW;
  }

 private:
  base::Sqlite& sqlite_;
  sqlite3_stmt* statement_;
  int place_ = 0;
};

/// The till's number of a moment as the archive holds it.
class Moment {
 public:
  explicit Moment(std::uint32_t value) {
    const auto part = [&value](std::uint32_t units) {
      const std::uint32_t one = value % units;
      value /= units;
      return one;
    };
    const std::uint32_t second = part(60);
    const std::uint32_t minute = part(60);
    const std::uint32_t hour = part(24);
    const std::uint32_t day = part(32);
    const std::uint32_t month = part(13);
    year_ = 2000 + value;
    size_ = std::snprintf(text_, sizeof text_, "%04u-%02u-%02u %02u:%02u:%02u", year_, month, day, hour,
                          minute, second);
  }

  std::uint32_t year() const { return year_; }
  void bindWhole(Sentence& sentence) const { sentence.text(text_, size_); }
  void bindBehindCentury(Sentence& sentence) const { sentence.text(text_ + 2, size_ - 2); }

 private:
  char text_[32] = {};
  int size_ = 0;
  std::uint32_t year_ = 0;
};

/// What a reception asks before its first write, the program's and this one.
void checkIntegrity(base::Sqlite& sqlite) {
  if (sqlite3_stmt* check = sqlite.prepare("PRAGMA quick_check(1)");
      sqlite3_step(check) != SQLITE_ROW || sqlite3_column_bytes(check, 0) != 2)
    throw std::runtime_error("the archive is damaged");
  else
    sqlite3_reset(check);
}

constexpr auto kKnown = "SELECT ID_Cliente FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=?";

}  // namespace

int invoices(base::Sqlite& sqlite, Bytes file) {
  Sentence known(sqlite, kKnown);
  Sentence madeUp(sqlite, "INSERT INTO TAB_ANAG_CLIENTI VALUES (?,'','','','','',2)");
  Sentence there(sqlite, "SELECT NumFattura FROM TAB_FATTURE WHERE ID_Cliente=? AND substr(DataFattura,3)=?");
  Sentence insert(sqlite, "INSERT INTO TAB_FATTURE VALUES (?,?,?,?,?,?,?,?,?)");
  checkIntegrity(sqlite);
  int inserted = 0;
  sqlite.run("BEGIN IMMEDIATE");
  for (std::size_t i = 0; i < fattura::kRecord; ++i) {
    const Bytes one = file.subspan(i * fattura::kByte, fattura::kByte);
    const std::uint32_t code = integer(one, fattura::kCliente);
    if (!known.number(code).finds()) madeUp.number(code).run();
    const std::uint32_t type = integer(one, fattura::kTipo);
    if (type == 0) continue;
    const Moment moment(integer(one, fattura::kMomento));
    there.number(code);
    moment.bindBehindCentury(there);
    if (there.finds()) continue;
    char label[32];
    const int labelSize = std::snprintf(label, sizeof label, "%u/%zu", moment.year(), i + 1);
    char kind[8];
    const int kindSize = std::snprintf(kind, sizeof kind, " %u", type);
    insert.number(code).text(label, labelSize).text(kind, kindSize);
    moment.bindWhole(insert);
    for (const record::Campo* amount :
         {&fattura::kNonPagato, &fattura::kImporto, &fattura::kImponibile, &fattura::kImposta})
      insert.number(static_cast<std::int32_t>(integer(one, *amount)));
    insert.text(one, fattura::kIntestatario).run();
    ++inserted;
  }
  sqlite.run("COMMIT");
  return inserted;
}

int customers(base::Sqlite& sqlite, Bytes file) {
  Sentence known(sqlite, kKnown);
  Sentence insert(sqlite,
                  "INSERT INTO TAB_ANAG_CLIENTI (Ragione_Sociale,Indirizzo,Citta,Partita_IVA,Nota,Stato,"
                  "ID_Cliente) VALUES (?,?,?,?,?,?,?)");
  Sentence change(sqlite,
                  "UPDATE TAB_ANAG_CLIENTI SET Ragione_Sociale=?,Indirizzo=?,Citta=?,Partita_IVA=?,Nota=?,"
                  "Stato=? WHERE ID_Cliente=?");
  Sentence remove(sqlite, "DELETE FROM TAB_ANAG_CLIENTI WHERE ID_Cliente=?");
  checkIntegrity(sqlite);
  int there = 0;
  sqlite.run("BEGIN IMMEDIATE");
  for (std::size_t i = 0; i < cliente::kRecord; ++i) {
    const Bytes one = file.subspan(i * cliente::kByte, cliente::kByte);
    const auto code = static_cast<std::int64_t>(i + 1);
    const bool isKnown = known.number(code).finds();
    const std::uint32_t flag = integer(one, cliente::kFlag);
    if (flag != 0) {
      Sentence& write = isKnown ? change : insert;
      for (const record::Campo* text : {&cliente::kRagioneSociale, &cliente::kIndirizzo, &cliente::kCitta,
                                        &cliente::kPartitaIVA, &cliente::kNota})
        write.text(one, *text);
      write.number(flag).number(code).run();
      ++there;
    } else if (isKnown) {
      remove.number(code).run();
    }
  }
  sqlite.run("COMMIT");
  return there;
}

}  // namespace plain_reception
