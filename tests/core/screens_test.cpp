#include "core/screens.h"

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "core/context.h"
#include "platform/ecrcom/library.h"
#include "platform/error.h"
#include "platform/net/network.h"
#include "platform/store/store.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/scripted_user.h"

namespace {

/// What became of the screens of one test, in order: "+A" made, "xA" closed, "-A" destroyed.
QStringList diario;

template <typename Base>
class Schermo : public Base {
 public:
  explicit Schermo(const QString& nome) {
    this->setObjectName(nome);
    diario.append(QStringLiteral("+") + nome);
  }
  ~Schermo() override { diario.append(QStringLiteral("-") + this->objectName()); }

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

using Finestra = Schermo<QWidget>;
using Dialogo = Schermo<QDialog>;

const QString kA = QStringLiteral("A");
const QString kB = QStringLiteral("B");
const QString kC = QStringLiteral("C");
const QString kD = QStringLiteral("D");

class SchermateTest : public testing::Test {
 protected:
  SchermateTest() {
    diario.clear();
    for (const QString& nome : {kA, kB, kC})
      schermate_.registra(nome, [nome](Contesto&) { return new Finestra(nome); });
    schermate_.registra(kD, [](Contesto&) { return new Dialogo(kD); });
  }
  ~SchermateTest() override {
    schermate_.scaricaTutte();
    smaltisci();
  }

  Finestra& mostra(const QString& nome) {
    return dynamic_cast<Finestra&>(schermate_.mostra(nome, contesto_));
  }
  /// What the event loop does at its next turn.
  static void smaltisci() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  ScriptedUser utente_;
  store::Workspace area_;
  LibreriaEcr libreria_{QString()};
  Schermate schermate_;
  Contesto contesto_{utente_, area_, libreria_, systemNetwork(), schermate_, {}};
};

}  // namespace

TEST_F(SchermateTest, OgniSchermoEUnoSolo) {
  Finestra& prima = mostra(kA);
  EXPECT_EQ(&mostra(kA), &prima);
  EXPECT_EQ(schermate_.trova(kA), &prima);
  EXPECT_EQ(diario, QStringList{QStringLiteral("+A")});
}

TEST_F(SchermateTest, CaricareNonMostra) {
  EXPECT_FALSE(schermate_.carica(kA, contesto_).isVisible());
  EXPECT_TRUE(mostra(kA).isVisible());
}

TEST_F(SchermateTest, UnoSchermoStaNelMezzo) {
  schermate_.registra(kA, [](Contesto&) {
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
  schermate_.registra(kA, [](Contesto&) {
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
    schermate_.registra(nome, [nome](Contesto&) {
      QWidget* schermo = nome == kD ? static_cast<QWidget*>(new Dialogo(nome)) : new Finestra(nome);
      schermo->resize(4000, 3000);
      return schermo;
    });
    const QRect libero = QGuiApplication::primaryScreen()->availableGeometry();
    QWidget& schermo = schermate_.mostra(nome, contesto_);
    EXPECT_TRUE(libero.contains(schermo.frameGeometry())) << nome.toStdString();
  }
}

TEST_F(SchermateTest, UnNomeCheNessunoHaRegistratoEErrore9) {
  try {
    schermate_.mostra(QStringLiteral("Z"), contesto_);
    ADD_FAILURE();
  } catch (const Errore& errore) {
    EXPECT_EQ(errore.numero, errors::kOutOfRange);
  }
  EXPECT_FALSE(schermate_.registrata(QStringLiteral("Z")));
  EXPECT_TRUE(schermate_.registrata(kA));
}

TEST_F(SchermateTest, ChiusaDallaCorniceNonCEPiuDaSubito) {
  mostra(kA).close();
  EXPECT_EQ(schermate_.trova(kA), nullptr);
  smaltisci();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("+A"), QStringLiteral("xA"), QStringLiteral("-A")}));
}

TEST_F(SchermateTest, AllUsoSeguenteRinasceFresca) {
  Finestra& prima = mostra(kA);
  prima.testo = QStringLiteral("scritto");
  prima.close();
  EXPECT_EQ(mostra(kA).testo, QString());
  smaltisci();
  EXPECT_NE(schermate_.trova(kA), nullptr) << "the old one's end does not take the new one along";
}

TEST_F(SchermateTest, UnDialogoNonModaleRespintoNonCEPiu) {
  auto& dialogo = dynamic_cast<Dialogo&>(schermate_.mostra(kD, contesto_));
  QTest::keyClick(&dialogo, Qt::Key_Escape);
  EXPECT_EQ(schermate_.trova(kD), nullptr);
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
  EXPECT_TRUE(schermate_.scarica(kA));
  EXPECT_EQ(schermate_.trova(kA), nullptr);
  smaltisci();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("+A"), QStringLiteral("xA"), QStringLiteral("-A")}));
  EXPECT_TRUE(schermate_.scarica(kA)) << "nothing to do";
}

TEST_F(SchermateTest, ScaricareDalSuoStessoTastoNonTagliaIlRamo) {
  Finestra& schermo = mostra(kA);
  schermo.allaChiusura = [&] { schermate_.scarica(kA); };
  schermate_.scarica(kA);
  EXPECT_EQ(schermo.objectName(), kA) << "destroyed at the loop's next turn, not under its own feet";
  smaltisci();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
}

TEST_F(SchermateTest, ChiRifiutaDiChiudersiResta) {
  Finestra& schermo = mostra(kA);
  schermo.rifiuta = true;
  EXPECT_FALSE(schermate_.scarica(kA));
  smaltisci();
  EXPECT_EQ(schermate_.trova(kA), &schermo);
  EXPECT_TRUE(schermo.isVisible());
  schermo.rifiuta = false;
}

TEST_F(SchermateTest, LaGuardiaFermaLaPersonaENonIlProgramma) {
  Finestra& schermo = mostra(kA);
  const BusyGuard guardia;
  EXPECT_FALSE(schermo.close());
  EXPECT_EQ(schermate_.trova(kA), &schermo);
  EXPECT_TRUE(schermate_.scarica(kA));
  EXPECT_EQ(schermate_.trova(kA), nullptr);
}

TEST_F(SchermateTest, TutteSiScaricanoNellOrdineInCuiSonoNate) {
  for (const QString& nome : {kB, kA, kC}) mostra(nome);
  diario.clear();
  schermate_.scaricaTutte();
  EXPECT_EQ(diario, (QStringList{QStringLiteral("xB"), QStringLiteral("xA"), QStringLiteral("xC")}));
}

TEST_F(SchermateTest, UnaCheRifiutaNonFermaLeAltre) {
  for (const QString& nome : {kA, kB, kC}) mostra(nome);
  dynamic_cast<Finestra*>(schermate_.trova(kB))->rifiuta = true;
  schermate_.scaricaTutte();
  EXPECT_EQ(schermate_.trova(kA), nullptr);
  EXPECT_NE(schermate_.trova(kB), nullptr);
  EXPECT_EQ(schermate_.trova(kC), nullptr);
  dynamic_cast<Finestra*>(schermate_.trova(kB))->rifiuta = false;
}

TEST_F(SchermateTest, LaCorniceDellaPrimaPuoScaricareTutte) {
  Finestra& menu = mostra(kA);
  mostra(kB).allaChiusura = [&] {
    EXPECT_EQ(schermate_.trova(kA), nullptr) << "a workspace does not bring back a menu that is going";
  };
  menu.allaChiusura = [&] { schermate_.scaricaTutte(); };
  EXPECT_TRUE(menu.close());
  smaltisci();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
  EXPECT_EQ(diario.count(QStringLiteral("-B")), 1);
}

TEST_F(SchermateTest, UnDialogoModaleGiraFinoAllaSuaFine) {
  QTimer::singleShot(0, [&] {
    auto* dialogo = dynamic_cast<Dialogo*>(QApplication::activeModalWidget());
    ASSERT_NE(dialogo, nullptr);
    EXPECT_EQ(schermate_.trova(kD), dialogo);
    dialogo->accept();
  });
  schermate_.mostraModale(kD, contesto_);
  EXPECT_EQ(schermate_.trova(kD), nullptr);
  EXPECT_EQ(diario.last(), QStringLiteral("-D"));
}

TEST_F(SchermateTest, UnDialogoModalePuoScaricarsiDaSe) {
  QTimer::singleShot(0, [&] { EXPECT_TRUE(schermate_.scarica(kD)); });
  schermate_.mostraModale(kD, contesto_);
  smaltisci();
  EXPECT_EQ(schermate_.trova(kD), nullptr);
  EXPECT_EQ(diario.count(QStringLiteral("-D")), 1);
}

TEST_F(SchermateTest, UnDialogoModaleSiRiapreFrescoDallaChiusura) {
  int giri = 0;
  for (int volta = 0; volta < 2; ++volta) {
    QTimer::singleShot(0, [&] {
      auto* dialogo = dynamic_cast<Dialogo*>(schermate_.trova(kD));
      ASSERT_NE(dialogo, nullptr);
      EXPECT_EQ(dialogo->testo, QString());
      dialogo->testo = QStringLiteral("scritto");
      ++giri;
      dialogo->close();
    });
    schermate_.mostraModale(kD, contesto_);
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
  schermate_.mostraModale(kA, contesto_);
  EXPECT_EQ(schermate_.trova(kA), nullptr);
  EXPECT_EQ(diario.last(), QStringLiteral("-A"));
}

TEST(Schermate, LaFineDelRegistroNonLasciaSchermi) {
  diario.clear();
  ScriptedUser utente;
  store::Workspace area;
  LibreriaEcr libreria{QString()};
  auto schermate = std::make_unique<Schermate>();
  Contesto contesto{utente, area, libreria, systemNetwork(), *schermate, {}};
  for (const QString& nome : {kA, kB}) {
    schermate->registra(nome, [nome](Contesto&) { return new Finestra(nome); });
    schermate->mostra(nome, contesto);
  }
  schermate->trova(kB)->close();
  schermate.reset();
  EXPECT_EQ(diario.count(QStringLiteral("-A")), 1);
  EXPECT_EQ(diario.count(QStringLiteral("-B")), 1);
}
