#include "platform/text/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <vector>

#include "platform/error.h"
#include "sostegno/temporary_folder.h"

namespace {

using testing::ElementsAre;

constexpr qsizetype kBloccoLettura = 1 << 16;
constexpr qint64 kMega = 1 << 20;

std::vector<QByteArray> righeDi(const TemporaryFolder& cartella, const QByteArray& byte) {
  LineReader lettore(cartella.write(QStringLiteral("lista.csv"), byte));
  std::vector<QByteArray> righe;
  while (!lettore.atEnd()) righe.push_back(lettore.next().bytes);
  EXPECT_EQ(lettore.done(), byte.size());
  EXPECT_EQ(lettore.size(), byte.size());
  return righe;
}

int erroreAllApertura(const QString& percorso) {
  try {
    LineReader lettore(percorso);
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

long memoriaMassima() {
  rusage uso{};
  EXPECT_EQ(getrusage(RUSAGE_SELF, &uso), 0);
  return uso.ru_maxrss;
}

/// Fifty megabytes of `pezzo` over and over.
QString fileGrande(const TemporaryFolder& cartella, const QByteArray& pezzo) {
  QString percorso = cartella.file(QStringLiteral("grande.csv"));
  QFile file(percorso);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  const QByteArray mega = pezzo.repeated(static_cast<int>(kMega / pezzo.size()));
  for (int i = 0; i < 50; ++i) EXPECT_EQ(file.write(mega), mega.size());
  return percorso;
}

TEST(LettoreRighe, RitornoEAvanzamentoTerminanoLaRiga) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, "uno\r\ndue\r\n"), ElementsAre("uno", "due"));
}

TEST(LettoreRighe, IlSoloAvanzamentoTerminaLaRiga) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, "uno\ndue\n"), ElementsAre("uno", "due"));
}

TEST(LettoreRighe, IlSoloRitornoTerminaLaRiga) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, "uno\rdue\r"), ElementsAre("uno", "due"));
}

TEST(LettoreRighe, LUltimaRigaPuoNonAvereFine) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, "uno\r\ndue"), ElementsAre("uno", "due"));
}

TEST(LettoreRighe, UnaRigaVuotaEUnaRiga) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, "uno\r\n\r\ntre\r\n"), ElementsAre("uno", "", "tre"));
}

TEST(LettoreRighe, UnFileVuotoNonHaRighe) {
  TemporaryFolder cartella;
  EXPECT_THAT(righeDi(cartella, ""), ElementsAre());
}

TEST(LettoreRighe, IByteNulliRestanoNellaRiga) {
  TemporaryFolder cartella;
  const QByteArray riga("a\0b", 3);
  EXPECT_THAT(righeDi(cartella, riga + "\r\n"), ElementsAre(riga));
}

TEST(LettoreRighe, LaFineDiRigaACavalloDiDueBlocchiEUnaSola) {
  TemporaryFolder cartella;
  const QByteArray lunga(kBloccoLettura - 1, 'x');
  EXPECT_THAT(righeDi(cartella, lunga + "\r\ndue\r\n"), ElementsAre(lunga, "due"));
}

TEST(LettoreRighe, UnaRigaPiuLungaDiUnBloccoEIntera) {
  TemporaryFolder cartella;
  const QByteArray lunga(3 * kBloccoLettura + 5, 'x');
  EXPECT_THAT(righeDi(cartella, "uno\n" + lunga + "\ntre"), ElementsAre("uno", lunga, "tre"));
}

TEST(LettoreRighe, UnaRigaOltreIlLimiteETagliataEDetta) {
  TemporaryFolder cartella;
  const QByteArray giusta(LineReader::kMaxLine, 'x');
  LineReader lettore(
      cartella.write(QStringLiteral("lista.csv"), giusta + "\r\n" + giusta + "y\r\nultima\r\n"));
  EXPECT_TRUE(lettore.next().whole);
  const Line tagliata = lettore.next();
  EXPECT_FALSE(tagliata.whole);
  EXPECT_EQ(tagliata.bytes, giusta);
  const Line ultima = lettore.next();
  EXPECT_TRUE(ultima.whole);
  EXPECT_EQ(ultima.bytes, "ultima");
  EXPECT_TRUE(lettore.atEnd());
}

TEST(LettoreRighe, CinquantaMegabyteSenzaFineDiRigaNonOccupanoMemoria) {
  TemporaryFolder cartella;
  const QString percorso = fileGrande(cartella, "x");
  const long prima = memoriaMassima();
  LineReader lettore(percorso);
  EXPECT_FALSE(lettore.next().whole);
  EXPECT_TRUE(lettore.atEnd());
  EXPECT_LT(memoriaMassima() - prima, 8 * 1024);  // kilobytes
}

TEST(LettoreRighe, OltreLaFineDaErrore62) {
  TemporaryFolder cartella;
  LineReader lettore(cartella.write(QStringLiteral("lista.csv"), "uno"));
  lettore.next();
  try {
    lettore.next();
    FAIL() << "no failure behind the end";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kPastEnd);
  }
}

TEST(LettoreRighe, UnFileAssenteDaErrore53) {
  TemporaryFolder cartella;
  EXPECT_EQ(erroreAllApertura(cartella.file(QStringLiteral("assente.csv"))), errors::kFileMissing);
}

TEST(LettoreRighe, UnaCartellaDaErrore75) {
  TemporaryFolder cartella;
  EXPECT_EQ(erroreAllApertura(cartella.path()), errors::kPathAccess);
}

TEST(LettoreRighe, UnDispositivoDaErrore75) {
  EXPECT_EQ(erroreAllApertura(QStringLiteral("/dev/zero")), errors::kPathAccess);
}

}  // namespace
