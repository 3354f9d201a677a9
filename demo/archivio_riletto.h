#pragma once

#include <QString>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "demo/attese.h"

/// What stands in an article archive, read past the program through a connection of its own.
struct ArchivioRiletto {
  /// Slots with a description.
  int articoli = 0;
  /// Every slot as it stands, the first at 0; texts in UTF-8.
  std::vector<attese::Articolo> slot;
  /// Rows of the sales table, and what they hold by slot.
  int righe = 0;
  std::map<int, attese::Venduto> venduto;
  /// Texts under Codice_EAN and under Codice_Articolo of the sales row.
  std::map<int, std::pair<std::string, std::string>> codici;
};

/// Throws std::runtime_error if the file cannot be read.
ArchivioRiletto rileggiArchivio(const QString& file);
