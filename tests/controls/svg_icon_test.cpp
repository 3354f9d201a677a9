#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmapCache>
#include <QPushButton>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <set>

#include "controls/contrast.h"
#include "controls/palette.h"
#include "controls/style.h"
#include "controls/svg_icon.h"

namespace {

/// The colours of the fully covered pixels.
std::set<QRgb> colori(const QPixmap& disegno) {
  std::set<QRgb> visti;
  const QImage immagine = disegno.toImage().convertToFormat(QImage::Format_ARGB32);
  for (int y = 0; y < immagine.height(); ++y)
    for (int x = 0; x < immagine.width(); ++x)
      if (qAlpha(immagine.pixel(x, y)) == 255) visti.insert(immagine.pixel(x, y));
  return visti;
}

/// True if something is painted, and in that colour alone. Blending rounds by a unit or two.
bool dipintaIn(const QColor& previsto, const QPixmap& disegno) {
  const std::set<QRgb> visti = colori(disegno);
  return !visti.empty() && std::all_of(visti.begin(), visti.end(), [&](QRgb visto) {
    return std::abs(qRed(visto) - previsto.red()) <= 2 && std::abs(qGreen(visto) - previsto.green()) <= 2 &&
           std::abs(qBlue(visto) - previsto.blue()) <= 2;
  });
}

}  // namespace

class IconaStile : public testing::TestWithParam<bool> {
 protected:
  IconaStile() {
    style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
    QApplication::setPalette(style::palette(tinte_));
    icona_ = style::icon(QStringLiteral("upload"));
  }
  const style::Tints& tinte_ = style::tints(GetParam());
  QIcon icona_;
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, IconaStile, testing::Bool());

TEST_P(IconaStile, PrendeIlColoreDelTestoInOgniModo) {
  EXPECT_TRUE(dipintaIn(tinte_.text, icona_.pixmap(48)));
  EXPECT_TRUE(dipintaIn(tinte_.off, icona_.pixmap(48, QIcon::Disabled)));
  EXPECT_TRUE(dipintaIn(tinte_.onAccent, icona_.pixmap(48, QIcon::Selected)));
}

TEST_P(IconaStile, QuellaPrimariaPrendeIlColoreDelTestoSullAccento) {
  EXPECT_TRUE(dipintaIn(tinte_.onAccent, style::primaryIcon(QStringLiteral("upload")).pixmap(48)));
}

TEST_P(IconaStile, ENitidaAOgniScala) {
  for (const qreal scala : {1.0, 1.5, 2.0, 3.0}) {
    const QPixmap disegno = icona_.pixmap(QSize(24, 24), scala);
    EXPECT_EQ(disegno.size(), QSize(24, 24) * scala);
    EXPECT_TRUE(dipintaIn(tinte_.text, disegno)) << "strokes drawn at this size, not stretched";
  }
}

TEST_P(IconaStile, UnFileAssenteNonDipingeNulla) {
  EXPECT_TRUE(colori(style::icon(QStringLiteral("non_esiste")).pixmap(48)).empty());
}

TEST_P(IconaStile, OgniFileDellaCartellaSiDipinge) {
  const QDir cartella(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
  const QStringList file = cartella.entryList({QStringLiteral("*.svg")});
  ASSERT_FALSE(file.isEmpty());
  for (const QString& nome : file)
    EXPECT_TRUE(dipintaIn(tinte_.text, style::icon(nome.chopped(4)).pixmap(48))) << nome.toStdString();
}

TEST_P(IconaStile, InUnPostoPiuLargoStaASinistraENonSiDeforma) {
  const QImage stretta = icona_.pixmap(QSize(24, 24), 1.0).toImage();
  const QImage larga = icona_.pixmap(QSize(32, 24), 1.0).toImage();
  EXPECT_EQ(larga.size(), QSize(32, 24));
  EXPECT_EQ(larga.copy(0, 0, 24, 24), stretta);
  for (int y = 0; y < 24; ++y)
    for (int x = 24; x < 32; ++x) EXPECT_EQ(larga.pixelColor(x, y).alpha(), 0);
}

TEST_P(IconaStile, IlPulsantePrimarioELoStatoSonoProprietaDelControllo) {
  QPushButton pulsante;
  style::primary(pulsante, QStringLiteral("upload"));
  EXPECT_TRUE(pulsante.property("primary").toBool());
  EXPECT_TRUE(dipintaIn(tinte_.onAccent, pulsante.icon().pixmap(48)));
  QWidget riquadro;
  style::badge(riquadro, style::Badge::Busy);
  EXPECT_EQ(riquadro.property("badge").toString(), QStringLiteral("busy"));
}

/// The icons of the menu as the build drew them, beside their files.
class IconaPronta : public testing::Test {
 protected:
  QString file(const char* nome) const { return cartella_.filePath(QLatin1String(nome)); }
  /// `quanti` bytes of full cover.
  void copri(const char* nome, int quanti) const {
    QFile pronta(file(nome));
    ASSERT_TRUE(pronta.open(QIODevice::WriteOnly));
    ASSERT_EQ(pronta.write(QByteArray(quanti, '\xFF')), quanti);
  }
  QImage dipinta(int lato, const QColor& fondo = {}) const {
    return QIcon(new SvgIcon(file("users.svg"), kTinta, fondo)).pixmap(QSize(lato, lato), 1.0).toImage();
  }
  void SetUp() override {
    ASSERT_TRUE(QFile::copy(QStringLiteral(GESTIONALE_SOURCES "/data/icons/users.svg"), file("users.svg")));
  }
  static bool piena(const QImage& figura) {
    for (int y = 0; y < figura.height(); ++y)
      for (int x = 0; x < figura.width(); ++x)
        if (figura.pixelColor(x, y) != kTinta) return false;
    return true;
  }

  static inline const QColor kTinta{0x32747A};

 private:
  QTemporaryDir cartella_;
};

TEST_F(IconaPronta, SiPrendeAllaSuaMisuraESoloAQuella) {
  copri("users-24.cover", 24 * 24);
  EXPECT_TRUE(piena(dipinta(24)));
  EXPECT_FALSE(piena(dipinta(25)));
  EXPECT_FALSE(piena(dipinta(24, Qt::white))) << "a sign on a ground is drawn";
}

TEST_F(IconaPronta, DiUnaLunghezzaFalsaNonSiPrende) {
  for (const int quanti : {0, 24 * 24 - 1, 24 * 24 + 1}) {
    QPixmapCache::clear();
    copri("users-24.cover", quanti);
    EXPECT_FALSE(piena(dipinta(24))) << quanti;
    EXPECT_FALSE(colori(QPixmap::fromImage(dipinta(24))).empty()) << quanti;
  }
}

TEST(IconeDelMenu, SonoPronteATreScaleEUgualiAlDisegno) {
  const QDir cartella(QStringLiteral(GESTIONALE_APP "/icons"));
  QStringList previste;
  for (const char* voce :
       {"image", "info", "log-out", "scan-barcode", "sliders-horizontal", "square-terminal", "users"})
    for (const int lato : {24, 36, 48})
      previste << QStringLiteral("%1-%2.cover").arg(QLatin1String(voce)).arg(lato);
  for (const int lato : {28, 42, 56}) previste << QStringLiteral("receipt-euro-%1.cover").arg(lato);
  previste.sort();
  EXPECT_EQ(cartella.entryList({QStringLiteral("*.cover")}, QDir::Files, QDir::Name), previste);
  for (const QString& una : previste) {
    const QString nome = una.section(u'-', 0, -2);
    const int lato = una.section(u'-', -1).section(u'.', 0, 0).toInt();
    const QSize misura(lato, lato);
    for (const QColor& tinta : {QColor(0x102030), QColor(Qt::white)}) {
      const auto dipinta = [&](const QString& da) {
        return QIcon(new SvgIcon(da + u'/' + nome + QStringLiteral(".svg"), tinta))
            .pixmap(misura, 1.0)
            .toImage();
      };
      const QImage pronta = dipinta(cartella.path()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
      const QImage disegno = dipinta(QStringLiteral(GESTIONALE_SOURCES "/data/icons"))
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
      int piuLontano = 0;
      for (int y = 0; y < lato; ++y)
        for (int x = 0; x < lato; ++x)
          for (const int canale : {0, 8, 16, 24})
            piuLontano =
                std::max(piuLontano, std::abs(static_cast<int>(pronta.pixel(x, y) >> canale & 0xFFU) -
                                              static_cast<int>(disegno.pixel(x, y) >> canale & 0xFFU)));
      EXPECT_LE(piuLontano, 2) << una.toStdString();
    }
  }
}

/// The sign in the window's frame and on the task bar.
TEST(SegnoDelProgramma, SiVedeSuUnaBarraScuraESuUnaChiara) {
  const QIcon segno = programSign(QStringLiteral(GESTIONALE_SOURCES "/data/icons/receipt-euro.svg"));
  for (const int lato : {16, 32, 64}) {
    const QImage figura = segno.pixmap(lato).toImage();
    const QColor fondo = figura.pixelColor(lato / 2, 1);
    EXPECT_EQ(fondo.alpha(), 255) << "covered up to its edge";
    EXPECT_LT(figura.pixelColor(0, 0).alpha(), 32) << "round corners";
    for (const QColor& barra : {QColor(Qt::black), QColor(0x1A2024), QColor(Qt::white), QColor(0xF3F5F6)})
      EXPECT_GE(contrast::between(fondo, barra), 3.0) << barra.name().toStdString();
    int chiari = 0;
    for (int y = 0; y < lato; ++y)
      for (int x = 0; x < lato; ++x)
        if (figura.pixelColor(x, y).alpha() == 255 && contrast::between(figura.pixelColor(x, y), fondo) >= 3)
          ++chiari;
    EXPECT_GT(chiari, lato) << "the drawing on it";
  }
}
