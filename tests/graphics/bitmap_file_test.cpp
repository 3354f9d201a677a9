#include "graphics/bitmap_file.h"

#include <QBuffer>
#include <QtEndian>

#include "graphics/graphics_scene.h"
#include "platform/error.h"

using namespace graphics;

namespace {

class FileBitmap : public ImagesFolder, public testing::Test {
 protected:
  QString salva(const QImage& immagine) const {
    QString percorso = image(QStringLiteral("prova.bmp"));
    EXPECT_TRUE(immagine.save(percorso, "BMP"));
    return percorso;
  }
  static int numero(const QString& percorso) {
    try {
      CaricaImmagine(percorso);
    } catch (const Errore& errore) {
      return errore.numero;
    }
    return 0;
  }
};

/// A head that lies: these numbers over a small picture of 24 bits.
QByteArray bugiarda(qint32 larghezza, qint32 altezza, quint16 bit = 24, quint32 compressione = 0) {
  QByteArray byte;
  QBuffer dove(&byte);
  dove.open(QIODevice::WriteOnly);
  QImage(4, 4, QImage::Format_RGB888).save(&dove, "BMP");
  qToLittleEndian(larghezza, byte.data() + 18);
  qToLittleEndian(altezza, byte.data() + 22);
  qToLittleEndian(bit, byte.data() + 28);
  qToLittleEndian(compressione, byte.data() + 30);
  return byte;
}

}  // namespace

TEST_F(FileBitmap, LaTestaDiceMisureBitEInterezza) {
  const auto testa = testaDelFile(salva(drawnPicture(640, 30, 1)));
  ASSERT_TRUE(testa);
  EXPECT_EQ(testa->larghezza, 640);
  EXPECT_EQ(testa->altezza, 30);
  EXPECT_EQ(testa->bit, 1);
  EXPECT_FALSE(testa->compressa);
  EXPECT_TRUE(testa->intera);
}

TEST_F(FileBitmap, LOrdineDelleRigheNonCambiaLAltezza) {
  const auto testa = testaBitmap(bugiarda(4, -4), 10000);
  ASSERT_TRUE(testa);
  EXPECT_EQ(testa->altezza, 4);
}

TEST_F(FileBitmap, UnFileTroncatoNonEIntero) {
  const QString percorso = salva(drawnPicture(640, 30, 1));
  writeFile(percorso, readFile(percorso).chopped(1));
  EXPECT_FALSE(testaDelFile(percorso)->intera);
}

TEST_F(FileBitmap, MisureAssurdeNonSonoIntere) {
  for (const auto& [larga, alta] :
       {std::pair{2147483647, 2147483647}, {-2147483647 - 1, -2147483647 - 1}, {1, 2147483647}, {0, 0}}) {
    const QByteArray byte = bugiarda(larga, alta, 32);
    EXPECT_FALSE(testaBitmap(byte, byte.size())->intera) << larga << "x" << alta;
  }
}

TEST_F(FileBitmap, LaCompressioneSiRiconosce) {
  EXPECT_TRUE(testaBitmap(bugiarda(4, 4, 8, 1), 1000)->compressa);
  EXPECT_TRUE(testaBitmap(bugiarda(4, 4, 24, 3), 1000)->compressa);
  EXPECT_FALSE(testaBitmap(bugiarda(4, 4, 32, 3), 1000)->compressa);
}

TEST_F(FileBitmap, CioCheNonEUnaBitmapNonHaTesta) {
  for (const QByteArray& byte : {QByteArray(), QByteArray("BM"), QByteArray(53, 'B'), QByteArray(500, 'x')}) {
    const QString percorso = image(QStringLiteral("x.bmp"));
    writeFile(percorso, byte);
    EXPECT_FALSE(testaDelFile(percorso)) << byte.size();
    EXPECT_EQ(numero(percorso), 481) << byte.size();
  }
}

TEST_F(FileBitmap, IGuastiDelCaricamentoHannoIlLoroNumero) {
  EXPECT_EQ(numero(image(QStringLiteral("manca.bmp"))), 53);
  EXPECT_EQ(numero(images()), 75);
  const QString percorso = image(QStringLiteral("x.bmp"));
  for (const auto& [larga, alta] : {std::pair{0, 0}, {30000, 30000}, {4097, 1}, {1, 4097}}) {
    writeFile(percorso, bugiarda(larga, alta));
    EXPECT_EQ(numero(percorso), 481) << larga << "x" << alta;
  }
}

TEST_F(FileBitmap, UnBitSiStampaComEScritto) {
  QImage immagine = drawnPicture(384, 12, 2);
  EXPECT_EQ(printedForm(comeStampata(CaricaImmagine(salva(immagine)))), printedForm(immagine));
}

TEST_F(FileBitmap, DeiDueColoriStampaIlPiuScuroDellaMeta) {
  QImage immagine(8, 1, QImage::Format_Mono);
  immagine.setColorTable({qRgb(0, 0, 90), qRgb(250, 250, 90)});
  immagine.fill(1);
  immagine.setPixel(3, 0, 0);
  EXPECT_EQ(printedForm(comeStampata(immagine)).right(1), QByteArray("\x10"));
}

TEST_F(FileBitmap, IlGrigioDiventaPuntiSparsi) {
  QImage immagine(64, 64, QImage::Format_RGB32);
  immagine.fill(qRgb(128, 128, 128));
  const QImage punti = comeStampata(immagine);
  int neri = 0;
  for (int y = 0; y < 64; ++y)
    for (int x = 0; x < 64; ++x) neri += qGray(punti.pixel(x, y)) < 128 ? 1 : 0;
  EXPECT_NEAR(neri, 2048, 204);
}
