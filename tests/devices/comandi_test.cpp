#include <gtest/gtest.h>

#include <QDir>
#include <QList>

#include "devices/libreria.h"
#include "ecrcom/codici.h"
#include "sostegno/cartella_temporanea.h"
#include "sostegno/cassa.h"

using namespace ecrcom;

namespace {

struct Comandi : testing::Test {
  int comando(int modo, const QByteArray& file = {}) {
    return libreria.comando(cassa.indirizzo(), modo, file);
  }
  /// With a transfer opened before and closed behind.
  int traAperturaEChiusura(int modo, const QByteArray& file = {}) {
    EXPECT_EQ(comando(ECR_OPEN_MODE), kFatto);
    const int codice = comando(modo, file);
    EXPECT_EQ(comando(ECR_CLOSE_MODE), kFatto);
    return codice;
  }

  CartellaTemporanea cartella;
  Cassa cassa;
  Libreria libreria;
};

QByteArray archivio(char seme) {
  QByteArray byte(240000, '\0');
  for (qsizetype i = 0; i < byte.size(); ++i) byte[i] = static_cast<char>(i * 7 + seme);
  return byte;
}

}  // namespace

TEST_F(Comandi, EcrInfoRispondeConDiciannoveVociSopraGliSpazi) {
  EXPECT_EQ(comando(ECR_INFO_MODE), kFatto);
  ASSERT_EQ(libreria.risposta.size(), 256);
  const QList<QByteArray> voci = libreria.risposta.trimmed().split(',');
  ASSERT_GE(voci.size(), 19);
  for (const QByteArray& voce : voci) EXPECT_EQ(voce.count('='), 1) << voce.toStdString();
  EXPECT_EQ(voci[0], "VER=3.00");
  EXPECT_EQ(voci[1], "BMP=L");
  EXPECT_EQ(voci[2], "MMC=4");
  EXPECT_EQ(voci[10], "STATO=I");
  EXPECT_EQ(voci[11], "MOD=KPR_80mm");
  EXPECT_EQ(voci[16], "FISC=0");
  EXPECT_FALSE(libreria.risposta.contains('\0'));
  EXPECT_TRUE(libreria.risposta.endsWith(' '));
}

TEST_F(Comandi, UnArchivioDiArticoliArrivaInteroNellaMemoria) {
  const QByteArray byte = archivio(3);
  cartella.scrivi(QStringLiteral("plu.bin"), byte);
  EXPECT_EQ(traAperturaEChiusura(ECR_SEND_MODE, "plu.bin"), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("plu.bin")), byte);
  const std::vector<ecrsim::Chiamata> attese{
      {ECR_OPEN_MODE, "", 0}, {ECR_SEND_MODE, "plu.bin", 240000}, {ECR_CLOSE_MODE, "", 0}};
  EXPECT_EQ(cassa->chiamate(), attese);
}

TEST_F(Comandi, IlVendutoArrivaNellaCartellaCorrenteComeSta) {
  cassa.venduto({{0, 150, 1, 0}, {4999, -5, 3, 7}});
  EXPECT_EQ(traAperturaEChiusura(ECR_FETCH_MODE, "venduto.bin"), kFatto);
  EXPECT_EQ(cartella.leggi(QStringLiteral("venduto.bin")), cassa.byte(QStringLiteral("venduto.bin")));
}

TEST_F(Comandi, AzzerareIlVendutoLasciaSoliZeri) {
  cassa.venduto({{7, 150, 1, 0}});
  EXPECT_EQ(traAperturaEChiusura(ECR_CLEAR_SALES_MODE), kFatto);
  EXPECT_EQ(cassa.byte(QStringLiteral("venduto.bin")), QByteArray(60000, '\0'));
}

TEST_F(Comandi, LaChiusuraFiscaleGiraSenzaTrasferimento) {
  EXPECT_EQ(comando(ECR_FISCAL_CLOSURE_MODE), kFatto);
  EXPECT_EQ(libreria.risposta.trimmed(), "OK");
}
