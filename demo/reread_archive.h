#pragma once

#include <QString>
#include <string>
#include <vector>

#include "demo/expectations.h"

/// What stands in an article archive, read past the program through a connection of its own.
struct RereadArchive {
  /// Slots with a description.
  int articles = 0;
  /// Every slot as it stands, the first at 0; texts in UTF-8.
  std::vector<expectations::Article> slot;
  /// A row of the sales table, and its texts under Codice_EAN and under Codice_Articolo.
  struct Received {
    expectations::Sales sales;
    std::string underEan;
    std::string underArticle;
  };
  /// In the order in which they were received.
  std::vector<Received> received;
};

/// Throws std::runtime_error if the file cannot be read.
RereadArchive rereadArchive(const QString& file);
