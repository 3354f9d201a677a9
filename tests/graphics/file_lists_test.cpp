#include "graphics/file_lists.h"

#include <QDir>

#include "graphics/graphics_scene.h"
#include "platform/error.h"
#include "sostegno/troubles.h"

using namespace graphics;

namespace {

class ElenchiFile : public ImagesFolder, public testing::Test {
 protected:
  static int numero(const QString& da, const QString& in) {
    try {
      PortaNellaCartella(da, in);
    } catch (const Errore& errore) {
      return errore.numero;
    }
    return 0;
  }
};

}  // namespace

TEST_F(ElenchiFile, LeBitmapSonoInOrdineSenzaGuardareLeMaiuscole) {
  for (const char* nome : {"b.bmp", "A.bmp", "C.BMP", "altro.txt", "d.bmpx"})
    writeFile(image(QString::fromLatin1(nome)), "x");
  ASSERT_TRUE(QDir(images()).mkpath(QStringLiteral("cartella.bmp")));
  EXPECT_EQ(bitmapIn(images()),
            (QStringList{QStringLiteral("A.bmp"), QStringLiteral("b.bmp"), QStringLiteral("C.BMP")}));
}

TEST_F(ElenchiFile, UnNomeCheIlCatalogoNonPuoTenereNonSiElenca) {
  writeFile(image(QStringLiteral("a\nb.bmp")), "x");
  EXPECT_EQ(bitmapIn(images()), QStringList());
}

TEST_F(ElenchiFile, LeCartelleSonoInOrdine) {
  for (const char* nome : {"zeta", "Alfa", "beta"})
    ASSERT_TRUE(QDir(images()).mkpath(QString::fromLatin1(nome)));
  writeFile(image(QStringLiteral("file")), "x");
  EXPECT_EQ(cartelleIn(images()),
            (QStringList{QStringLiteral("Alfa"), QStringLiteral("beta"), QStringLiteral("zeta")}));
}

TEST_F(ElenchiFile, UnaCartellaAffollataHaUnLimite) {
  for (int i = 0; i < 2005; ++i) writeFile(image(QStringLiteral("%1.bmp").arg(i)), {});
  EXPECT_EQ(bitmapIn(images()).size(), 2000);
}

TEST_F(ElenchiFile, UnaCartellaSparitaEVuota) {
  EXPECT_EQ(bitmapIn(image(QStringLiteral("sparita"))), QStringList());
  EXPECT_EQ(cartelleIn(image(QStringLiteral("sparita"))), QStringList());
}

TEST_F(ElenchiFile, LUnitaDiUnPercorsoELaPiuVicina) {
  const QStringList unita{QStringLiteral("/"), QStringLiteral("/mnt/chiave"), QStringLiteral("/mnt/chi")};
  EXPECT_EQ(unitaDi(QStringLiteral("/home/x"), unita), QStringLiteral("/"));
  EXPECT_EQ(unitaDi(QStringLiteral("/mnt/chiave/a"), unita), QStringLiteral("/mnt/chiave"));
  EXPECT_EQ(unitaDi(QStringLiteral("/mnt/chi"), unita), QStringLiteral("/mnt/chi"));
  EXPECT_FALSE(graphics::unita().isEmpty());
}

TEST_F(ElenchiFile, UnaBitmapDaFuoriSiCopiaNellaCartella) {
  writeFile(app(QStringLiteral("Nuova.bmp")), "contenuto");
  EXPECT_EQ(PortaNellaCartella(app(QStringLiteral("Nuova.bmp")), images()), QStringLiteral("Nuova.bmp"));
  EXPECT_EQ(readFile(image(QStringLiteral("Nuova.bmp"))), "contenuto");
  EXPECT_EQ(readFile(app(QStringLiteral("Nuova.bmp"))), "contenuto");
}

TEST_F(ElenchiFile, QuellaCheCEGiaNonSiTocca) {
  writeFile(image(QStringLiteral("Logo.bmp")), "uno");
  EXPECT_EQ(PortaNellaCartella(image(QStringLiteral("Logo.bmp")), images()), QStringLiteral("Logo.bmp"));
  writeFile(app(QStringLiteral("Logo.bmp")), "uno");
  EXPECT_EQ(PortaNellaCartella(app(QStringLiteral("Logo.bmp")), images()), QStringLiteral("Logo.bmp"));
  writeFile(app(QStringLiteral("Logo.bmp")), "due");
  EXPECT_EQ(numero(app(QStringLiteral("Logo.bmp")), images()), 58);
  EXPECT_EQ(readFile(image(QStringLiteral("Logo.bmp"))), "uno");
}

TEST_F(ElenchiFile, UnaCopiaCheNonRiesceNonLasciaNulla) {
  writeFile(app(QStringLiteral("Nuova.bmp")), QByteArray(5000, 'x'));
  {
    const FullDisk pieno(100);
    EXPECT_EQ(numero(app(QStringLiteral("Nuova.bmp")), images()), 61);
  }
  EXPECT_EQ(bitmapIn(images()), QStringList());
  EXPECT_EQ(numero(app(QStringLiteral("manca.bmp")), images()), 53);
}
