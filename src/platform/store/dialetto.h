#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/store/parole.h"

namespace store {

/// What the translator has to know of a database: the columns on which a prefix LIKE may become a range.
class Dizionario {
 public:
  void aggiungi(std::string_view colonna);
  bool prefisso(std::string_view colonna) const;
  void svuota() { colonne_.clear(); }

 private:
  struct Ordine {
    using is_transparent = void;
    bool operator()(std::string_view primo, std::string_view secondo) const;
  };
  std::set<std::string, Ordine> colonne_;
};

/// A literal lifted out of a statement.
struct Parametro {
  enum class Tipo : std::uint8_t { Intero, Reale, Testo };
  Tipo tipo = Tipo::Intero;
  std::int64_t intero = 0;
  double reale = 0;
  /// Window on the source statement or on Traduzione::testi.
  std::string_view testo;
};

/// A statement in the engine's SQL. The texts that callers build over and over with other values come out
/// with the same `sql`, so that it is also the key of the prepared statement.
struct Traduzione {
  std::string sql;
  std::vector<Parametro> parametri;
  /// Texts that stand nowhere in the source as they are needed. A deque: the parameters' windows must hold.
  std::deque<std::string> testi;
  /// A statement that defines tables: its literals stay in place, and the dictionary is read anew behind it.
  bool definizione = false;

  /// Where a literal that went out as a whole stands in the source, quotes included.
  struct Letterale {
    std::size_t parametro;
    std::size_t inizio;
    std::size_t lunghezza;
  };
  std::vector<Letterale> letterali;
  /// Whether a source with other literals in these places, each of its kind, comes out with the same `sql`.
  bool ricalcabile = false;

  /// Where each token went, for messages; recorded only if `conMappa` is set.
  struct Passo {
    std::size_t nelTradotto;
    std::size_t nellaSorgente;
  };
  bool conMappa = false;
  std::vector<Passo> mappa;
};

/// Translates one statement of the callers' dialect, UTF-8. The parameters look into `sorgente`. Pure:
/// touches nothing but `esito`, whose storage is reused. Throws Errore 3075 (syntax), 3085 (unknown
/// function), 3142 (text behind the end of the statement).
void Traduci(std::string_view sorgente, const Dizionario& dizionario, Traduzione& esito);

}  // namespace store
