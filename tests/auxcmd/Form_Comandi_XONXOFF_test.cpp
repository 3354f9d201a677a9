#include "auxcmd/Form_Comandi_XONXOFF.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSemaphore>
#include <QSplitter>
#include <QTest>

#include "auxcmd/channel.h"
#include "auxcmd/console_scene.h"
#include "auxcmd/line_log.h"
#include "platform/serial/serial_port.h"
#include "sostegno/troubles.h"

namespace {

const QString kAvvia = QStringLiteral("Cmd_Avvia");
const QString kEsci = QStringLiteral("Cmd_Esci");
const QString kConnetti = QStringLiteral("CmdInviaModECR");
const QString kPorta = QStringLiteral("cboPort");
const QByteArray kRecord = "MISQZ17700123FAG00123400005612.5100%OOP";
const QByteArray kFine(46, '@');
const QString kNome = QStringLiteral("DGFE_07032024_090501.txt");
const QByteArray kTestaDGFE = "***\r\n*** LETTURA DGFE del 07/03/2024 09:05:01 ***\r\n***\r\n";
const QByteArray kTestaMF = "***\r\n*** LETTURA MF del 07/03/2024 09:05:01 ***\r\n***\r\n";
/// A folder that anybody looks into.
constexpr QFile::Permissions kDiTutti = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                        QFile::ExeOther;
const Box kNessunaPorta = box(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning);
const std::vector<const char*> kTuttoDGFE{"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE",
                                          "vkOptionButtonGlobale"};

Box domandaFile(const QString& nome) {
  return {QStringLiteral("E' stato creato il file %1, vuoi visualizzarlo ?").arg(nome), Icon::Question,
          QStringLiteral("ATTENZIONE"), Buttons::OkCancel};
}

QString colore(const GuidedScreen& schermo, const char* led) {
  return schermo.control(led).property("colore").value<QColor>().name();
}

/// While it lives this thread is a user who owns nothing, also for the questions whether a file may be used.
class NessunDiritto {
 public:
  NessunDiritto() { syscall(SYS_setresuid, kNessuno, kNessuno, uid_t{0}); }
  ~NessunDiritto() { syscall(SYS_setresuid, uid_t{0}, uid_t{0}, uid_t{0}); }
  NessunDiritto(const NessunDiritto&) = delete;
  NessunDiritto& operator=(const NessunDiritto&) = delete;

 private:
  static constexpr uid_t kNessuno = 65534;
};

class Console : public ConsoleScene {
 protected:
  /// Ends a wait as the timer would, once the peer has the command.
  void scadeAlComando() {
    peer.onArrival = [this] {
      if (peer.received().endsWith('F')) varGlobal().FlagRisposta = auxcmd::kTempoScaduto;
    };
  }
  /// Lets the console go, with the answer to its question if a file was made.
  void esci(const GuidedScreen& schermo, bool conFile) {
    if (conFile) program.user.answers(Answer::Cancel);
    schermo.click(kEsci);
    EXPECT_FALSE(schermo.alive());
    if (conFile) program.takeBoxes();
  }
  static void data(const GuidedScreen& schermo, const QString& giorno, const QString& mese,
                   const QString& anno, const QString& quale) {
    const bool scontrino = quale == QStringLiteral("Scont");
    const QString testa = scontrino ? QStringLiteral("Combo") : QStringLiteral("Cmb");
    for (const auto& [parte, testo] : {std::pair{"Giorno", giorno}, {"Mese", mese}, {"Anno", anno}})
      pick(schermo, (testa + QLatin1String(parte) + quale).toLatin1().constData(), testo);
  }
  /// The command that goes out for what is picked; the till answers with an empty dump.
  QByteArray comando(const GuidedScreen& schermo) {
    peer.answers("F", kFine);
    schermo.click(kAvvia);
    return peer.received();
  }
  /// Clicks "Avvia" for what has to be refused: nothing goes out, and the commands come back.
  void rifiutata(const GuidedScreen& schermo, const Box& perche) {
    schermo.click(kAvvia);
    expectBoxes(program, {perche});
    EXPECT_EQ(peer.received(), QByteArray());
    EXPECT_TRUE(schermo.enabled(kAvvia));
    EXPECT_TRUE(schermo.enabled(kEsci));
    EXPECT_TRUE(files(QStringLiteral("*.txt")).isEmpty());
    EXPECT_EQ(foot(schermo), perche.text.simplified());
  }
};

}  // namespace

// How it looks

TEST_F(Console, AllAperturaIlTitoloLePorteLaVelocitaELeDateDiOggi) {
  commonForKora().IP_ECR = QStringLiteral("127.0.0.9");
  commonForKora().hConnXonXoff = -3;
  const GuidedScreen schermo = console();
  EXPECT_EQ(schermo.window().windowTitle(), QStringLiteral(" Gestione Comandi Ausiliari ECR"));
  EXPECT_EQ(commonForKora().IP_ECR, QStringLiteral("192.168.0.20"));
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxIP_ECR")), QStringLiteral("192.168.0.20"));
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  const auto& porte = schermo.control<QComboBox>("cboPort");
  EXPECT_EQ(porte.currentText(), QStringLiteral("Seleziona"));
  EXPECT_EQ(porte.itemText(0), QStringLiteral("Seleziona"));
  EXPECT_GE(porte.findText(QStringLiteral("COM  7")), 1);
  const auto& velocita = schermo.control<QComboBox>("Combo2");
  EXPECT_EQ(velocita.currentText(), QStringLiteral("9600"));
  QStringList voci;
  for (int i = 0; i < velocita.count(); ++i) voci << velocita.itemText(i);
  EXPECT_EQ(voci, texts({"1200", "2400", "4800", "9600", "19200"}));
  const QList<std::pair<const char*, const char*>> date{
      {"CmbGiorno", "07"},        {"CmbMese", "03"},        {"CmbAnno", "2024"},
      {"CmbGiornoFine", "07"},    {"CmbMeseFine", "03"},    {"CmbAnnoFine", "2024"},
      {"ComboGiornoScont", "07"}, {"ComboMeseScont", "03"}, {"ComboAnnoScont", "2024"}};
  for (const auto& [lista, testo] : date)
    EXPECT_EQ(schermo.control<QComboBox>(lista).currentText(), QLatin1String(testo)) << lista;
  EXPECT_EQ(schermo.control<QComboBox>("CmbAnno").itemText(0), QStringLiteral("2000"));
  EXPECT_EQ(schermo.control<QComboBox>("CmbAnno").count(), 100);
}

TEST_F(Console, LeDidascalieSonoQuelleDellaCassa) {
  const GuidedScreen schermo = console();
  const QList<std::pair<const char*, const char*>> testi{
      {"Titolo_vkFrameNetwork", "COLLEGAMENTO LAN"},
      {"CmdInviaModECR", "Connetti"},
      {"Titolo_vkFrame5", "COLLEGAMENTO SERIALE"},
      {"Label_cboPort", "Porta:"},
      {"Label_Combo2", "Velocità:"},
      {"vkOptionButton_RX_STATO_ECR", "Stato ECR"},
      {"vkOptionButton_Rx_PRG", "Lettura DGFE / Memoria Fiscale"},
      {"vkOptionButton_DGFE", "Informazioni dal giornale di fondo elettronico ( DGFE)"},
      {"vkOptionButton_MF", "Informazioni dalla memoria fiscale (MF)"},
      {"vkOptionButtonGlobale", "Ricerca Globale"},
      {"vkOptionButtonPerDate", "Per Date"},
      {"vkOptionButtonPerScontrini", "Per N.ro scontrini / Azzeramenti"},
      {"Label_CmbGiorno", "Inizio"},
      {"Label_CmbGiornoFine", "Fine"},
      {"Label_ComboGiornoScont", "Data Scontrino"},
      {"Cmd_Avvia", "Avvia"},
      {"Cmd_Esci", "Esci/Visualizza File"},
      {"Label23", "Ricezione Dati"}};
  for (const auto& [nome, testo] : testi)
    EXPECT_EQ(schermo.text(QLatin1String(nome)), QString::fromUtf8(testo)) << nome;
  const QList<std::pair<const char*, const char*>> voci{
      {"mnuTestVendita", "Test &Vendita"},
      {"mnuTestModificatori", "Test &Modificatori"},
      {"mnuTestFormePagamento", "Test &Forme di Pagamento"},
      {"mnuTestUtilita", "Test &Utilità generali e rapporti"},
      {"mnuTestSeqCmd", "Test sequenza comandi"},
      {"mnuCodiciErrori", "&Codici Errori"}};
  for (const auto& [nome, testo] : voci)
    EXPECT_EQ(schermo.window().findChild<QAction*>(QLatin1String(nome))->text(), QString::fromUtf8(testo))
        << nome;
}

TEST_F(Console, StaNelloSchermoADodiciPunti) {
  const GuidedScreen schermo = console();
  expectFitsAtTwelvePoints(schermo);
}

TEST_F(Console, IlRegistroStaSempreInVistaConAlmenoOttoRighe) {
  const GuidedScreen schermo = console();
  picks(schermo, kTuttoDGFE);
  const auto& registro = schermo.control<QPlainTextEdit>("registro");
  for (const int punti : {9, 12}) {
    QFont lettere = schermo.window().font();
    lettere.setPointSize(punti);
    schermo.window().setFont(lettere);
    schermo.window().resize(1000, 720);
    QCoreApplication::processEvents();
    EXPECT_GE(registro.viewport()->height(), 8 * registro.fontMetrics().lineSpacing()) << punti;
    EXPECT_EQ(registro.visibleRegion().boundingRect().height(), registro.height()) << punti;
  }
}

TEST_F(Console, PiuAltaDiQuelloCheServeIlRestoVaAlRegistro) {
  const GuidedScreen schermo = console();
  schermo.window().resize(1000, 900);
  QCoreApplication::processEvents();
  const int prima = schermo.control("registro").height();
  schermo.window().resize(1000, 1050);
  QCoreApplication::processEvents();
  EXPECT_EQ(schermo.control("registro").height(), prima + 150);
}

TEST_F(Console, SpostatoAManoIlBordoDelRegistroRestaDoveE) {
  const GuidedScreen schermo = console();
  schermo.window().resize(1000, 900);
  QCoreApplication::processEvents();
  auto& divisione = schermo.control<QSplitter>("divisione");
  QWidget* bordo = divisione.handle(1);
  const int prima = schermo.control("registro").height();
  QTest::mousePress(bordo, Qt::LeftButton);
  QTest::mouseMove(bordo, bordo->rect().center() - QPoint(0, 60));
  QTest::mouseRelease(bordo, Qt::LeftButton, {}, bordo->rect().center());
  const int alta = schermo.control("registro").height();
  EXPECT_GT(alta, prima + 30);
  schermo.window().resize(1010, 900);
  QCoreApplication::processEvents();
  EXPECT_EQ(schermo.control("registro").height(), alta);
}

TEST_F(Console, ITastiStannoNeiSuggerimentiEAvviaSpentoDicePerche) {
  const GuidedScreen schermo = console();
  EXPECT_EQ(schermo.control(kAvvia).toolTip(),
            QStringLiteral("Prima collegarsi alla cassa o scegliere una porta"));
  EXPECT_EQ(schermo.control(kEsci).toolTip(),
            QStringLiteral("Chiude, e offre di aprire il file letto (Esc)"));
  pick(schermo, "cboPort", QStringLiteral("COM  7"));
  EXPECT_EQ(schermo.control(kAvvia).toolTip(), QStringLiteral("Chiede i dati alla cassa (F9)"));
}

// What can be set

TEST_F(Console, SiAccendeSoloQuelloCheServeAllaLettura) {
  struct Caso {
    std::vector<const char*> scelte;
    bool fonti;
    bool ricerche;
    bool date;
    bool numeri;
    bool scontrino;
  };
  const char* stato = "vkOptionButton_RX_STATO_ECR";
  const char* memorie = "vkOptionButton_Rx_PRG";
  const char* dgfe = "vkOptionButton_DGFE";
  const char* mf = "vkOptionButton_MF";
  const char* globale = "vkOptionButtonGlobale";
  const char* perDate = "vkOptionButtonPerDate";
  const char* perNumeri = "vkOptionButtonPerScontrini";
  const std::vector<Caso> casi{
      {{stato}, false, false, false, false, false},
      {{memorie}, true, true, false, false, false},
      {{memorie, dgfe, globale}, true, true, false, false, false},
      {{memorie, dgfe, perDate}, true, true, true, false, false},
      {{memorie, dgfe, perNumeri}, true, true, false, true, true},
      {{memorie, mf, perNumeri}, true, true, false, true, false},
      {{memorie, mf, perDate}, true, true, true, false, false},
      {{memorie, mf, perNumeri, dgfe}, true, true, false, true, true},
      {{memorie, dgfe, perNumeri, mf}, true, true, false, true, false},
      {{memorie, dgfe, perNumeri, globale}, true, true, false, false, false},
      {{memorie, dgfe, perNumeri, stato}, false, false, false, false, false},
      {{memorie, dgfe, perNumeri, stato, memorie}, true, true, false, true, true},
  };
  for (std::size_t caso = 0; caso < casi.size(); ++caso) {
    const GuidedScreen schermo = console();
    picks(schermo, casi[caso].scelte);
    const auto attesi = [&](const std::vector<const char*>& nomi, bool accesi) {
      for (const char* nome : nomi)
        EXPECT_EQ(schermo.enabled(QLatin1String(nome)), accesi) << "case " << caso << " " << nome;
    };
    attesi({dgfe, mf}, casi[caso].fonti);
    attesi({globale, perDate, perNumeri}, casi[caso].ricerche);
    attesi({"CmbGiorno", "CmbMese", "CmbAnno", "CmbGiornoFine", "CmbMeseFine", "CmbAnnoFine"},
           casi[caso].date);
    attesi({"vkTextBoxNum1", "vkTextBoxNum2", "Label_vkTextBoxNum1", "Label_vkTextBoxNum2"},
           casi[caso].numeri);
    attesi({"ComboGiornoScont", "ComboMeseScont", "ComboAnnoScont"}, casi[caso].scontrino);
    esci(schermo, false);
  }
}

TEST_F(Console, SceltaUnaPortaSiAvviaENonCiSiConnette) {
  const GuidedScreen schermo = serialConsole();
  EXPECT_EQ(commonForKora().IP_ECR, QString());
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  pick(schermo, "cboPort", QStringLiteral("Seleziona"));
  EXPECT_TRUE(schermo.enabled(kConnetti));
  EXPECT_TRUE(schermo.enabled(kAvvia)) << "stays as it was";
}

TEST_F(Console, INumeriSonoCifreEFuoriDaiLimitiLaCasellaSiSvuotaETieneIlFuoco) {
  const GuidedScreen schermo = console();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonPerScontrini"});
  const QString primo = QStringLiteral("vkTextBoxNum1");
  schermo.type(primo, QStringLiteral("1a2,3"));
  EXPECT_EQ(schermo.text(primo), QStringLiteral("123"));
  for (const char* fuori : {"0", "65537", "99999", "00000"}) {
    schermo.type(primo, QLatin1String(fuori));
    QTest::keyClick(&schermo.control(primo), Qt::Key_Tab);
    expectBoxes(program, {box(QStringLiteral("Attenzione il numero deve essere compreso tra 1 e 65536!!!"),
                              Icon::Warning)});
    EXPECT_EQ(schermo.text(primo), QString()) << fuori;
    EXPECT_TRUE(QTest::qWaitFor([&] { return schermo.focus() == primo; })) << fuori;
  }
  for (const char* dentro : {"1", "65536", "00042", ""}) {
    schermo.type(primo, QLatin1String(dentro));
    QTest::keyClick(&schermo.control(primo), Qt::Key_Tab);
    expectBoxes(program, {});
    EXPECT_EQ(schermo.text(primo), QLatin1String(dentro));
    EXPECT_NE(schermo.focus(), primo);
  }
}

// What is refused

TEST_F(Console, SenzaSceltaAvviaLoDice) {
  rifiutata(serialConsole(), box(QStringLiteral("Selezionare una delle opzioni !!!"), Icon::Information));
}

TEST_F(Console, SenzaFonteOSenzaRicercaAvviaLoDice) {
  const GuidedScreen schermo = serialConsole();
  const Box scegli = box(QStringLiteral("Selezionare una delle opzioni !!!"), Icon::Information);
  picks(schermo, {"vkOptionButton_Rx_PRG"});
  rifiutata(schermo, scegli);
  picks(schermo, {"vkOptionButton_MF"});
  rifiutata(schermo, scegli);
}

TEST_F(Console, ConLaPortaRimessaASelezionaAvviaLoDicePerStatoEPerMemorie) {
  const GuidedScreen schermo = serialConsole();
  pick(schermo, "cboPort", QStringLiteral("Seleziona"));
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  rifiutata(schermo, kNessunaPorta);
  picks(schermo, kTuttoDGFE);
  rifiutata(schermo, kNessunaPorta);
}

TEST_F(Console, SenzaDataDelloScontrinoNonSuccedeNulla) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerScontrini"});
  schermo.control<QComboBox>("ComboMeseScont").setCurrentIndex(-1);
  schermo.click(kAvvia);
  expectBoxes(program, {});
  EXPECT_EQ(peer.received(), QByteArray());
  EXPECT_TRUE(schermo.enabled(kAvvia));
  picks(schermo, {"vkOptionButton_MF", "vkOptionButtonGlobale"});
  EXPECT_EQ(comando(schermo), "X\"000101991201\"12F") << "the fiscal memory needs none";
  esci(schermo, true);
}

TEST_F(Console, UnaDataInizioDopoLaFineSiRifiutaColSuoNumero) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerDate"});
  data(schermo, QStringLiteral("01"), QStringLiteral("01"), QStringLiteral("2005"), QString());
  data(schermo, QStringLiteral("31"), QStringLiteral("12"), QStringLiteral("2004"), QStringLiteral("Fine"));
  rifiutata(schermo, criticalBox(QStringLiteral("Attenzione la data inizio  > data fine .")));
}

TEST_F(Console, UnGiornoCheNonCESiRifiutaAllInizioEAllaFine) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonPerDate"});
  const auto con = [&](const char* giorno, const char* mese, const char* anno, const QString& quale) {
    data(schermo, QLatin1String(giorno), QLatin1String(mese), QLatin1String(anno), quale);
  };
  con("31", "04", "2005", {});
  con("31", "12", "2005", QStringLiteral("Fine"));
  rifiutata(schermo, criticalBox(QStringLiteral("ATTENZIONE Errore il mese inserito e' di 30 giorni ")));
  con("01", "01", "2005", {});
  con("29", "02", "2005", QStringLiteral("Fine"));
  rifiutata(schermo, criticalBox(QStringLiteral("ATTENZIONE Errore febbraio è di 28 giorni")));
  con("30", "02", "2008", QStringLiteral("Fine"));
  rifiutata(schermo, criticalBox(QStringLiteral("ATTENZIONE Errore febbraio è di 29 giorni")));
}

TEST_F(Console, SenzaUnNumeroOColPrimoMaggioreDelSecondoSiRifiuta) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerScontrini"});
  const Box manca = box(QStringLiteral("Attenzione inserire il numero di scontrino."), Icon::Warning);
  rifiutata(schermo, manca);
  schermo.type(QStringLiteral("vkTextBoxNum1"), QStringLiteral("10"));
  rifiutata(schermo, manca);
  schermo.type(QStringLiteral("vkTextBoxNum2"), QStringLiteral("9"));
  rifiutata(schermo, criticalBox(QStringLiteral(
                         "Attenzione il numero del primo scontrino e' > numero del secondo scontrino.")));
}

TEST_F(Console, F9GuardaIlNumeroCheNonSiELasciato) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonPerScontrini"});
  schermo.type(QStringLiteral("vkTextBoxNum1"), QStringLiteral("1"));
  schermo.type(QStringLiteral("vkTextBoxNum2"), QStringLiteral("99999"));
  QTest::keyClick(&schermo.control("vkTextBoxNum2"), Qt::Key_F9);
  expectBoxes(program, {box(QStringLiteral("Attenzione il numero deve essere compreso tra 1 e 65536!!!"),
                            Icon::Warning)});
  EXPECT_EQ(peer.received(), QByteArray());
  EXPECT_EQ(schermo.text(QStringLiteral("vkTextBoxNum2")), QString());
  EXPECT_TRUE(schermo.enabled(kAvvia));
}

// What goes out

TEST_F(Console, LaRicercaGlobaleManda000101E991201) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  EXPECT_EQ(comando(schermo), "X\"000101991201\"10F");
  esci(schermo, true);
}

TEST_F(Console, LaRicercaGlobaleDellaMFE12F) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonGlobale"});
  EXPECT_EQ(comando(schermo), "X\"000101991201\"12F");
  EXPECT_EQ(read(QStringLiteral("MF_07032024_090501.txt")), kTestaMF + kFine);
  esci(schermo, true);
}

TEST_F(Console, PerDateVannoAnnoMeseGiorno) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerDate"});
  data(schermo, QStringLiteral("02"), QStringLiteral("01"), QStringLiteral("2009"), QString());
  data(schermo, QStringLiteral("15"), QStringLiteral("03"), QStringLiteral("2009"), QStringLiteral("Fine"));
  EXPECT_EQ(comando(schermo), "X\"090102090315\"10F");
  esci(schermo, true);
}

TEST_F(Console, LoStessoGiornoComeInizioEFineVa) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonPerDate"});
  EXPECT_EQ(comando(schermo), "X\"240307240307\"12F");
  esci(schermo, true);
}

TEST_F(Console, PerNumeriIlGiornaleHaLaDataEIlMassimoRestaDiCinqueCifre) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_DGFE", "vkOptionButtonPerScontrini"});
  schermo.type(QStringLiteral("vkTextBoxNum1"), QStringLiteral("1"));
  schermo.type(QStringLiteral("vkTextBoxNum2"), QStringLiteral("65536"));
  data(schermo, QStringLiteral("15"), QStringLiteral("03"), QStringLiteral("2009"), QStringLiteral("Scont"));
  EXPECT_EQ(comando(schermo), "X\"0903150000165536\"11F");
  esci(schermo, true);
}

TEST_F(Console, PerNumeriLaMFNonHaData) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonPerScontrini"});
  schermo.type(QStringLiteral("vkTextBoxNum1"), QStringLiteral("1"));
  schermo.type(QStringLiteral("vkTextBoxNum2"), QStringLiteral("65536"));
  EXPECT_EQ(comando(schermo), "X\"0000165536\"13F");
  esci(schermo, true);
}

TEST_F(Console, AllaVelocitaSceltaELaPortaSiRiapre) {
  const GuidedScreen schermo = serialConsole();
  pick(schermo, "Combo2", QStringLiteral("19200"));
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  EXPECT_EQ(peer.speed(), 19200);
}

// The state

TEST_F(Console, LoStatoSerialeSiApreERidaIComandi) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  bool spenti = false;
  bool attesa = false;
  peer.onArrival = [&] {
    spenti = !schermo.enabled(kAvvia) && !schermo.enabled(kEsci) && !schermo.enabled(kPorta) &&
             !schermo.enabled(QStringLiteral("vkOptionButton_Rx_PRG")) &&
             !schermo.enabled(QStringLiteral("menubar"));
    attesa = open("Form_ATTESA_MF_DGFE");
    peer.say("X89F" + kRecord);
  };
  schermo.click(kAvvia);
  EXPECT_TRUE(spenti);
  EXPECT_TRUE(attesa);
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  ASSERT_TRUE(open("Form_STATO_ECR"));
  const GuidedScreen stato(*program.screens.trova(QStringLiteral("Form_STATO_ECR")));
  EXPECT_EQ(stato.text(QStringLiteral("vkTextBox_Matricola")), QStringLiteral("7700123"));
  for (const char* nome : {"Cmd_Avvia", "Cmd_Esci", "cboPort", "vkOptionButton_Rx_PRG", "menubar"})
    EXPECT_TRUE(schermo.enabled(QLatin1String(nome))) << nome;
  EXPECT_EQ(foot(schermo), QStringLiteral("Letto lo stato della cassa"));
  EXPECT_EQ(schermo.focus(), kEsci) << "a keyboard is left nowhere";
  EXPECT_EQ(funzioniCmdXonXoff().FlagDump, 0);
}

TEST_F(Console, LoStatoLettoDiNuovoMostraQuelloNuovo) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  QByteArray altro = kRecord;
  altro.replace("7700123", "7700999");
  peer.answers("X89FX89F", "X89F" + altro);
  schermo.click(kAvvia);
  const GuidedScreen stato(*program.screens.trova(QStringLiteral("Form_STATO_ECR")));
  EXPECT_EQ(stato.text(QStringLiteral("vkTextBox_Matricola")), QStringLiteral("7700999"));
}

TEST_F(Console, UnaCassaMutaMostraLoStatoDiPrimaELoDice) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  scadeAlComando();
  schermo.click(kAvvia);
  EXPECT_TRUE(open("Form_STATO_ECR"));
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(foot(schermo), QStringLiteral("La cassa non ha risposto: lo stato mostrato è quello di prima"));
}

TEST_F(Console, LaFinestraDelloStatoVaViaConLaConsole) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  esci(schermo, false);
  EXPECT_FALSE(open("Form_STATO_ECR"));
}

TEST_F(Console, LoStatoDiReteSiApreAncheDueVolteUguale) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord}}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  for (int volta = 0; volta < 2; ++volta) {
    schermo.click(kAvvia);
    EXPECT_EQ(foot(schermo), QStringLiteral("Letto lo stato della cassa"));
    EXPECT_TRUE(open("Form_STATO_ECR"));
  }
  EXPECT_EQ(cassa.sequences(), texts({"X89F", "X89F"}));
  esci(schermo, false);
}

TEST_F(Console, UnaRispostaDiReteDiAltraLunghezzaMostraLoStatoDiPrimaSenzaMessaggi) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord + "+"}}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  schermo.click(kAvvia);
  expectBoxes(program, {});
  EXPECT_TRUE(open("Form_STATO_ECR"));
  EXPECT_EQ(foot(schermo), QStringLiteral("La cassa ha risposto altro: lo stato mostrato è quello di prima"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  esci(schermo, false);
}

TEST_F(Console, LeDueSpieSiScambianoESiSpengono) {
  const GuidedScreen schermo = serialConsole();
  EXPECT_EQ(colore(schermo, "LedDati"), QStringLiteral("#404040"));
  EXPECT_EQ(colore(schermo, "LedDati2"), QStringLiteral("#404040"));
  picks(schermo, kTuttoDGFE);
  QStringList viste;
  peer.onArrival = [&] {
    if (!peer.received().endsWith('F')) return;
    peer.say("a");
    steps.when([] { return varGlobal().BufferRx == QStringLiteral("a"); },
               [&] {
                 viste << colore(schermo, "LedDati") << colore(schermo, "LedDati2");
                 peer.say("b");
               });
    steps.when([] { return varGlobal().BufferRx == QStringLiteral("b"); },
               [&] {
                 viste << colore(schermo, "LedDati") << colore(schermo, "LedDati2");
                 peer.say(kFine);
               });
  };
  schermo.click(kAvvia);
  EXPECT_EQ(viste, texts({"#00ff00", "#c0c0c0", "#c0c0c0", "#00ff00"}));
  EXPECT_EQ(colore(schermo, "LedDati"), QStringLiteral("#404040"));
  EXPECT_EQ(colore(schermo, "LedDati2"), QStringLiteral("#404040"));
  esci(schermo, true);
}

// The network

TEST_F(Console, ConnessaLaReteLaPortaELaVelocitaSiChiudono) {
  KeysTill cassa;
  const GuidedScreen schermo = networkConsole(cassa.address());
  EXPECT_EQ(commonForKora().IP_ECR, cassa.address());
  EXPECT_EQ(cassa.opened(), 1);
  EXPECT_FALSE(schermo.enabled(kPorta));
  EXPECT_FALSE(schermo.enabled(QStringLiteral("Combo2")));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(foot(schermo).startsWith(QStringLiteral("Collegato a ") + cassa.address()));
  esci(schermo, false);
}

TEST_F(Console, MentreSiAspettaLaReteIlPiedeLoDiceConIlLimite) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord}}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  QString detto;
  program.user.onPass = [&] { detto = foot(schermo); };
  schermo.click(kAvvia);
  program.user.onPass = nullptr;
  EXPECT_TRUE(detto.startsWith(QStringLiteral("Attesa dei dati della cassa … (fino a ")))
      << detto.toStdString();
  EXPECT_EQ(foot(schermo), QStringLiteral("Letto lo stato della cassa"));
  esci(schermo, false);
}

TEST_F(Console, UnaConnessioneNonRiuscitaLasciaLaPorta) {
  const GuidedScreen schermo = console();
  schermo.typeAddress(QStringLiteral("1.2.3"));
  schermo.click(kConnetti);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Attenzione l'indirizzo IP del dispositivo ECR da connettere "
                                          "al PC potrebbe essere errato"))});
  EXPECT_TRUE(schermo.enabled(kPorta));
  EXPECT_TRUE(schermo.enabled(QStringLiteral("Combo2")));
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
}

TEST_F(Console, UnCollegamentoRifiutatoSiDiceELePorteRestanoChiuse) {
  KeysTill cassa({}, 7);
  const GuidedScreen schermo = console();
  schermo.typeAddress(cassa.address());
  schermo.click(kConnetti);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Comando rifiutato nello "
                                          "stato attuale della cassa"))});
  EXPECT_EQ(commonForKora().hConnXonXoff, -7);
  EXPECT_EQ(commonForKora().IP_ECR, cassa.address());
  EXPECT_TRUE(schermo.enabled(kConnetti));
  EXPECT_FALSE(schermo.enabled(kPorta));
  EXPECT_FALSE(schermo.enabled(QStringLiteral("Combo2")));
}

TEST_F(Console, DopoUnRifiutoSiRiprovaSoloRientrando) {
  KeysTill rifiuta({}, 7);
  KeysTill accetta;
  const Box perche =
      criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Comando rifiutato nello "
                                 "stato attuale della cassa"));
  {
    const GuidedScreen schermo = console();
    for (const QString& indirizzo : {rifiuta.address(), accetta.address()}) {
      schermo.typeAddress(indirizzo);
      schermo.click(kConnetti);
      expectBoxes(program, {perche});
      EXPECT_EQ(commonForKora().IP_ECR, indirizzo);
      EXPECT_EQ(commonForKora().hConnXonXoff, -7) << "the code of the refusal stays";
    }
    EXPECT_EQ(accetta.opened(), 0);
    EXPECT_FALSE(schermo.enabled(kPorta));
    schermo.typeAddress(QStringLiteral("1.2.3"));
    schermo.click(kConnetti);
    program.takeBoxes();
    EXPECT_TRUE(schermo.enabled(kPorta)) << "without an address the ports are there again";
    EXPECT_TRUE(schermo.enabled(QStringLiteral("Combo2")));
    esci(schermo, false);
  }
  const GuidedScreen schermo = networkConsole(accetta.address());
  EXPECT_EQ(accetta.opened(), 1);
  esci(schermo, false);
}

TEST_F(Console, ConUnCollegamentoRifiutatoLoStatoVaInReteENonSullaPorta) {
  KeysTill cassa({}, 7);
  const GuidedScreen schermo = console();
  schermo.typeAddress(cassa.address());
  schermo.click(kConnetti);
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  program.takeBoxes();
  schermo.click(kAvvia);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore nella comunicazione con ECR: Collegamento non aperto"))});
  EXPECT_EQ(peer.received(), QByteArray());
  EXPECT_TRUE(open("Form_STATO_ECR")) << "as it was known before";
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(Console, UscendoPrimaSiScollegaEPoiSiVedeIlMenu) {
  KeysTill cassa;
  const GuidedScreen schermo = networkConsole(cassa.address());
  EXPECT_EQ(menusShown, 0);
  esci(schermo, false);
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  EXPECT_EQ(menusShown, 1);
  EXPECT_EQ(linkAtMenu, 0) << "closed before";
  EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.closed() == 1; }));
}

TEST_F(Console, ChiusaDallaCornicePrimaSiScollegaEPoiSiVedeIlMenu) {
  KeysTill cassa;
  const GuidedScreen schermo = networkConsole(cassa.address());
  schermo.window().close();
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  EXPECT_EQ(menusShown, 1);
  EXPECT_EQ(linkAtMenu, 0) << "closed before";
  EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.closed() == 1; }));
}

// The dump

TEST_F(Console, UnDumpSerialeHaLaTestaPoiIlFlussoEFinisceDaSolo) {
  const GuidedScreen schermo = serialConsole();
  pick(schermo, "Combo2", QStringLiteral("19200"));
  picks(schermo, kTuttoDGFE);
  varGlobal().BufferRisposta = QStringLiteral("X89F di prima");
  bool attesa = false;
  QString nome;
  QByteArray testa;
  peer.onArrival = [&] {
    if (!peer.received().endsWith("10F")) return;
    attesa = open("Form_ATTESA_MF_DGFE");
    nome = schermo.text(QStringLiteral("LabelNomeFileDUMP"));
    testa = read(kNome);
    peer.say("GIORNALE\r\n" + QByteArray(45, '@') + "x" + kFine);
  };
  schermo.click(kAvvia);
  EXPECT_TRUE(attesa);
  EXPECT_EQ(nome, QStringLiteral("Creazione del file ") + kNome);
  EXPECT_EQ(testa, kTestaDGFE) << "before the stream";
  EXPECT_EQ(varGlobal().BufferRisposta, QString());
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_EQ(read(kNome), kTestaDGFE + "GIORNALE\r\n" + QByteArray(45, '@') + "x" + kFine);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(open("Form_STATO_ECR"));
  EXPECT_EQ(foot(schermo),
            QStringLiteral("Letto nel file %1: uscire con Esci/Visualizza File per vederlo").arg(kNome));
  EXPECT_GT(funzioniCmdXonXoff().NumFileDump, 0) << "open until the exit";
  esci(schermo, true);
  EXPECT_EQ(funzioniCmdXonXoff().NumFileDump, 0);
}

TEST_F(Console, LeChioccioleDiUnDumpInterrottoNonContanoPerQuelloDopo) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  funzioniCmdXonXoff().ContaFine = 40;
  bool ancora = false;
  peer.onArrival = [&] {
    if (!peer.received().endsWith('F')) return;
    peer.say(QByteArray(6, '@'));
    steps.when([this] { return read(kNome).endsWith("@@@@@@"); },
               [&] {
                 ancora = open("Form_ATTESA_MF_DGFE");
                 peer.say("x" + kFine);
               });
  };
  schermo.click(kAvvia);
  EXPECT_TRUE(ancora);
  EXPECT_EQ(read(kNome), kTestaDGFE + "@@@@@@x" + kFine);
  esci(schermo, true);
}

TEST_F(Console, UnDumpDiReteEFattoDiBlocchi) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {"righe", "coda" + kFine}}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, {"vkOptionButton_Rx_PRG", "vkOptionButton_MF", "vkOptionButtonGlobale"});
  schermo.click(kAvvia);
  EXPECT_EQ(cassa.sequences(), texts({"X\"000101991201\"12F"}));
  EXPECT_EQ(read(QStringLiteral("MF_07032024_090501.txt")),
            kTestaMF + QByteArray("righe").leftJustified(1024, ' ') +
                QByteArray("coda" + kFine).leftJustified(1024, ' ') + kFine);
  EXPECT_TRUE(schermo.enabled(kAvvia));
  esci(schermo, true);
}

TEST_F(Console, UnDumpDiReteInterrottoNonSiDiceLetto) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {"meta"}, true}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, kTuttoDGFE);
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral(
                           "Errore nella comunicazione con ECR: Collegamento con la cassa interrotto"))});
  EXPECT_EQ(foot(schermo),
            QStringLiteral("Lettura interrotta: quello che è arrivato è nel file %1").arg(kNome));
  EXPECT_EQ(read(kNome), kTestaDGFE + QByteArray("meta").leftJustified(1024, ' '));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  esci(schermo, true);
}

TEST_F(Console, DopoIlSilenzioAvviaRestaSpentoEsciTornaEQuelloCheArrivaSiScrive) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  scadeAlComando();
  schermo.click(kAvvia);
  EXPECT_FALSE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_EQ(foot(schermo),
            QStringLiteral("La cassa non ha ancora risposto: quello che arriva va nel file %1").arg(kNome));
  peer.onArrival = nullptr;
  peer.say("TARDI" + kFine);
  EXPECT_TRUE(QTest::qWaitFor([&] { return schermo.enabled(kAvvia); }));
  EXPECT_EQ(read(kNome), kTestaDGFE + "TARDI" + kFine);
  EXPECT_EQ(foot(schermo),
            QStringLiteral("Letto nel file %1: uscire con Esci/Visualizza File per vederlo").arg(kNome));
  esci(schermo, true);
}

TEST_F(Console, UnSecondoDumpHaUnFileSuo) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.answers("F", "primo" + kFine);
  schermo.click(kAvvia);
  program.clock.set(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 2)));
  peer.onArrival = [this] {
    if (peer.received().count('F') == 2 && peer.received().endsWith('F')) peer.say("secondo" + kFine);
  };
  schermo.click(kAvvia);
  EXPECT_EQ(files(QStringLiteral("DGFE_*.txt")),
            texts({"DGFE_07032024_090501.txt", "DGFE_07032024_090502.txt"}));
  EXPECT_EQ(read(kNome), kTestaDGFE + "primo" + kFine);
  EXPECT_TRUE(read(QStringLiteral("DGFE_07032024_090502.txt")).endsWith("secondo" + kFine));
  esci(schermo, true);
}

TEST_F(Console, UnDumpNelloStessoSecondoNonCopreQuelloDiPrima) {
  write(kNome, "quello di prima");
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: *"))});
  EXPECT_EQ(schermo.text(QStringLiteral("LabelNomeFileDUMP")), QStringLiteral("Creazione del file ") + kNome)
      << "told before it is tried";
  EXPECT_EQ(read(kNome), "quello di prima");
  EXPECT_EQ(peer.received(), QByteArray());
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  esci(schermo, false);
}

TEST_F(Console, UnDiscoPienoFermaIlDumpELoDiceUnaVoltaSola) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.answers("F", QByteArray(9000, 'x') + kFine);
  {
    const FullDisk pieno(4096);
    schermo.click(kAvvia);
  }
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: *"))});
  EXPECT_TRUE(foot(schermo).startsWith(QStringLiteral("Errore sulla porta COM: ")));
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(read(kNome).size(), 4096);
  esci(schermo, true);
}

TEST_F(Console, IlDumpDellaCassaSimulataArrivaSuTuttiEDueIVettori) {
  TestTill cassa;
  ASSERT_TRUE(QDir().mkpath(app(QStringLiteral("Porte"))));
  cassa->openSerial(app(QStringLiteral("Porte/COM3")).toStdString());
  {
    const GuidedScreen schermo = console();
    pick(schermo, "cboPort", QStringLiteral("COM  3"));
    picks(schermo, kTuttoDGFE);
    schermo.click(kAvvia);
    EXPECT_EQ(varGlobal().FlagRisposta, auxcmd::kCompleta);
    esci(schermo, true);
  }
  const QByteArray seriale = read(kNome);
  EXPECT_TRUE(seriale.endsWith(kFine));
  program.clock.set(QDateTime(QDate(2024, 3, 7), QTime(9, 5, 2)));
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, kTuttoDGFE);
  schermo.click(kAvvia);
  EXPECT_TRUE(read(QStringLiteral("DGFE_07032024_090502.txt")).endsWith(kFine));
  esci(schermo, true);
}

// A port that fails

TEST_F(Console, UnaPortaSparitaPrimaSiDiceERidaIComandi) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  const QString sparita = app(QStringLiteral("Porte/COM7"));
  peer.unplug();
  schermo.click(kAvvia);
  expectBoxes(program,
              {criticalBox(QStringLiteral("Errore sulla porta COM: La porta %1 non c'è").arg(sparita))});
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_FALSE(open("Form_STATO_ECR"));
  EXPECT_EQ(foot(schermo), QStringLiteral("Errore sulla porta COM: La porta %1 non c'è").arg(sparita));
}

TEST_F(Console, UnaPortaPresaDaUnAltroSiDice) {
  SerialPort altro;
  altro.open(peer.path(), 9600);
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  schermo.click(kAvvia);
  expectBoxes(program, {criticalBox(QStringLiteral("Errore sulla porta COM: Porta già aperta da un altro "
                                                   "programma: %1")
                                        .arg(peer.path()))});
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  esci(schermo, true);
}

TEST_F(Console, UnaPortaSenzaDirittoDiceCheGruppoServe) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  for (const QString& cartella : {cartella_.path(), app(QStringLiteral("Porte"))})
    ASSERT_TRUE(QFile::setPermissions(cartella, kDiTutti));
  ASSERT_TRUE(QFile::setPermissions(peer.path(), {}));
  {
    const NessunDiritto altro;
    schermo.click(kAvvia);
  }
  const std::vector<Box> viste = program.takeBoxes();
  ASSERT_EQ(viste.size(), 1U);
  EXPECT_EQ(viste[0].icon, Icon::Critical);
  EXPECT_TRUE(viste[0].text.startsWith(
      QStringLiteral("Errore sulla porta COM: Nessun diritto sulla porta %1: serve il gruppo ")
          .arg(peer.path())))
      << viste[0].text.toStdString();
  EXPECT_TRUE(schermo.enabled(kAvvia));
}

TEST_F(Console, UnaPortaCheSparisceLeggendoLoStatoToglieLAttesaERidaIComandi) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.onArrival = [this] { peer.unplug(); };
  schermo.click(kAvvia);
  expectBoxes(program, {});
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_TRUE(open("Form_STATO_ECR"));
  EXPECT_EQ(foot(schermo), QStringLiteral("La linea si è interrotta: lo stato mostrato è quello di prima"));
}

TEST_F(Console, UnaPortaCheSparisceNelDumpToglieLAttesaELasciaUscire) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.onArrival = [this] {
    if (!peer.received().endsWith('F')) return;
    peer.say("meta");
    steps.when([this] { return read(kNome).endsWith("meta"); }, [this] { peer.unplug(); });
  };
  schermo.click(kAvvia);
  expectBoxes(program, {});
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_EQ(foot(schermo),
            QStringLiteral("Lettura interrotta: quello che è arrivato è nel file %1").arg(kNome));
  EXPECT_EQ(read(kNome), kTestaDGFE + "meta");
  esci(schermo, true);
}

// The way out

TEST_F(Console, EsciSenzaFileNonChiedeNulla) {
  const GuidedScreen schermo = serialConsole();
  esci(schermo, false);
  EXPECT_EQ(menusShown, 1);
}

TEST_F(Console, EsciColFileChiedeEAnnullaChiudeLoStesso) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  comando(schermo);
  program.user.answers(Answer::Cancel);
  schermo.click(kEsci);
  expectBoxes(program, {domandaFile(kNome)});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(files(QStringLiteral("DGFE_*.txt")), texts({"DGFE_07032024_090501.txt"}));
  EXPECT_TRUE(program.user.programs().isEmpty());
  EXPECT_EQ(menusShown, 1);
}

TEST_F(Console, EsciColFileRispostoOkLoFaScegliereELoApre) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  comando(schermo);
  program.user.answers(Answer::Ok).chooses(app(kNome));
  schermo.click(kEsci);
  expectBoxes(program, {domandaFile(kNome)});
  ASSERT_EQ(program.user.requests().size(), 1U);
  EXPECT_EQ(program.user.requests()[0].filter, QStringLiteral("txt (*.txt)|*.txt"));
  EXPECT_EQ(program.user.requests()[0].folder, cartella_.path());
  ASSERT_EQ(program.user.programs().size(), 1);
  EXPECT_TRUE(program.user.programs()[0].endsWith(app(kNome)));
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
}

TEST_F(Console, EsciRispostoOkSenzaScegliereChiudeEBasta) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  comando(schermo);
  program.user.answers(Answer::Ok).chooses(std::nullopt);
  schermo.click(kEsci);
  program.takeBoxes();
  EXPECT_TRUE(program.user.programs().isEmpty());
  EXPECT_FALSE(schermo.alive());
}

TEST_F(Console, UscendoLaPortaSiChiudeENonVaAltro) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  esci(schermo, false);
  EXPECT_EQ(peer.received(), "X89F") << "no abort";
  SerialPort altro;
  altro.open(peer.path(), 9600);
  EXPECT_TRUE(altro.isOpen());
}

TEST_F(Console, EscEsceEF9Avvia) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.key(Qt::Key_F9);
  EXPECT_EQ(peer.received(), "X89F");
  QTest::keyClick(&schermo.window(), Qt::Key_Escape);
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
}

TEST_F(Console, ChiudereLAttesaSerialeChiudeLaConsoleEMostraIlMenu) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.onArrival = [this] {
    if (!peer.received().endsWith('F')) return;
    peer.say("prima");
    steps.when([this] { return read(kNome).endsWith("prima"); },
               [this] {
                 program.screens.trova(QStringLiteral("Form_ATTESA_MF_DGFE"))->close();
                 peer.say("dopo");
               });
  };
  schermo.click(kAvvia);
  QCoreApplication::processEvents();
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_FALSE(open("Form_Comandi_XONXOFF"));
  EXPECT_EQ(read(kNome), kTestaDGFE + "prima");
  SerialPort altro;
  altro.open(peer.path(), 9600);
  EXPECT_TRUE(altro.isOpen()) << "the port was let go";
}

TEST_F(Console, ChiusaDallaCorniceNelMezzoSerialeMostraIlMenuELasciaLaPorta) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.onArrival = [&] { schermo.window().close(); };
  schermo.click(kAvvia);
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_FALSE(open("Form_STATO_ECR"));
  SerialPort altro;
  altro.open(peer.path(), 9600);
  EXPECT_TRUE(altro.isOpen());
}

TEST_F(Console, ChiusaNelMezzoDiUnDumpDiReteSiScollegaENonScrivePiu) {
  // What is there comes together: the rest stays with the till until the person has closed.
  QSemaphore chiusa;
  KeysTill cassa([&](const std::string&) {
    return KeysAnswer{0, {"uno", "due", kFine}, false, [&](qsizetype quale) {
                        if (quale == 1) chiusa.acquire();
                      }};
  });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, kTuttoDGFE);
  program.user.onPass = [&] {
    if (schermo.alive() && read(kNome).contains("uno")) schermo.window().close();
  };
  schermo.click(kAvvia);
  chiusa.release();
  program.user.onPass = nullptr;
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
  EXPECT_EQ(read(kNome), kTestaDGFE + QByteArray("uno").leftJustified(1024, ' '));
  EXPECT_TRUE(QTest::qWaitFor([&] { return cassa.closed() == 1; }));
}

TEST_F(Console, ChiusaDavveroMentreLaCassaDiReteTaceSiVedeIlMenu) {
  KeysTill cassa;
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, kTuttoDGFE);
  steps.when([&] { return cassa.sequences().size() == 1; }, [&] { schermo.window().close(); });
  schermo.click(kAvvia);
  expectBoxes(program, {});
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(menusShown, 1);
  EXPECT_EQ(commonForKora().hConnXonXoff, 0);
}

TEST_F(Console, ChiHaFrettaNonSpezzaUnaLettura) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.onArrival = [&] {
    if (!peer.received().endsWith('F')) return;
    for (const QString& nome : {kAvvia, kEsci, kPorta}) postClick(schermo.control(nome));
    QTest::keyClick(&schermo.window(), Qt::Key_F9);
    QTest::keyClick(&schermo.window(), Qt::Key_Escape);
    peer.say("tutto" + kFine);
  };
  schermo.click(kAvvia);
  EXPECT_TRUE(schermo.alive());
  EXPECT_EQ(peer.received(), "X\"000101991201\"10F");
  EXPECT_EQ(read(kNome), kTestaDGFE + "tutto" + kFine);
  esci(schermo, true);
}

TEST_F(Console, DueClickSuAvviaDiReteSonoUnaLettura) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {kRecord}}; });
  const GuidedScreen schermo = networkConsole(cassa.address());
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  program.user.onPass = [&] {
    program.user.onPass = nullptr;
    postClick(schermo.control(kAvvia));
  };
  schermo.click(kAvvia);
  QCoreApplication::processEvents();
  EXPECT_EQ(cassa.sequences(), texts({"X89F"}));
  esci(schermo, false);
}

TEST_F(Console, UnClicSuAvviaGrigioDuranteConnettiSiButtaENullaSiLegge) {
  KeysTill cassa([](const std::string&) { return KeysAnswer{0, {"righe", kFine}}; });
  const GuidedScreen schermo = console();
  picks(schermo, kTuttoDGFE);
  schermo.typeAddress(cassa.address());
  // The till has told about itself: "Avvia" is about to be on, and the channel is opened behind that.
  bool grigio = false;
  QObject::connect(&schermo.control<QLineEdit>("TextModello"), &QLineEdit::textChanged, [&] {
    grigio = !schermo.enabled(kAvvia);
    postClick(schermo.control(kAvvia));
  });
  schermo.click(kConnetti);
  ASSERT_TRUE(grigio);
  QCoreApplication::processEvents();
  expectBoxes(program, {});
  EXPECT_EQ(cassa.opened(), 1);
  EXPECT_EQ(cassa.sequences(), QStringList());
  EXPECT_TRUE(files(QStringLiteral("*.txt")).isEmpty());
  EXPECT_TRUE(foot(schermo).startsWith(QStringLiteral("Collegato a ") + cassa.address()));
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
  EXPECT_FALSE(schermo.enabled(kConnetti));
  postClick(schermo.control(kAvvia));
  QCoreApplication::processEvents();
  EXPECT_EQ(cassa.sequences(), texts({"X\"000101991201\"10F"}));
  esci(schermo, true);
}

TEST_F(Console, ChiusoIlProgrammaMentreUnDumpSerialeArrivaNonSiScrivePiu) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  peer.onArrival = [this] {
    if (!peer.received().endsWith('F')) return;
    peer.say("prima");
    steps.when([this] { return read(kNome).endsWith("prima"); },
               [this] {
                 QApplication::closeAllWindows();
                 peer.say("dopo" + kFine);
               });
  };
  schermo.click(kAvvia);
  QCoreApplication::processEvents();
  expectBoxes(program, {});
  EXPECT_FALSE(schermo.alive());
  EXPECT_FALSE(open("Form_ATTESA_MF_DGFE"));
  EXPECT_EQ(read(kNome), kTestaDGFE + "prima");
}

TEST_F(Console, ChiusaDallaCorniceIlFileDelDumpSiChiude) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, kTuttoDGFE);
  comando(schermo);
  EXPECT_GT(funzioniCmdXonXoff().NumFileDump, 0);
  schermo.window().close();
  EXPECT_EQ(funzioniCmdXonXoff().NumFileDump, 0);
  EXPECT_EQ(read(kNome), kTestaDGFE + kFine);
}

TEST_F(Console, ChiusaConUnaProvaApertaResteInPiediFinoAllaSuaFine) {
  const GuidedScreen schermo = serialConsole();
  QPointer<QWidget> finestra = &schermo.window();
  bool ancora = false;
  withModal([&] { schermo.window().findChild<QAction*>(QStringLiteral("mnuTestVendita"))->trigger(); },
            [&](QWidget& prova) {
              finestra->close();
              QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
              ancora = finestra != nullptr;
              GuidedScreen(prova).click(QStringLiteral("vkCommandEsci"));
            });
  EXPECT_TRUE(ancora) << "its slot still runs";
  EXPECT_EQ(menusShown, 1);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(finestra.isNull());
}

TEST_F(Console, LaLineaDopoLUscitaNonArrivaPiuANessuno) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  peer.say("X89F" + QByteArray(39, 'z') + kFine);
  esci(schermo, false);
  const QString prima = varGlobal().BufferRisposta;
  // Longer than a line holds characters back.
  QElapsedTimer orologio;
  orologio.start();
  while (orologio.elapsed() < 50) QCoreApplication::processEvents();
  EXPECT_EQ(varGlobal().BufferRisposta, prima);
  EXPECT_EQ(varGestionePRG().StatoECR[0], 'M');
}

// The menus

TEST_F(Console, SenzaCollegamentoLeProveNonSiApronoELoDicono) {
  const GuidedScreen schermo = console();
  for (const char* voce : {"mnuTestVendita", "mnuTestModificatori", "mnuTestFormePagamento", "mnuTestUtilita",
                           "mnuTestSeqCmd"}) {
    schermo.window().findChild<QAction*>(QLatin1String(voce))->trigger();
    expectBoxes(program, {kNessunaPorta});
  }
}

TEST_F(Console, ConUnaPortaOgniProvaSiApreEAllaSuaChiusuraLaConsoleECoComEra) {
  const GuidedScreen schermo = serialConsole();
  const QList<std::pair<const char*, const char*>> prove{
      {"mnuTestVendita", "Test comandi XON XOFF per la Vendita"},
      {"mnuTestModificatori", "Form Test Modificatori"},
      {"mnuTestFormePagamento", "Test sulle forme di pagamento"},
      {"mnuTestUtilita", "Test Utilità generali e rapporti"}};
  for (const auto& una : prove)
    withModal([&] { schermo.window().findChild<QAction*>(QLatin1String(una.first))->trigger(); },
              [&](QWidget& prova) {
                EXPECT_EQ(prova.windowTitle(), QString::fromUtf8(una.second));
                GuidedScreen(prova).click(QStringLiteral("vkCommandEsci"));
              });
  EXPECT_EQ(schermo.control<QComboBox>("cboPort").currentText(), QStringLiteral("COM  7"));
  EXPECT_TRUE(schermo.enabled(kAvvia));
}

TEST_F(Console, LaSequenzaDaFileSiMandaEPoiSiApreLaProvaLibera) {
  KeysTill cassa;
  const GuidedScreen schermo = networkConsole(cassa.address());
  write(QStringLiteral("mio.txt"), "1R\r\n\r\n2R\r\n");
  program.user.chooses(app(QStringLiteral("mio.txt")));
  withModal([&] { schermo.window().findChild<QAction*>(QStringLiteral("mnuTestSeqCmd"))->trigger(); },
            [&](QWidget& prova) {
              EXPECT_EQ(cassa.sequences(), texts({"1R", "2R"}));
              EXPECT_EQ(prova.objectName(), QStringLiteral("Form_Test"));
              GuidedScreen(prova).click(kEsci);
            });
  ASSERT_EQ(program.user.requests().size(), 1U);
  EXPECT_EQ(program.user.requests()[0].filter, QStringLiteral("txt (*.txt)|*.txt"));
  EXPECT_EQ(program.user.requests()[0].folder, cartella_.path());
  esci(schermo, false);
}

TEST_F(Console, SenzaFileScegliendoNullaSiApreLoStessoLaProvaLibera) {
  const GuidedScreen schermo = serialConsole();
  program.user.chooses(std::nullopt);
  withModal([&] { schermo.window().findChild<QAction*>(QStringLiteral("mnuTestSeqCmd"))->trigger(); },
            [&](QWidget& prova) { GuidedScreen(prova).click(kEsci); });
  EXPECT_EQ(peer.received(), QByteArray());
}

TEST_F(Console, MentreUnoScriptSerialeAspettaNonPartonoAltriComandi) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  write(QStringLiteral("mio.txt"), "1R\r\n");
  program.user.chooses(app(QStringLiteral("mio.txt")));
  peer.onArrival = [&] {
    if (peer.received() != "1R") return;
    EXPECT_TRUE(open("Form_ATTESA_MF_DGFE"));
    EXPECT_FALSE(schermo.enabled(kAvvia));
    EXPECT_FALSE(schermo.enabled(kEsci));
    QTest::keyClick(&schermo.window(), Qt::Key_F9);
    QTest::keyClick(&schermo.window(), Qt::Key_Escape);
    varGlobal().FlagRisposta = auxcmd::kTempoScaduto;
  };
  withModal([&] { schermo.window().findChild<QAction*>(QStringLiteral("mnuTestSeqCmd"))->trigger(); },
            [&](QWidget& prova) { GuidedScreen(prova).click(kEsci); });
  EXPECT_EQ(peer.received(), "1R");
  EXPECT_TRUE(schermo.alive());
  EXPECT_TRUE(schermo.enabled(kAvvia));
  EXPECT_TRUE(schermo.enabled(kEsci));
}

TEST_F(Console, ChiusaLAttesaDiUnoScriptSiVaAlMenuELaProvaNonSiApre) {
  const GuidedScreen schermo = serialConsole();
  write(QStringLiteral("mio.txt"), "1R\r\n2R\r\n");
  program.user.chooses(app(QStringLiteral("mio.txt")));
  peer.onArrival = [this] {
    steps.later([this] { program.screens.trova(QStringLiteral("Form_ATTESA_MF_DGFE"))->close(); });
  };
  schermo.window().findChild<QAction*>(QStringLiteral("mnuTestSeqCmd"))->trigger();
  EXPECT_FALSE(schermo.alive());
  EXPECT_EQ(peer.received(), "1R");
  EXPECT_EQ(menusShown, 1);
  EXPECT_FALSE(open("Form_Test"));
}

TEST_F(Console, ICodiciErroriSiApronoESenzaFileSiDiceCheMancano) {
  const GuidedScreen schermo = console();
  auto* voce = schermo.window().findChild<QAction*>(QStringLiteral("mnuCodiciErrori"));
  voce->trigger();
  expectBoxes(program,
              {plainBox(QStringLiteral("Attenzione il file di Help per errori Xon Xoff non presente"))});
  ASSERT_TRUE(QFile::copy(QStringLiteral(GESTIONALE_APP "/Help_Errori_XONXOFF.rtf"),
                          app(QStringLiteral("Help_Errori_XONXOFF.rtf"))));
  withModal([&] { voce->trigger(); },
            [&](QWidget& aiuto) {
              EXPECT_EQ(aiuto.objectName(), QStringLiteral("Form_Help_CodiciErrori"));
              GuidedScreen(aiuto).click(kEsci);
            });
}

// The log

TEST_F(Console, IlRegistroSiCopiaESiSalva) {
  const GuidedScreen schermo = serialConsole();
  picks(schermo, {"vkOptionButton_RX_STATO_ECR"});
  peer.answers("X89F", "X89F" + kRecord);
  schermo.click(kAvvia);
  schermo.click(QStringLiteral("Cmd_CopiaRegistro"));
  const QString testo = program.user.ClipboardText();
  EXPECT_TRUE(testo.contains(QStringLiteral("→ inviato   X89F"))) << testo.toStdString();
  EXPECT_TRUE(testo.contains(QStringLiteral("← ricevuto  X89FMISQZ17700123FAG0012")));
  EXPECT_EQ(foot(schermo), QStringLiteral("Registro copiato"));
  program.user.chooses(app(QStringLiteral("registro.txt")));
  schermo.click(QStringLiteral("Cmd_SalvaRegistro"));
  EXPECT_EQ(QString::fromUtf8(read(QStringLiteral("registro.txt"))), testo);
  ASSERT_EQ(program.user.requests().size(), 1U);
  EXPECT_TRUE(program.user.requests()[0].asksBeforeReplacing);
  EXPECT_TRUE(foot(schermo).startsWith(QStringLiteral("Registro salvato in ")));
  program.user.chooses(std::nullopt);
  schermo.click(QStringLiteral("Cmd_SalvaRegistro"));
  EXPECT_EQ(program.user.requests().size(), 2U);
  EXPECT_EQ(foot(schermo), QString()) << "nothing was saved";
}
