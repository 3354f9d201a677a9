#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <csignal>

#include "devices/keyboard_scene.h"
#include "ecrcom/codes.h"
#include "ecrsim/counters.h"
#include "ecrsim/video.h"

namespace {

const QString kGiornale = QStringLiteral("giornale.txt");
const QString kMemoria = QStringLiteral("memoria_fiscale.txt");
const QString kContatori = QStringLiteral("contatori.txt");
const QString kVenduto = QStringLiteral("venduto.bin");

/// The same folder under another till, as after the power has gone.
QByteArray riaccesa(const KeyboardScene& scena, const QByteArray& tasti) {
  ecrsim::Options opzioni;
  opzioni.address = ownAddress().toStdString();
  opzioni.folder = scena.till.file(QString()).toStdString();
  opzioni.clock = [] { return ecrsim::Moment{2026, 11, 22, 18, 0, 0}; };
  ecrsim::Simulator cassa(opzioni);
  return QByteArray::fromStdString(cassa.press(tasti.toStdString()));
}

int invia(const KeyboardScene& scena, QByteArray tasti) {
  Library libreria;
  QByteArray ip = scena.till.address().toLatin1();
  const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
  const int codice = libreria.ecr_send_xonxoff_ntw(maniglia, tasti.data());
  libreria.ecr_disc_xonxoff_ntw(maniglia);
  return codice;
}

}  // namespace

TEST(MemoriaDellaCassa, NumeriTotaliEGiornaleRestanoASpegnerla) {
  KeyboardScene scena;
  scena.press("1R1T");
  scena.press("2R1T");
  scena.press("j\"PROVA\"@J");
  EXPECT_EQ(riaccesa(scena, "X89F").mid(16, 12), "000002000001");
  EXPECT_EQ(riaccesa(scena, "X\"000101991201\"10F").count("TOTALE EURO"), 2);
  riaccesa(scena, "z1Fc");
  EXPECT_TRUE(riaccesa(scena, "X\"0000100001\"13F").simplified().contains("CORRISPETTIVI 3,50"));
}

TEST(MemoriaDellaCassa, FinitiINumeriNonSiVendeFinoAllaChiusura) {
  for (const auto& [quale, tasti, posto] : {std::tuple{ecrsim::Counters::FiscalReceipts, "1R1T", 16},
                                            {ecrsim::Counters::ManagementReceipts, "jJ", 22}}) {
    const KeyboardScene scena;
    ecrsim::Counters contatori;
    contatori.numbers[quale] = 999998;
    scena.till.put(kContatori, QByteArray::fromStdString(ecrsim::textOf(contatori)));
    const auto dopo = [&scena, posto = posto](const QByteArray& premuti) {
      return riaccesa(scena, premuti + "cX89F").mid(posto, 6);
    };
    EXPECT_EQ(dopo(tasti), "999999");
    EXPECT_EQ(dopo(tasti), "999999") << "refused";
    EXPECT_EQ(dopo("z1F"), "000000") << "the closure is not";
    EXPECT_EQ(dopo(tasti), "000001");
  }
}

TEST(MemoriaDellaCassa, ChiNonVendeNonTrovaFileNuovi) {
  KeyboardScene scena;
  const QStringList prima = QDir(scena.till.file(QString())).entryList(QDir::Files);
  scena.press("3OX89Fqc100H2P");
  scena.press("cX\"000101991201\"10F");
  EXPECT_EQ(QDir(scena.till.file(QString())).entryList(QDir::Files), prima);
}

class MemoriaGuasta : public testing::TestWithParam<std::pair<const char*, const char*>> {};

/// A file that is damaged, cut or none of the till's: no document begins, nothing is printed or touched, and
/// the PC is told.
TEST_P(MemoriaGuasta, NonSiVendeENonSiTocca) {
  KeyboardScene scena;
  scena.press("1R1T");
  scena.press("z1Fc");
  scena.press("2P1T");
  const QString file = QString::fromLatin1(GetParam().first);
  QByteArray byte = scena.till.byte(file);
  const QByteArray come = GetParam().second;
  if (come == "tagliato") byte.chop(1);
  if (come == "cambiato") byte[byte.size() / 2] = static_cast<char>(byte[byte.size() / 2] ^ 1);
  if (come == "estraneo") byte = "Cara mamma,\r\nqui tutto bene.\r\n";
  if (come == "allungato") byte += "x";
  scena.till.put(file, byte);
  ecrsim::Options opzioni;
  opzioni.address = ownAddress().toStdString();
  opzioni.folder = scena.till.file(QString()).toStdString();
  int righe = 0;
  opzioni.watcher.paper = [&](const std::string&) { ++righe; };
  ecrsim::Simulator cassa(opzioni);
  for (const char* tasti : {"1R", "j", "10M100H1T", "x1F", "z1F", "z7F"}) {
    EXPECT_EQ(cassa.press(tasti), "") << tasti;
    EXPECT_TRUE(cassa.error()) << tasti;
    cassa.press("c");
  }
  EXPECT_EQ(righe, 0);
  EXPECT_EQ(cassa.press("X89F").size(), 39U);
  EXPECT_EQ(scena.till.byte(file), byte);
}
INSTANTIATE_TEST_SUITE_P(
    File, MemoriaGuasta,
    testing::Values(std::pair{"giornale.txt", "tagliato"}, std::pair{"giornale.txt", "cambiato"},
                    std::pair{"giornale.txt", "estraneo"}, std::pair{"giornale.txt", "allungato"},
                    std::pair{"memoria_fiscale.txt", "tagliato"},
                    std::pair{"memoria_fiscale.txt", "cambiato"},
                    std::pair{"memoria_fiscale.txt", "estraneo"}, std::pair{"contatori.txt", "tagliato"},
                    std::pair{"contatori.txt", "cambiato"}, std::pair{"contatori.txt", "estraneo"},
                    std::pair{"venduto.bin", "tagliato"}, std::pair{"venduto.bin", "estraneo"}));

TEST(MemoriaDellaCassa, UnGiornaleGuastoNonSiScaricaEIlPcLoSa) {
  KeyboardScene scena;
  scena.press("1R1T");
  scena.till.put(kGiornale, scena.till.byte(kGiornale).chopped(3));
  EXPECT_EQ(invia(scena, "X\"000101991201\"10F"), ecrcom::kTillMemory);
  EXPECT_EQ(invia(scena, "c1R"), ecrcom::kTillMemory);
  EXPECT_EQ(invia(scena, "cX89F"), ecrcom::kDone);
  scena.till.put(kMemoria, "x");
  EXPECT_EQ(invia(scena, "cX\"000101991201\"12F"), ecrcom::kTillMemory);
}

TEST(MemoriaDellaCassa, SeIlDiscoNonPrendeLoScontrinoRestaApertoENienteCambia) {
  KeyboardScene scena;
  scena.press("1R1T");
  scena.press("2P");
  const QByteArray giornale = scena.till.byte(kGiornale);
  const QByteArray contatori = scena.till.byte(kContatori);
  scena.paper.tearOff();
  // No file of this process may grow beyond the journal as it stands, and four bytes.
  rlimit prima{};
  getrlimit(RLIMIT_FSIZE, &prima);
  rlimit stretto = prima;
  stretto.rlim_cur = static_cast<rlim_t>(giornale.size() + 4);
  const auto vecchio = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &stretto);
  scena.press("1T");
  setrlimit(RLIMIT_FSIZE, &prima);
  std::signal(SIGXFSZ, vecchio);
  EXPECT_TRUE(scena.till->error());
  EXPECT_TRUE(scena.paper.lines().isEmpty());
  EXPECT_EQ(scena.till.byte(kGiornale), giornale);
  EXPECT_EQ(scena.till.byte(kContatori), contatori);
  scena.press("c1T");
  EXPECT_FALSE(scena.till->error());
  EXPECT_EQ(salesCounter(scena.till.byte(kVenduto), 1, 2), 1);
  EXPECT_EQ(scena.press("X\"000101991201\"10F").count("TOTALE EURO"), 2);
}

TEST(MemoriaDellaCassa, IContatoriSiRileggonoComeSonoStatiScritti) {
  ecrsim::Counters contatori;
  contatori.numbers = {7, 8};
  contatori.departments[79] = -150;
  contatori.departmentPieces[0] = 4500;
  contatori.payments[4] = 123456789012;
  const std::string testo = ecrsim::textOf(contatori);
  EXPECT_EQ(ecrsim::countersOf(testo), contatori);
  for (std::size_t i = 0; i < testo.size(); ++i) {
    std::string guasto = testo;
    guasto[i] = static_cast<char>(guasto[i] ^ 1);
    EXPECT_EQ(ecrsim::countersOf(guasto), std::nullopt) << i;
    EXPECT_EQ(ecrsim::countersOf(testo.substr(0, i)), std::nullopt) << i;
  }
}

TEST(Video, LaCartaSiMostraInUtf8) {
  EXPECT_EQ(ecrsim::utf8Of("CAFF\xC8 \x80 1,00"), "CAFFÈ € 1,00");
  std::FILE* const file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  const ecrsim::Watcher mostra = ecrsim::video(file);
  mostra.paper("PERCH\xC9");
  mostra.display("TOTALE", "1,00");
  std::rewind(file);
  QByteArray scritto(200, '\0');
  scritto.resize(static_cast<qsizetype>(std::fread(scritto.data(), 1, 200, file)));
  std::fclose(file);
  EXPECT_EQ(scritto, QByteArray("  | PERCHÉ\n[TOTALE]\n[1,00]\n"));
}
