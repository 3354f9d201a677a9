#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/store/dialetto.h"

namespace store {

/// A statement already translated, and where its literals stand: the next one of the same wording, built by a
/// loop with other values, is read by comparing what is fixed and taking the literals from their places.
class Stampo {
 public:
  /// True if `sorgente` differs from the remembered one in its literals alone; its values are then in
  /// `traduzione`, and look into `sorgente`.
  bool riempi(std::string_view sorgente);
  /// Translates word by word and remembers. Throws as Traduci does, and then remembers nothing.
  void rifai(std::string_view sorgente, const Dizionario& dizionario);

  const Traduzione& traduzione() const { return traduzione_; }

 private:
  bool riempiLetterale(std::string_view sorgente, std::size_t& qui, const Traduzione::Letterale& letterale);

  std::string modello_;
  Traduzione traduzione_;
};

/// The few wordings that a loop alternates between.
class Stampi {
 public:
  /// The translation of `sorgente`; valid, like the windows in it, until the next call.
  const Traduzione& traduci(std::string_view sorgente, const Dizionario& dizionario);

 private:
  std::array<Stampo, 4> stampi_;
  std::size_t prossimo_ = 0;
};

}  // namespace store
