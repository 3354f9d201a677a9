#pragma once

#include <QString>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "demo/expectations.h"

/// What stands in an article archive, read past the program through a connection of its own.
struct RereadArchive {
  /// Slots with a description.
  int articles = 0;
  /// Every slot as it stands, the first at 0; texts in UTF-8.
  std::vector<expectations::Article> slot;
  /// Rows of the sales table, and what they hold by slot.
  int rows = 0;
  std::map<int, expectations::Sales> sales;
  /// Texts under Codice_EAN and under Codice_Articolo of the sales row.
  std::map<int, std::pair<std::string, std::string>> codes;
};

/// Throws std::runtime_error if the file cannot be read.
RereadArchive rereadArchive(const QString& file);
