#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace store {

/// Rows of one query in native types, row after row in one block, with all texts in one arena.
class Righe {
 public:
  enum class Tipo : std::uint8_t { Nullo, Intero, Reale, Testo };
  struct Cella {
    union {
      std::int64_t intero = 0;
      double reale;
      std::size_t inizio;  ///< of the text in the arena
    };
    std::uint32_t lunghezza = 0;
    Tipo tipo = Tipo::Nullo;
  };

  struct Ingombro {
    std::size_t celle = 0;
    std::size_t byte = 0;  ///< of text
  };

  Righe(std::vector<QString> nomi, Ingombro atteso);

  int colonne() const { return static_cast<int>(nomi_.size()); }
  int righe() const { return righe_; }
  Ingombro ingombro() const { return {celle_.size(), testi_.size()}; }
  /// Position of a name, letter case aside; -1 if there is none.
  int colonna(const QString& nome) const;

  const Cella& cella(int riga, int colonna) const {
    return celle_[static_cast<std::size_t>(riga) * nomi_.size() + static_cast<std::size_t>(colonna)];
  }
  std::string_view testo(const Cella& cella) const {
    return std::string_view(testi_).substr(cella.inizio, cella.lunghezza);
  }

  /// Room for one more row, all null; its cells are filled through the pointer before the next call.
  Cella* nuovaRiga();
  void scriviTesto(Cella& cella, std::string_view testo);

 private:
  std::vector<QString> nomi_;
  std::vector<Cella> celle_;
  std::string testi_;
  int righe_ = 0;
};

}  // namespace store
