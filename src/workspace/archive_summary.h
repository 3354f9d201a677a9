#pragma once

#include <QString>

namespace workspace {

/// What the workspace shows of the open archive.
struct RiepilogoArchivio {
  /// False for a database without the table of articles, which is found when its first screen opens.
  bool leggibile = false;
  int posizioni = 0;
  /// Slots that bear an EAN or a description.
  int articoli = 0;
};

/// Counts the slots of the open archive. Shows nothing and throws nothing.
RiepilogoArchivio Riepiloga();
/// "5.000 articoli", thousands parted.
QString TestoArticoli(const RiepilogoArchivio& riepilogo);
/// The count as a line for the screen, thousands parted.
QString TestoRiepilogo(const RiepilogoArchivio& riepilogo);

}  // namespace workspace
