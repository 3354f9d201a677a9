#include "sales/sales_export.h"

#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"
#include "sales/sales_rows.h"

namespace sales {

void EsportaVenduto(const QString& percorso, int ultima, const CellaDiElenco& cella) {
  QString testo;
  for (int riga = 1; riga <= ultima; ++riga) {
    testo += cella(riga, kData);
    for (int colonna = kData + 1; colonna < kColonneVenduto; ++colonna)
      testo += QLatin1Char(';') + cella(riga, colonna);
    testo += QStringLiteral("\r\n");
  }
  WriteWholeFile(percorso, windows1252::toBytes(testo));
}

}  // namespace sales
