#pragma once

#include "platform/store/dialetto.h"
#include "platform/store/lessico.h"

namespace store {

/// The translator's one pass over one statement.
class Traduttore {
 public:
  Traduttore(std::string_view sorgente, const Dizionario& dizionario, Traduzione& esito);
  void esegui();

 private:
  /// What the word behind has to be.
  enum class Attesa : std::uint8_t { Qualsiasi, Nome };

  void inizio();
  void pezzo(const Pezzo& pezzo);
  void parola(const Pezzo& pezzo);
  void parolaChiave(Parola parola, const Pezzo& pezzo);
  void nome(std::string_view nome);
  void funzione(const Pezzo& pezzo);
  void operatore(const Pezzo& pezzo);
  void numero(std::string_view testo);
  void data(const Pezzo& pezzo);
  void like(const Pezzo& pezzo);
  void fine(const Pezzo& pezzo);
  void pezzoDiDefinizione(const Pezzo& pezzo);

  std::string_view contenuto(const Pezzo& testo);
  std::string_view conserva(std::string testo);
  void parametroTesto(std::string_view testo);
  void parametroIntero(std::int64_t valore);
  void ricorda(std::string_view letterale);
  void scrivi(std::string_view testo);
  void segna(const Pezzo& pezzo);
  bool prefissoSuIndice(std::string_view prefisso) const;
  std::size_t posizione(const Pezzo& pezzo) const;

  std::string_view sorgente_;
  const Dizionario& dizionario_;
  Traduzione& esito_;
  Lessico lessico_;
  Attesa attesa_ = Attesa::Qualsiasi;
  /// Behind ORDER and GROUP a number is the position of a column and has to stay where it is.
  bool posizioniDiColonna_ = false;
  Parola precedente_ = Parola::Nessuna;
  /// The column name just written, perhaps qualified: where it begins in the translation, and its last part.
  /// Empty when anything else stands in front.
  std::size_t inizioNome_ = 0;
  std::string_view ultimoNome_;
  bool dopoPunto_ = false;
  /// Some value has shaped the translation, or was not taken as it stands.
  bool irripetibile_ = false;
};

}  // namespace store
