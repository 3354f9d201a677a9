#include "core/frmAbout.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>

#include "banco.h"
#include "core/info_sistema.h"

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
class UtenteCheRifiuta : public UtenteCopione {
 public:
  void AvviaProgramma(const QString& programma, const QStringList& argomenti) override {
    if (rifiuti++ == 0) throw Errore{errore::kFileAssente, QStringLiteral("File non trovato")};
    UtenteCopione::AvviaProgramma(programma, argomenti);
  }
  int rifiuti = 0;
};

const Riquadro kNonDisponibili{
    QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."),
    Icona::Nessuna,
    {},
    Pulsanti::OK};

}  // namespace

class About : public Banco {
 protected:
  QWidget& finestra() { return schermate_.mostra(QStringLiteral("frmAbout"), contesto_); }
  QString testo(const char* etichetta) {
    return finestra().findChild<QLabel*>(QLatin1String(etichetta))->text();
  }
  void clicca(const char* pulsante) {
    QTest::mouseClick(finestra().findChild<QPushButton*>(QLatin1String(pulsante)), Qt::LeftButton);
  }
  QString bin_ = corrente_.percorso();
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
  clicca("cmdOK");
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(prima.isNull());
  EXPECT_EQ(aperta("frmAbout"), nullptr);
  EXPECT_TRUE(finestra().isVisible());
}

TEST_F(About, EscChiude) {
  QPointer<QWidget> prima = &finestra();
  QTest::keyClick(prima, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(prima.isNull());
}

TEST_F(About, SenzaImmagineSiApreLoStesso) {
  ASSERT_TRUE(QFile::remove(immagine("About.jpg")));
  EXPECT_TRUE(finestra().isVisible());
  EXPECT_TRUE(utente_.riquadri().empty());
}

TEST_F(About, LeInformazioniDiSistemaAvvianoIlProgrammaDelDesktop) {
  const Percorso percorso(bin_);
  eseguibile(bin_ + QStringLiteral("/hardinfo"));
  clicca("cmdSysInfo");
  EXPECT_EQ(utente_.programmi(), QStringList{bin_ + QStringLiteral("/hardinfo")});
}

TEST_F(About, SenzaUnProgrammaDelDesktopLoDice) {
  const Percorso percorso(bin_);
  clicca("cmdSysInfo");
  EXPECT_EQ(utente_.riquadri(), std::vector{kNonDisponibili});
  EXPECT_TRUE(utente_.programmi().isEmpty());
}

TEST(InfoSistema, SeIlPrimoProgrammaNonParteSiProvaIlSeguente) {
  const CartellaTemporanea cartella;
  const Percorso percorso(cartella.percorso());
  eseguibile(cartella.file(QStringLiteral("kinfocenter")));
  eseguibile(cartella.file(QStringLiteral("hardinfo")));
  UtenteCheRifiuta utente;
  StartSysInfo(utente);
  EXPECT_EQ(utente.programmi(), QStringList{cartella.file(QStringLiteral("hardinfo"))});
}

TEST(InfoSistema, SeNessunProgrammaParteLoDice) {
  const CartellaTemporanea cartella;
  const Percorso percorso(cartella.percorso());
  eseguibile(cartella.file(QStringLiteral("hardinfo")));
  UtenteCheRifiuta utente;
  StartSysInfo(utente);
  EXPECT_EQ(utente.riquadri(), std::vector{kNonDisponibili});
}
