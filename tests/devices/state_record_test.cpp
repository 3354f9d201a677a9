#include <gtest/gtest.h>

#include "devices/keyboard_scene.h"
#include "ecrcom/frame.h"

namespace {

/// The record with these fields, the others as on a till in order. Three articles of five thousand are no one
/// per cent.
QByteArray record(const char* scontrino, const char* fiscali, const char* gestionali,
                  const char* mf = "000") {
  return QByteArray("ECRSIM0000001F") + scontrino + fiscali + gestionali + "000 " + mf + " OOP";
}

/// A fiscal memory of so many closures.
QByteArray chiusure(int quante) {
  QByteArray memoria;
  for (int i = 1; i <= quante; ++i) {
    const std::string riga = QStringLiteral("%1 22/11/2026 10:15:33 000001 000000000000150 %2 ")
                                 .arg(i, 4, 10, QLatin1Char('0'))
                                 .arg(i * 150, 15, 10, QLatin1Char('0'))
                                 .toStdString();
    const std::uint32_t somma = ecrcom::extendChecksum(0, ecrcom::byteOf(riga));
    memoria +=
        QByteArray::fromStdString(riga) + QByteArray::number(somma, 16).rightJustified(8, '0') + "\r\n";
  }
  return memoria;
}

}  // namespace

TEST(StatoDellaCassa, SegueOgniAvvenimento) {
  KeyboardScene scena;
  EXPECT_EQ(scena.state(), record("CF", "000000", "000000"));
  scena.press("1R");
  EXPECT_EQ(scena.state(), record("AF", "000000", "000000"));
  scena.press("1T");
  EXPECT_EQ(scena.state(), record("CF", "000001", "000000"));
  scena.press("j");
  EXPECT_EQ(scena.state(), record("AG", "000001", "000000"));
  scena.press("J");
  EXPECT_EQ(scena.state(), record("CF", "000001", "000001"));
  scena.press("10M10H1T");
  EXPECT_EQ(scena.state(), record("CF", "000001", "000002"));
  scena.press("x1Fc");
  EXPECT_EQ(scena.state(), record("CF", "000001", "000003"));
  scena.press("z1Fc");
  EXPECT_EQ(scena.state(), record("CF", "000000", "000000"));
}

TEST(StatoDellaCassa, SiLeggeAncheConLaSpiaAccesaEDentroAltriTasti) {
  KeyboardScene scena;
  scena.press("q");
  EXPECT_EQ(scena.state(), record("CF", "000000", "000000"));
  EXPECT_EQ(scena.press("c1RX89F1TX89F"),
            record("AF", "000000", "000000") + record("CF", "000001", "000000"));
}

TEST(StatoDellaCassa, DiceQuantoEPienaLaScheda) {
  KeyboardScene scena;
  QByteArray articoli(240000, '\0');
  for (int i = 0; i < 1250; ++i) articoli[i * 48] = 'A';
  scena.till.put(QStringLiteral("plu.bin"), articoli);
  EXPECT_EQ(scena.state().mid(28, 4), "025 ");
}

TEST(StatoDellaCassa, DiceQuantoEPienaLaMemoriaFiscaleEPienaNonChiude) {
  KeyboardScene scena;
  // Of 2000 closures, each of one receipt of 1,50.
  for (int i = 0; i < 20; ++i) scena.press("1R1Tz1Fc");
  EXPECT_EQ(scena.state().mid(32, 4), "001 ");
  EXPECT_EQ(scena.till.byte(QStringLiteral("memoria_fiscale.txt")), chiusure(20));
  scena.till.put(QStringLiteral("memoria_fiscale.txt"), chiusure(1999));
  EXPECT_EQ(scena.state().mid(32, 4), "099 ");
  scena.press("z1Fc");
  EXPECT_FALSE(scena.till->error());
  EXPECT_EQ(scena.state().mid(32, 4), "100 ");
  scena.press("1R1T");
  scena.press("z7F");
  EXPECT_TRUE(scena.till->error());
  scena.press("c");
  EXPECT_EQ(scena.state(), record("CF", "000001", "000000", "100")) << "no department was cleared either";
}

TEST(StatoDellaCassa, StampanteECartaSonoQuelleVereESenzaNonSiVende) {
  for (const auto& [stampante, carta, scheda] :
       std::vector<std::tuple<char, char, const char*>>{{'T', 'O', "4"}, {'E', 'O', "4"}, {'O', 'F', "0"}}) {
    ecrsim::Options opzioni;
    opzioni.printer = stampante;
    opzioni.paper = carta;
    opzioni.mmc = scheda;
    KeyboardScene scena(Line::Network, opzioni);
    EXPECT_EQ(scena.state().mid(36), QByteArray(1, stampante) + carta + (scheda[0] == '0' ? 'N' : 'P'));
    scena.press("1R");
    EXPECT_TRUE(scena.till->error());
    EXPECT_TRUE(scena.paper.lines().isEmpty());
    scena.press("cz1Fc");
    EXPECT_FALSE(scena.till.exists(QStringLiteral("memoria_fiscale.txt")));
  }
}
