#include <gtest/gtest.h>

#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"
#include "ecrsim/command_line.h"

using namespace ecrcom;
using ecrsim::FaultKind;

namespace {

constexpr const char* kDump = "X\"000101991201\"10F";

struct GuastiDeiTasti : testing::Test {
  void guasta(KeyboardScene& scena, const char* guasto) { scena.till->faults({ecrsim::readFault(guasto)}); }
  /// What a PC gets that asks and receives as long as something comes: the bytes, and the last code.
  std::pair<QByteArray, int> chiede(KeyboardScene& scena, const QByteArray& comando) {
    libreria.ecr_set_timeout(2000, 300);
    QByteArray ip = scena.till.address().toLatin1();
    const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
    QByteArray copia = comando;
    int codice = libreria.ecr_send_xonxoff_ntw(maniglia, copia.data());
    QByteArray arrivati;
    while (codice == kDone) {
      QByteArray blocco(1024, ' ');
      const int quanti = libreria.ecr_recv_xonxoff_ntw(maniglia, blocco.data(), 1024, 3);
      if (quanti <= 0) codice = -quanti;
      if (quanti > 0) arrivati += blocco.left(quanti);
    }
    libreria.ecr_disc_xonxoff_ntw(maniglia);
    return {arrivati, codice};
  }

  Library libreria;
};

using Esito = std::pair<QByteArray, int>;

}  // namespace

TEST_F(GuastiDeiTasti, InReteLoStatoArrivaCortoLungoOppureRumore) {
  KeyboardScene scena;
  const QByteArray stato = scena.state();
  guasta(scena, "tasti:stato:corto");
  EXPECT_EQ(chiede(scena, "X89F"), (Esito{stato.left(38), kTimedOut}));
  guasta(scena, "tasti:stato:lungo");
  EXPECT_EQ(chiede(scena, "X89F"), (Esito{stato + "U", kTimedOut}));
  guasta(scena, "tasti:stato:rumore");
  EXPECT_EQ(chiede(scena, "X89F"), (Esito{QByteArray(39, 'U'), kTimedOut}));
}

TEST_F(GuastiDeiTasti, InSerialeLoStatoArrivaDi42Di44ODiRumore) {
  KeyboardScene scena(Line::Serial);
  const QByteArray intero = "X89F" + scena.state();
  guasta(scena, "tasti:stato:corto");
  scena.send("X89F");
  EXPECT_EQ(scena.carrier().receive(42), intero.left(42));
  guasta(scena, "tasti:stato:lungo");
  scena.send("X89F");
  EXPECT_EQ(scena.carrier().receive(44), intero + "U");
  guasta(scena, "tasti:stato:rumore");
  scena.send("X89F");
  EXPECT_EQ(scena.carrier().receive(43), QByteArray(43, 'U'));
  guasta(scena, "tasti:spazzatura");
  scena.send("X89F");
  EXPECT_EQ(scena.carrier().receive(256), QByteArray(256, 'U'));
}

TEST_F(GuastiDeiTasti, InSerialeUnTastoPersoNonFaNienteEDietroSiRisponde) {
  for (const char* guasto : {"tasti:silenzio", "tasti:codice=33", "tasti:taglio-prima"}) {
    KeyboardScene scena(Line::Serial);
    ecrsim::Fault uno = ecrsim::readFault(guasto);
    uno.times = 1;
    scena.till->faults({uno});
    scena.send("1RX89F");
    EXPECT_EQ(scena.carrier().receive(43).mid(4 + 13, 3), "FCF") << guasto;
    EXPECT_TRUE(scena.paper.lines().isEmpty()) << guasto;
  }
}

TEST_F(GuastiDeiTasti, InSerialeLoStatoMutoNonMandaNienteEITastiSiFanno) {
  KeyboardScene scena(Line::Serial);
  ecrsim::Fault uno = ecrsim::readFault("tasti:stato:silenzio");
  uno.times = 1;
  scena.till->faults({uno});
  scena.send("X89F1RX89F");
  EXPECT_EQ(scena.carrier().receive(43).mid(4 + 13, 3), "FAF") << "the second one's answer alone";
}

TEST_F(GuastiDeiTasti, InSerialeUnTaglioDopoLasciaFattoCioCheNonSiSente) {
  KeyboardScene scena(Line::Serial);
  ecrsim::Fault uno = ecrsim::readFault("tasti:taglio-dopo");
  uno.times = 1;
  scena.till->faults({uno});
  scena.send("1RX89F");
  EXPECT_EQ(scena.carrier().receive(43).mid(4 + 13, 3), "FAF");
}

TEST_F(GuastiDeiTasti, InReteCodiceSilenzioETagliSiSentono) {
  KeyboardScene scena;
  guasta(scena, "tasti:codice=33");
  EXPECT_EQ(chiede(scena, "1R"), (Esito{"", 33}));
  guasta(scena, "tasti:silenzio");
  EXPECT_EQ(chiede(scena, "1R"), (Esito{"", kTimedOut}));
  guasta(scena, "tasti:taglio-prima");
  EXPECT_EQ(chiede(scena, "1R"), (Esito{"", kLineCut}));
  guasta(scena, "tasti:spazzatura");
  EXPECT_EQ(chiede(scena, "1R"), (Esito{"", kGarbledReply}));
  EXPECT_TRUE(scena.paper.lines().isEmpty());
  guasta(scena, "tasti:taglio-dopo");
  EXPECT_EQ(chiede(scena, "1R"), (Esito{"", kLineCut}));
  EXPECT_EQ(scena.paper.lines(), QByteArrayList{riga("ALIMENTARI", "1,50")}) << "done, and nobody was told";
}

TEST_F(GuastiDeiTasti, UnDumpSiInterrompeInTestaInMezzoENelMarcatore) {
  KeyboardScene scena;
  scena.till->salesDay(100, 1);
  const QByteArray intero = scena.press(kDump);
  const QByteArray testo = intero.chopped(46);
  guasta(scena, "tasti:dump:taglio-testa");
  EXPECT_EQ(chiede(scena, kDump), (Esito{intero.left(20), kLineCut}));
  guasta(scena, "tasti:dump:taglio-dentro");
  EXPECT_EQ(chiede(scena, kDump), (Esito{testo.left(testo.size() / 2), kLineCut}));
  guasta(scena, "tasti:dump:taglio-marcatore");
  EXPECT_EQ(chiede(scena, kDump), (Esito{testo + QByteArray(20, '@'), kLineCut}));
  guasta(scena, "tasti:dump:corto");
  EXPECT_EQ(chiede(scena, kDump), (Esito{intero.chopped(1), kTimedOut}));
  guasta(scena, "tasti:dump:lungo");
  EXPECT_EQ(chiede(scena, kDump),
            (Esito{testo + QByteArray(45, '@') + "U" + QByteArray(46, '@'), kTimedOut}));
  guasta(scena, "tasti:dump:rumore");
  EXPECT_EQ(chiede(scena, kDump), (Esito{QByteArray(256, 'U'), kTimedOut}));
}

TEST_F(GuastiDeiTasti, InSerialeUnDumpSiInterrompeAlloStessoPosto) {
  KeyboardScene scena(Line::Serial);
  scena.till->salesDay(3, 1);
  const QByteArray testo = scena.press(kDump).chopped(46);
  const QByteArray eco = kDump + QByteArray("\r\n");
  guasta(scena, "tasti:dump:taglio-marcatore");
  scena.send(kDump);
  const QByteArray atteso = eco + testo + QByteArray(20, '@');
  EXPECT_EQ(scena.carrier().receive(atteso.size()), atteso);
  scena.send("X89F");
  EXPECT_EQ(scena.carrier().receive(43).left(10), "X89FECRSIM")
      << "no more of the marker, and the line stays";
}

TEST_F(GuastiDeiTasti, UnGuastoConNomeColpisceSoloQuelleSequenze) {
  KeyboardScene scena;
  scena.till->faults({ecrsim::readFault("tasti:dump:codice=33")});
  EXPECT_EQ(chiede(scena, "X89F").first.size(), 39);
  EXPECT_EQ(chiede(scena, "1R").second, kTimedOut) << "taken, nothing to receive";
  EXPECT_EQ(chiede(scena, kDump).second, 33);
}

TEST_F(GuastiDeiTasti, INomiDeiGuastiSonoDeiTastiSoli) {
  EXPECT_EQ(ecrsim::readFault("tasti:rumore").what, FaultKind::Noise);
  EXPECT_EQ(ecrsim::readFault("tasti:dump:taglio-testa").what, FaultKind::CutHead);
  EXPECT_EQ(ecrsim::readFault("tasti:dump:taglio-marcatore").file, "dump");
  EXPECT_EQ(ecrsim::readFault("tasti:silenzio").mode, ecrsim::kKeySequences);
  for (const char* sbagliato : {"7:rumore", "7:plu.bin:taglio-testa", "0:taglio-marcatore",
                                "tasti:plu.bin:corto", "tasti", "tasti:boh", "9:silenzio"})
    EXPECT_THROW(ecrsim::readFault(sbagliato), std::invalid_argument) << sbagliato;
}
