#include "graphics/catalogue.h"

#include <QDir>

#include "controls/FlexGrid.h"
#include "graphics/catalogue_grid.h"
#include "graphics/graphics_scene.h"
#include "platform/error.h"
#include "sostegno/troubles.h"

using namespace graphics;

namespace {

/// The file as it is after the first start, by hand: Windows-1252, CR LF.
const QByteArray kPredefinito =
    "Logo\r\nLogo.bmp\r\nMerceologico1\r\nMerceologico1.bmp\r\nNatale\r\nNatale.bmp\r\nPasqua\r\nPasqua."
    "bmp\r\n"
    "FestaMamma\r\nFestaMamma.bmp\r\nFestaPap\xE0\r\nFestaPap\xE0.bmp\r\nFestaDonna\r\nFestaDonna.bmp\r\n"
    "Vacanze\r\nVacanze.bmp\r\nCarnevale\r\nCarnevale.bmp\r\nSanValentino\r\nSanValentino.bmp\r\n"
    "Promozione1\r\nPromozione1.bmp\r\nPromozione2\r\nPromozione2.bmp\r\n";

QByteArray righe(int quante) {
  QByteArray testo;
  for (int i = 1; i <= quante; ++i) testo += "riga" + QByteArray::number(i) + "\r\n";
  return testo;
}

class CatalogoGrafica : public ImagesFolder, public testing::Test {
 protected:
  CatalogoGrafica() { modGra1() = {}; }
  ~CatalogoGrafica() override { modGra1() = {}; }
  QString file() const { return app(QStringLiteral("SetupLOGO.dat")); }
  void leggi(const QByteArray& byte) {
    writeFile(file(), byte);
    RiempiRecGrafica(true, file());
  }
  static const VoceGrafica& voce(std::size_t numero) { return modGra1().RecGrafica.at(numero - 1); }
};

VoceGrafica voceDi(const char* tipo, const char* nome) {
  return {QString::fromUtf8(tipo), QString::fromUtf8(nome)};
}

}  // namespace

TEST_F(CatalogoGrafica, IPredefinitiSonoDodiciESiScrivonoIn24Righe) {
  RiempiRecGrafica(false, file());
  EXPECT_EQ(readFile(file()), kPredefinito);
  EXPECT_EQ(voce(1), voceDi("Logo", "Logo.bmp"));
  EXPECT_EQ(voce(6), voceDi("FestaPapà", "FestaPapà.bmp"));
  EXPECT_EQ(voce(12), voceDi("Promozione2", "Promozione2.bmp"));
}

TEST_F(CatalogoGrafica, LaLetteraAccentataSopravviveAndataERitorno) {
  leggi(kPredefinito);
  EXPECT_EQ(voce(6), voceDi("FestaPapà", "FestaPapà.bmp"));
  SaveRecGrafica(file());
  EXPECT_EQ(readFile(file()), kPredefinito);
}

TEST_F(CatalogoGrafica, UnFileVuotoLasciaTutteLeVociVuote) {
  leggi({});
  for (const VoceGrafica& una : modGra1().RecGrafica) EXPECT_EQ(una, VoceGrafica{});
}

TEST_F(CatalogoGrafica, CinqueRigheSonoDueVociEIlTipoDellaTerza) {
  leggi(righe(5));
  EXPECT_EQ(voce(1), voceDi("riga1", "riga2"));
  EXPECT_EQ(voce(2), voceDi("riga3", "riga4"));
  EXPECT_EQ(voce(3), voceDi("riga5", ""));
  for (std::size_t i = 4; i <= 12; ++i) EXPECT_EQ(voce(i), VoceGrafica{}) << i;
}

TEST_F(CatalogoGrafica, VentitreRigheLascianoLUltimaSenzaNome) {
  leggi(righe(23));
  EXPECT_EQ(voce(11), voceDi("riga21", "riga22"));
  EXPECT_EQ(voce(12), voceDi("riga23", ""));
}

TEST_F(CatalogoGrafica, LaVenticinquesimaRigaNonSiLegge) {
  leggi(righe(25));
  EXPECT_EQ(voce(1), voceDi("riga1", "riga2"));
  EXPECT_EQ(voce(12), voceDi("riga23", "riga24"));
}

TEST_F(CatalogoGrafica, AncheSenzaRitornoACapoESenzaFineDellUltima) {
  leggi("Logo\nuno.bmp\nNatale\ndue.bmp");
  EXPECT_EQ(voce(1), voceDi("Logo", "uno.bmp"));
  EXPECT_EQ(voce(2), voceDi("Natale", "due.bmp"));
}

TEST_F(CatalogoGrafica, UnaRigaInterminabileSiLeggeFinoAlNomePiuLungo) {
  leggi("Logo\r\n" + QByteArray(3000, 'x') + "\r\nNatale\r\nb.bmp\r\n");
  EXPECT_EQ(voce(1).file, QString(255, u'x'));
  EXPECT_EQ(voce(2), voceDi("Natale", "b.bmp"));
}

TEST_F(CatalogoGrafica, UnFileEnormeNonRiempieLaMemoria) {
  leggi(QByteArray(30 * 1024 * 1024, 'x'));
  EXPECT_EQ(voce(1), (VoceGrafica{QString(255, u'x'), {}}));
  EXPECT_EQ(voce(2), VoceGrafica{});
}

TEST_F(CatalogoGrafica, UnACapoInUnNomeNonSpostaLeRigheCheSeguono) {
  RiempiRecGrafica(false, file());
  modGra1().RecGrafica[0].file = QStringLiteral("a\r\nb.bmp");
  SaveRecGrafica(file());
  EXPECT_EQ(readFile(file()).count('\n'), 24);
  EXPECT_TRUE(readFile(file()).startsWith("Logo\r\na??b.bmp\r\nMerceologico1\r\n"));
}

TEST_F(CatalogoGrafica, UnaCartellaAlSuoPostoNonSiLegge) {
  ASSERT_TRUE(QDir().mkpath(file()));
  EXPECT_THROW(RiempiRecGrafica(true, file()), Errore);
  EXPECT_EQ(voce(1), VoceGrafica{});
}

TEST_F(CatalogoGrafica, SeNonSiScriveRestaQuelloDiPrima) {
  RiempiRecGrafica(false, file());
  modGra1().RecGrafica[0].file = QStringLiteral("Altro.bmp");
  {
    const FullDisk pieno(10);
    EXPECT_THROW(SaveRecGrafica(file()), Errore);
  }
  EXPECT_EQ(readFile(file()), kPredefinito);
}

TEST_F(CatalogoGrafica, NomiCheNonEsconoDallaCartella) {
  for (const char* buono : {"Logo.bmp", "FestaPapà.bmp", "a..b.bmp", "con spazio.bmp", "..bmp"})
    EXPECT_TRUE(nomeAmmesso(QString::fromUtf8(buono))) << buono;
  for (const char* cattivo :
       {"", ".", "..", "../Logo.bmp", "/etc/passwd", "a\\b.bmp", "C:Logo.bmp", "a\nb.bmp"})
    EXPECT_FALSE(nomeAmmesso(QString::fromUtf8(cattivo))) << cattivo;
  EXPECT_FALSE(nomeAmmesso(QString(256, u'x')));
}

TEST_F(CatalogoGrafica, UnNomeCheEsceDallaCartellaNonEsiste) {
  writeFile(app(QStringLiteral("fuori.bmp")), "x");
  writeFile(image(QStringLiteral("dentro.bmp")), "x");
  EXPECT_TRUE(bitmapEsiste(images(), QStringLiteral("dentro.bmp")));
  EXPECT_FALSE(bitmapEsiste(images(), QStringLiteral("../fuori.bmp")));
  EXPECT_FALSE(bitmapEsiste(images(), {}));
  EXPECT_FALSE(bitmapEsiste(images(), QStringLiteral("manca.bmp")));
}

TEST_F(CatalogoGrafica, UnNomeFuoriDallaPaginaDiCodiciNonSiConserva) {
  EXPECT_TRUE(nomeConservato(QStringLiteral("FestaPapà.bmp")));
  EXPECT_FALSE(nomeConservato(QStringLiteral("праздник.bmp")));
}

TEST_F(CatalogoGrafica, LaGrigliaHaTreColonneEDodiciRighe) {
  ProgramFixture programma;
  RiempiRecGrafica(false, file());
  FlexGrid griglia;
  GestGridGrafica(griglia);
  RiempiGridGrafica(griglia, programma.user);
  EXPECT_EQ(griglia.Rows(), 13);
  EXPECT_EQ(griglia.Cols(), 3);
  EXPECT_EQ(griglia.TextMatrix(0, 0), QStringLiteral("NUM."));
  EXPECT_EQ(griglia.TextMatrix(0, 1), QStringLiteral("TIPOLOGIA"));
  EXPECT_EQ(griglia.TextMatrix(0, 2), QStringLiteral("NOME FILE GRAFICA"));
  int riga = 0;
  for (const QString& tipo : defaultTypes()) {
    ++riga;
    EXPECT_EQ(griglia.TextMatrix(riga, 0), QString::number(riga));
    EXPECT_EQ(griglia.TextMatrix(riga, 1), tipo);
    EXPECT_EQ(griglia.TextMatrix(riga, 2), tipo + QStringLiteral(".bmp"));
  }
}
