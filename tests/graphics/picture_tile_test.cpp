#include "graphics/picture_tile.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include "graphics/graphics_scene.h"

namespace {

/// Dots of one colour in a part of a picture of the screen.
int quanti(const QImage& foto, const QRect& dove, QRgb colore) {
  int trovati = 0;
  for (int y = dove.top(); y <= dove.bottom(); ++y)
    for (int x = dove.left(); x <= dove.right(); ++x)
      trovati += (foto.pixel(x, y) & 0xFFFFFF) == (colore & 0xFFFFFF) ? 1 : 0;
  return trovati;
}

class TesseraDellImmagine : public testing::Test {
 protected:
  TesseraDellImmagine() {
    tessera.resize(tessera.sizeHint());
    tessera.show();
  }
  static QMimeData* trascinati(const QStringList& percorsi) {
    auto* dati = new QMimeData;
    QList<QUrl> indirizzi;
    for (const QString& uno : percorsi) indirizzi.append(QUrl::fromLocalFile(uno));
    dati->setUrls(indirizzi);
    return dati;
  }
  /// Whether the tile takes what is dragged over it.
  bool accetta(const QStringList& percorsi) {
    const std::unique_ptr<QMimeData> dati(trascinati(percorsi));
    QDragEnterEvent entra(QPoint(9, 9), Qt::CopyAction, dati.get(), Qt::LeftButton, Qt::NoModifier);
    entra.setAccepted(false);
    QCoreApplication::sendEvent(&tessera, &entra);
    QDragLeaveEvent esce;
    QCoreApplication::sendEvent(&tessera, &esce);
    return entra.isAccepted();
  }
  void lascia(const QString& percorso) {
    const std::unique_ptr<QMimeData> dati(trascinati({percorso}));
    QDragEnterEvent entra(QPoint(9, 9), Qt::MoveAction, dati.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&tessera, &entra);
    QDropEvent evento(QPointF(9, 9), Qt::CopyAction | Qt::MoveAction, dati.get(), Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&tessera, &evento);
    EXPECT_EQ(evento.dropAction(), Qt::CopyAction);
  }

  TesseraGrafica tessera{6};
};

}  // namespace

TEST_F(TesseraDellImmagine, ChiNonVedeSaTuttoCioCheMostra) {
  tessera.mostra(QStringLiteral("FestaPapà"), QStringLiteral("FestaPapà.bmp"),
                 {drawnPicture(384, 20, 1), QStringLiteral("SMALL"), QStringLiteral("Troppo larga"), false});
  EXPECT_EQ(tessera.accessibleName(), QStringLiteral("6 FestaPapà, FestaPapà.bmp, SMALL, Troppo larga"));
  EXPECT_EQ(tessera.objectName(), QStringLiteral("tessera_6"));
  EXPECT_EQ(tessera.toolTip(), QStringLiteral("6 FestaPapà\nFestaPapà.bmp\nSMALL\nTroppo larga"));
}

TEST_F(TesseraDellImmagine, LImmagineStaSullaCartaBianca) {
  QImage tutta(640, 200, QImage::Format_Mono);
  tutta.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
  tutta.fill(1);
  tessera.mostra(QStringLiteral("A"), QStringLiteral("a.bmp"), {tutta, QStringLiteral("LARGE"), {}, false});
  const QImage foto = tessera.grab().toImage();
  const QRect centro(tessera.width() / 3, tessera.height() / 2 - 6, tessera.width() / 3, 6);
  EXPECT_EQ(quanti(foto, centro, qRgb(0, 0, 0)), centro.width() * centro.height());
  tutta.fill(0);
  tessera.mostra(QStringLiteral("A"), QStringLiteral("a.bmp"), {tutta, QStringLiteral("LARGE"), {}, false});
  EXPECT_EQ(quanti(tessera.grab().toImage(), centro, qRgb(255, 255, 255)), centro.width() * centro.height());
}

TEST_F(TesseraDellImmagine, IlPostoVuotoEIlPostoSceltoSiDistinguonoDallOrlo) {
  const auto foto = [&](bool vuota, bool scelta) {
    tessera.mostra({}, {}, {{}, {}, {}, vuota});
    tessera.setChecked(scelta);
    return tessera.grab().toImage();
  };
  tessera.setCheckable(true);
  EXPECT_NE(foto(false, false), foto(true, false));
  EXPECT_NE(foto(true, false), foto(true, true));
}

TEST_F(TesseraDellImmagine, LaClasseHaIlSuoSegnoAncheSenzaImmagine) {
  const auto foto = [&](const char* classe, const QImage& punti) {
    tessera.mostra(QStringLiteral("A"), QStringLiteral("a.bmp"),
                   {punti, QString::fromLatin1(classe), QStringLiteral("No"), false});
    return tessera.grab().toImage();
  };
  for (const QImage& punti : {drawnPicture(384, 20, 1), QImage()}) {
    EXPECT_NE(foto("SMALL", punti), foto("LARGE", punti));
    EXPECT_NE(foto("SMALL", punti), foto("", punti));
  }
}

TEST_F(TesseraDellImmagine, IlMotivoDelRifiutoSiDipingeSullaTessera) {
  const auto foto = [&](const char* rifiuto) {
    tessera.mostra(QStringLiteral("A"), QStringLiteral("a.bmp"),
                   {drawnPicture(384, 20, 1), QStringLiteral("SMALL"), QString::fromLatin1(rifiuto), false});
    return tessera.grab().toImage();
  };
  EXPECT_NE(foto("Larga 384 punti, serve 640"), foto("Larga 384 punti, serve 641"));
  EXPECT_NE(foto("Larga 384 punti, serve 640"), foto(""));
}

TEST_F(TesseraDellImmagine, PrendeUnaBitmapSola) {
  EXPECT_TRUE(accetta({QStringLiteral("/x/a.bmp")}));
  EXPECT_TRUE(accetta({QStringLiteral("/x/A.BMP")}));
  EXPECT_FALSE(accetta({QStringLiteral("/x/a.png")}));
  EXPECT_FALSE(accetta({QStringLiteral("/x/a.bmp"), QStringLiteral("/x/b.bmp")}));
  EXPECT_FALSE(accetta({}));
}

TEST_F(TesseraDellImmagine, QuellaLasciataSiDiceESiCopia) {
  const QSignalSpy lasciate(&tessera, &TesseraGrafica::lasciata);
  lascia(QStringLiteral("/x/a.bmp"));
  ASSERT_EQ(lasciate.size(), 1);
  EXPECT_EQ(lasciate.front().front().toString(), QStringLiteral("/x/a.bmp"));
}

TEST_F(TesseraDellImmagine, IPuntiHannoIPixelDelloSchermo) {
  PittoreDiPunti pittore;
  pittore.mostra(drawnPicture(384, 100, 1));
  EXPECT_EQ(pittore.dove(QRect(0, 0, 96, 96)), QRect(0, 35, 96, 25));
  QImage doppia(192, 192, QImage::Format_RGB32);
  doppia.setDevicePixelRatio(2);
  doppia.fill(Qt::white);
  QPainter su(&doppia);
  pittore.dipingi(su, QRect(0, 0, 96, 96));
  su.end();
  const QImage ridotta = drawnPicture(384, 100, 1)
                             .convertToFormat(QImage::Format_RGB32)
                             .scaled(192, 50, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_EQ(doppia.copy(0, 70, 192, 50).convertToFormat(QImage::Format_RGB32).pixel(20, 20),
            ridotta.pixel(20, 20));
}
