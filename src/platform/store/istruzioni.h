#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/store/righe.h"

struct sqlite3;
struct sqlite3_stmt;

namespace store {

/// A prepared statement with what is worth knowing of it.
struct Preparata {
  sqlite3_stmt* istruzione = nullptr;
  /// Of each column of the result: is it declared as date and time?
  std::vector<bool> colonneData;
  /// What its rows took the last time: the next record set is likely to need as much.
  Righe::Ingombro ingombro;
};

/// Puts a prepared statement back at its start whatever happens in between.
class Ripristino {
 public:
  explicit Ripristino(sqlite3_stmt* istruzione) : istruzione_(istruzione) {}
  ~Ripristino();
  Ripristino(const Ripristino&) = delete;
  Ripristino& operator=(const Ripristino&) = delete;

 private:
  sqlite3_stmt* istruzione_;
};

/// Prepared statements of one connection by their translated text; the one longest unused goes first.
class Istruzioni {
 public:
  explicit Istruzioni(std::size_t capienza) : capienza_(capienza) {}
  ~Istruzioni() { svuota(); }
  Istruzioni(const Istruzioni&) = delete;
  Istruzioni& operator=(const Istruzioni&) = delete;

  /// Null where the engine refuses the text; its error stands in the connection.
  Preparata* prendi(sqlite3* db, std::string_view sql);
  void svuota();
  std::size_t quante() const { return perTesto_.size(); }

 private:
  struct Voce {
    std::string sql;
    Preparata preparata;
  };
  void sfratta();

  std::size_t capienza_;
  std::list<Voce> recenti_;  ///< the last used first
  std::unordered_map<std::string_view, std::list<Voce>::iterator> perTesto_;
};

}  // namespace store
