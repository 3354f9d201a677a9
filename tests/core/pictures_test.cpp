#include <gtest/gtest.h>

#include <QImage>

/// The menu gives them 640 by 480, which are four times the points on a display of twice the scale.
TEST(Immagini, LeCinqueDelMenuCiSonoEBastanoPerIlDoppioDellaScala) {
  for (const char* nome : {"4-1", "5-1", "GestioneProgrammazione", "Clienti", "About"}) {
    const QImage immagine(QStringLiteral(GESTIONALE_SOURCES "/data/Immagini/") + QLatin1String(nome) +
                          QStringLiteral(".jpg"));
    EXPECT_GE(immagine.width(), 1280) << nome;
    EXPECT_GE(immagine.height(), 960) << nome;
  }
}
