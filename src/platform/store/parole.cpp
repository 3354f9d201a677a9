#include "platform/store/parole.h"

#include <array>
#include <cstddef>

namespace store {

namespace {

struct Voce {
  Parola parola;
  std::string_view testo;
};

constexpr std::array kVoci{
    Voce{Parola::Nessuna, ""},
    Voce{Parola::Alter, "ALTER"},
    Voce{Parola::All, "ALL"},
    Voce{Parola::And, "AND"},
    Voce{Parola::As, "AS"},
    Voce{Parola::Asc, "ASC"},
    Voce{Parola::Between, "BETWEEN"},
    Voce{Parola::By, "BY"},
    Voce{Parola::Cascade, "CASCADE"},
    Voce{Parola::Create, "CREATE"},
    Voce{Parola::Delete, "DELETE"},
    Voce{Parola::Desc, "DESC"},
    Voce{Parola::Distinct, "DISTINCT"},
    Voce{Parola::Drop, "DROP"},
    Voce{Parola::Exists, "EXISTS"},
    Voce{Parola::Explain, "EXPLAIN"},
    Voce{Parola::False, "FALSE"},
    Voce{Parola::From, "FROM"},
    Voce{Parola::Group, "GROUP"},
    Voce{Parola::Having, "HAVING"},
    Voce{Parola::In, "IN"},
    Voce{Parola::Inner, "INNER"},
    Voce{Parola::Insert, "INSERT"},
    Voce{Parola::Into, "INTO"},
    Voce{Parola::Is, "IS"},
    Voce{Parola::Join, "JOIN"},
    Voce{Parola::Left, "LEFT"},
    Voce{Parola::Like, "LIKE"},
    Voce{Parola::Not, "NOT"},
    Voce{Parola::Null, "NULL"},
    Voce{Parola::On, "ON"},
    Voce{Parola::Or, "OR"},
    Voce{Parola::Order, "ORDER"},
    Voce{Parola::Outer, "OUTER"},
    Voce{Parola::Plan, "PLAN"},
    Voce{Parola::Query, "QUERY"},
    Voce{Parola::Right, "RIGHT"},
    Voce{Parola::Select, "SELECT"},
    Voce{Parola::Set, "SET"},
    Voce{Parola::True, "TRUE"},
    Voce{Parola::Union, "UNION"},
    Voce{Parola::Update, "UPDATE"},
    Voce{Parola::Values, "VALUES"},
    Voce{Parola::Where, "WHERE"},
};

constexpr std::size_t kLunghezzaMassima = 8;
constexpr std::size_t kCaselle = 256;

/// Up to eight letters in one number, letter case folded away.
constexpr std::uint64_t impacchetta(std::string_view testo) {
  std::uint64_t chiave = 0;
  for (const char c : testo) chiave = (chiave << 8U) | (static_cast<unsigned char>(c) | 0x20U);
  return chiave;
}

constexpr std::size_t casella(std::uint64_t chiave) {
  return static_cast<std::size_t>((chiave * 0x9E3779B97F4A7C15ULL) >> 56U);
}

struct Tavola {
  std::array<std::uint64_t, kCaselle> chiavi{};
  std::array<Parola, kCaselle> parole{};
};

constexpr Tavola costruisci() {
  Tavola tavola;
  for (std::size_t i = 1; i < kVoci.size(); ++i) {
    const std::uint64_t chiave = impacchetta(kVoci[i].testo);
    std::size_t dove = casella(chiave);
    while (tavola.chiavi[dove] != 0) dove = (dove + 1) % kCaselle;
    tavola.chiavi[dove] = chiave;
    tavola.parole[dove] = kVoci[i].parola;
  }
  return tavola;
}

constexpr bool ordinate() {
  for (std::size_t i = 0; i < kVoci.size(); ++i)
    if (static_cast<std::size_t>(kVoci[i].parola) != i || kVoci[i].testo.size() > kLunghezzaMassima)
      return false;
  return true;
}
static_assert(ordinate(), "each word stands at its own number and fits its key");

constexpr Tavola kTavola = costruisci();

struct Funzione {
  std::string_view nome;
  std::string_view tradotta;
};

constexpr std::array kFunzioni{
    Funzione{"format", "formato"}, Funzione{"date", "oggi"},   Funzione{"max", "max"},
    Funzione{"min", "min"},        Funzione{"count", "count"}, Funzione{"sum", "sum"},
    Funzione{"avg", "avg"},        Funzione{"ucase", "upper"}, Funzione{"lcase", "lower"},
    Funzione{"len", "length"},     Funzione{"trim", "trim"},   Funzione{"abs", "abs"},
};

char minuscola(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

Parola RiconosciParola(std::string_view testo) {
  if (testo.size() > kLunghezzaMassima) return Parola::Nessuna;
  const std::uint64_t chiave = impacchetta(testo);
  std::size_t dove = casella(chiave);
  while (kTavola.chiavi[dove] != 0) {
    if (kTavola.chiavi[dove] == chiave) return kTavola.parole[dove];
    dove = (dove + 1) % kCaselle;
  }
  return Parola::Nessuna;
}

std::string_view TestoParola(Parola parola) {
  return kVoci[static_cast<std::size_t>(parola)].testo;
}

std::string_view FunzioneTradotta(std::string_view nome) {
  for (const Funzione& funzione : kFunzioni)
    if (UgualiSenzaMaiuscole(funzione.nome, nome)) return funzione.tradotta;
  return {};
}

bool UgualiSenzaMaiuscole(std::string_view primo, std::string_view secondo) {
  if (primo.size() != secondo.size()) return false;
  for (std::size_t i = 0; i < primo.size(); ++i)
    if (minuscola(primo[i]) != minuscola(secondo[i])) return false;
  return true;
}

}  // namespace store
