#include "platform/store/funzioni.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "platform/store/data_ora.h"
#include "platform/store/modello_like.h"
#include "platform/store/orologio.h"

namespace store {

namespace {

std::string_view testo(sqlite3_value* valore) {
  const auto* byte = sqlite3_value_text(valore);
  if (byte == nullptr) return {};
  return {static_cast<const char*>(static_cast<const void*>(byte)),
          static_cast<std::size_t>(sqlite3_value_bytes(valore))};
}

bool nullo(sqlite3_value* valore) {
  return sqlite3_value_type(valore) == SQLITE_NULL;
}

void rispondi(sqlite3_context* contesto, std::string_view risposta) {
  sqlite3_result_text(contesto, risposta.data(), static_cast<int>(risposta.size()), SQLITE_TRANSIENT);
}

void like(sqlite3_context* contesto, int, sqlite3_value** valori) {
  if (nullo(valori[0]) || nullo(valori[1])) return sqlite3_result_null(contesto);
  const std::string_view modello = testo(valori[0]);
  sqlite3_result_int(contesto, SomigliaAlModello(modello, testo(valori[1])) ? 1 : 0);
}

void formato(sqlite3_context* contesto, int, sqlite3_value** valori) {
  if (nullo(valori[0])) return rispondi(contesto, "");
  const auto momento = LeggiDataOra(testo(valori[0]));
  rispondi(contesto, momento ? FormattaDataOra(*momento, testo(valori[1])) : std::string(testo(valori[0])));
}

/// A loop of statements asks for the same day thousands of times.
void oggi(sqlite3_context* contesto, int, sqlite3_value**) {
  static QDate giorno;
  static std::string forma;
  if (const QDate data = OggiLocale(); data != giorno) {
    giorno = data;
    forma = FormaOrdinabile({data.year(), data.month(), data.day(), 0, 0, 0});
  }
  rispondi(contesto, forma);
}

void dataOrdinabile(sqlite3_context* contesto, int, sqlite3_value** valori) {
  if (nullo(valori[0])) return sqlite3_result_null(contesto);
  const auto momento = LeggiDataOra(testo(valori[0]));
  if (momento) return rispondi(contesto, FormaOrdinabile(*momento));
  const std::string motivo = "data non valida '" + std::string(testo(valori[0])) + "'";
  sqlite3_result_error(contesto, motivo.c_str(), -1);
}

using Corpo = void (*)(sqlite3_context*, int, sqlite3_value**);

void registra(sqlite3* db, const char* nome, int argomenti, int proprieta, Corpo corpo) {
  sqlite3_create_function_v2(db, nome, argomenti, SQLITE_UTF8 | SQLITE_INNOCUOUS | proprieta, nullptr, corpo,
                             nullptr, nullptr, nullptr);
}

}  // namespace

void RegistraFunzioni(sqlite3* db) {
  registra(db, "like", 2, SQLITE_DETERMINISTIC, like);
  registra(db, "formato", 2, SQLITE_DETERMINISTIC, formato);
  registra(db, "oggi", 0, 0, oggi);
  registra(db, kFunzioneData, 1, SQLITE_DETERMINISTIC, dataOrdinabile);
}

}  // namespace store
