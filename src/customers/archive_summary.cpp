#include "customers/archive_summary.h"

#include "core/archive_file.h"
#include "core/figures.h"
#include "core/state.h"
#include "platform/store/store.h"

namespace customers {

namespace {

int conta(store::Wording sql) {
  return varGlobal().DB_Clienti.OpenRecordset(sql).field(0).int32();
}

}  // namespace

RiepilogoArchivio Riepiloga() {
  RiepilogoArchivio riepilogo;
  try {
    riepilogo.clienti = conta(u"SELECT count(*) from TAB_ANAG_CLIENTI where ID_Cliente <> 0");
    riepilogo.fatture = conta(u"SELECT count(*) from TAB_FATTURE");
    riepilogo.leggibile = true;
  } catch (const Errore&) {
    // Opening an archive checks nothing: the first screen that fills itself from it tells what is wrong.
  }
  return riepilogo;
}

QString TestoRiepilogo(const RiepilogoArchivio& riepilogo) {
  if (!riepilogo.leggibile) return QString::fromUtf16(archivio::kIlleggibile);
  return quanti(riepilogo.clienti, QStringLiteral("cliente"), QStringLiteral("clienti")) +
         QStringLiteral(" e ") +
         quanti(riepilogo.fatture, QStringLiteral("fattura"), QStringLiteral("fatture"));
}

}  // namespace customers
