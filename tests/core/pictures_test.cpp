#include <gtest/gtest.h>

#include <QImage>

TEST(Immagini, LeCinqueDelMenuCiSonoESonoGrandi) {
  for (const char* nome : {"4-1", "5-1", "GestioneProgrammazione", "Clienti", "About"}) {
    const QImage immagine(QStringLiteral(GESTIONALE_SOURCES "/data/Immagini/") + QLatin1String(nome) +
                          QStringLiteral(".jpg"));
    EXPECT_GE(immagine.width(), 640) << nome;
    EXPECT_GE(immagine.height(), 480) << nome;
  }
}
