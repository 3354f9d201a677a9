#include "auxcmd/channel.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

#include "auxcmd/console_scene.h"
#include "auxcmd/dump_file.h"
#include "auxcmd/serial_line.h"
#include "platform/error.h"
#include "sostegno/process_memory.h"

namespace {

constexpr int kPorta = 7;
const QString kStato = QStringLiteral("X89F");
const QByteArray kRecord = "MISQZ17700123FAG00123400005612.5100%OOP";
const QByteArray kFine(46, '@');

QByteArray record() {
  const auto& stato = varGestionePRG().StatoECR;
  return {reinterpret_cast<const char*>(stato.data()), static_cast<qsizetype>(stato.size())};
}

QByteArray chiocciole(qsizetype quante) {
  return QByteArray(quante, '@');
}

/// A screen that only keeps what the channel asks of it.
class VistaProva : public auxcmd::VistaCanale {
 public:
  explicit VistaProva(const QString& cartella) : linea_(cartella) {
    linea_.suDati([this](const QByteArray& byte) { auxcmd::DatiRicevuti(*this, byte); });
    linea_.suErrore([] { varGlobal().FlagRisposta = auxcmd::kErrorePorta; });
    linea_.allaScadenza([] { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; });
  }
  QString porta() const override { return testoPorta; }
  int velocita() const override { return bit; }
  LineaCOM& linea() override { return linea_; }
  void fuocoSuEsci() override { passi << QStringLiteral("fuoco"); }
  void abilitaComandi() override { passi << QStringLiteral("comandi"); }
  void scambiaLed() override { ++scambi; }
  void spegniLed() override { passi << QStringLiteral("spenti"); }
  void mostraAttesa() override { passi << QStringLiteral("attesa"); }
  void togliAttesa() override { passi << QStringLiteral("senza attesa"); }
  bool chiusa() const override { return siEChiusa; }
  void annota(auxcmd::Verso verso, const QByteArray& byte) override {
    if (verso == auxcmd::Verso::Ricevuto && !tieneRicevuti) return;
    (verso == auxcmd::Verso::Inviato    ? inviati
     : verso == auxcmd::Verso::Ricevuto ? ricevuti
                                        : guasti) += byte;
  }

  QString testoPorta = QStringLiteral("COM  7");
  int bit = 9600;
  bool siEChiusa = false;
  bool tieneRicevuti = true;
  QStringList passi;
  int scambi = 0;
  QByteArray inviati;
  QByteArray ricevuti;
  QByteArray guasti;

 private:
  LineaCOM linea_;
};

class Canale : public ApplicationFolder, public testing::Test {
 protected:
  Canale() { plug(peer); }
  // The library has room for few connections, and keeps them from test to test.
  ~Canale() override {
    const std::int32_t collegamento = commonForKora().hConnXonXoff;
    if (collegamento > 0) program.library.ecr_disc_xonxoff_ntw(collegamento);
  }

  /// The key-sequence connection to a till, as the console opens it.
  void collega(const QString& indirizzo) {
    commonForKora().IP_ECR = indirizzo;
    commonForKora().hConnXonXoff = program.library.ecr_conn_xonxoff_ntw(indirizzo.toLatin1());
    ASSERT_GT(commonForKora().hConnXonXoff, 0);
  }
  void apriDump() {
    funzioniCmdXonXoff().FlagDump = 1;
    funzioniCmdXonXoff().ContaFine = 0;
    funzioniCmdXonXoff().NumFileDump = auxcmd::apriFileDump(app(QStringLiteral("dump.txt")));
  }
  QByteArray dump() {
    auxcmd::chiudiFileDump(funzioniCmdXonXoff().NumFileDump);
    return read(QStringLiteral("dump.txt"));
  }
  int chiedi(const QString& comando = kStato) {
    return auxcmd::InviaRiceviXonXoff(kPorta, vista, comando, program.contesto);
  }
  /// Once an answer that nobody reads waits in the library.
  bool arrivata() {
    return QTest::qWaitFor([this] { return program.library.BlockWaits(commonForKora().hConnXonXoff); });
  }
  /// Ends a wait as the timer would, so that nobody has to sit through it.
  void scade() { varGlobal().FlagRisposta = auxcmd::kTempoScaduto; }
  /// The same as soon as the peer has `quanti` bytes.
  void scadeDopo(qsizetype quanti) {
    steps.when([this, quanti] { return peer.received().size() >= quanti; }, [this] { scade(); });
  }

  SerialPeer peer;
  ProgramFixture program{QStringLiteral(GESTIONALE_APP), cartella_.path()};
  VistaProva vista{cartella_.path()};
  Steps steps;
};

/// Blocks of the network as they stand in a dump file: blanks behind what came.
QByteArray blocco(const QByteArray& testo) {
  return testo.leftJustified(1024, ' ');
}

}  // namespace

// The port

TEST_F(Canale, LaPortaSiLeggeDalSestoCarattereUnaODueCifre) {
  const QList<std::pair<const char*, int>> casi{{"COM  1", 1},   {"COM  9", 9},    {"COM  10", 10},
                                                {"COM  16", 16}, {"Seleziona", 0}, {"", 0},
                                                {"COM 7", 0},    {"Seleziona!", 0}};
  for (const auto& [testo, numero] : casi) {
    vista.testoPorta = QLatin1String(testo);
    EXPECT_EQ(auxcmd::DammiPortaCOM(vista), numero) << testo;
  }
}

TEST_F(Canale, ChiedereLaPortaChiudeQuellaAperta) {
  vista.linea().apri(kPorta, 9600);
  EXPECT_EQ(auxcmd::DammiPortaCOM(vista), 7);
  EXPECT_FALSE(vista.linea().aperta());
}

TEST_F(Canale, LaLineaVaAllaVelocitaSceltaOttoBitSenzaParitaUnoStop) {
  for (const int bit : {1200, 2400, 4800, 9600, 19200}) {
    vista.bit = bit;
    vista.linea().apri(kPorta, vista.velocita());
    EXPECT_EQ(peer.speed(), bit);
    EXPECT_TRUE(peer.eightNoParityOneStop());
  }
}

TEST_F(Canale, UnaPortaCheNonCEFallisceConErrore8002) {
  peer.unplug();
  try {
    chiedi();
    ADD_FAILURE() << "opened all the same";
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kPortMissing);
  }
}

// The state, serial

TEST_F(Canale, LoStatoSerialeEEcoETrentanoveByte) {
  peer.answers("X89F", "X89F" + kRecord);
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(peer.received(), "X89F");
  EXPECT_EQ(record(), kRecord);
  EXPECT_EQ(varGlobal().FlagRisposta, 1);
  EXPECT_EQ(varGlobal().BufferRx, QString());
  EXPECT_EQ(varGlobal().BufferRisposta, QStringLiteral("X89F") + QString::fromLatin1(kRecord));
  EXPECT_EQ(vista.passi, texts({"fuoco", "attesa", "senza attesa", "senza attesa", "spenti"}));
  EXPECT_EQ(vista.scambi, 43);
  EXPECT_EQ(vista.inviati, "X89F");
  EXPECT_EQ(vista.ricevuti, "X89F" + kRecord);
  EXPECT_TRUE(vista.linea().aperta()) << "left open";
}

TEST_F(Canale, OgniByteDelRecordSerialePassaComE) {
  QByteArray strano = kRecord;
  strano.replace(0, 7, QByteArray("\x81\x8D\x8F\x90\x9D\x80\xFF", 7));
  strano[12] = '\0';
  peer.answers("X89F", "X89F" + strano);
  chiedi();
  EXPECT_EQ(record(), strano);
}

TEST_F(Canale, LaRispostaInPezziSiRimette) {
  peer.onArrival = [this] {
    peer.say("X8");
    steps.when([] { return varGlobal().BufferRisposta.size() == 2; },
               [this] { peer.say("9F" + kRecord.left(20)); });
    steps.when([] { return varGlobal().BufferRisposta.size() == 24; }, [this] { peer.say(kRecord.mid(20)); });
  };
  chiedi();
  EXPECT_EQ(record(), kRecord);
  EXPECT_EQ(varGlobal().FlagRisposta, 1);
}

TEST_F(Canale, QuarantatreCaratteriSenzaEcoScadonoDopoDueSecondi) {
  const QByteArray altro = "Y89F" + kRecord;
  peer.answers("X89F", altro);
  QElapsedTimer cronometro;
  cronometro.start();
  EXPECT_EQ(chiedi(), 0);
  EXPECT_GE(cronometro.elapsed(), 1900);
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_EQ(varGlobal().BufferRisposta, QString::fromLatin1(altro));
  EXPECT_EQ(record(), QByteArray(39, '\0'));
  expectBoxes(program, {});
}

TEST_F(Canale, UnRecordSerialeCortoNonPassaEIlSuoTestoResta) {
  peer.answers("X89F", "X89F" + kRecord.left(38));
  steps.when([] { return varGlobal().BufferRisposta.size() == 42; }, [this] { scade(); });
  chiedi();
  EXPECT_EQ(record(), QByteArray(39, '\0'));
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_EQ(varGlobal().BufferRisposta, QString::fromLatin1("X89F" + kRecord.left(38)));
}

TEST_F(Canale, DiQuarantaquattroCaratteriSerialiIPrimiQuarantatreSonoLoStato) {
  // Told by its length the moment that it is whole: what comes behind is no part of it.
  peer.answers("X89F", "X89F" + kRecord + "+");
  chiedi();
  EXPECT_EQ(varGlobal().FlagRisposta, 1);
  EXPECT_EQ(record(), kRecord);
}

TEST_F(Canale, UnDisturboDavantiAllEcoNonEUnoStato) {
  peer.answers("X89F", QByteArray("\xFF\0\x13", 3) + "X89F" + kRecord);
  steps.when([] { return varGlobal().BufferRisposta.size() == 46; }, [this] { scade(); });
  chiedi();
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_EQ(record(), QByteArray(39, '\0'));
  EXPECT_EQ(varGlobal().BufferRisposta, QString::fromLatin1(QByteArray("\xFF\0\x13", 3) + "X89F" + kRecord));
}

TEST_F(Canale, SoloDisturbiPerLoStatoNonSiTengono) {
  QByteArray disturbo;
  for (int i = 0; i < 300; ++i) disturbo.append(static_cast<char>(i * 37 % 256));
  peer.answers("X89F", disturbo);
  steps.when([] { return varGlobal().BufferRisposta.size() == 300; }, [this] { scade(); });
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(record(), QByteArray(39, '\0'));
  EXPECT_EQ(vista.ricevuti, disturbo);
  expectBoxes(program, {});
}

TEST_F(Canale, DopoUnaRispostaCheNonBastaLeSpieSiSpengono) {
  peer.answers("X89F", "X89F");
  steps.when([] { return varGlobal().BufferRisposta.size() == 4; }, [this] { scade(); });
  chiedi();
  EXPECT_EQ(vista.passi.last(), QStringLiteral("spenti"));
}

TEST_F(Canale, UnErroreDellaPortaFinisceLAttesaSenzaMessaggi) {
  peer.onArrival = [this] { peer.unplug(); };
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(varGlobal().FlagRisposta, 2);
  expectBoxes(program, {});
}

TEST_F(Canale, DopoUnErroreDellaPortaIlTempoNonCorrePiu) {
  peer.onArrival = [this] { peer.unplug(); };
  chiedi();
  EXPECT_FALSE(
      QTest::qWaitFor([] { return varGlobal().FlagRisposta != 2; }, auxcmd::kScadenzaRisposta + 100));
}

TEST_F(Canale, ChiusaNelMezzoLAttesaFinisceENonSiChiedeAltro) {
  peer.onArrival = [this] {
    vista.passi.clear();
    vista.siEChiusa = true;
  };
  EXPECT_EQ(chiedi(), 1);
  EXPECT_EQ(vista.passi, QStringList());
}

TEST_F(Canale, OgniComandoApreLaPortaDaCapo) {
  peer.answers("X89F", "X89F" + kRecord);
  chiedi();
  varGlobal().BufferRisposta.clear();
  varGestionePRG().StatoECR = {};
  chiedi();
  EXPECT_EQ(peer.received(), "X89FX89F");
  EXPECT_EQ(record(), kRecord);
}

// The dump, serial

TEST_F(Canale, UnDumpSerialeConQuarantacinqueChioccioleUnCarattereEQuarantaseiFinisceAllaSecondaFila) {
  apriDump();
  const QByteArray flusso = "GIORNALE\r\n" + QByteArray(45, '@') + "x" + kFine;
  peer.answers("F", flusso);
  EXPECT_EQ(chiedi(QStringLiteral("X\"000101991201\"10F")), 0);
  EXPECT_EQ(varGlobal().FlagRisposta, 1);
  EXPECT_EQ(funzioniCmdXonXoff().ContaFine, 46);
  EXPECT_EQ(vista.passi,
            texts({"fuoco", "attesa", "senza attesa", "spenti", "comandi", "senza attesa", "spenti"}));
  EXPECT_EQ(vista.scambi, flusso.size());
  EXPECT_EQ(dump(), flusso);
  EXPECT_EQ(varGlobal().BufferRisposta, QString()) << "a dump goes to its file alone";
}

TEST_F(Canale, IlPrimoCarattereDelDumpFermaITempo) {
  apriDump();
  peer.answers("F", "A");
  // The end comes later than a till that says nothing is waited for.
  QTimer dopo;
  dopo.setSingleShot(true);
  QObject::connect(&dopo, &QTimer::timeout, &dopo, [this] { peer.say(kFine); });
  dopo.start(auxcmd::kScadenzaRisposta + 200);
  chiedi(QStringLiteral("X\"000101991201\"10F"));
  EXPECT_EQ(varGlobal().FlagRisposta, 1);
  EXPECT_EQ(dump(), "A" + kFine);
}

TEST_F(Canale, UnDumpSerialeLungoArrivaIntero) {
  apriDump();
  QByteArray flusso;
  for (int i = 0; i < 20000; ++i) flusso.append(static_cast<char>(i % 256 == '@' ? 'a' : i % 256));
  peer.answers("F", flusso + kFine);
  chiedi(QStringLiteral("X\"000101991201\"10F"));
  EXPECT_EQ(dump(), flusso + kFine);
}

TEST_F(Canale, DopoIlSilenzioLaPortaRestaApertaEQuelloCheArrivaSiScrive) {
  apriDump();
  scadeDopo(4);
  chiedi();
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_TRUE(vista.linea().aperta());
  peer.say("TARDI" + kFine);
  EXPECT_TRUE(QTest::qWaitFor([] { return funzioniCmdXonXoff().ContaFine == 46; }));
  EXPECT_EQ(vista.passi.last(), QStringLiteral("comandi"));
  EXPECT_EQ(dump(), "TARDI" + kFine);
}

// The state, network

TEST_F(Canale, LoStatoDiReteEIlRecordSenzaEco) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord}}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(cassa.sequences(), texts({"X89F"}));
  EXPECT_EQ(record(), kRecord);
  EXPECT_EQ(vista.scambi, 1);
  EXPECT_EQ(vista.passi, texts({"spenti", "comandi"}));
  EXPECT_EQ(peer.received(), QByteArray()) << "the port stays aside";
}

TEST_F(Canale, LoStatoDellaCassaSimulataArrivaSuTuttiEDueIVettori) {
  TestTill cassa;
  cassa->openSerial(app(QStringLiteral("Porte/COM3")).toStdString());
  auxcmd::InviaRiceviXonXoff(3, vista, kStato, program.contesto);
  const QByteArray seriale = record();
  EXPECT_NE(seriale, QByteArray(39, '\0'));
  varGestionePRG().StatoECR = {};
  vista.linea().chiudi();
  collega(cassa.address());
  chiedi();
  EXPECT_EQ(record(), seriale);
}

TEST_F(Canale, UnaRispostaDiReteDi38O40O42O43O44ByteNonSiTieneENonDiceNiente) {
  QByteArray risposta;
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, {risposta}}; });
  collega(cassa.address());
  for (const qsizetype lunga : {38, 40, 42, 43, 44}) {
    risposta = ("+X89F" + kRecord).right(lunga);
    EXPECT_EQ(chiedi(), 0);
    EXPECT_EQ(record(), QByteArray(39, '\0')) << lunga;
  }
  expectBoxes(program, {});
}

TEST_F(Canale, IlPuntatoreEUnaClessidraFinoAllaFineDellaRete) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord}}; });
  collega(cassa.address());
  int clessidre = 0;
  program.user.onPass = [&] {
    const QCursor* puntatore = QGuiApplication::overrideCursor();
    clessidre += puntatore && puntatore->shape() == Qt::WaitCursor ? 1 : 0;
  };
  chiedi();
  EXPECT_GT(clessidre, 0);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

// The dump, network

TEST_F(Canale, UnDumpDiReteEDiBlocchiInteriELaFineVieneRiscritta) {
  apriDump();
  const QByteArray primo(1024, 'a');
  const QByteArray ultimo = "fine" + chiocciole(46);
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, {primo, "corto", ultimo}}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(QStringLiteral("X\"000101991201\"12F")), 0);
  EXPECT_EQ(dump(), primo + blocco("corto") + blocco(ultimo) + kFine);
  EXPECT_EQ(vista.scambi, 3);
  EXPECT_EQ(vista.passi, texts({"spenti", "comandi"}));
}

TEST_F(Canale, QuarantaseiChioccioleFraDueBlocchiNonSonoLaFine) {
  apriDump();
  const QByteArrayList blocchi{"uno" + chiocciole(20), chiocciole(26) + "due", "tre" + chiocciole(46)};
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, blocchi}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(dump(), blocco(blocchi[0]) + blocco(blocchi[1]) + blocco(blocchi[2]) + kFine);
}

TEST_F(Canale, MenoDiQuarantaseiAllaFineDiUnBloccoRestanoNelFile) {
  apriDump();
  const QByteArrayList blocchi{"testo" + chiocciole(45), chiocciole(46)};
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, blocchi}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(dump(), blocco(blocchi[0]) + blocco(blocchi[1]) + kFine);
}

TEST_F(Canale, UnBloccoPienoDiChioccioleELaFine) {
  apriDump();
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {chiocciole(1024)}}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(dump(), QByteArray(1024 + 46, '@'));
}

TEST_F(Canale, UnCollegamentoCheSiRompeNelDumpLoDiceETieneQuelloCheEArrivato) {
  apriDump();
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {"meta"}, true}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 1);
  expectBoxes(program, {criticalBox(QStringLiteral(
                           "Errore nella comunicazione con ECR: Collegamento con la cassa interrotto"))});
  EXPECT_EQ(dump(), blocco("meta"));
  EXPECT_EQ(vista.passi, texts({"spenti", "comandi"}));
  EXPECT_EQ(vista.guasti, "Collegamento con la cassa interrotto");
}

TEST_F(Canale, UnDumpDiReteTagliatoInOgniFaseTieneQuelloCheEraArrivato) {
  struct Taglio {
    QByteArrayList blocchi;
    QByteArray restano;
  };
  // Behind the command, behind a block, within the end, behind an end that a block parts.
  const std::vector<Taglio> tagli{
      {{}, {}},
      {{"testa"}, blocco("testa")},
      {{"testa", "coda" + chiocciole(45)}, blocco("testa") + blocco("coda" + chiocciole(45))},
      {{chiocciole(30), chiocciole(16)}, blocco(chiocciole(30)) + blocco(chiocciole(16))}};
  for (const Taglio& taglio : tagli) {
    KeysTill cassa([&](const std::string&) { return KeysAnswer{0, taglio.blocchi, true}; });
    collega(cassa.address());
    apriDump();
    EXPECT_EQ(chiedi(), 1);
    expectBoxes(program, {criticalBox(QStringLiteral(
                             "Errore nella comunicazione con ECR: Collegamento con la cassa interrotto"))});
    EXPECT_EQ(dump(), taglio.restano);
    EXPECT_TRUE(QFile::remove(app(QStringLiteral("dump.txt"))));
    program.library.ecr_disc_xonxoff_ntw(commonForKora().hConnXonXoff);
    commonForKora().hConnXonXoff = 0;
  }
}

TEST_F(Canale, UnDumpSerialeTagliatoInOgniFaseTieneQuelloCheEraArrivato) {
  for (const QByteArray& parte : {QByteArray(), QByteArray("t"), "testa" + chiocciole(45)}) {
    SerialPeer altro;
    plug(altro, 8);
    apriDump();
    altro.onArrival = [&] {
      if (altro.received() != "X89F") return;
      altro.say(parte);
      steps.when([&] { return vista.ricevuti == parte; }, [&] { altro.unplug(); });
    };
    vista.ricevuti.clear();
    EXPECT_EQ(auxcmd::InviaRiceviXonXoff(8, vista, kStato, program.contesto), 0);
    EXPECT_EQ(varGlobal().FlagRisposta, 2);
    EXPECT_EQ(dump(), parte);
    EXPECT_TRUE(QFile::remove(app(QStringLiteral("dump.txt"))));
    EXPECT_TRUE(QFile::remove(app(QStringLiteral("Porte/COM8"))));
  }
  expectBoxes(program, {});
}

TEST_F(Canale, UnDumpDiReteDiCentoMegabyteArrivaInPocaMemoria) {
  apriDump();
  constexpr qsizetype kBlocchi = 100 * 1024;
  // All of them share the one block that stands in memory.
  QByteArrayList blocchi(kBlocchi, QByteArray(1024, 'g'));
  blocchi << kFine;
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, blocchi}; });
  collega(cassa.address());
  const qint64 prima = memoryInKiB(QStringLiteral("VmRSS"));
  forgetPeak();
  // What came is kept by the screen of the test alone.
  vista.tieneRicevuti = false;
  EXPECT_EQ(chiedi(), 0);
  expectPeakWithin(prima, 24 * 1024);
  auxcmd::chiudiFileDump(funzioniCmdXonXoff().NumFileDump);
  EXPECT_EQ(QFileInfo(app(QStringLiteral("dump.txt"))).size(), (kBlocchi + 1) * 1024 + 46);
}

TEST_F(Canale, UnaCassaMutaScadeConIlTestoDellaLibreria) {
  KeysTill cassa;
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 1);
  expectBoxes(program, {criticalBox(QStringLiteral(
                           "Errore nella comunicazione con ECR: Tempo scaduto, la cassa non risponde"))});
}

TEST_F(Canale, ChiusaFraDueArriviNonSiChiedeNeSiScriveAltro) {
  apriDump();
  // The next block comes only once the person has closed.
  QSemaphore chiusa;
  KeysTill cassa([&](const std::string&) {
    return KeysAnswer{0, {"a", "b", chiocciole(46)}, false, [&](qsizetype quale) {
                        if (quale == 1) chiusa.acquire();
                      }};
  });
  collega(cassa.address());
  program.user.onPass = [&] { vista.siEChiusa = vista.scambi == 1; };
  EXPECT_EQ(chiedi(), 1);
  chiusa.release();
  EXPECT_EQ(dump(), blocco("a"));
  EXPECT_EQ(vista.passi, QStringList());
}

TEST_F(Canale, ChiusaMentreSiAspettaNonSiScriveQuelloCheArrivaDopo) {
  apriDump();
  QSemaphore chiusa;
  KeysTill cassa([&](const std::string&) {
    return KeysAnswer{0, {"a", "b", chiocciole(46)}, false, [&](qsizetype quale) {
                        if (quale == 1) chiusa.acquire();
                      }};
  });
  collega(cassa.address());
  // At the pass behind the first block nothing happens yet: the person closes while the second is waited for.
  QTimer dopo;
  dopo.setSingleShot(true);
  QObject::connect(&dopo, &QTimer::timeout, &dopo, [&] {
    vista.siEChiusa = true;
    chiusa.release();
  });
  program.user.onPass = [&] {
    if (vista.scambi == 1) dopo.start(50);
  };
  EXPECT_EQ(chiedi(), 1);
  EXPECT_EQ(dump(), blocco("a"));
  EXPECT_EQ(vista.ricevuti, "a");
}

TEST_F(Canale, MoltiBlocchiPassanoInsiemeNelLoroOrdine) {
  QByteArrayList blocchi;
  for (int i = 0; i < 500; ++i) blocchi << QByteArray::number(i).leftJustified(1 + i * 2, '.');
  blocchi << "fine"
          << "oltre";
  KeysTill cassa([&](const std::string&) { return KeysAnswer{0, blocchi}; });
  collega(cassa.address());
  const std::int32_t collegamento = commonForKora().hConnXonXoff;
  QByteArray tasti = "1R";
  ASSERT_EQ(program.library.ecr_send_xonxoff_ntw(collegamento, tasti), 0);
  QByteArrayList presi;
  qsizetype volte = 0;
  while (presi.isEmpty() || presi.last() != "fine") {
    const KeysBlocks insieme = program.library.ReceiveBlocks(
        collegamento, 30, [](QByteArrayView byte) { return byte == QByteArrayView("fine"); });
    ASSERT_FALSE(insieme.failed());
    ASSERT_LE(insieme.count(), 64);
    for (qsizetype i = 0; i < insieme.count(); ++i) {
      presi << insieme.bytes(i).toByteArray();
      EXPECT_EQ(insieme.whole().mid(i * 1024, 1024), blocco(presi.last()));
    }
    ++volte;
  }
  EXPECT_EQ(presi, blocchi.first(501)) << "the last one wanted is the last one taken";
  EXPECT_LT(volte, 501);
  QByteArray resto(1024, ' ');
  EXPECT_EQ(program.library.ecr_recv_xonxoff_ntw(collegamento, resto, 30), 5);
  EXPECT_EQ(resto.left(5), "oltre");
  EXPECT_FALSE(program.library.BlockWaits(collegamento));
}

TEST_F(Canale, UnInvioRifiutatoLoDiceRidaIComandiENonAspettaRisposta) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{7, {kRecord}}; });
  collega(cassa.address());
  EXPECT_EQ(chiedi(), 1);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Comando rifiutato nello "
                                          "stato attuale della cassa"))});
  EXPECT_EQ(vista.passi, texts({"comandi"}));
  EXPECT_EQ(vista.scambi, 0);
}

TEST_F(Canale, UnaRispostaCheNessunoHaLettoNonSiPrendePerLoStato) {
  int volta = 0;
  KeysTill cassa([&](const std::string&) {
    return KeysAnswer{0, {QByteArray(kRecord).replace("MISQZ", "MIS0" + QByteArray::number(++volta))}};
  });
  collega(cassa.address());
  // A script of a person asks for the state: over the network nobody reads what it answers.
  EXPECT_EQ(auxcmd::InviaXonXoff(0, vista, kStato, program.contesto), 0);
  ASSERT_TRUE(arrivata());
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(record().left(5), "MIS02");
  EXPECT_EQ(chiedi(), 0);
  EXPECT_EQ(record().left(5), "MIS03");
  for (const char* uno : {"MIS01", "MIS02", "MIS03"})
    EXPECT_EQ(vista.ricevuti.count(uno), 1) << "the log has all that came: " << uno;
}

TEST_F(Canale, LaFineDiUnDumpCheNessunoHaLettoNonFinisceQuelloDopo) {
  KeysTill cassa([&](const std::string& tasti) {
    return KeysAnswer{0, {(tasti == "1" ? "vecchio" : "nuovo") + chiocciole(46)}};
  });
  collega(cassa.address());
  EXPECT_EQ(auxcmd::InviaXonXoff(0, vista, QStringLiteral("1"), program.contesto), 0);
  ASSERT_TRUE(arrivata());
  apriDump();
  EXPECT_EQ(chiedi(QStringLiteral("X\"000101991201\"10F")), 0);
  EXPECT_EQ(dump(), blocco("nuovo" + chiocciole(46)) + kFine);
}

// A command without an answer

TEST_F(Canale, InviaXonXoffSullaReteNonAspettaRisposta) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {"non letto"}}; });
  collega(cassa.address());
  EXPECT_EQ(auxcmd::InviaXonXoff(0, vista, QStringLiteral("1R"), program.contesto), 0);
  EXPECT_EQ(cassa.sequences(), texts({"1R"}));
  EXPECT_EQ(vista.passi, texts({"fuoco"}));
  EXPECT_EQ(vista.ricevuti, QByteArray());
}

TEST_F(Canale, InviaXonXoffRifiutatoSullaReteDaUno) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{19, {}}; });
  collega(cassa.address());
  EXPECT_EQ(auxcmd::InviaXonXoff(0, vista, QStringLiteral("1R"), program.contesto), 1);
  expectBoxes(
      program,
      {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Sequenza di tasti non accettata"))});
}

TEST_F(Canale, InviaXonXoffSerialeAspettaLaSuaRisposta) {
  scadeDopo(2);
  EXPECT_EQ(auxcmd::InviaXonXoff(kPorta, vista, QStringLiteral("1R"), program.contesto), 0);
  EXPECT_EQ(peer.received(), "1R");
  EXPECT_EQ(varGlobal().FlagRisposta, 100);
  EXPECT_EQ(vista.passi, texts({"fuoco"})) << "no wait box";
}

TEST_F(Canale, ConUnIndirizzoSenzaCollegamentoUnoVaInReteELAltroPerPorta) {
  commonForKora().IP_ECR = QStringLiteral("127.0.0.1");
  EXPECT_EQ(chiedi(), 1);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Collegamento non aperto"))});
  EXPECT_EQ(peer.received(), QByteArray());
  scadeDopo(2);
  EXPECT_EQ(auxcmd::InviaXonXoff(kPorta, vista, QStringLiteral("1R"), program.contesto), 0);
  EXPECT_EQ(peer.received(), "1R");
}

TEST_F(Canale, InviaByteComMandaIByteComeSonoEPrendeTuttoInsieme) {
  vista.linea().apri(kPorta, 9600);
  vista.linea().InputLen(1);
  peer.answers("ZZ", "ricevuto");
  steps.when([] { return varGlobal().BufferRisposta.size() == 8; }, [this] { scade(); });
  auxcmd::InviaByteCOM("ZZ", vista, program.contesto);
  EXPECT_EQ(peer.received(), "ZZ");
  EXPECT_EQ(varGlobal().BufferRisposta, QStringLiteral("ricevuto"));
  EXPECT_LT(vista.scambi, 8) << "not character by character";
  EXPECT_EQ(varGlobal().BufferRx, QString());
}

TEST_F(Canale, IDatiDiUnBancoSiRaccolgonoESoloQuello) {
  apriDump();
  auxcmd::DatiDelBanco(vista, "X89F" + kRecord);
  auxcmd::DatiDelBanco(vista, kFine);
  EXPECT_EQ(varGlobal().BufferRisposta, QString::fromLatin1("X89F" + kRecord + kFine));
  EXPECT_EQ(varGlobal().FlagRisposta, 0);
  EXPECT_EQ(vista.scambi, 2);
  EXPECT_EQ(record(), QByteArray(39, '\0'));
  EXPECT_EQ(dump(), QByteArray());
}
