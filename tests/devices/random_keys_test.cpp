#include <gtest/gtest.h>

#include <random>

#include "devices/keyboard_scene.h"

namespace {

/// Keys, whole phrases that the till obeys, and what is none: in any order.
const QByteArrayList kPezzi{"1R",
                            "2P",
                            "8P",
                            "100H",
                            "1,00H",
                            "4,5*",
                            "10*",
                            "0M",
                            "9M",
                            "1M",
                            "2M",
                            "3M",
                            "4M",
                            "5M",
                            "6M",
                            "7M",
                            "8M",
                            "10M",
                            "11M",
                            "12M",
                            "1T",
                            "2T",
                            "3T",
                            "5T",
                            "=",
                            "123#",
                            "3O",
                            "@",
                            "G",
                            "j",
                            "J",
                            "x",
                            "z",
                            "1F",
                            "2F",
                            "5F",
                            "7F",
                            "39F",
                            "c",
                            "X89F",
                            "ZZ",
                            " ",
                            "\"TESTO\"",
                            "\"12345678903\"@39F",
                            "q",
                            "\"",
                            "X",
                            ",",
                            "999999999H",
                            "1R1T",
                            "100H1R50H3M1T",
                            "200H2R10,00*1M1T",
                            "X\"000101991201\"10F",
                            "X\"0000100009\"13F",
                            "c1R1T",
                            "c9M100H1R1T",
                            "cz1Fc"};

std::int64_t sommaDi(const QByteArray& dump, const char* parola) {
  std::int64_t somma = 0;
  for (const QByteArray& riga : dump.split('\n'))
    if (riga.startsWith(parola))
      somma += riga.mid(riga.lastIndexOf(' ') + 1).trimmed().replace(",", "").toLongLong();
  return somma;
}

}  // namespace

/// Any keys in any order: the lamp goes on and off, the till goes on, and what it kept agrees in the end.
TEST(TastiACaso, NonFermanoLaCassaECioCheTieneTorna) {
  KeyboardScene scena;
  std::mt19937 quale(20261122);
  for (int giro = 0; giro < 1500; ++giro) {
    QByteArray tasti;
    for (auto quanti = 1 + quale() % 25; quanti > 0; --quanti)
      tasti += kPezzi[static_cast<qsizetype>(quale() % static_cast<std::size_t>(kPezzi.size()))];
    scena.press(tasti);
    ASSERT_EQ(scena.state().size(), 39) << tasti.constData();
    if (giro % 10 != 0) continue;
    scena.press("c12McJc1Tc");
    ASSERT_EQ(scena.state().mid(14, 1), "C") << tasti.constData();
    const QByteArray prima = scena.state().mid(16, 6);
    scena.press("100H1R1T");
    ASSERT_FALSE(scena.till->error()) << tasti.constData();
    ASSERT_EQ(scena.state().mid(16, 6).toInt(), prima.toInt() + 1) << tasti.constData();
  }
  scena.press("cz1Fc");
  const QByteArray giornale = scena.press("X\"000101991201\"10F");
  const QByteArray memoria = scena.press("X\"000101991201\"12F");
  EXPECT_GT(giornale.count("TOTALE EURO"), 150);
  EXPECT_GT(memoria.count("AZZERAMENTO"), 5);
  EXPECT_EQ(sommaDi(giornale, "TOTALE EURO"), sommaDi(memoria, "CORRISPETTIVI"));
}

/// One key or mark over and over, as far as a sequence may go, and cut anywhere.
TEST(TastiACaso, LeSequenzePiuLungheNonFermanoLaCassa) {
  KeyboardScene scena;
  for (const char* pezzo : {"1R", "\"", "X\"", "9", ",", "*", "100H1R", "j", "@", "z1F", "X89F"}) {
    QByteArray lunga;
    while (lunga.size() < 1024) lunga += pezzo;
    scena.send(lunga.left(1024));
    scena.press("c");
  }
  EXPECT_EQ(scena.state().size(), 39);
}
