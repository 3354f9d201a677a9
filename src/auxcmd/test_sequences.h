#pragma once

#include <span>

/// The canned sequences of the test bench: what a technician reads, and what the till is sent.
namespace auxcmd {

struct Prova {
  /// Number of its option.
  int numero;
  const char16_t* didascalia;
  /// As it goes out, blanks included.
  const char16_t* sequenza;
};

struct BancoDiProva {
  /// Name of the screen.
  const char16_t* schermata;
  const char16_t* titolo;
  std::span<const Prova> prove;
  /// Sending a sequence takes away a wait box that the console has left open.
  bool toglieAttesa = false;
};

const BancoDiProva& ProveVendita();
const BancoDiProva& ProveModificatori();
const BancoDiProva& ProvePagamento();
const BancoDiProva& ProveUtilita();

}  // namespace auxcmd
