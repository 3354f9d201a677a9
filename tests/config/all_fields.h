#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "config/general_options.h"
#include "config/image.h"
#include "config/narrow_lines.h"
#include "config/records.h"

/// Every field of every record of the programme, for the tests that hold for all of them.
struct CampoInRecord {
  std::string record;
  std::size_t byte = 0;
  config::Campo campo{};
};

inline void PrintTo(const CampoInRecord& questo, std::ostream* uscita) {
  *uscita << questo.record << "/" << questo.campo.nome << " at " << questo.campo.inizio;
}

inline void aggiungi(std::vector<CampoInRecord>& tutti, const std::string& record, std::size_t byte,
                     std::span<const config::Campo> campi) {
  for (const config::Campo& campo : campi) tutti.push_back({record, byte, campo});
}

inline std::vector<CampoInRecord> tuttiICampi() {
  std::vector<CampoInRecord> tutti;
  for (const config::Famiglia* famiglia : config::famiglie())
    aggiungi(tutti, famiglia->nome, famiglia->byte, famiglia->campi);
  aggiungi(tutti, "negozio", config::negozio::kByte, config::negozio::kCampi);
  aggiungi(tutti, "intestazione corta", config::intestazione_corta::kByte,
           config::intestazione_corta::kCampi);
  aggiungi(tutti, "cortesia corta", config::cortesia_corta::kByte, config::cortesia_corta::kCampi);
  return tutti;
}

inline std::vector<CampoInRecord> tuttiICampi(config::Tipo tipo) {
  std::vector<CampoInRecord> tutti = tuttiICampi();
  std::erase_if(tutti, [&](const CampoInRecord& questo) { return questo.campo.tipo != tipo; });
  return tutti;
}
