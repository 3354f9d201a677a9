#pragma once

#include <cstddef>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "config/field.h"

/// One field as the firmware of the tills has it, written down by hand, beside what the program says of it.
struct Posto {
  config::Campo campo;
  std::string nome;
  std::size_t inizio = 0;
  std::size_t larghezza = 0;
  config::Tipo tipo = config::Tipo::Riservato;
  std::size_t limite = 0;
};

/// The same for a whole record.
struct RecordAtteso {
  std::string nome;
  std::size_t byte = 0;
  std::size_t byteDichiarati = 0;
  std::span<const config::Campo> tabella;
  std::vector<Posto> posti;
};
void PrintTo(const RecordAtteso& record, std::ostream* uscita);

/// Every record of the programme: the nine families, the shop's data, the narrow lines.
const std::vector<RecordAtteso>& recordAttesi();

/// A field within its record, for the tests that hold for all of them.
struct PostoInRecord {
  std::string record;
  std::size_t byte = 0;
  Posto posto;
};
void PrintTo(const PostoInRecord& questo, std::ostream* uscita);

std::vector<PostoInRecord> tuttiIPosti();
std::vector<PostoInRecord> tuttiIPosti(config::Tipo tipo);

/// Name of a case: letters, digits and "_" alone.
std::string nomeDelCaso(const RecordAtteso& record);
std::string nomeDelCaso(const PostoInRecord& questo);
