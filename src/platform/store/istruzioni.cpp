#include "platform/store/istruzioni.h"

#include <sqlite3.h>

#include "platform/store/schema.h"

namespace store {

namespace {

std::vector<bool> colonneData(sqlite3_stmt* istruzione) {
  std::vector<bool> date(static_cast<std::size_t>(sqlite3_column_count(istruzione)));
  for (std::size_t i = 0; i < date.size(); ++i) {
    const char* tipo = sqlite3_column_decltype(istruzione, static_cast<int>(i));
    date[i] = tipo != nullptr && TipoData(tipo);
  }
  return date;
}

}  // namespace

Ripristino::~Ripristino() {
  sqlite3_reset(istruzione_);
}

Preparata* Istruzioni::prendi(sqlite3* db, std::string_view sql) {
  const auto nota = perTesto_.find(sql);
  if (nota != perTesto_.end()) {
    recenti_.splice(recenti_.begin(), recenti_, nota->second);
    return &nota->second->preparata;
  }
  sqlite3_stmt* istruzione = nullptr;
  const int esito = sqlite3_prepare_v3(db, sql.data(), static_cast<int>(sql.size()),
                                       SQLITE_PREPARE_PERSISTENT, &istruzione, nullptr);
  if (esito != SQLITE_OK || istruzione == nullptr) return nullptr;
  if (recenti_.size() >= capienza_) sfratta();
  recenti_.push_front({std::string(sql), {istruzione, colonneData(istruzione), {}}});
  perTesto_.emplace(recenti_.front().sql, recenti_.begin());
  return &recenti_.front().preparata;
}

void Istruzioni::sfratta() {
  perTesto_.erase(recenti_.back().sql);
  sqlite3_finalize(recenti_.back().preparata.istruzione);
  recenti_.pop_back();
}

void Istruzioni::svuota() {
  while (!recenti_.empty()) sfratta();
}

}  // namespace store
