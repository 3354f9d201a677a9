#pragma once

#include <QString>

namespace customers {

/// What the workspace shows of the open archive.
struct RiepilogoArchivio {
  /// False for a database without one of the two tables, which is found when its first screen opens.
  bool leggibile = false;
  /// The anonymous one left out.
  int clienti = 0;
  int fatture = 0;
};

/// Counts the rows of the open archive. Shows nothing and throws nothing.
RiepilogoArchivio Riepiloga();
/// "12 clienti e 1.234 fatture", thousands parted.
QString TestoRiepilogo(const RiepilogoArchivio& riepilogo);

}  // namespace customers
