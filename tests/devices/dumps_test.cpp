#include <gtest/gtest.h>

#include <QFile>

#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"

namespace {

const QByteArray kFine(46, '@');
constexpr const char* kTestaGiornale = "GIORNALE DI FONDO  MATRICOLA SIM 0000001\r\n\r\n";
constexpr const char* kTestaMemoria = "MEMORIA FISCALE    MATRICOLA SIM 0000001\r\n\r\n";

QByteArray testo(const QByteArrayList& righe) {
  QByteArray insieme;
  for (const QByteArray& una : righe) insieme += una + "\r\n";
  return insieme;
}

/// Two days: a receipt, a message and a closure on the 22nd, two receipts on the 23rd.
void dueGiorni(KeyboardScene& scena) {
  scena.press("1R1T");
  scena.press("j\"PROVA\"@J");
  scena.press("z1Fc");
  scena.now = {2026, 11, 23, 10, 15, 33};
  scena.press("2R1T");
  scena.press("3R1T");
}

/// The blocks of one dump as they arrive.
QByteArrayList blocchi(KeyboardScene& scena, const QByteArray& comando) {
  Library libreria;
  QByteArray ip = scena.till.address().toLatin1();
  const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
  QByteArray copia = comando;
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, copia.data()), ecrcom::kDone);
  QByteArrayList arrivati;
  for (;;) {
    QByteArray blocco(1024, ' ');
    const int quanti = libreria.ecr_recv_xonxoff_ntw(maniglia, blocco.data(), 1024, 20);
    if (quanti <= 0) break;
    arrivati << blocco.left(quanti);
    if (arrivati.last().endsWith(kFine)) break;
  }
  libreria.ecr_disc_xonxoff_ntw(maniglia);
  return arrivati;
}

}  // namespace

TEST(Dump, LaCartaDelGiornoFinisceNelGiornaleComeEStataStampata) {
  KeyboardScene scena;
  scena.send("1R1T");
  scena.send("j\"PROVA\"@J");
  const QByteArrayList carta = scena.paper.lines();
  EXPECT_EQ(carta.size(), 14);
  EXPECT_EQ(scena.press("X\"000101991201\"10F"), kTestaGiornale + testo(carta) + kFine);
}

TEST(Dump, PerDatePrendeSoloIGiorniChiesti) {
  KeyboardScene scena;
  dueGiorni(scena);
  const QByteArray primo = scena.press("X\"261122261122\"10F");
  EXPECT_TRUE(primo.contains("ALIMENTARI"));
  EXPECT_TRUE(primo.contains("PROVA"));
  EXPECT_TRUE(primo.contains("CHIUSURA FISCALE"));
  EXPECT_FALSE(primo.contains("23/11/2026"));
  const QByteArray secondo = scena.press("X\"261123261231\"10F");
  EXPECT_FALSE(secondo.contains("22/11/2026"));
  EXPECT_EQ(secondo.count("TOTALE EURO"), 2);
  EXPECT_EQ(scena.press("X\"261124261231\"10F"), kTestaGiornale + kFine) << "a day without documents";
}

TEST(Dump, PerNumeriPrendeGliScontriniDiQuelGiorno) {
  KeyboardScene scena;
  dueGiorni(scena);
  const QByteArray uno = scena.press("X\"2611230000200002\"11F");
  EXPECT_EQ(uno, kTestaGiornale +
                     testo(QByteArrayList{riga("FRUTTA", "3,00"), riga("TOTALE EURO", "3,00"),
                                          riga("CONTANTI", "3,00"), "OPERATORE 1",
                                          riga("23/11/2026 10:15", "SF 000002"),
                                          riga("MATRICOLA", "SIM 0000001"), ""}) +
                     kFine);
  EXPECT_EQ(scena.press("X\"2611220000165536\"11F").count("TOTALE EURO"), 1);
  EXPECT_FALSE(scena.press("X\"2611220000165536\"11F").contains("PROVA")) << "no fiscal receipt";
}

TEST(Dump, LaMemoriaFiscalePerDateEPerNumeri) {
  KeyboardScene scena;
  dueGiorni(scena);
  scena.press("z1Fc");
  const QByteArray prima =
      testo({riga("AZZERAMENTO N. 0001", "22/11/2026 10:15"), riga("SCONTRINI FISCALI", "1"),
             riga("CORRISPETTIVI", "1,50"), riga("TOTALE GENERALE", "1,50"), ""});
  const QByteArray seconda =
      testo({riga("AZZERAMENTO N. 0002", "23/11/2026 10:15"), riga("SCONTRINI FISCALI", "2"),
             riga("CORRISPETTIVI", "5,00"), riga("TOTALE GENERALE", "6,50"), ""});
  EXPECT_EQ(scena.press("X\"000101991201\"12F"), kTestaMemoria + prima + seconda + kFine);
  EXPECT_EQ(scena.press("X\"261123261123\"12F"), kTestaMemoria + seconda + kFine);
  EXPECT_EQ(scena.press("X\"0000165536\"13F"), kTestaMemoria + prima + seconda + kFine);
  EXPECT_EQ(scena.press("X\"0000100001\"13F"), kTestaMemoria + prima + kFine);
  EXPECT_EQ(scena.press("X\"0000300009\"13F"), kTestaMemoria + kFine);
}

TEST(Dump, UnArgomentoCheNonVaSiRifiutaSenzaStampareNiente) {
  KeyboardScene scena;
  dueGiorni(scena);
  for (const char* sbagliato :
       {"X10F", "X\"\"10F", "X\"00010199120\"10F", "X\"991201000101\"10F", "X\"001301991201\"10F",
        "X\"000230991201\"10F", "X\"00010199120A\"12F", "X\"26112300002\"11F", "X\"2611230000200001\"11F",
        "X\"0000200001\"13F", "X\"000020000\"13F", "X\"1\"99F"}) {
    EXPECT_EQ(scena.press(sbagliato), "") << sbagliato;
    EXPECT_TRUE(scena.till->error()) << sbagliato;
    scena.press("c");
  }
  scena.press("1R");
  EXPECT_EQ(scena.press("X\"000101991201\"10F"), "") << "a receipt is open";
}

TEST(Dump, InReteIlMarcatoreNonSiDivideMaiFraDueBlocchi) {
  KeyboardScene scena;
  // Messages of changing lengths, until the end of the dump has fallen on both kinds of places in a block.
  bool daSolo = false;
  bool insieme = false;
  scena.press("1R1T");
  for (int i = 0; i < 500 && !(daSolo && insieme); ++i) {
    scena.press("j\"" + QByteArray(i % 36 + 1, '@') + "\"@J");
    const QByteArrayList arrivati = blocchi(scena, "X\"000101991201\"10F");
    ASSERT_FALSE(arrivati.isEmpty());
    for (qsizetype j = 0; j + 2 < arrivati.size(); ++j) ASSERT_EQ(arrivati[j].size(), 1024);
    ASSERT_TRUE(arrivati.last().endsWith(kFine));
    daSolo = daSolo || arrivati.last() == kFine;
    insieme = insieme || arrivati.last().size() > kFine.size();
    ASSERT_EQ(arrivati.join(), scena.press("X\"000101991201\"10F"));
  }
  EXPECT_TRUE(daSolo);
  EXPECT_TRUE(insieme);
}

TEST(Dump, InSerialeViaggiaDietroIlComandoFinoAlMarcatore) {
  KeyboardScene scena(Line::Serial);
  scena.till->salesDay(200, 3);
  const QByteArray atteso = scena.press("X\"000101991201\"10F");
  ASSERT_GT(atteso.size(), 60000) << "more than a line holds at once";
  scena.send("X\"000101991201\"10F");
  const QByteArray eco = "X\"000101991201\"10F\r\n";
  EXPECT_EQ(scena.carrier().receive(eco.size() + atteso.size()), eco + atteso);
}

TEST(Dump, InSerialeDueZLoInterromponoELaLineaResta) {
  KeyboardScene scena(Line::Serial);
  scena.till->salesDay(2000, 3);
  const qsizetype intero = scena.press("X\"000101991201\"10F").size();
  scena.send("X\"000101991201\"10F");
  EXPECT_EQ(scena.carrier().receive(100).size(), 100);
  scena.send("ZZ");
  scena.send("X89F");
  QByteArray resto;
  while (!resto.contains("X89FECRSIM") && resto.size() < intero) {
    const QByteArray pezzo = scena.carrier().receive(64);
    ASSERT_FALSE(pezzo.isEmpty());
    resto += pezzo;
  }
  EXPECT_LT(resto.size(), intero);
  EXPECT_FALSE(resto.contains(kFine));
}

TEST(Dump, InSerialeDueZConAltroInMezzoNonLoInterrompono) {
  KeyboardScene scena(Line::Serial);
  scena.till->salesDay(200, 3);
  const QByteArray atteso = "X\"000101991201\"10F\r\n" + scena.press("X\"000101991201\"10F");
  scena.send("X\"000101991201\"10F");
  const QByteArray inizio = scena.carrier().receive(100);
  scena.send("ZcZ");
  EXPECT_EQ(inizio + scena.carrier().receive(atteso.size() - inizio.size()), atteso);
}

TEST(Dump, InSerialeDueZFuoriDaUnDumpNonFannoNiente) {
  KeyboardScene scena(Line::Serial);
  scena.send("1RZZX89F");
  EXPECT_EQ(scena.carrier().receive(43).mid(4 + 13, 3), "FAF");
  EXPECT_FALSE(scena.till->error());
}

TEST(Dump, InReteGrandissimoPassaIntero) {
  KeyboardScene scena;
  scena.till->salesDay(8000, 3);
  const QByteArrayList arrivati = blocchi(scena, "X\"000101991201\"10F");
  // More than what the library keeps for a PC that does not ask: the till waits for who receives.
  EXPECT_GT(arrivati.join().size(), 2 * 1024 * 1024);
  EXPECT_EQ(arrivati.join().count("TOTALE EURO"), 8000);
  EXPECT_TRUE(arrivati.last().endsWith(kFine));
}

TEST(Dump, UnGiornaleCheSiAccorciaMentreEsceNonHaIlMarcatore) {
  KeyboardScene scena;
  // More than the buffers of a connection take while nobody receives.
  scena.till->salesDay(60000, 3);
  Library libreria;
  QByteArray ip = scena.till.address().toLatin1();
  const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
  QByteArray comando = "X\"000101991201\"10F";
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, comando.data()), ecrcom::kDone);
  QFile(scena.till.file(QStringLiteral("giornale.txt"))).resize(1000);
  QByteArray fine;
  int quanti = 1024;
  while (quanti > 0) {
    QByteArray blocco(1024, ' ');
    quanti = libreria.ecr_recv_xonxoff_ntw(maniglia, blocco.data(), 1024, 20);
    if (quanti > 0) fine = blocco.left(quanti);
  }
  EXPECT_EQ(quanti, -ecrcom::kLineCut);
  EXPECT_FALSE(fine.endsWith(kFine));
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}
