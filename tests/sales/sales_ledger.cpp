#include "sales/sales_ledger.h"

#include "articles/transaction.h"

namespace {

constexpr int kRigheAlGiorno = 1000;

QString sql(const std::optional<QString>& testo) {
  if (!testo) return QStringLiteral("NULL");
  return u'\'' + QString(*testo).replace(u'\'', QStringLiteral("''")) + u'\'';
}
QString sql(std::optional<int> numero) {
  return numero ? QString::number(*numero) : QStringLiteral("NULL");
}

}  // namespace

void registra(Bottega& bottega, const std::vector<RigaRegistrata>& righe) {
  articles::Transazione transazione(bottega.area);
  for (const RigaRegistrata& riga : righe)
    bottega.esegui(
        QStringLiteral("insert into TAB_VENDUTO (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,"
                       "Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero) values (") +
        sql(riga.data) + QStringLiteral(",1,") + sql(riga.ean) + u',' + sql(riga.articolo) + u',' +
        sql(riga.descrizione) + u',' + sql(riga.importo) + u',' + sql(riga.pezzi) + u',' + sql(riga.sconto) +
        u')');
  transazione.conferma();
}

std::vector<RigaRegistrata> vendutoDiProva(int quante) {
  std::vector<RigaRegistrata> righe;
  for (int i = 0; i < quante; ++i)
    righe.push_back({QString::number(20260101 + i / kRigheAlGiorno % 28),
                     QStringLiteral("A%1").arg(i, 6, 10, QLatin1Char('0')),
                     QString::number(8000000000000LL + i), QStringLiteral("ARTICOLO %1").arg(i),
                     100 + i * 37 % 9999, 1 + i % 9, i % 50});
  return righe;
}
