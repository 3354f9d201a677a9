#pragma once

#include <cstdint>
#include <string_view>

#include "platform/errore.h"

namespace store {

enum class Simbolo : std::uint8_t { Fine, Parola, NomeTraParentesi, Testo, Numero, Data, Operatore };

/// One token of a statement, as a window on its text.
struct Pezzo {
  Simbolo simbolo = Simbolo::Fine;
  /// The whole token, quotes and brackets included.
  std::string_view intero;
  /// What stands between the quotes or brackets; the whole token where there are none.
  std::string_view dentro;
  /// Of a text: its quote stands doubled somewhere within.
  bool doppioApice = false;
};

/// Cuts a statement's UTF-8 text into tokens, one pass, no copy. Throws Errore 3075 on a quote, bracket or
/// date that is never closed and on a character that begins no token.
class Lessico {
 public:
  explicit Lessico(std::string_view testo) : testo_(testo) {}

  Pezzo prossimo();
  /// The next character that is no blank, without taking it; 0 at the end.
  char sbircia();
  std::size_t posizione() const { return posizione_; }

 private:
  void saltaBianchi();
  Pezzo ritaglia(Simbolo simbolo, std::size_t inizio) const;
  Pezzo delimitato(Simbolo simbolo, char chiusura);
  Pezzo testo(char apice);
  Pezzo numero();
  Pezzo parola();
  Pezzo operatore();

  std::string_view testo_;
  std::size_t posizione_ = 0;
};

/// The piece of a statement that a message quotes: from `inizio`, cut to a readable length.
QString Frammento(std::string_view testo, std::size_t inizio);
/// Errore 3075 that quotes the fragment.
Errore ErroreDiSintassi(const QString& motivo, std::string_view testo, std::size_t inizio);

}  // namespace store
