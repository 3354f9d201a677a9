#include "core/screens.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "controls/style.h"
#include "core/screen.h"
#include "platform/error.h"
#include "platform/ui/busy_guard.h"
#include "sostegno/program_fixture.h"

namespace {

/// What became of the screens of one test, in order: "+A" made, "xA" closed, "-A" destroyed.
QStringList diario;

template <typename Base>
class Diarista : public Base {
 public:
  explicit Diarista(const QString& nome) {
    this->setObjectName(nome);
    diario.append(QStringLiteral("+") + nome);
  }
  ~Diarista() override { diario.append(QStringLiteral("-") + this->objectName()); }

  std::function<void()> allaChiusura;
  bool rifiuta = false;
  QString testo;

 protected:
  void closeEvent(QCloseEvent* evento) override {
    if (rifiuta) return evento->ignore();
    Base::closeEvent(evento);
    if (!evento->isAccepted()) return;
    diario.append(QStringLiteral("x") + this->objectName());
    if (allaChiusura) allaChiusura();
  }
};

/// A screen as the program's are made.
struct Interna : Schermo<QWidget> {
  explicit Interna(Contesto& contesto) : Schermo(contesto) {}
};
/// One that makes another as it is made.
struct Madre : Schermo<QWidget> {
  explicit Madre(Contesto& contesto)
      : Schermo(contesto), figlia(&contesto.schermate.carica(QStringLiteral("I"), contesto)) {}
  QWidget* figlia;
};

using Finestra = Diarista<QWidget>;
using Dialogo = Diarista<QDialog>;

const QString kA = QStringLiteral("A");
const QString kB = QStringLiteral("B");
const QString kC = QStringLiteral("C");
const QString kD = QStringLiteral("D");

class SchermateTest : public testing::Test {
 protected:
  SchermateTest() {
    diario.clear();
    for (const QString& nome : {kA, kB, kC})
      program_.screens.registra(nome, [nome](Contesto&) { return new Finestra(nome); });
    program_.screens.registra(kD, [](Contesto&) { return new Dialogo(kD); });
    program_.screens.registra(QStringLiteral("I"), [](Contesto& contesto) { return new Interna(contesto); });
    program_.screens.registra(QStringLiteral("M"), [](Contesto& contesto) { return new Madre(contesto); });
  }
  ~SchermateTest() override {
    program_.screens.scaricaTutte();
    smaltisci();
  }

  Finestra& mostra(const QString& nome) {
    return dynamic_cast<Finestra&>(program_.screens.mostra(nome, program_.contesto));
  }
  /// What the event loop does at its next turn.
  static void smaltisci() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  ProgramFixture program_;
};

}  // namespace

TEST_F(SchermateTest, OgniSchermoEUnoSolo) {
  Finestra& prima = mostra(kA);
  EXPECT_EQ(&mostra(kA), &prima);
  EXPECT_EQ(program_.screens.trova(kA), &prima);
  EXPECT_EQ(diario, QStringList{QStringLiteral("+A")});
}

TEST_F(SchermateTest, CaricareNonMostra) {
  EXPECT_FALSE(program_.screens.carica(kA, program_.contesto).isVisible());
  EXPECT_TRUE(mostra(kA).isVisible());
}

TEST_F(SchermateTest, UnoSchermoStaNelMezzo) {
  program_.screens.registra(kA, [](Contesto&) {
    auto* schermo = new Finestra(kA);
    schermo->resize(300, 200);
    return schermo;
  });
  const QRect libero = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect posto = mostra(kA).geometry();
  EXPECT_EQ(posto.size(), QSize(300, 200));
  EXPECT_NEAR(posto.center().x(), libero.center().x(), 8);
  EXPECT_NEAR(posto.center().y(), libero.center().y(), 24);
}

TEST_F(SchermateTest, UnoSchermoSenzaMisureSueELargoQuantoIlSuoContenuto) {
  program_.screens.registra(kA, [](Contesto&) {
    auto* schermo = new Finestra(kA);
    auto* dentro = new QWidget(schermo);
    dentro->setMinimumSize(410, 130);
    auto* strato = new QVBoxLayout(schermo);
    strato->setContentsMargins({});
    strato->addWidget(dentro);
    return schermo;
  });
  EXPECT_EQ(mostra(kA).size(), QSize(410, 130));
}

TEST_F(SchermateTest, UnoSchermoPiuGrandeDelDisplayCiSta) {
  for (const QString& nome : {kA, kD}) {
    program_.screens.registra(nome, [nome](Contesto&) {
      QWidget* schermo = nome == kD ? static_cast<QWidget*>(new Dialogo(nome)) : new Finestra(nome);
      schermo->resize(4000, 3000);
      return schermo;
    });
    const QRect libero = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget& schermo = program_.screens.mostra(nome, program_.contesto);
    EXPECT_TRUE(libero.contains(schermo.frameGeometry())) << nome.toStdString();
  }
}

TEST_F(SchermateTest, UnaSiFaSottoIlFoglioDiStileIntero) {
  qApp->setStyleSheet({});
  style::begin(*qApp, style::Theme::Light);
  const auto via = qScopeGuard([] { qApp->setStyleSheet({}); });
  bool intero = false;
  program_.screens.registra(kA, [&intero](Contesto&) {
    intero = !qApp->styleSheet().isEmpty();
    return new Finestra(kA);
  });
  EXPECT_EQ(qApp->styleSheet(), QString());
  program_.screens.carica(kA, program_.contesto);
  EXPECT_TRUE(intero);
}

TEST_F(SchermateTest, UnNomeCheNessunoHaRegistratoEErrore9) {
  try {
    program_.screens.mostra(QStringLiteral("Z"), program_.contesto);
    ADD_FAILURE();
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kOutOfRange);
  }
  EXPECT_FALSE(program_.screens.registrata(QStringLiteral("Z")));
  EXPECT_TRUE(program_.screens.registrata(kA));
}

TEST_F(SchermateTest, UnaCheStaInUnAltraNasceGiaLiEChiSegueNo) {
  QWidget cornice;
  QWidget& dentro = program_.screens.caricaDentro(cornice, QStringLiteral("I"), program_.contesto);
  EXPECT_EQ(dentro.parentWidget(), &cornice);
  EXPECT_FALSE(dentro.isWindow());
  EXPECT_EQ(&program_.screens.caricaDentro(cornice, QStringLiteral("I"), program_.contesto), &dentro);
  EXPECT_TRUE(program_.screens.carica(QStringLiteral("M"), program_.contesto).isWindow());
}

TEST_F(SchermateTest, ChiNasceMentreUnaNasceDentroUnAltraEUnaFinestra) {
  QWidget cornice;
  QWidget& madre = program_.screens.caricaDentro(cornice, QStringLiteral("M"), program_.contesto);
  EXPECT_EQ(madre.parentWidget(), &cornice);
  EXPECT_TRUE(dynamic_cast<Madre&>(madre).figlia->isWindow());
}

TEST_F(SchermateTest, UnNomeIgnotoNonLasciaIlPostoAChiSegue) {
  QWidget cornice;
  EXPECT_THROW(program_.screens.caricaDentro(cornice, QStringLiteral("Z"), program_.contesto), Errore);
  EXPECT_TRUE(program_.screens.carica(QStringLiteral("I"), program_.contesto).isWindow());
}

TEST_F(SchermateTest, ChiusaDallaCorniceNonCEPiuDaSubito) {
  mostra(kA).close();
  EXPECT_EQ(program_.screens.trova(kA), nullptr);
  smaltisci();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("+A"), QStringLiteral("xA"), QStringLiteral("-A")}));
}

TEST_F(SchermateTest, AllUsoSeguenteRinasceFresca) {
  Finestra& prima = mostra(kA);
  prima.testo = QStringLiteral("scritto");
  prima.close();
  EXPECT_EQ(mostra(kA).testo, QString());
  smaltisci();
  EXPECT_NE(program_.screens.trova(kA), nullptr) << "the old one's end does not take the new one along";
}

TEST_F(SchermateTest, UnDialogoNonModaleRespintoNonCEPiu) {
  auto& dialogo = dynamic_cast<Dialogo&>(program_.screens.mostra(kD, program_.contesto));
  QTest::keyClick(&dialogo, Qt::Key_Escape);
  EXPECT_EQ(program_.screens.trova(kD), nullptr);
  smaltisci();
  EXPECT_TRUE(diario.contains(QStringLiteral("-D")));
}

TEST_F(SchermateTest, NascostaRestaLaStessa) {
  Finestra& prima = mostra(kA);
  prima.hide();
  EXPECT_EQ(&mostra(kA), &prima);
}

TEST_F(SchermateTest, ScaricareChiudeEDistrugge) {
  mostra(kA);
  EXPECT_TRUE(program_.screens.scarica(kA));
  EXPECT_EQ(program_.screens.trova(kA), nullptr);
  smaltisci();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("+A"), QStringLiteral("xA"), QStringLiteral("-A")}));
  EXPECT_TRUE(program_.screens.scarica(kA)) << "nothing to do";
}

TEST_F(SchermateTest, ScaricareDalSuoStessoTastoNonTagliaIlRamo) {
  Finestra& schermo = mostra(kA);
  schermo.allaChiusura = [&] { program_.screens.scarica(kA); };
  program_.screens.scarica(kA);
  EXPECT_EQ(schermo.objectName(), kA) << "destroyed at the loop's next turn, not under its own feet";
  smaltisci();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
}

TEST_F(SchermateTest, ChiRifiutaDiChiudersiResta) {
  Finestra& schermo = mostra(kA);
  schermo.rifiuta = true;
  EXPECT_FALSE(program_.screens.scarica(kA));
  smaltisci();
  EXPECT_EQ(program_.screens.trova(kA), &schermo);
  EXPECT_TRUE(schermo.isVisible());
  schermo.rifiuta = false;
}

TEST_F(SchermateTest, LaGuardiaFermaLaPersonaENonIlProgramma) {
  Finestra& schermo = mostra(kA);
  const BusyGuard guardia;
  EXPECT_FALSE(schermo.close());
  EXPECT_EQ(program_.screens.trova(kA), &schermo);
  EXPECT_TRUE(program_.screens.scarica(kA));
  EXPECT_EQ(program_.screens.trova(kA), nullptr);
}

TEST_F(SchermateTest, TutteSiScaricanoNellOrdineInCuiSonoNate) {
  for (const QString& nome : {kB, kA, kC}) mostra(nome);
  diario.clear();
  program_.screens.scaricaTutte();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("xB"), QStringLiteral("xA"), QStringLiteral("xC")}));
}

TEST_F(SchermateTest, UnaCheRifiutaNonFermaLeAltre) {
  for (const QString& nome : {kA, kB, kC}) mostra(nome);
  dynamic_cast<Finestra*>(program_.screens.trova(kB))->rifiuta = true;
  program_.screens.scaricaTutte();
  EXPECT_EQ(program_.screens.trova(kA), nullptr);
  EXPECT_NE(program_.screens.trova(kB), nullptr);
  EXPECT_EQ(program_.screens.trova(kC), nullptr);
  dynamic_cast<Finestra*>(program_.screens.trova(kB))->rifiuta = false;
}

TEST_F(SchermateTest, LaCorniceDellaPrimaPuoScaricareTutte) {
  Finestra& menu = mostra(kA);
  mostra(kB).allaChiusura = [&] {
    EXPECT_EQ(program_.screens.trova(kA), nullptr) << "a workspace does not bring back a menu that is going";
  };
  menu.allaChiusura = [&] { program_.screens.scaricaTutte(); };
  EXPECT_TRUE(menu.close());
  smaltisci();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
  EXPECT_EQ(diario.count(QStringLiteral("-B")), 1);
}

TEST_F(SchermateTest, UnDialogoModaleGiraFinoAllaSuaFine) {
  QTimer::singleShot(0, [&] {
    auto* dialogo = dynamic_cast<Dialogo*>(QApplication::activeModalWidget());
    ASSERT_NE(dialogo, nullptr);
    EXPECT_EQ(program_.screens.trova(kD), dialogo);
    dialogo->accept();
  });
  program_.screens.mostraModale(kD, program_.contesto);
  EXPECT_EQ(program_.screens.trova(kD), nullptr);
  EXPECT_EQ(diario.last(), QStringLiteral("-D"));
}

TEST_F(SchermateTest, UnDialogoModalePuoScaricarsiDaSe) {
  QTimer::singleShot(0, [&] { EXPECT_TRUE(program_.screens.scarica(kD)); });
  program_.screens.mostraModale(kD, program_.contesto);
  smaltisci();
  EXPECT_EQ(program_.screens.trova(kD), nullptr);
  EXPECT_EQ(diario.count(QStringLiteral("-D")), 1);
}

TEST_F(SchermateTest, UnDialogoModaleSiRiapreFrescoDallaChiusura) {
  int giri = 0;
  for (int volta = 0; volta < 2; ++volta) {
    QTimer::singleShot(0, [&] {
      auto* dialogo = dynamic_cast<Dialogo*>(program_.screens.trova(kD));
      ASSERT_NE(dialogo, nullptr);
      EXPECT_EQ(dialogo->testo, QString());
      dialogo->testo = QStringLiteral("scritto");
      ++giri;
      dialogo->close();
    });
    program_.screens.mostraModale(kD, program_.contesto);
  }
  EXPECT_EQ(giri, 2);
}

TEST_F(SchermateTest, AncheUnoSchermoCheNonEDialogoGiraModale) {
  QTimer::singleShot(0, [&] {
    QWidget* schermo = QApplication::activeModalWidget();
    ASSERT_NE(schermo, nullptr);
    EXPECT_EQ(schermo->objectName(), kA);
    schermo->close();
  });
  program_.screens.mostraModale(kA, program_.contesto);
  EXPECT_EQ(program_.screens.trova(kA), nullptr);
  EXPECT_EQ(diario.last(), QStringLiteral("-A"));
}

TEST(Schermate, LaFineDelRegistroNonLasciaSchermi) {
  diario.clear();
  ProgramFixture program;
  auto schermate = std::make_unique<Schermate>();
  for (const QString& nome : {kA, kB}) {
    schermate->registra(nome, [nome](Contesto&) { return new Finestra(nome); });
    schermate->mostra(nome, program.contesto);
  }
  schermate->trova(kB)->close();
  schermate.reset();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
  EXPECT_EQ(diario.count(QStringLiteral("-B")), 1);
}
