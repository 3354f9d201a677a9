#include "core/start.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QScopeGuard>
#include <QTimer>

#include "controls/picture_frame.h"
#include "controls/style.h"
#include "menu_fixture.h"

class Start : public MenuFixture {
 protected:
  /// Colour of the picture in `Image1`, told by its middle.
  QColor colore() {
    const QPixmap& mostrata = menu().findChild<PictureFrame*>(QStringLiteral("Image1"))->image();
    return mostrata.isNull() ? QColor() : mostrata.toImage().pixelColor(32, 24);
  }
  /// JPEG keeps a plain colour to a few units.
  bool mostra(QColor previsto) {
    const QColor visto = colore();
    return visto.isValid() && std::abs(visto.red() - previsto.red()) < 8 &&
           std::abs(visto.green() - previsto.green()) < 8 && std::abs(visto.blue() - previsto.blue()) < 8;
  }
  std::vector<std::string> evidenziate() {
    std::vector<std::string> nomi;
    for (const char* nome : kMenuEntries)
      if (entry(nome).look() == 1) nomi.emplace_back(nome);
    return nomi;
  }
};

TEST_F(Start, TitoloEScritteSonoQuelle) {
  EXPECT_EQ(menu().windowTitle(), QStringLiteral("Gestionale Misuratori Fiscali Qz s.r.l"));
  EXPECT_EQ(menu().objectName(), QStringLiteral("start"));
  EXPECT_EQ(entry("Label1").text(), QStringLiteral("Gestione Grafica"));
  EXPECT_EQ(entry("Label2").text(), QStringLiteral("Gestione Articoli MMC"));
  EXPECT_EQ(entry("Label3").text(), QStringLiteral(" Gestione Programmazione"));
  EXPECT_EQ(entry("Label7").text(), QStringLiteral("Gestione Clienti"));
  EXPECT_EQ(entry("Label_CMD_XONXOFF").text(), QStringLiteral(" Gestione Comandi Ausiliari ECR"));
  EXPECT_EQ(entry("Label6").text(), QStringLiteral("About"));
  EXPECT_EQ(entry("Label4").text(), QStringLiteral("Esci"));
}

TEST_F(Start, LeVociStannoSulRiquadroEGliAltriControlliCiSono) {
  auto* riquadro = menu().findChild<QFrame*>(QStringLiteral("vkFrame1"));
  ASSERT_NE(riquadro, nullptr);
  for (const char* nome : kMenuEntries) EXPECT_EQ(entry(nome).parentWidget(), riquadro) << nome;
  EXPECT_FALSE(menu().findChild<QLabel*>(QStringLiteral("Label5"))->text().isEmpty());
  auto* versione = menu().findChild<QLabel*>(QStringLiteral("LabelVSW"));
  EXPECT_EQ(versione->font().family(), QStringLiteral("Verdana"));
  EXPECT_FALSE(versione->text().isEmpty());
  EXPECT_FALSE(menu().findChild<QLabel*>(QStringLiteral("Picture1"))->pixmap(Qt::ReturnByValue).isNull());
  ASSERT_NE(menu().findChild<QTimer*>(QStringLiteral("Timer1")), nullptr);
  EXPECT_FALSE(menu().findChild<QTimer*>(QStringLiteral("Timer1"))->isActive());
}

TEST_F(Start, AllAvvioIlFuocoEIlRisaltoSonoSullaPrimaVoceConLaSuaImmagine) {
  EXPECT_TRUE(entry("Label1").hasFocus());
  EXPECT_EQ(evidenziate(), (std::vector<std::string>{"Label1"}));
  EXPECT_TRUE(QTest::qWaitFor([this] { return mostra(Qt::red); }));
}

TEST_F(Start, UnaSolaVoceEEvidenziataQuellaSottoIlMouse) {
  for (const char* nome : kMenuEntries) {
    moveOver(nome);
    EXPECT_EQ(evidenziate(), (std::vector<std::string>{nome}));
  }
}

TEST_F(Start, OgniVoceMostraLaSuaImmagine) {
  const std::array<std::pair<const char*, QColor>, 5> previste{{{"Label2", Qt::green},
                                                                {"Label3", Qt::blue},
                                                                {"Label7", Qt::yellow},
                                                                {"Label6", Qt::magenta},
                                                                {"Label1", Qt::red}}};
  for (const auto& [nome, previsto] : previste) {
    moveOver(nome);
    EXPECT_TRUE(mostra(previsto)) << nome;
  }
}

TEST_F(Start, SuiComandiAusiliariESuEsciRestaLImmagineDiPrima) {
  moveOver("Label7");
  for (const char* nome : {"Label_CMD_XONXOFF", "Label4"}) {
    moveOver(nome);
    EXPECT_EQ(evidenziate(), (std::vector<std::string>{nome}));
    EXPECT_TRUE(mostra(Qt::yellow)) << nome;
  }
}

TEST_F(Start, LImmagineSiRileggeAOgniMovimentoDelMouse) {
  moveOver("Label2");
  paintPicture("5-1.jpg", Qt::cyan);
  moveOver("Label2");
  EXPECT_TRUE(mostra(Qt::cyan));
}

TEST_F(Start, UnImmagineAssenteMostraLErroreELasciaQuellaDiPrima) {
  const std::array<std::pair<const char*, const char*>, 5> voci{{{"Label1", "4-1.jpg"},
                                                                 {"Label2", "5-1.jpg"},
                                                                 {"Label3", "GestioneProgrammazione.jpg"},
                                                                 {"Label7", "Clienti.jpg"},
                                                                 {"Label6", "About.jpg"}}};
  ASSERT_TRUE(QTest::qWaitFor([this] { return mostra(Qt::red); }));
  for (const auto& [nome, file] : voci) {
    ASSERT_TRUE(QFile::remove(picture(file)));
    moveOver(nome);
    EXPECT_EQ(program_.user.takeBoxes(),
              std::vector{plainBox(QStringLiteral("Error 53 (File non trovato: %1) in procedure "
                                                  "%2_MouseMove of Modulo start")
                                       .arg(picture(file), QLatin1String(nome)))});
    EXPECT_EQ(evidenziate(), (std::vector<std::string>{nome}));
    EXPECT_TRUE(mostra(Qt::red)) << nome;
  }
}

TEST_F(Start, UnImmagineCambiataSulDiscoSiVedeAlMovimentoSeguente) {
  ASSERT_TRUE(QTest::qWaitFor([this] { return mostra(Qt::red); }));
  moveOver("Label2");
  ASSERT_TRUE(mostra(Qt::green));
  paintPicture("4-1.jpg", Qt::cyan);
  moveOver("Label1");
  EXPECT_TRUE(mostra(Qt::cyan));
  paintPicture("5-1.jpg", Qt::white);
  moveOver("Label2");
  EXPECT_TRUE(mostra(Qt::white));
}

TEST_F(Start, SenzaLaPrimaImmagineIlMenuSiApreLoStessoSenzaMessaggi) {
  ASSERT_TRUE(QFile::remove(picture("4-1.jpg")));
  const auto* timer = menu().findChild<QTimer*>(QStringLiteral("primaImmagine"));
  ASSERT_TRUE(QTest::qWaitFor([timer] { return timer->isActive(); }));
  ASSERT_TRUE(QTest::qWaitFor([timer] { return !timer->isActive(); }));
  EXPECT_TRUE(menu().isVisible());
  EXPECT_FALSE(colore().isValid());
}

TEST_F(Start, UnFileCheNonEUnImmagineMostraLErrore) {
  QFile rotta(picture("Clienti.jpg"));
  ASSERT_TRUE(rotta.open(QIODevice::WriteOnly | QIODevice::Truncate));
  rotta.write("non e' un'immagine");
  rotta.close();
  moveOver("Label7");
  EXPECT_EQ(program_.user.boxes().size(), 1U);
}

TEST_F(Start, LeGraficheELaProgrammazioneLascianoIlLoroNomePrimaDiCaricareLaSchermata) {
  for (const auto& [nome, schermata] :
       {std::pair{"Label1", "Form_Grafica"}, std::pair{"Label3", "MDIForm_PRG"}}) {
    varGlobal().FormChiamante.clear();
    QString visto;
    bool menuVisibile = false;
    program_.screens.registra(QLatin1String(schermata), [&](Contesto&) {
      visto = varGlobal().FormChiamante;
      menuVisibile = open("start")->isVisible();
      return new QWidget;
    });
    click(nome);
    EXPECT_EQ(visto, QLatin1String(schermata));
    EXPECT_TRUE(menuVisibile) << "the screen loads before the menu hides";
    EXPECT_TRUE(open(schermata)->isVisible());
    EXPECT_FALSE(open("start")->isVisible());
    program_.screens.scarica(QLatin1String(schermata));
  }
}

TEST_F(Start, LeAltreVociNonToccanoIlNomeDelChiamante) {
  varGlobal().FormChiamante = QStringLiteral("Form_Grafica");
  for (const char* nome : {"Label2", "Label7", "Label_CMD_XONXOFF", "Label6"}) {
    click(nome);
    EXPECT_EQ(varGlobal().FormChiamante, QStringLiteral("Form_Grafica")) << nome;
  }
}

TEST_F(Start, OgniVoceApreLaSuaAreaENascondeIlMenu) {
  const std::array<std::pair<const char*, const char*>, 5> voci{
      {{"Label1", "Form_Grafica"},
       {"Label2", "Form_GestioneMMC"},
       {"Label3", "MDIForm_PRG"},
       {"Label7", "Form_GestioneClienti"},
       {"Label_CMD_XONXOFF", "Form_Comandi_XONXOFF"}}};
  for (const auto& [nome, schermata] : voci) {
    click(nome);
    ASSERT_NE(open(schermata), nullptr) << schermata;
    EXPECT_TRUE(open(schermata)->isVisible());
    EXPECT_FALSE(open(schermata)->isModal());
    EXPECT_FALSE(open("start")->isVisible());
    open(schermata)->close();
    EXPECT_TRUE(open("start")->isVisible());
  }
}

TEST_F(Start, UnaSchermataSconosciutaMostraLErroreEIlMenuResta) {
  Schermate vuote;
  Contesto contesto{
      program_.user, program_.workspace, program_.library, program_.network, vuote, program_.clock, app_};
  start solo(contesto, display_);
  solo.show();
  QTest::mouseClick(solo.findChild<MenuEntry*>(QStringLiteral("Label7")), Qt::LeftButton);
  EXPECT_EQ(program_.user.boxes(),
            (std::vector{Box{QStringLiteral("Error 9 (Schermata non registrata: Form_GestioneClienti) in "
                                            "procedure Label7_Click of Modulo start"),
                             Icon::None,
                             {},
                             Buttons::Ok}}));
  EXPECT_TRUE(solo.isVisible());
}

TEST_F(Start, AboutDueVolteMostraLaStessaFinestraColMenuVisibileDietro) {
  click("Label6");
  QWidget* prima = open("frmAbout");
  ASSERT_NE(prima, nullptr);
  EXPECT_FALSE(prima->isModal());
  EXPECT_TRUE(open("start")->isVisible());
  click("Label6");
  EXPECT_EQ(open("frmAbout"), prima);
  EXPECT_TRUE(prima->isVisible());
  EXPECT_TRUE(open("start")->isVisible());
}

TEST_F(Start, EsciTerminaSubitoSenzaDomande) {
  click("Label4");
  EXPECT_TRUE(program_.user.terminated());
  EXPECT_TRUE(program_.user.boxes().empty());
}

TEST_F(Start, ChiudereLaCorniceScaricaOgniSchermata) {
  click("Label6");
  QPointer<QWidget> informazioni = open("frmAbout");
  QPointer<QWidget> solo = &menu();
  solo->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(informazioni.isNull());
  EXPECT_TRUE(solo.isNull());
  EXPECT_EQ(open("start"), nullptr);
  EXPECT_EQ(open("frmAbout"), nullptr);
  EXPECT_FALSE(program_.user.terminated());
}

TEST_F(Start, ChiTornaRitrovaIlFuocoSullaVoceDaCuiEraPartito) {
  moveOver("Label7");
  click("Label7");
  open("Form_GestioneClienti")->close();
  ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == open("start"); }));
  EXPECT_TRUE(entry("Label7").hasFocus());
  EXPECT_EQ(evidenziate(), (std::vector<std::string>{"Label7"}));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  EXPECT_TRUE(entry("Label3").hasFocus());
}

TEST_F(Start, DiceConCheTastoSiApreIlManuale) {
  EXPECT_EQ(menu().findChild<QLabel*>(QStringLiteral("LabelManuale"))->text(),
            QStringLiteral("F1 apre il manuale"));
}

TEST_F(Start, TornandoAlMenuSiTrovaLaStessaIstanza) {
  QWidget* prima = &menu();
  click("Label2");
  open("Form_GestioneMMC")->close();
  EXPECT_EQ(open("start"), prima);
}

TEST_F(Start, TabPercorreLeVociNellOrdineDelMenuEIlRisaltoLoSegue) {
  menu();
  for (std::size_t i = 1; i < kMenuEntries.size(); ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(entry(kMenuEntries[i]).hasFocus()) << kMenuEntries[i];
    EXPECT_EQ(evidenziate(), (std::vector<std::string>{kMenuEntries[i]}));
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(entry("Label1").hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  EXPECT_TRUE(entry("Label4").hasFocus());
}

TEST_F(Start, LeFrecceSpostanoFuocoRisaltoEImmagine) {
  menu();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(entry("Label2").hasFocus());
  EXPECT_TRUE(mostra(Qt::green));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_EQ(evidenziate(), (std::vector<std::string>{"Label3"}));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  EXPECT_EQ(evidenziate(), (std::vector<std::string>{"Label2"}));
}

TEST_F(Start, InvioESpazioAprono) {
  QTest::keyClick(&entry("Label7"), Qt::Key_Return);
  ASSERT_NE(open("Form_GestioneClienti"), nullptr);
  open("Form_GestioneClienti")->close();
  QTest::keyClick(&entry("Label6"), Qt::Key_Space);
  EXPECT_NE(open("frmAbout"), nullptr);
  QTest::keyClick(&entry("Label2"), Qt::Key_Enter);
  EXPECT_NE(open("Form_GestioneMMC"), nullptr);
}

TEST_F(Start, IlRitornoDelFuocoDaUnRiquadroNonRileggeLImmagine) {
  moveOver("Label2");
  ASSERT_TRUE(QFile::remove(picture("4-1.jpg")));
  QWidget riquadro;
  riquadro.show();
  riquadro.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&riquadro));
  EXPECT_TRUE(entry("Label1").hasFocus());
  EXPECT_EQ(evidenziate(), (std::vector<std::string>{"Label2"}));
  EXPECT_TRUE(program_.user.boxes().empty());
}

TEST_F(Start, OgniVoceHaUnNomePerILettoriDiSchermo) {
  for (const char* nome : kMenuEntries) EXPECT_EQ(entry(nome).accessibleName(), entry(nome).text().trimmed());
  EXPECT_FALSE(menu().findChild<PictureFrame*>(QStringLiteral("Image1"))->accessibleName().isEmpty());
}

TEST_F(Start, StaInUnoSchermo1024x768AlDoppioDellaScala) {
  const QSize minima = menu().minimumSizeHint();
  EXPECT_LE(minima.width(), 1024 / 2);
  EXPECT_LE(minima.height(), 768 / 2);
}

TEST_F(Start, SuUnoSchermoPiccoloChiedeEAnnotaLaNuovaMisura) {
  display_ = {1024, 600};
  program_.user.answers(Answer::Ok);
  EXPECT_EQ(menu().misure(), (MisureSchermo{1024, 768}));
  EXPECT_EQ(program_.user.boxes().size(), 1U);
}

TEST_F(Start, SiChiedePrimaDiCaricareIlMenu) {
  QFile log(app_ + QStringLiteral("/crc32Log.txt"));
  ASSERT_TRUE(log.open(QIODevice::WriteOnly));
  log.close();
  display_ = {1280, 720};
  bool ancoraDaCaricare = false;
  program_.user.onBox = [&](const Box&) { ancoraDaCaricare = log.exists() && !open("start"); };
  program_.user.answers(Answer::Ok);
  menu();
  EXPECT_EQ(program_.user.takeBoxes().size(), 1U);
  EXPECT_TRUE(ancoraDaCaricare);
  EXPECT_FALSE(log.exists());
}

TEST_F(Start, SuUnoSchermoPiccoloConAnnullaIlMenuSiApreComunque) {
  display_ = {800, 600};
  program_.user.answers(Answer::Cancel);
  EXPECT_EQ(menu().misure(), (MisureSchermo{800, 600}));
  EXPECT_TRUE(menu().isVisible());
  EXPECT_EQ(program_.user.boxes().size(), 1U);
}

TEST_F(Start, IlLogNellaCartellaDellApplicazioneESparitoQuandoIlMenuCompare) {
  QFile log(app_ + QStringLiteral("/crc32Log.txt"));
  ASSERT_TRUE(log.open(QIODevice::WriteOnly));
  log.close();
  menu();
  EXPECT_FALSE(log.exists());
}

TEST_F(Start, IlLogNellaSolaCartellaCorrenteResta) {
  const QString log = program_.folder.write(QStringLiteral("crc32Log.txt"), "x");
  menu();
  EXPECT_TRUE(QFile::exists(log));
}

TEST_F(Start, SiVedeUgualeSenzaIlFoglioDiStileEConEsso) {
  style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
  qApp->setStyleSheet({});
  style::begin(*qApp, style::Theme::Light);
  const auto via = qScopeGuard([] { qApp->setStyleSheet({}); });
  start& schermo = menu();
  ASSERT_TRUE(QTest::qWaitFor([this] { return mostra(Qt::red); })) << "the first picture stands";
  style::whole();
  const QImage dopo = schermo.grab().toImage();
  const QSize misura = schermo.size();
  qApp->setStyleSheet({});
  EXPECT_EQ(schermo.grab().toImage(), dopo);
  EXPECT_EQ(schermo.size(), misura);
}

TEST_F(Start, StaSulloSchermoPrimaDelFoglioDiStileCheArrivaConLaSuaImmagine) {
  qApp->setStyleSheet({});
  style::begin(*qApp, style::Theme::Light);
  const auto via = qScopeGuard([] {
    style::whole();
    qApp->setStyleSheet({});
  });
  program_.screens.mostra(kMenu, program_.contesto);
  EXPECT_EQ(qApp->styleSheet(), QString());
  ASSERT_TRUE(QTest::qWaitFor([this] { return mostra(Qt::red); }));
  EXPECT_NE(qApp->styleSheet(), QString());
}

TEST_F(Start, ISuoiSegniSonoQuelliDelTema) {
  style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
  qApp->setStyleSheet({});
  style::begin(*qApp, style::Theme::Light);
  const auto via = qScopeGuard([] {
    style::whole();
    qApp->setStyleSheet({});
  });
  start& schermo = menu();
  const QImage segno =
      schermo.findChild<QLabel*>(QStringLiteral("Picture1"))->pixmap(Qt::ReturnByValue).toImage();
  EXPECT_EQ(segno.deviceIndependentSize(), QSizeF(42, 42));
  EXPECT_EQ(segno.pixelColor(0, 0).alpha(), 0) << "round corners";
  EXPECT_EQ(segno.pixelColor(segno.width() / 2, 2), QApplication::palette().color(QPalette::Highlight));
  const QFont insegna = schermo.findChild<QLabel*>(QStringLiteral("insegna"))->font();
  EXPECT_EQ(insegna.weight(), QFont::DemiBold);
  EXPECT_DOUBLE_EQ(insegna.pointSizeF(), 1.5 * schermo.font().pointSizeF());
  for (const char* nota : {"LabelVSW", "LabelManuale", "Label5"})
    EXPECT_EQ(schermo.findChild<QLabel*>(QLatin1String(nota))->foregroundRole(), QPalette::PlaceholderText)
        << nota;
}
