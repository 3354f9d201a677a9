#include "graphics/picture_check.h"

#include <QtEndian>

#include "graphics/graphics_scene.h"

using namespace graphics;

namespace {

const QString kNome = QStringLiteral("Prova.bmp");

class EsameImmagine : public ImagesFolder, public testing::Test {
 protected:
  void disegna(int larga, int alta, QImage::Format forma = QImage::Format_Mono) const {
    ASSERT_TRUE(drawnPicture(larga, alta, 3).convertToFormat(forma).save(image(kNome), "BMP"));
  }
  Esame guarda(int larghezza = 0) const { return esamina(images(), kNome, larghezza); }
  /// Overwrites a number of the head.
  template <typename Numero>
  void testa(int posto, Numero numero) const {
    QByteArray byte = readFile(image(kNome));
    qToLittleEndian(numero, byte.data() + posto);
    writeFile(image(kNome), byte);
  }
  void rifiutata(const char* perche, int larghezza = 0) const {
    EXPECT_EQ(guarda(larghezza).rifiuto, QString::fromUtf8(perche));
  }
};

}  // namespace

TEST_F(EsameImmagine, DellaLarghezzaDiUnaClasseVaBeneESiMostra) {
  disegna(384, 20);
  EXPECT_EQ(guarda().classe, QStringLiteral("SMALL"));
  EXPECT_EQ(guarda(384).rifiuto, QString());
  EXPECT_EQ(guarda(384).punti.size(), QSize(384, 20));
  EXPECT_FALSE(guarda(384).vuoto);
  disegna(640, 20);
  EXPECT_EQ(guarda().classe, QStringLiteral("LARGE"));
  rifiutata("", 640);
}

TEST_F(EsameImmagine, DellAltraClasseSiMostraMaSiRifiuta) {
  disegna(384, 20);
  rifiutata("Larga 384 punti, serve 640", 640);
  EXPECT_FALSE(guarda(640).punti.isNull());
}

TEST_F(EsameImmagine, DiAltraLarghezzaSiRifiuta) {
  disegna(400, 20);
  rifiutata("Larga 400 punti: ne servono 384 o 640");
  EXPECT_TRUE(guarda().punti.isNull());
  EXPECT_EQ(guarda().classe, QString());
}

TEST_F(EsameImmagine, LAltezzaHaUnLimite) {
  disegna(384, 800);
  rifiutata("");
  disegna(384, 801);
  rifiutata("Alta 801 punti: al massimo 800");
  disegna(384, 4);
  testa(22, qint32{0});
  rifiutata("La bitmap non ha righe");
}

TEST_F(EsameImmagine, CompressioneEColoriCheNonSiLeggono) {
  disegna(384, 4, QImage::Format_Indexed8);
  rifiutata("");
  testa(30, quint32{1});
  rifiutata("La bitmap è compressa");
  testa(30, quint32{0});
  testa(28, quint16{16});
  rifiutata("Colori a 16 bit: salvarla a 1 o a 24");
}

TEST_F(EsameImmagine, TroncataSiRifiuta) {
  disegna(384, 20);
  writeFile(image(kNome), readFile(image(kNome)).chopped(1));
  rifiutata("Il file è incompleto");
}

TEST_F(EsameImmagine, CioCheNonEUnaBitmapSiRifiuta) {
  writeFile(image(kNome), "ciao");
  rifiutata("Il file non è una bitmap");
  EXPECT_FALSE(guarda().vuoto);
}

TEST_F(EsameImmagine, SenzaFileIlPostoEVuoto) {
  const auto vuoto = [&](const QString& nome, const char* perche) {
    const Esame esame = esamina(images(), nome, 384);
    EXPECT_TRUE(esame.vuoto);
    EXPECT_TRUE(esame.punti.isNull());
    EXPECT_EQ(esame.rifiuto, QString::fromUtf8(perche));
  };
  vuoto({}, "Nessuna bitmap");
  vuoto(QStringLiteral("manca.bmp"), "Il file non c'è");
  vuoto(QStringLiteral("../Prova.bmp"), "Non è il nome di un file");
}
