#include "controls/elided_label.h"

#include <gtest/gtest.h>

namespace {

QImage dipinta(const QString& testo, int larghezza) {
  ElidedLabel scritta;
  scritta.setText(testo);
  scritta.resize(larghezza, scritta.sizeHint().height());
  return scritta.grab().toImage();
}

}  // namespace

TEST(ScrittaBreve, UnTestoLungoNonChiedePosto) {
  ElidedLabel scritta;
  scritta.setText(QStringLiteral("archivio"));
  const int breve = scritta.sizeHint().width();
  scritta.setText(QString(300, QLatin1Char('n')));
  EXPECT_GT(scritta.sizeHint().width(), 5 * breve);
  EXPECT_LT(scritta.minimumSizeHint().width(), 3 * breve);
  EXPECT_EQ(scritta.text().size(), 300);
}

TEST(ScrittaBreve, UnTestoBreveNonChiedePiuDiSe) {
  ElidedLabel scritta;
  scritta.setText(QStringLiteral("a"));
  EXPECT_EQ(scritta.minimumSizeHint(), scritta.sizeHint());
}

TEST(ScrittaBreve, DoveMancaIlPostoCedeIlMezzoETieneInizioEFine) {
  const QString inizio = QStringLiteral("negozio");
  const QString fine = QStringLiteral("2026.mdb");
  const QString mezzo(200, QLatin1Char('n'));
  const QImage una = dipinta(inizio + mezzo + fine, 200);
  EXPECT_EQ(una, dipinta(inizio + mezzo + mezzo + fine, 200)) << "what lies in the middle is not shown";
  EXPECT_NE(una, dipinta(inizio + mezzo + QStringLiteral("2025.mdb"), 200));
  EXPECT_NE(una, dipinta(QStringLiteral("bottega") + mezzo + fine, 200));
}

TEST(ScrittaBreve, ISegniDelTestoNonSonoComandi) {
  EXPECT_NE(dipinta(QStringLiteral("<b>a</b>"), 200), dipinta(QStringLiteral("a"), 200));
  EXPECT_NE(dipinta(QStringLiteral("a&b"), 200), dipinta(QStringLiteral("ab"), 200));
}
