#include "core/frmAbout.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "core/system_info.h"
#include "menu_fixture.h"

namespace {

/// A PATH of the test's own while it lives.
class Percorso {
 public:
  explicit Percorso(const QString& cartella) : prima_(qgetenv("PATH")) {
    qputenv("PATH", cartella.toLocal8Bit());
  }
  ~Percorso() { qputenv("PATH", prima_); }

 private:
  QByteArray prima_;
};

void eseguibile(const QString& file) {
  QFile programma(file);
  ASSERT_TRUE(programma.open(QIODevice::WriteOnly));
  programma.write("#!/bin/sh\n");
  programma.close();
  ASSERT_TRUE(programma.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
}

/// A person whose desktop refuses the first program.
class UtenteCheRifiuta : public ScriptedUser {
 public:
  void StartProgram(const QString& programma, const QStringList& argomenti) override {
    if (rifiuti++ == 0) throw Errore{errors::kFileMissing, QStringLiteral("File non trovato")};
    ScriptedUser::StartProgram(programma, argomenti);
  }
  int rifiuti = 0;
};

const Box kNonDisponibili{QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."),
                          Icon::None,
                          {},
                          Buttons::Ok};

}  // namespace

class About : public MenuFixture {
 protected:
  QWidget& finestra() { return program_.screens.mostra(QStringLiteral("frmAbout"), program_.contesto); }
  QString testo(const char* etichetta) {
    return finestra().findChild<QLabel*>(QLatin1String(etichetta))->text();
  }
  void click(const char* pulsante) {
    QTest::mouseClick(finestra().findChild<QPushButton*>(QLatin1String(pulsante)), Qt::LeftButton);
  }
  QString bin_ = program_.folder.path();
};

TEST_F(About, ITestiSonoQuelli) {
  EXPECT_EQ(finestra().windowTitle(), QStringLiteral("Informazioni su Gestionale Misuratori Fiscali"));
  EXPECT_EQ(testo("lblTitle"), QStringLiteral("Gestionale Misuratori Fiscali"));
  EXPECT_EQ(testo("lblVersion"), QStringLiteral("Versione 1.1.2"));
  EXPECT_EQ(testo("lblVersion2"), QStringLiteral("1.1.2 del 24/11/2011 "));
  EXPECT_EQ(testo("lblDescription"),
            QStringLiteral("Gestionale per caricamento grafica,gestione articoli e programmazione per i "
                           "misuratori fiscali della Qz s.r.l."));
  EXPECT_EQ(testo("lblKora"), QStringLiteral("For Kora"));
}

TEST_F(About, OKChiudeELaVoltaDopoLaFinestraENuova) {
  QPointer<QWidget> prima = &finestra();
  click("cmdOK");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(prima.isNull());
  EXPECT_EQ(open("frmAbout"), nullptr);
  EXPECT_TRUE(finestra().isVisible());
}

TEST_F(About, EscChiude) {
  QPointer<QWidget> prima = &finestra();
  QTest::keyClick(prima, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(prima.isNull());
}

TEST_F(About, InvioTenutoPremutoDalMenuNonLaChiude) {
  const QPointer<QWidget> informazioni = &finestra();
  auto* ok = informazioni->findChild<QPushButton*>(QStringLiteral("cmdOK"));
  QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(ok, &tenuto);
  EXPECT_TRUE(informazioni && informazioni->isVisible());
  QTest::keyClick(ok, Qt::Key_Return);
  EXPECT_FALSE(informazioni && informazioni->isVisible());
}

TEST_F(About, SenzaImmagineSiApreLoStesso) {
  ASSERT_TRUE(QFile::remove(picture("About.jpg")));
  EXPECT_TRUE(finestra().isVisible());
  EXPECT_TRUE(program_.user.boxes().empty());
}

TEST_F(About, LeInformazioniDiSistemaAvvianoIlProgrammaDelDesktop) {
  const Percorso percorso(bin_);
  eseguibile(bin_ + QStringLiteral("/hardinfo"));
  click("cmdSysInfo");
  EXPECT_EQ(program_.user.programs(), QStringList{bin_ + QStringLiteral("/hardinfo")});
}

TEST_F(About, SenzaUnProgrammaDelDesktopLoDice) {
  const Percorso percorso(bin_);
  click("cmdSysInfo");
  EXPECT_EQ(program_.user.boxes(), std::vector{kNonDisponibili});
  EXPECT_TRUE(program_.user.programs().isEmpty());
}

TEST(InfoSistema, SeIlPrimoProgrammaNonParteSiProvaIlSeguente) {
  const TemporaryFolder cartella;
  const Percorso percorso(cartella.path());
  eseguibile(cartella.file(QStringLiteral("kinfocenter")));
  eseguibile(cartella.file(QStringLiteral("hardinfo")));
  UtenteCheRifiuta utente;
  StartSysInfo(utente);
  EXPECT_EQ(utente.programs(), QStringList{cartella.file(QStringLiteral("hardinfo"))});
}

TEST(InfoSistema, SeNessunProgrammaParteLoDice) {
  const TemporaryFolder cartella;
  const Percorso percorso(cartella.path());
  eseguibile(cartella.file(QStringLiteral("hardinfo")));
  UtenteCheRifiuta utente;
  StartSysInfo(utente);
  EXPECT_EQ(utente.boxes(), std::vector{kNonDisponibili});
}
