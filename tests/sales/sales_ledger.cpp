#include "sales/sales_ledger.h"

namespace {

constexpr int kRowsADay = 1000;

QString sql(const std::optional<QString>& text) {
  if (!text) return QStringLiteral("NULL");
  return u'\'' + QString(*text).replace(u'\'', QStringLiteral("''")) + u'\'';
}
QString sql(std::optional<int> number) {
  return number ? QString::number(*number) : QStringLiteral("NULL");
}

}  // namespace

void enter(BackRoom& room, const std::vector<LedgerRow>& rows) {
  store::Transaction transaction(room.workspace);
  for (const LedgerRow& row : rows)
    room.execute(
        QStringLiteral("insert into TAB_VENDUTO (Data,id_plu,Codice_EAN,Codice_Articolo,Descrizione,"
                       "Importo_giornaliero,Tot_giorn_articoli_venduti,sconto_giornaliero) values (") +
        sql(row.date) + QStringLiteral(",1,") + sql(row.ean) + u',' + sql(row.article) + u',' +
        sql(row.description) + u',' + sql(row.amount) + u',' + sql(row.pieces) + u',' + sql(row.discount) +
        u')');
  transaction.Commit();
}

std::vector<LedgerRow> testLedger(int count) {
  std::vector<LedgerRow> rows;
  for (int i = 0; i < count; ++i)
    rows.push_back({QString::number(20260101 + i / kRowsADay % 28),
                    QStringLiteral("A%1").arg(i, 6, 10, QLatin1Char('0')),
                    QString::number(8000000000000LL + i), QStringLiteral("ARTICOLO %1").arg(i),
                    100 + i * 37 % 9999, 1 + i % 9, i % 50});
  return rows;
}
