#include "platform/ui/desktop_user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "platform/error.h"
#include "platform/ui/at_box.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/temporary_folder.h"

namespace {

void premi(QMessageBox& riquadro, const QString& testo) {
  for (QAbstractButton* pulsante : riquadro.buttons())
    if (pulsante->text() == testo) return QTest::mouseClick(pulsante, Qt::LeftButton);
  ADD_FAILURE() << "no button " << testo.toStdString();
  riquadro.close();
}

QStringList testi(const QMessageBox& riquadro) {
  QStringList pulsanti;
  for (const QAbstractButton* pulsante : riquadro.buttons()) pulsanti.append(pulsante->text());
  pulsanti.sort();
  return pulsanti;
}

template <typename Passo>
int numeroErrore(Passo passo) {
  try {
    passo();
  } catch (const Errore& errore) {
    return errore.numero;
  }
  return 0;
}

}  // namespace

TEST(MsgBox, MostraIlTestoComeSta) {
  DesktopUser utente(nullptr);
  const QString testo = QStringLiteral("a < b & <b>c</b>\nd  e");
  atBox([&](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.objectName(), QStringLiteral("MsgBox"));
    EXPECT_EQ(riquadro.text(), testo);
    EXPECT_EQ(riquadro.textFormat(), Qt::PlainText);
    EXPECT_TRUE(riquadro.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    premi(riquadro, QStringLiteral("OK"));
  });
  EXPECT_EQ(utente.MsgBox(testo), Answer::Ok);
}

TEST(MsgBox, SenzaTitoloPortaQuelloDellApplicazione) {
  DesktopUser utente(nullptr);
  atBox([](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.windowTitle(), QStringLiteral("Gestionale Misuratori Fiscali"));
    premi(riquadro, QStringLiteral("OK"));
  });
  utente.MsgBox(QStringLiteral("x"));
  atBox([](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.windowTitle(), QStringLiteral("ATTENZIONE"));
    premi(riquadro, QStringLiteral("OK"));
  });
  utente.MsgBox(QStringLiteral("x"), Icon::None, QStringLiteral("ATTENZIONE"));
}

TEST(MsgBox, OgniIconaHaLaSua) {
  DesktopUser utente(nullptr);
  const std::pair<Icon, QMessageBox::Icon> casi[] = {{Icon::None, QMessageBox::NoIcon},
                                                     {Icon::Critical, QMessageBox::Critical},
                                                     {Icon::Question, QMessageBox::Question},
                                                     {Icon::Warning, QMessageBox::Warning},
                                                     {Icon::Information, QMessageBox::Information}};
  for (const auto& [icona, prevista] : casi) {
    atBox([prevista = prevista](QMessageBox& riquadro) {
      EXPECT_EQ(riquadro.icon(), prevista);
      premi(riquadro, QStringLiteral("OK"));
    });
    utente.MsgBox(QStringLiteral("x"), icona);
  }
}

TEST(MsgBox, OgniPulsanteDaLaSuaRisposta) {
  DesktopUser utente(nullptr);
  struct Caso {
    Buttons pulsanti;
    QStringList testi;
    QString premuto;
    Answer risposta;
  };
  const QString ok = QStringLiteral("OK");
  const QString annulla = QStringLiteral("Annulla");
  const QString si = QStringLiteral("Sì");
  const QString no = QStringLiteral("No");
  const Caso casi[] = {{Buttons::Ok, {ok}, ok, Answer::Ok},
                       {Buttons::OkCancel, {annulla, ok}, ok, Answer::Ok},
                       {Buttons::OkCancel, {annulla, ok}, annulla, Answer::Cancel},
                       {Buttons::YesNo, {no, si}, si, Answer::Yes},
                       {Buttons::YesNo, {no, si}, no, Answer::No},
                       {Buttons::YesNoCancel, {annulla, no, si}, si, Answer::Yes},
                       {Buttons::YesNoCancel, {annulla, no, si}, no, Answer::No},
                       {Buttons::YesNoCancel, {annulla, no, si}, annulla, Answer::Cancel}};
  for (const Caso& caso : casi) {
    atBox([&](QMessageBox& riquadro) {
      EXPECT_EQ(testi(riquadro), caso.testi);
      premi(riquadro, caso.premuto);
    });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, caso.pulsanti), caso.risposta);
  }
}

TEST(MsgBox, EscELaCornicePrendonoAnnullaONoOOK) {
  DesktopUser utente(nullptr);
  const std::pair<Buttons, Answer> casi[] = {{Buttons::Ok, Answer::Ok},
                                             {Buttons::OkCancel, Answer::Cancel},
                                             {Buttons::YesNo, Answer::No},
                                             {Buttons::YesNoCancel, Answer::Cancel}};
  for (const auto& [pulsanti, risposta] : casi) {
    atBox([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_Escape); });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, pulsanti), risposta);
    atBox([](QMessageBox& riquadro) { riquadro.close(); });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, pulsanti), risposta);
  }
}

TEST(MsgBox, InvioPrendeIlPrimoPulsanteELeLettereIlLoro) {
  DesktopUser utente(nullptr);
  atBox([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_Return); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, Buttons::YesNo), Answer::Yes);
  atBox([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_N); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, Buttons::YesNo), Answer::No);
}

TEST(MsgBox, StaDavantiAllaFinestraAttivaEPuoSparireConLei) {
  DesktopUser utente(nullptr);
  auto* finestra = new QWidget;
  finestra->show();
  finestra->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(finestra));
  atBox([&](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.parentWidget(), finestra);
    delete finestra;
  });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icon::Question, {}, Buttons::YesNo), Answer::No);
}

TEST(MsgBox, SospendeLaGuardia) {
  DesktopUser utente(nullptr);
  const BusyGuard guardia;
  atBox([](QMessageBox& riquadro) { premi(riquadro, QStringLiteral("OK")); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x")), Answer::Ok);
  EXPECT_TRUE(BusyGuard::active());
}

TEST(UtenteDesktop, DoEventsLasciaPassareITimerENonIClicConLaGuardia) {
  DesktopUser utente(nullptr);
  QPushButton tasto;
  tasto.show();
  int clic = 0;
  int scatti = 0;
  QObject::connect(&tasto, &QPushButton::clicked, [&] { ++clic; });
  const BusyGuard guardia;
  for (int passaggio = 0; passaggio < 3; ++passaggio) {
    QTimer::singleShot(0, [&] {
      ++scatti;
      QTest::mouseClick(&tasto, Qt::LeftButton);
      QTest::keyClick(&tasto, Qt::Key_Space);
      EXPECT_FALSE(tasto.close());
    });
    utente.DoEvents();
  }
  EXPECT_EQ(scatti, 3);
  EXPECT_EQ(clic, 0);
  EXPECT_TRUE(tasto.isVisible());
}

TEST(UtenteDesktop, ACiascunRecordGliEventiPassanoAlMenoOgniMillisecondo) {
  DesktopUser utente(nullptr);
  int scatti = 0;
  const auto conta = [&] { ++scatti; };
  QTimer::singleShot(0, conta);
  utente.DoEventsAtRecord();
  EXPECT_EQ(scatti, 1);
  QTimer::singleShot(0, conta);
  const QDeadlineTimer entro(1000);
  while (scatti < 2 && !entro.hasExpired()) utente.DoEventsAtRecord();
  EXPECT_EQ(scatti, 2);
}

TEST(UtenteDesktop, GliAppuntiTengonoIlTesto) {
  DesktopUser utente(nullptr);
  utente.CopyToClipboard(QStringLiteral("1\t2\nàè€"));
  EXPECT_EQ(utente.ClipboardText(), QStringLiteral("1\t2\nàè€"));
}

TEST(UtenteDesktop, UnProgrammaParteConISuoiArgomenti) {
  const TemporaryFolder cartella;
  DesktopUser utente(nullptr);
  utente.StartProgram(
      QStringLiteral("/bin/sh"),
      {QStringLiteral("-c"), QStringLiteral("printf '%s' \"$1\" >parziale && mv parziale fatto"),
       QStringLiteral("sh"), QStringLiteral("due parole")});
  ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(cartella.file(QStringLiteral("fatto"))); }));
  EXPECT_EQ(cartella.read(QStringLiteral("fatto")), "due parole");
}

TEST(UtenteDesktop, UnProgrammaCheNonCEEErrore53) {
  DesktopUser utente(nullptr);
  EXPECT_EQ(numeroErrore([&] { utente.StartProgram(QStringLiteral("/niente/bitmap.exe"), {}); }),
            errors::kFileMissing);
}

TEST(UtenteDesktop, UnFileCheNonCENonSiApre) {
  DesktopUser utente(nullptr);
  EXPECT_EQ(numeroErrore([&] { utente.OpenWithDesktop(QStringLiteral("/niente/aiuto.rtf")); }),
            errors::kFileMissing);
}

class Apritore : public QObject {
  Q_OBJECT
 public:
  QUrl aperto;
 public Q_SLOTS:
  void apri(const QUrl& url) { aperto = url; }
};

TEST(UtenteDesktop, UnFileSiApreColProgrammaDelDesktop) {
  const TemporaryFolder cartella;
  cartella.write(QStringLiteral("aiuto 1.rtf"), "{}");
  Apritore apritore;
  QDesktopServices::setUrlHandler(QStringLiteral("file"), &apritore, "apri");
  DesktopUser utente(nullptr);
  utente.OpenWithDesktop(QStringLiteral("aiuto 1.rtf"));
  QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
  EXPECT_EQ(apritore.aperto, QUrl::fromLocalFile(cartella.file(QStringLiteral("aiuto 1.rtf"))));
}

TEST(UtenteDesktopDeathTest, TerminaChiudeGliArchiviEdEsceConZero) {
  DesktopUser utente([] { std::fputs("archivi chiusi", stderr); });
  EXPECT_EXIT(utente.Terminate(), testing::ExitedWithCode(0), "archivi chiusi");
}

TEST(UtenteDesktopDeathTest, TerminaEsceAncheSeLaChiusuraFallisce) {
  DesktopUser utente([] { throw Errore{errors::kDiskFull, QStringLiteral("Disco pieno")}; });
  EXPECT_EXIT(utente.Terminate(), testing::ExitedWithCode(0), "61 Disco pieno");
}

#include "desktop_user_test.moc"
