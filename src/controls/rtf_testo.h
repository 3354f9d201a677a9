#pragma once

#include <QString>
#include <Qt>
#include <vector>

/// A rich text between its file and the document on the screen.
namespace rtf {

/// Size of text to which no size was given, in half points.
inline constexpr int kMisura = 24;

struct Carattere {
  bool grassetto = false;
  bool corsivo = false;
  bool sottolineato = false;
  bool nascosto = false;
  int misura = kMisura;
  bool operator==(const Carattere&) const = default;
};

struct Tratto {
  QString testo;
  Carattere carattere;
};

struct Paragrafo {
  std::vector<Tratto> tratti;
  /// 1 to 6 for a heading, 0 for plain text.
  int titolo = 0;
  bool inElenco = false;
  /// What stands before an entry of a list, "1." or a bullet.
  QString segno;
  /// Depth of the list, from 0.
  int livello = 0;
  Qt::Alignment allineamento = Qt::AlignLeft;
};

using Cella = std::vector<Paragrafo>;

struct Riga {
  std::vector<Cella> celle;
  /// Right borders of the cells in twips, as far as they were given.
  std::vector<int> bordi;
};

/// A paragraph, or a table if there are rows.
struct Blocco {
  Paragrafo paragrafo;
  std::vector<Riga> tabella;
};

using Testo = std::vector<Blocco>;

}  // namespace rtf
