#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <system_error>

#include "devices/fake_till.h"
#include "devices/loaded_library.h"
#include "ecrcom/codes.h"
#include "ecrsim/command_line.h"
#include "ecrsim/serial_line.h"
#include "sostegno/temporary_folder.h"
#include "sostegno/test_till.h"

using ecrsim::FaultKind;

namespace {

ecrsim::Request leggi(const std::vector<const char*>& argomenti) {
  return ecrsim::readCommandLine(argomenti);
}

/// The program, killed with the test if it has not gone by itself.
struct Programma : testing::Test {
  ~Programma() override {
    if (processo.state() == QProcess::NotRunning) return;
    processo.kill();
    processo.waitForFinished();
  }
  void avvia(const QStringList& argomenti) {
    processo.start(QStringLiteral(GESTIONALE_APP "/ecrsim"), argomenti);
    ASSERT_TRUE(processo.waitForStarted());
  }
  QByteArray riga() {
    while (!processo.canReadLine() && processo.waitForReadyRead(10000)) continue;
    return processo.readLine();
  }

  /// Listens, its memory in the folder of that name.
  void avviaPronta() {
    avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"), QStringLiteral("memoria")});
    EXPECT_TRUE(riga().startsWith("ECRSIM pronto su "));
  }
  /// As a pulled plug would: no thread of it has a word to say.
  void uccidi() {
    processo.kill();
    ASSERT_TRUE(processo.waitForFinished(10000));
    EXPECT_EQ(processo.exitStatus(), QProcess::CrashExit);
  }
  in_addr dove() const { return *ecrcom::address(indirizzo.toStdString()); }

  TemporaryFolder cartella;
  QString indirizzo = ownAddress();
  QProcess processo;
};

/// The frame of a mode with a file name, and the file.
std::vector<std::uint8_t> comando(std::uint8_t modo, const char* file,
                                  const std::vector<std::uint8_t>& dati = {}) {
  ecrcom::Header testa;
  testa.mode = modo;
  testa.name = file;
  return ecrcom::compose(testa, dati);
}

QStringList voci(const QString& cartella) {
  return QDir(cartella).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// Reads so many bytes from a line, or fewer if it stays silent for five seconds.
QByteArray leggiLinea(int linea, int quanti) {
  QByteArray letti;
  while (letti.size() < quanti) {
    pollfd prevista{linea, POLLIN, 0};
    if (poll(&prevista, 1, 5000) != 1) break;
    char byte = 0;
    if (read(linea, &byte, 1) != 1) break;
    letti.append(byte);
  }
  return letti;
}

}  // namespace

TEST(RigaComando, SenzaOpzioniValgonoQuelleDiSempre) {
  const ecrsim::Request richiesta = leggi({});
  EXPECT_EQ(richiesta.options.address, "127.0.0.20");
  EXPECT_EQ(richiesta.options.bitmap, "L");
  EXPECT_EQ(richiesta.options.state, 'I');
  EXPECT_EQ(richiesta.salesDay, 0);
  EXPECT_TRUE(richiesta.options.faults.empty());
  EXPECT_FALSE(richiesta.help);
}

TEST(RigaComando, OgniOpzioneArrivaAlSuoPosto) {
  const ecrsim::Request richiesta =
      leggi({"--address", "127.9.9.9", "--dir",      "/x",        "--bitmap",
             "S",         "--stato",   "V",          "--fiscale", "12",
             "--seriale", "/l",        "--giornata", "30",        "--seme",
             "9",         "--guasto",  "5:silenzio", "--guasto",  "7:venduto.bin:corto",
             "--help"});
  EXPECT_EQ(richiesta.options.address, "127.9.9.9");
  EXPECT_EQ(richiesta.options.folder, "/x");
  EXPECT_EQ(richiesta.options.bitmap, "S");
  EXPECT_EQ(richiesta.options.state, 'V');
  EXPECT_EQ(richiesta.options.fiscal, 12);
  EXPECT_EQ(richiesta.serial, "/l");
  EXPECT_EQ(richiesta.salesDay, 30);
  EXPECT_EQ(richiesta.seed, 9U);
  ASSERT_EQ(richiesta.options.faults.size(), 2U);
  EXPECT_EQ(richiesta.options.faults[0].what, FaultKind::Silence);
  EXPECT_EQ(richiesta.options.faults[1].file, "venduto.bin");
  EXPECT_TRUE(richiesta.help);
}

TEST(RigaComando, CioCheNonVaSiRifiuta) {
  const std::vector<std::vector<const char*>> sbagliate{{"--ignota", "x"},
                                                        {"--dir"},
                                                        {"parola"},
                                                        {"--address", "10.0.0.1"},
                                                        {"--address", "casa"},
                                                        {"--stato", "X"},
                                                        {"--stato", "IP"},
                                                        {"--fiscale", "-1"},
                                                        {"--fiscale", "dodici"},
                                                        {"--giornata", "3x"},
                                                        {"--data", "30/02/2026"},
                                                        {"--data", "1/3/2026"},
                                                        {"--data", "01/03/26"},
                                                        {"--data", "oggi"},
                                                        {"--seme", "-1"},
                                                        {"--guasto", "5"},
                                                        {"--guasto", "9:silenzio"},
                                                        {"--guasto", "5:boh"},
                                                        {"--guasto", "5:silenzio=3"},
                                                        {"--guasto", "5:codice=0"},
                                                        {"--guasto", "5:codice="},
                                                        {"--guasto", ":silenzio"}};
  for (const auto& argomenti : sbagliate)
    EXPECT_THROW(leggi(argomenti), std::invalid_argument) << argomenti[0] << argomenti.size();
}

TEST(RigaComando, OgniGuastoHaIlSuoNome) {
  EXPECT_EQ(ecrsim::readFault("0:codice").code, 7);
  EXPECT_EQ(ecrsim::readFault("0:codice=33").code, 33);
  EXPECT_EQ(ecrsim::readFault("1:silenzio").what, FaultKind::Silence);
  EXPECT_EQ(ecrsim::readFault("2:taglio-prima").what, FaultKind::CutBefore);
  EXPECT_EQ(ecrsim::readFault("6:taglio-dentro").what, FaultKind::CutWithin);
  EXPECT_EQ(ecrsim::readFault("8:taglio-dopo").what, FaultKind::CutAfter);
  EXPECT_EQ(ecrsim::readFault("7:corto").what, FaultKind::ShortFile);
  EXPECT_EQ(ecrsim::readFault("7:lungo").what, FaultKind::LongFile);
  EXPECT_EQ(ecrsim::readFault("7:iva.bin:spazzatura").what, FaultKind::Garbage);
  EXPECT_EQ(ecrsim::readFault("7:iva.bin:spazzatura").mode, 7);
}

TEST(IndirizzoDellaCassa, SoloLaReteLocaleEPerUnoSolo) {
  ecrsim::Options opzioni;
  opzioni.folder = QDir::tempPath().toStdString();
  for (const char* indirizzo : {"10.0.0.1", "192.168.0.20", "0.0.0.0", "126.255.255.255", "128.0.0.1",
                                "127.1", "::1", "localhost", "casa", ""}) {
    opzioni.address = indirizzo;
    EXPECT_THROW(ecrsim::Simulator{opzioni}, std::system_error) << indirizzo;
  }
  const TestTill cassa;
  opzioni.address = cassa.address().toStdString();
  EXPECT_THROW(ecrsim::Simulator{opzioni}, std::system_error);
}

TEST(IndirizzoDellaCassa, ADueCasseToccanoIndirizziDiversi) {
  const TestTill una;
  const TestTill altra;
  EXPECT_NE(una.address(), altra.address());
  EXPECT_TRUE(una.address().startsWith(QStringLiteral("127.")));
  EXPECT_FALSE(una.address().startsWith(QStringLiteral("127.0.0.")));
}

TEST_F(Programma, DiceDoveRispondeServeESeNeVaConSigterm) {
  avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"), QStringLiteral("memoria")});
  EXPECT_EQ(riga(), "ECRSIM pronto su " + indirizzo.toLatin1() + ":17471\n");
  Library libreria;
  EXPECT_EQ(libreria.command(indirizzo, ECR_INFO_MODE), ecrcom::kDone);
  EXPECT_TRUE(QFileInfo(QStringLiteral("memoria")).isDir());
  processo.terminate();
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(processo.exitCode(), 0);
}

TEST_F(Programma, SeNeVaConSigintAncheConUnaLineaAperta) {
  avvia({QStringLiteral("--address"), indirizzo});
  riga();
  Library libreria;
  QByteArray ip = indirizzo.toLatin1();
  const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
  EXPECT_GE(maniglia, 1);
  ASSERT_EQ(::kill(static_cast<pid_t>(processo.processId()), SIGINT), 0);
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitCode(), 0);
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Programma, UccisaAMetaDiUnInvioHaLaMemoriaDiPrimaENessunTrasferimento) {
  using namespace std::chrono_literals;
  ASSERT_TRUE(QDir().mkdir(QStringLiteral("memoria")));
  const QByteArray vecchio(240000, 'v');
  cartella.write(QStringLiteral("memoria/plu.bin"), vecchio);
  avviaPronta();
  Library libreria;
  EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), ecrcom::kDone);
  ecrcom::Socket presa;
  ASSERT_EQ(ecrcom::connect(dove(), ecrcom::within(5s), presa), ecrcom::IoResult::Done);
  const auto trama = comando(ECR_SEND_MODE, "plu.bin", std::vector<std::uint8_t>(240000, 'n'));
  ASSERT_EQ(ecrcom::dispatch(presa, ecrcom::Bytes(trama).first(trama.size() / 2), ecrcom::within(5s)),
            ecrcom::IoResult::Done);
  uccidi();
  presa.close();
  avviaPronta();
  EXPECT_EQ(voci(QStringLiteral("memoria")), QStringList{QStringLiteral("plu.bin")});
  EXPECT_EQ(cartella.read(QStringLiteral("memoria/plu.bin")), vecchio);
  EXPECT_EQ(libreria.command(indirizzo, ECR_FETCH_MODE, "plu.bin"), ecrcom::kTransferClosed);
  EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), ecrcom::kDone);
  EXPECT_EQ(libreria.command(indirizzo, ECR_FETCH_MODE, "plu.bin"), ecrcom::kDone);
  EXPECT_EQ(cartella.read(QStringLiteral("plu.bin")), vecchio);
}

TEST_F(Programma, UccisaAMetaDiUnaRicezioneLasciaIlFileDelPcComEra) {
  using namespace std::chrono_literals;
  ASSERT_TRUE(QDir().mkdir(QStringLiteral("memoria")));
  cartella.write(QStringLiteral("memoria/clienti.bin"), QByteArray(4 * 1024 * 1024, 'n'));
  cartella.write(QStringLiteral("clienti.bin"), "vecchio");
  avviaPronta();
  Library libreria;
  EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), ecrcom::kDone);
  std::size_t passati = 0;
  // Hands the beginning of the answer on, and what was still on its way when the till died.
  const FintaTill tramite([&](const ecrcom::Socket& pc) {
    ecrcom::Socket cassa;
    ASSERT_EQ(ecrcom::connect(dove(), ecrcom::within(5s), cassa), ecrcom::IoResult::Done);
    ecrcom::dispatch(cassa, comando(ECR_FETCH_MODE, "clienti.bin"), ecrcom::within(5s));
    std::vector<std::uint8_t> pezzo(4096);
    for (std::size_t quanti = 0;
         ecrcom::receiveSome(cassa, pezzo, ecrcom::within(5s), quanti) == ecrcom::IoResult::Done;
         passati += quanti) {
      if (passati == 0) ::kill(static_cast<pid_t>(processo.processId()), SIGKILL);
      ecrcom::dispatch(pc, ecrcom::Bytes(pezzo).first(quanti), ecrcom::within(5s));
    }
  });
  EXPECT_EQ(libreria.command(tramite.address(), ECR_FETCH_MODE, "clienti.bin"), ecrcom::kLineCut);
  EXPECT_GT(passati, 0U);
  EXPECT_LT(passati, std::size_t{4} * 1024 * 1024);
  EXPECT_EQ(cartella.read(QStringLiteral("clienti.bin")), "vecchio");
  EXPECT_EQ(voci(cartella.path()), (QStringList{QStringLiteral("clienti.bin"), QStringLiteral("memoria")}));
}

TEST_F(Programma, OgniGuastoDellaRigaDiComandoSiSenteSullaLinea) {
  cartella.write(QStringLiteral("val.bin"), QByteArray(117, 'v'));
  const std::vector<std::pair<QString, int>> guasti{{QStringLiteral("codice"), ecrcom::kWrongState},
                                                    {QStringLiteral("codice=33"), 33},
                                                    {QStringLiteral("silenzio"), ecrcom::kTimedOut},
                                                    {QStringLiteral("taglio-prima"), ecrcom::kLineCut},
                                                    {QStringLiteral("taglio-dentro"), ecrcom::kLineCut},
                                                    {QStringLiteral("taglio-dopo"), ecrcom::kLineCut},
                                                    {QStringLiteral("corto"), ecrcom::kBadLength},
                                                    {QStringLiteral("lungo"), ecrcom::kBadLength},
                                                    {QStringLiteral("spazzatura"), ecrcom::kGarbledReply}};
  Library libreria;
  libreria.ecr_set_timeout(2000, 500);
  for (const auto& [guasto, codice] : guasti) {
    avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"), QStringLiteral("memoria"),
           QStringLiteral("--guasto"), QStringLiteral("6:val.bin:") + guasto});
    riga();
    EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), ecrcom::kDone);
    EXPECT_EQ(libreria.command(indirizzo, ECR_SEND_MODE, "val.bin"), codice) << guasto.toStdString();
    processo.terminate();
    ASSERT_TRUE(processo.waitForFinished(10000));
  }
}

TEST_F(Programma, LOpzioneGuastoColpisce) {
  avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--guasto"), QStringLiteral("1:codice=33")});
  riga();
  Library libreria;
  EXPECT_EQ(libreria.command(indirizzo, ECR_OPEN_MODE), 33);
  EXPECT_EQ(libreria.command(indirizzo, ECR_INFO_MODE), ecrcom::kDone);
}

TEST_F(Programma, LaGiornataSiBattePrimaDiRispondere) {
  QByteArray plu(240000, '\0');
  plu.replace(0, 4, "PANE");
  plu[27] = 100;
  cartella.write(QStringLiteral("plu.bin"), plu);
  avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--giornata"), QStringLiteral("20"),
         QStringLiteral("--seme"), QStringLiteral("3")});
  EXPECT_TRUE(riga().startsWith("ECRSIM giornata di 20 scontrini, incasso "));
  EXPECT_TRUE(riga().startsWith("ECRSIM pronto su "));
  EXPECT_EQ(cartella.read(QStringLiteral("venduto.bin")).size(), 60000);
}

TEST(RigaComando, SenzaDataLaCassaTieneLOrologioDelPC) {
  EXPECT_FALSE(leggi({"--giornata", "3"}).options.clock);
}

TEST(RigaComando, ConDataCambiaIlGiornoENonLOra) {
  const ecrsim::TillClock orologio = leggi({"--data", "29/02/2024"}).options.clock;
  ASSERT_TRUE(orologio);
  // Once more where the second has changed in between.
  ecrsim::Moment prima;
  ecrsim::Moment letta;
  do {
    prima = ecrsim::systemMoment();
    letta = orologio();
  } while (prima != ecrsim::systemMoment());
  EXPECT_EQ(letta, (ecrsim::Moment{2024, 2, 29, prima.hour, prima.minute, prima.second}));
}

TEST_F(Programma, ConDataGiornataEChiusuraPortanoQuelGiorno) {
  ASSERT_TRUE(QDir().mkdir(QStringLiteral("memoria")));
  QByteArray plu(240000, '\0');
  plu.replace(0, 4, "PANE");
  plu[27] = 100;
  cartella.write(QStringLiteral("memoria/plu.bin"), plu);
  const QStringList memoria{QStringLiteral("--address"), indirizzo,
                            QStringLiteral("--dir"),     QStringLiteral("memoria"),
                            QStringLiteral("--data"),    QStringLiteral("16/11/2026")};
  for (const QStringList& altre : {QStringList{QStringLiteral("--giornata"), QStringLiteral("2")},
                                   QStringList{QStringLiteral("--chiusura")}}) {
    avvia(memoria + altre);
    QByteArray una = riga();
    while (!una.startsWith("ECRSIM pronto su ") && !una.isEmpty()) una = riga();
    processo.terminate();
    ASSERT_TRUE(processo.waitForFinished(10000));
  }
  const QByteArray giornale = cartella.read(QStringLiteral("memoria/giornale.txt"));
  EXPECT_EQ(giornale.count(">16/11/2026 "), 3) << "two receipts and the closure";
  EXPECT_EQ(giornale.count("\r\n>") + 1, 3);
  EXPECT_TRUE(giornale.startsWith(">16/11/2026 08:30:00 F ")) << giornale.left(40).constData();
  EXPECT_EQ(cartella.read(QStringLiteral("memoria/memoria_fiscale.txt")).left(16), "0001 16/11/2026 ");
}

TEST_F(Programma, UnIndirizzoNonLocaleSiRifiuta) {
  avvia({QStringLiteral("--address"), QStringLiteral("192.168.0.20")});
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitCode(), 2);
  EXPECT_TRUE(processo.readAllStandardError().startsWith("L'indirizzo deve essere locale"));
}

TEST_F(Programma, UnIndirizzoOccupatoSiRifiuta) {
  const TestTill cassa;
  avvia({QStringLiteral("--address"), cassa.address()});
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitCode(), 1);
}

TEST_F(Programma, LAiutoNominaOgniOpzione) {
  avvia({QStringLiteral("--help")});
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitCode(), 0);
  const QByteArray aiuto = processo.readAllStandardOutput();
  for (const char* opzione : {"--address", "--dir", "--bitmap", "--stato", "--fiscale", "--seriale",
                              "--giornata", "--seme", "--guasto", "--stampante", "--carta", "--video",
                              "--chiusura", "--data", "rumore", "taglio-testa", "taglio-marcatore"})
    EXPECT_TRUE(aiuto.contains(opzione)) << opzione;
}

TEST_F(Programma, LaLineaSerialeRispondeAllaLetturaDelloStato) {
  const QString linea = cartella.file(QStringLiteral("COM1"));
  avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--seriale"), linea});
  riga();
  ASSERT_TRUE(QFileInfo(linea).isSymLink());
  const int porta = open(linea.toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
  ASSERT_GE(porta, 0);
  ASSERT_EQ(write(porta, "rX89F", 5), 5);
  const QByteArray risposta = leggiLinea(porta, 43);
  close(porta);
  ASSERT_EQ(risposta.size(), 43);
  EXPECT_TRUE(risposta.startsWith("X89FECR"));
  processo.terminate();
  ASSERT_TRUE(processo.waitForFinished(10000));
  EXPECT_EQ(processo.exitCode(), 0);
  EXPECT_FALSE(QFileInfo(linea).isSymLink());
}

TEST(LineaSeriale, UnCollegamentoVecchioSiSostituisceUnFileNo) {
  TemporaryFolder cartella;
  const QString linea = cartella.file(QStringLiteral("COM2"));
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/inesistente"), linea));
  ecrsim::Options opzioni;
  opzioni.folder = cartella.path().toStdString();
  ecrsim::Till cassa(opzioni);
  {
    const ecrsim::SerialLine seriale(linea.toStdString(), cassa);
    EXPECT_TRUE(QFileInfo::exists(linea));
  }
  cartella.write(QStringLiteral("COM2"), "documento");
  EXPECT_THROW(ecrsim::SerialLine(linea.toStdString(), cassa), std::system_error);
  EXPECT_EQ(cartella.read(QStringLiteral("COM2")), "documento");
}

TEST(RigaComando, VideoChiusuraStampanteECartaArrivanoAlLoroPosto) {
  const ecrsim::Request richiesta = leggi({"--video", "--chiusura", "--stampante", "T", "--carta", "F"});
  EXPECT_TRUE(richiesta.video);
  EXPECT_TRUE(richiesta.closeDay);
  EXPECT_EQ(richiesta.options.printer, 'T');
  EXPECT_EQ(richiesta.options.paper, 'F');
  const ecrsim::Request nessuna = leggi({});
  EXPECT_FALSE(nessuna.video || nessuna.closeDay);
  for (const auto& argomenti : std::vector<std::vector<const char*>>{{"--stampante", "X"}, {"--carta", "T"}})
    EXPECT_THROW(leggi(argomenti), std::invalid_argument);
}

TEST_F(Programma, ConVideoMostraCartaEDisplay) {
  avvia({QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"), QStringLiteral("memoria"),
         QStringLiteral("--video")});
  EXPECT_TRUE(riga().startsWith("ECRSIM pronto su "));
  Library libreria;
  QByteArray ip = indirizzo.toLatin1();
  const int maniglia = libreria.ecr_conn_xonxoff_ntw(ip.data());
  QByteArray tasti = "\"CAFF\xC8\"100H1R";
  EXPECT_EQ(libreria.ecr_send_xonxoff_ntw(maniglia, tasti.data()), 0);
  QByteArray mostrato;
  while (!mostrato.contains("[TOTALE          1,00]")) {
    const QByteArray una = riga();
    ASSERT_FALSE(una.isEmpty()) << mostrato.constData();
    mostrato += una;
  }
  EXPECT_TRUE(mostrato.contains("  | CAFFÈ                               1,00\n")) << mostrato.constData();
  libreria.ecr_disc_xonxoff_ntw(maniglia);
}

TEST_F(Programma, ConChiusuraLaGiornataRimastaApertaSiChiude) {
  const QStringList memoria{QStringLiteral("--address"), indirizzo, QStringLiteral("--dir"),
                            QStringLiteral("memoria")};
  ASSERT_TRUE(QDir().mkdir(QStringLiteral("memoria")));
  QByteArray plu(240000, '\0');
  plu.replace(0, 4, "PANE");
  plu[27] = 100;
  cartella.write(QStringLiteral("memoria/plu.bin"), plu);
  Library libreria;
  const auto fiscali = [&](const QStringList& argomenti) {
    avvia(memoria + argomenti);
    QByteArray una = riga();
    while (!una.startsWith("ECRSIM pronto su ") && !una.isEmpty()) una = riga();
    EXPECT_EQ(libreria.command(indirizzo, ECR_INFO_MODE), ecrcom::kDone);
    processo.terminate();
    EXPECT_TRUE(processo.waitForFinished(10000));
    return libreria.reply.split(',').value(16);
  };
  EXPECT_EQ(fiscali({QStringLiteral("--giornata"), QStringLiteral("5")}), "FISC=5");
  EXPECT_EQ(fiscali({}), "FISC=5") << "the day stays open in the till's memory";
  EXPECT_EQ(fiscali({QStringLiteral("--chiusura")}), "FISC=0");
  EXPECT_EQ(cartella.read(QStringLiteral("memoria/memoria_fiscale.txt")).left(5), "0001 ");
}
