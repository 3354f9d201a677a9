#include "core/manual_viewer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include "controls/markdown_view.h"
#include "controls/outcome_bar.h"
#include "core/help_key.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/message_box.h"
#include "sostegno/guided_screen.h"
#include "sostegno/program_fixture.h"

namespace {

/// A program whose application folder has a manual of three pages.
struct Manuale : testing::Test {
  ProgramFixture programma;
  QWidget sotto;

  Manuale() {
    EXPECT_TRUE(QDir(programma.folder.path()).mkdir(QStringLiteral("manuale")));
    pagina("README.md", "# Indice\n\n[La cassa](cassa.md) e i [fondi](cassa.md#in-fondo).\n");
    pagina("cassa.md", "# La cassa\n\n" + QByteArray("venduto\n\n").repeated(60) +
                           "## In fondo\n\nazzeramento\n\n" +
                           "[via](http://127.0.0.1:9/) [fuori](../segreta.md) [qui](#la-cassa)\n");
    pagina("messaggi.md", "# Messaggi\n\nUn azzeramento e un altro azzeramento.\n");
    programma.folder.write(QStringLiteral("segreta.md"), "# Segreta\n");
    programma.contesto.cartella = programma.folder.path();
    sotto.setObjectName(QStringLiteral("qualcosa"));
    sotto.resize(300, 200);
    sotto.show();
    sotto.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&sotto));
  }
  void pagina(const char* nome, const QByteArray& testo) const {
    programma.folder.write(QStringLiteral("manuale/") + QLatin1String(nome), testo);
  }
  ManualViewer* manuale(const QWidget& sopra) const {
    return sopra.findChild<ManualViewer*>(QStringLiteral("Manuale"), Qt::FindDirectChildrenOnly);
  }
  ManualViewer& apri() {
    showManual(sotto, programma.contesto);
    ManualViewer* aperto = manuale(sotto);
    if (aperto == nullptr) throw std::runtime_error("no manual");
    EXPECT_TRUE(davanti(*aperto));
    return *aperto;
  }
  /// True once the keys go to this window, and not to the one that it stands over.
  static bool davanti(const QWidget& finestra) {
    return QTest::qWaitFor([&] { return QApplication::activeWindow() == &finestra; });
  }
  static MarkdownView& testo(const ManualViewer& aperto) {
    return *aperto.findChild<MarkdownView*>(QStringLiteral("Testo"));
  }
  static QString esito(const ManualViewer& aperto) {
    return aperto.findChild<OutcomeBar*>(QStringLiteral("BarraEsito"))->text();
  }
  /// Clicks on a link of the page by its text.
  static void segui(const ManualViewer& aperto, const QString& scritta) {
    MarkdownView& vista = testo(aperto);
    vista.moveCursor(QTextCursor::Start);
    ASSERT_TRUE(vista.find(scritta)) << scritta.toStdString();
    QTextCursor inizio = vista.textCursor();
    inizio.setPosition(vista.textCursor().selectionStart());
    const QPoint dove = vista.cursorRect(inizio).center() + QPoint(4, 0);
    QTest::mouseMove(vista.viewport(), dove);
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, dove);
  }
  static void cerca(const ManualViewer& aperto, const QString& parola) {
    auto* campo = aperto.findChild<QLineEdit*>(QStringLiteral("CampoCerca"));
    campo->setFocus();
    campo->selectAll();
    QTest::keyClicks(campo, parola);
    QTest::keyClick(campo, Qt::Key_Return);
  }
};

struct TastoF1 : Manuale {
  HelpKey tasto{programma.contesto};

  void premi(QWidget& dove) { QTest::keyClick(&dove, Qt::Key_F1); }
};

}  // namespace

TEST_F(Manuale, SiApreSullIndiceESeguiPortaAllaPagina) {
  const ManualViewer& aperto = apri();
  EXPECT_EQ(aperto.windowTitle(), QStringLiteral("Manuale - Indice"));
  segui(aperto, QStringLiteral("La cassa"));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
  EXPECT_EQ(aperto.windowTitle(), QStringLiteral("Manuale - La cassa"));
}

TEST_F(Manuale, UnCollegamentoPuoPortareAUnTitolo) {
  const ManualViewer& aperto = apri();
  segui(aperto, QStringLiteral("fondi"));
  EXPECT_EQ(testo(aperto).textCursor().block().text(), QStringLiteral("In fondo"));
  EXPECT_GT(testo(aperto).verticalScrollBar()->value(), 0);
  segui(aperto, QStringLiteral("qui"));
  EXPECT_EQ(testo(aperto).textCursor().block().text(), QStringLiteral("La cassa"));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
}

TEST_F(Manuale, IndietroRipercorreLeStesseePagineDovErano) {
  ManualViewer& aperto = apri();
  auto* indietro = aperto.findChild<QPushButton*>(QStringLiteral("Cmd_Indietro"));
  EXPECT_FALSE(indietro->isEnabled());
  EXPECT_EQ(indietro->toolTip(), QStringLiteral("È la prima pagina che si è aperta"));
  segui(aperto, QStringLiteral("La cassa"));
  testo(aperto).verticalScrollBar()->setValue(77);
  ASSERT_TRUE(aperto.open(QStringLiteral("messaggi.md")));
  QTest::mouseClick(indietro, Qt::LeftButton);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
  EXPECT_EQ(testo(aperto).verticalScrollBar()->value(), 77);
  QTest::keyClick(&aperto, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("README.md"));
  EXPECT_FALSE(indietro->isEnabled());
}

TEST_F(Manuale, IndiceTornaAlleSuePagine) {
  ManualViewer& aperto = apri();
  ASSERT_TRUE(aperto.open(QStringLiteral("messaggi.md")));
  QTest::mouseClick(aperto.findChild<QPushButton*>(QStringLiteral("Cmd_Indice")), Qt::LeftButton);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("README.md"));
}

TEST_F(Manuale, UnCollegamentoFuoriDallaCartellaOInReteNonApreNulla) {
  ManualViewer& aperto = apri();
  ASSERT_TRUE(aperto.open(QStringLiteral("cassa.md#in-fondo")));
  segui(aperto, QStringLiteral("fuori"));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
  EXPECT_EQ(esito(aperto), QStringLiteral("Il collegamento porta fuori dal manuale: ../segreta.md"));
  segui(aperto, QStringLiteral("via"));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
  EXPECT_EQ(esito(aperto), QStringLiteral("Il collegamento porta fuori dal manuale: http://127.0.0.1:9/"));
  EXPECT_TRUE(programma.user.programs().isEmpty());
}

TEST_F(Manuale, LaRicercaPassaDaUnPuntoAllAltroEDaUnaPaginaAllAltra) {
  ManualViewer& aperto = apri();
  cerca(aperto, QStringLiteral("Azzeramento"));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md"));
  EXPECT_EQ(testo(aperto).textCursor().selectedText(), QStringLiteral("azzeramento"));
  EXPECT_EQ(esito(aperto),
            QStringLiteral("«Azzeramento»: 1 volta in questa pagina, 3 volte in tutto il manuale."));
  QTest::keyClick(&aperto, Qt::Key_F3);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("messaggi.md"));
  const int primo = testo(aperto).textCursor().position();
  QTest::keyClick(&aperto, Qt::Key_F3);
  EXPECT_GT(testo(aperto).textCursor().position(), primo);
  EXPECT_EQ(esito(aperto),
            QStringLiteral("«Azzeramento»: 2 volte in questa pagina, 3 volte in tutto il manuale."));
  QTest::keyClick(&aperto, Qt::Key_F3);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("cassa.md")) << "and round to the first one again";
}

TEST_F(Manuale, LaRicercaRicominciaNellaStessaPagina) {
  ManualViewer& aperto = apri();
  ASSERT_TRUE(aperto.open(QStringLiteral("messaggi.md")));
  cerca(aperto, QStringLiteral("altro"));
  const int dove = testo(aperto).textCursor().position();
  QTest::keyClick(&aperto, Qt::Key_F3);
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("messaggi.md"));
  EXPECT_EQ(testo(aperto).textCursor().position(), dove);
}

TEST_F(Manuale, CioCheNonSiTrovaSiDiceELaPaginaResta) {
  ManualViewer& aperto = apri();
  cerca(aperto, QStringLiteral("zanzara"));
  EXPECT_EQ(esito(aperto), QStringLiteral("«zanzara» non si trova nel manuale."));
  EXPECT_EQ(testo(aperto).page(), QStringLiteral("README.md"));
  EXPECT_TRUE(aperto.isVisible()) << "Enter presses nothing else";
}

TEST_F(Manuale, CtrlFPortaAlCampo) {
  ManualViewer& aperto = apri();
  QTest::keyClick(&aperto, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(aperto.focusWidget()->objectName(), QStringLiteral("CampoCerca"));
}

TEST_F(Manuale, InvioPremeSoloIlComandoCheHaIlFuoco) {
  ManualViewer& aperto = apri();
  QTest::keyClick(&testo(aperto), Qt::Key_Return);
  EXPECT_TRUE(aperto.isVisible());
  auto* esci = aperto.findChild<QPushButton*>(QStringLiteral("Cmd_Esci"));
  esci->setFocus();
  QTest::keyClick(esci, Qt::Key_Return);
  EXPECT_FALSE(aperto.isVisible());
}

TEST_F(Manuale, EscLoChiudeELaFinestraSottoResta) {
  const QPointer<ManualViewer> aperto = &apri();
  QTest::keyClick(aperto->focusWidget(), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(aperto.isNull());
  EXPECT_TRUE(sotto.isVisible());
}

TEST_F(Manuale, OgniControlloHaUnNome) {
  const ManualViewer& aperto = apri();
  for (const char* nome : {"Cmd_Indietro", "Cmd_Indice", "Cmd_Trova", "Cmd_Esci"}) {
    const auto* tasto = aperto.findChild<QPushButton*>(QLatin1String(nome));
    EXPECT_FALSE(tasto->text().isEmpty()) << nome;
    EXPECT_FALSE(tasto->toolTip().isEmpty()) << nome;
  }
  EXPECT_EQ(aperto.findChild<QLineEdit*>(QStringLiteral("CampoCerca"))->accessibleName(),
            QStringLiteral("Cerca nel manuale"));
  EXPECT_EQ(testo(aperto).accessibleName(), QStringLiteral("Testo del manuale"));
}

TEST_F(Manuale, UnaPaginaCheMancaLasciaIlPostoAllIndice) {
  sotto.setObjectName(QStringLiteral("start"));
  EXPECT_EQ(testo(apri()).page(), QStringLiteral("README.md"));
}

TEST_F(Manuale, SenzaManualeLoDice) {
  programma.contesto.cartella = programma.folder.file(QStringLiteral("altrove"));
  showManual(sotto, programma.contesto);
  EXPECT_EQ(manuale(sotto), nullptr);
  expectBoxes(programma, {criticalBox(QStringLiteral("Attenzione il manuale non presente nella cartella %1")
                                          .arg(programma.folder.file(QStringLiteral("altrove/manuale"))))});
}

TEST_F(TastoF1, ApreIlManualeAllaPaginaDellaFinestra) {
  pagina("archivi.md", "# Gli archivi\n\ntesto\n\n## Analisi del venduto\n\ntesto\n");
  sotto.setObjectName(QStringLiteral("Form_ArchivioVenduto"));
  QLineEdit campo(&sotto);
  campo.show();
  premi(campo);
  ASSERT_NE(manuale(sotto), nullptr);
  EXPECT_EQ(testo(*manuale(sotto)).page(), QStringLiteral("archivi.md"));
  EXPECT_EQ(testo(*manuale(sotto)).textCursor().block().text(), QStringLiteral("Analisi del venduto"));
}

TEST_F(TastoF1, NonCeNEMaiPiuDiUno) {
  premi(sotto);
  ManualViewer* primo = manuale(sotto);
  premi(sotto);
  EXPECT_EQ(manuale(sotto), primo);
  EXPECT_EQ(sotto.findChildren<ManualViewer*>().size(), 1);
}

TEST_F(TastoF1, NelManualeStessoTornaAllIndice) {
  premi(sotto);
  ManualViewer* aperto = manuale(sotto);
  ASSERT_NE(aperto, nullptr);
  ASSERT_TRUE(aperto->open(QStringLiteral("cassa.md")));
  premi(*aperto);
  EXPECT_EQ(manuale(sotto), aperto);
  EXPECT_EQ(testo(*aperto).page(), QStringLiteral("README.md"));
}

TEST_F(TastoF1, SopraUnaFinestraModaleIlManualeEDellaModaleESiUsa) {
  premi(sotto);
  QDialog modale(&sotto);
  QTimer::singleShot(0, &modale, [&] {
    premi(modale);
    EXPECT_EQ(manuale(sotto), nullptr) << "it has moved";
    ManualViewer* aperto = manuale(modale);
    ASSERT_NE(aperto, nullptr);
    EXPECT_TRUE(davanti(*aperto));
    segui(*aperto, QStringLiteral("La cassa"));
    EXPECT_EQ(testo(*aperto).page(), QStringLiteral("cassa.md"))
        << "a window below a modal one takes no click";
    QTest::keyClick(aperto, Qt::Key_Escape);
    EXPECT_TRUE(modale.isVisible());
    modale.reject();
  });
  modale.exec();
}

TEST_F(TastoF1, SopraUnRiquadroSiApreSuiMessaggi) {
  QString pagina;
  bool aperto = false;
  QTimer persona;
  QObject::connect(&persona, &QTimer::timeout, &persona, [&] {
    QWidget* riquadro = QApplication::activeModalWidget();
    if (riquadro == nullptr) return;
    persona.stop();
    premi(*riquadro);
    if (const ManualViewer* sopra = manuale(*riquadro)) {
      aperto = sopra->isVisible();
      pagina = testo(*sopra).page();
    }
    QTest::keyClick(riquadro, Qt::Key_Return);
  });
  persona.start(0);
  message_box::show({QStringLiteral("Attenzione"), Icon::Warning, QStringLiteral("Prova")});
  EXPECT_TRUE(aperto);
  EXPECT_EQ(pagina, QStringLiteral("messaggi.md"));
}

TEST_F(TastoF1, MentreUnComandoLavoraNonFaNulla) {
  {
    const BusyGuard occupato;
    premi(sotto);
  }
  EXPECT_EQ(manuale(sotto), nullptr);
  premi(sotto);
  EXPECT_NE(manuale(sotto), nullptr);
}

TEST_F(TastoF1, ConUnModificatoreNonEF1) {
  QTest::keyClick(&sotto, Qt::Key_F1, Qt::ShiftModifier);
  QTest::keyClick(&sotto, Qt::Key_F1, Qt::ControlModifier);
  EXPECT_EQ(manuale(sotto), nullptr);
}

TEST_F(TastoF1, ChiusoIlManualeIlFuocoTornaDovEra) {
  QLineEdit primo(&sotto);
  QLineEdit secondo(&sotto);
  primo.show();
  secondo.show();
  secondo.setFocus();
  premi(secondo);
  ASSERT_NE(manuale(sotto), nullptr);
  ASSERT_TRUE(davanti(*manuale(sotto)));
  QTest::keyClick(manuale(sotto), Qt::Key_Escape);
  ASSERT_TRUE(davanti(sotto));
  EXPECT_EQ(QApplication::focusWidget(), &secondo);
}
