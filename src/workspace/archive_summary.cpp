#include "workspace/archive_summary.h"

#include "core/archive_file.h"
#include "core/figures.h"
#include "core/state.h"
#include "platform/store/store.h"

namespace workspace {

RiepilogoArchivio Riepiloga() {
  RiepilogoArchivio riepilogo;
  try {
    store::Recordset righe =
        varGlobal().DB_Articoli.OpenRecordset(u"SELECT Codice_EAN, Descrizione from TAB_ARTICOLI");
    const auto scritto = [&righe](int colonna) {
      return !righe.isNull(colonna) && !righe.utf8(colonna).empty();
    };
    riepilogo.posizioni = righe.RecordCount();
    for (; !righe.atEnd(); righe.MoveNext())
      if (scritto(0) || scritto(1)) ++riepilogo.articoli;
    riepilogo.leggibile = true;
  } catch (const Errore&) {
    // Opening an archive checks nothing: the first screen that fills itself from it tells what is wrong.
  }
  return riepilogo;
}

QString TestoArticoli(const RiepilogoArchivio& riepilogo) {
  return quanti(riepilogo.articoli, QStringLiteral("articolo"), QStringLiteral("articoli"));
}

QString TestoRiepilogo(const RiepilogoArchivio& riepilogo) {
  if (!riepilogo.leggibile) return QString::fromUtf16(archivio::kIlleggibile);
  return QStringLiteral("%1 in %2 posizioni").arg(TestoArticoli(riepilogo), cifra(riepilogo.posizioni));
}

}  // namespace workspace
