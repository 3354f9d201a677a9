#include "platform/ui/utente_desktop.h"

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
#include <functional>

#include "platform/errore.h"
#include "platform/ui/occupato.h"
#include "sostegno/cartella_temporanea.h"

namespace {

void alRiquadro(std::function<void(QMessageBox&)> risposta) {
  QTimer::singleShot(0, [risposta] {
    auto* riquadro = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(riquadro, nullptr);
    risposta(*riquadro);
  });
}

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
  UtenteDesktop utente(nullptr);
  const QString testo = QStringLiteral("a < b & <b>c</b>\nd  e");
  alRiquadro([&](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.objectName(), QStringLiteral("MsgBox"));
    EXPECT_EQ(riquadro.text(), testo);
    EXPECT_EQ(riquadro.textFormat(), Qt::PlainText);
    EXPECT_TRUE(riquadro.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    premi(riquadro, QStringLiteral("OK"));
  });
  EXPECT_EQ(utente.MsgBox(testo), Risposta::OK);
}

TEST(MsgBox, SenzaTitoloPortaQuelloDellApplicazione) {
  UtenteDesktop utente(nullptr);
  alRiquadro([](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.windowTitle(), QStringLiteral("Gestionale Misuratori Fiscali"));
    premi(riquadro, QStringLiteral("OK"));
  });
  utente.MsgBox(QStringLiteral("x"));
  alRiquadro([](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.windowTitle(), QStringLiteral("ATTENZIONE"));
    premi(riquadro, QStringLiteral("OK"));
  });
  utente.MsgBox(QStringLiteral("x"), Icona::Nessuna, QStringLiteral("ATTENZIONE"));
}

TEST(MsgBox, OgniIconaHaLaSua) {
  UtenteDesktop utente(nullptr);
  const std::pair<Icona, QMessageBox::Icon> casi[] = {{Icona::Nessuna, QMessageBox::NoIcon},
                                                      {Icona::Critica, QMessageBox::Critical},
                                                      {Icona::Domanda, QMessageBox::Question},
                                                      {Icona::Esclamazione, QMessageBox::Warning},
                                                      {Icona::Informazione, QMessageBox::Information}};
  for (const auto& [icona, attesa] : casi) {
    alRiquadro([attesa = attesa](QMessageBox& riquadro) {
      EXPECT_EQ(riquadro.icon(), attesa);
      premi(riquadro, QStringLiteral("OK"));
    });
    utente.MsgBox(QStringLiteral("x"), icona);
  }
}

TEST(MsgBox, OgniPulsanteDaLaSuaRisposta) {
  UtenteDesktop utente(nullptr);
  struct Caso {
    Pulsanti pulsanti;
    QStringList testi;
    QString premuto;
    Risposta risposta;
  };
  const QString ok = QStringLiteral("OK");
  const QString annulla = QStringLiteral("Annulla");
  const QString si = QStringLiteral("Sì");
  const QString no = QStringLiteral("No");
  const Caso casi[] = {{Pulsanti::OK, {ok}, ok, Risposta::OK},
                       {Pulsanti::OKAnnulla, {annulla, ok}, ok, Risposta::OK},
                       {Pulsanti::OKAnnulla, {annulla, ok}, annulla, Risposta::Annulla},
                       {Pulsanti::SiNo, {no, si}, si, Risposta::Si},
                       {Pulsanti::SiNo, {no, si}, no, Risposta::No},
                       {Pulsanti::SiNoAnnulla, {annulla, no, si}, si, Risposta::Si},
                       {Pulsanti::SiNoAnnulla, {annulla, no, si}, no, Risposta::No},
                       {Pulsanti::SiNoAnnulla, {annulla, no, si}, annulla, Risposta::Annulla}};
  for (const Caso& caso : casi) {
    alRiquadro([&](QMessageBox& riquadro) {
      EXPECT_EQ(testi(riquadro), caso.testi);
      premi(riquadro, caso.premuto);
    });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, caso.pulsanti), caso.risposta);
  }
}

TEST(MsgBox, EscELaCornicePrendonoAnnullaONoOOK) {
  UtenteDesktop utente(nullptr);
  const std::pair<Pulsanti, Risposta> casi[] = {{Pulsanti::OK, Risposta::OK},
                                                {Pulsanti::OKAnnulla, Risposta::Annulla},
                                                {Pulsanti::SiNo, Risposta::No},
                                                {Pulsanti::SiNoAnnulla, Risposta::Annulla}};
  for (const auto& [pulsanti, risposta] : casi) {
    alRiquadro([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_Escape); });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, pulsanti), risposta);
    alRiquadro([](QMessageBox& riquadro) { riquadro.close(); });
    EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, pulsanti), risposta);
  }
}

TEST(MsgBox, InvioPrendeIlPrimoPulsanteELeLettereIlLoro) {
  UtenteDesktop utente(nullptr);
  alRiquadro([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_Return); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, Pulsanti::SiNo), Risposta::Si);
  alRiquadro([](QMessageBox& riquadro) { QTest::keyClick(&riquadro, Qt::Key_N); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, Pulsanti::SiNo), Risposta::No);
}

TEST(MsgBox, StaDavantiAllaFinestraAttivaEPuoSparireConLei) {
  UtenteDesktop utente(nullptr);
  auto* finestra = new QWidget;
  finestra->show();
  finestra->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(finestra));
  alRiquadro([&](QMessageBox& riquadro) {
    EXPECT_EQ(riquadro.parentWidget(), finestra);
    delete finestra;
  });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x"), Icona::Domanda, {}, Pulsanti::SiNo), Risposta::No);
}

TEST(MsgBox, SospendeLaGuardia) {
  UtenteDesktop utente(nullptr);
  const Occupato guardia;
  alRiquadro([](QMessageBox& riquadro) { premi(riquadro, QStringLiteral("OK")); });
  EXPECT_EQ(utente.MsgBox(QStringLiteral("x")), Risposta::OK);
  EXPECT_TRUE(Occupato::attivo());
}

TEST(UtenteDesktop, DoEventsLasciaPassareITimerENonIClicConLaGuardia) {
  UtenteDesktop utente(nullptr);
  QPushButton tasto;
  tasto.show();
  int clic = 0;
  int scatti = 0;
  QObject::connect(&tasto, &QPushButton::clicked, [&] { ++clic; });
  const Occupato guardia;
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
  UtenteDesktop utente(nullptr);
  int scatti = 0;
  const auto conta = [&] { ++scatti; };
  QTimer::singleShot(0, conta);
  utente.DoEventsAlRecord();
  EXPECT_EQ(scatti, 1);
  QTimer::singleShot(0, conta);
  const QDeadlineTimer entro(1000);
  while (scatti < 2 && !entro.hasExpired()) utente.DoEventsAlRecord();
  EXPECT_EQ(scatti, 2);
}

TEST(UtenteDesktop, GliAppuntiTengonoIlTesto) {
  UtenteDesktop utente(nullptr);
  utente.CopiaNegliAppunti(QStringLiteral("1\t2\nàè€"));
  EXPECT_EQ(utente.TestoDegliAppunti(), QStringLiteral("1\t2\nàè€"));
}

TEST(UtenteDesktop, UnProgrammaParteConISuoiArgomenti) {
  const CartellaTemporanea cartella;
  UtenteDesktop utente(nullptr);
  utente.AvviaProgramma(
      QStringLiteral("/bin/sh"),
      {QStringLiteral("-c"), QStringLiteral("printf '%s' \"$1\" >parziale && mv parziale fatto"),
       QStringLiteral("sh"), QStringLiteral("due parole")});
  ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(cartella.file(QStringLiteral("fatto"))); }));
  EXPECT_EQ(cartella.leggi(QStringLiteral("fatto")), "due parole");
}

TEST(UtenteDesktop, UnProgrammaCheNonCEEErrore53) {
  UtenteDesktop utente(nullptr);
  EXPECT_EQ(numeroErrore([&] { utente.AvviaProgramma(QStringLiteral("/niente/bitmap.exe"), {}); }),
            errore::kFileAssente);
}

TEST(UtenteDesktop, UnFileCheNonCENonSiApre) {
  UtenteDesktop utente(nullptr);
  EXPECT_EQ(numeroErrore([&] { utente.ApriConDesktop(QStringLiteral("/niente/aiuto.rtf")); }),
            errore::kFileAssente);
}

class Apritore : public QObject {
  Q_OBJECT
 public:
  QUrl aperto;
 public Q_SLOTS:
  void apri(const QUrl& url) { aperto = url; }
};

TEST(UtenteDesktop, UnFileSiApreColProgrammaDelDesktop) {
  const CartellaTemporanea cartella;
  cartella.scrivi(QStringLiteral("aiuto 1.rtf"), "{}");
  Apritore apritore;
  QDesktopServices::setUrlHandler(QStringLiteral("file"), &apritore, "apri");
  UtenteDesktop utente(nullptr);
  utente.ApriConDesktop(QStringLiteral("aiuto 1.rtf"));
  QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
  EXPECT_EQ(apritore.aperto, QUrl::fromLocalFile(cartella.file(QStringLiteral("aiuto 1.rtf"))));
}

TEST(UtenteDesktopDeathTest, TerminaChiudeGliArchiviEdEsceConZero) {
  UtenteDesktop utente([] { std::fputs("archivi chiusi", stderr); });
  EXPECT_EXIT(utente.Termina(), testing::ExitedWithCode(0), "archivi chiusi");
}

TEST(UtenteDesktopDeathTest, TerminaEsceAncheSeLaChiusuraFallisce) {
  UtenteDesktop utente([] { throw Errore{errore::kDiscoPieno, QStringLiteral("Disco pieno")}; });
  EXPECT_EXIT(utente.Termina(), testing::ExitedWithCode(0), "61 Disco pieno");
}

#include "utente_desktop_test.moc"
