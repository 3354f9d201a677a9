#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "platform/ui/at_box.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/desktop_user.h"

namespace {

const QString kOfferta = QStringLiteral("Chiudi anche i prossimi avvisi uguali");
const QString kAvviso = QStringLiteral("Attenzione");

void tieniPremuto(QMessageBox& riquadro, Qt::Key tasto) {
  QKeyEvent ripetuto(QEvent::KeyPress, tasto, Qt::NoModifier, {}, true);
  QApplication::sendEvent(riquadro.focusWidget(), &ripetuto);
}

/// Whether the box of the next notice made the offer, and whether it was taken.
struct Offerta {
  bool fatta = false;
  bool presa = false;
};
Offerta mostra(DesktopUser& utente, const QString& testo, bool prende = false) {
  Offerta offerta;
  atBox([&](QMessageBox& riquadro) {
    offerta.fatta = riquadro.checkBox() != nullptr && riquadro.checkBox()->text() == kOfferta;
    if (offerta.fatta && prende) QTest::keyClick(riquadro.checkBox(), Qt::Key_Space);
    offerta.presa = offerta.fatta && riquadro.checkBox()->isChecked();
    QTest::keyClick(riquadro.buttons().front(), Qt::Key_Return);
  });
  EXPECT_EQ(utente.MsgBox(testo), Answer::Ok);
  return offerta;
}

/// True if nothing asked to be answered.
bool passa(DesktopUser& utente, const QString& testo) {
  bool aperto = false;
  QTimer guardia;
  QObject::connect(&guardia, &QTimer::timeout, [&] {
    if (QWidget* riquadro = QApplication::activeModalWidget()) {
      aperto = true;
      riquadro->close();
    }
  });
  guardia.start(0);
  EXPECT_EQ(utente.MsgBox(testo), Answer::Ok);
  return !aperto;
}

}  // namespace

TEST(RiquadroPredefinito, DoveSiPerderebberoDatiInvioRispondeNoOAnnulla) {
  DesktopUser utente(nullptr);
  for (const auto& [pulsanti, risposta] :
       {std::pair{Buttons::YesNo, Answer::No}, std::pair{Buttons::OkCancel, Answer::Cancel}}) {
    atBox([](QMessageBox& riquadro) {
      EXPECT_TRUE(riquadro.defaultButton()->property("primary").toBool());
      QTest::keyClick(riquadro.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(utente.MsgBox(kAvviso, Icon::None, {}, pulsanti, Preset::Last), risposta);
  }
}

TEST(RiquadroPredefinito, AltroveInvioRispondeIlPrimo) {
  DesktopUser utente(nullptr);
  for (const auto& [pulsanti, risposta] :
       {std::pair{Buttons::YesNoCancel, Answer::Yes}, std::pair{Buttons::OkCancel, Answer::Ok}}) {
    atBox([](QMessageBox& riquadro) { QTest::keyClick(riquadro.focusWidget(), Qt::Key_Return); });
    EXPECT_EQ(utente.MsgBox(kAvviso, Icon::Question, {}, pulsanti), risposta);
  }
}

TEST(RiquadroETastiTenuti, InvioEdEscTenutiPremutiNonRispondono) {
  DesktopUser utente(nullptr);
  for (const Qt::Key tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space}) {
    bool ancoraAperto = false;
    atBox([&](QMessageBox& riquadro) {
      for (int volte = 0; volte < 50; ++volte) tieniPremuto(riquadro, tasto);
      ancoraAperto = riquadro.isVisible();
      QTest::keyClick(riquadro.focusWidget(), tasto);
    });
    EXPECT_EQ(utente.MsgBox(kAvviso), Answer::Ok);
    EXPECT_TRUE(ancoraAperto) << tasto;
  }
}

TEST(AvvisiUguali, DalSecondoDelloStessoComandoSiPossonoChiudereTutti) {
  DesktopUser utente(nullptr);
  const BusyGuard comando;
  EXPECT_FALSE(mostra(utente, kAvviso).fatta);
  EXPECT_TRUE(mostra(utente, kAvviso).fatta);
  EXPECT_TRUE(mostra(utente, kAvviso, true).presa);
  for (int volte = 0; volte < 1221; ++volte) ASSERT_TRUE(passa(utente, kAvviso)) << volte;
  EXPECT_FALSE(passa(utente, QStringLiteral("Un altro avviso")));
}

TEST(AvvisiUguali, IlComandoDopoLiMostraDiNuovo) {
  DesktopUser utente(nullptr);
  {
    const BusyGuard comando;
    mostra(utente, kAvviso);
    ASSERT_TRUE(mostra(utente, kAvviso, true).presa);
    ASSERT_TRUE(passa(utente, kAvviso));
  }
  const BusyGuard comando;
  EXPECT_FALSE(mostra(utente, kAvviso).fatta);
}

TEST(AvvisiUguali, LoStessoTestoSottoUnAltroTitoloEUnAltroAvviso) {
  DesktopUser utente(nullptr);
  const BusyGuard comando;
  mostra(utente, kAvviso);
  ASSERT_TRUE(mostra(utente, kAvviso, true).presa);
  bool offerta = true;
  atBox([&](QMessageBox& riquadro) {
    offerta = riquadro.checkBox() != nullptr;
    riquadro.close();
  });
  utente.MsgBox(kAvviso, Icon::None, QStringLiteral("ATTENZIONE"));
  EXPECT_FALSE(offerta);
}

TEST(AvvisiUguali, FuoriDaUnComandoOgniAvvisoSiMostra) {
  DesktopUser utente(nullptr);
  EXPECT_FALSE(mostra(utente, kAvviso).fatta);
  EXPECT_FALSE(mostra(utente, kAvviso).fatta);
}

TEST(AvvisiUguali, UnaDomandaSiFaSempre) {
  DesktopUser utente(nullptr);
  const BusyGuard comando;
  for (int volte = 0; volte < 3; ++volte) {
    atBox([](QMessageBox& riquadro) {
      EXPECT_EQ(riquadro.checkBox(), nullptr);
      QTest::keyClick(riquadro.focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(utente.MsgBox(kAvviso, Icon::Question, {}, Buttons::YesNo), Answer::Yes);
  }
}

TEST(FormaDelRiquadro, IBreviSonoLarghiUgualeEIlTestoStaAMetaDellaSuaIcona) {
  DesktopUser utente(nullptr);
  std::vector<int> larghezze;
  for (const QString& testo : {QStringLiteral("Sì?"), QStringLiteral("Un testo di una riga sola")}) {
    atBox([&](QMessageBox& riquadro) {
      larghezze.push_back(riquadro.width());
      const auto* scritto = riquadro.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
      const auto* icona = riquadro.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
      ASSERT_NE(scritto, nullptr);
      ASSERT_NE(icona, nullptr);
      EXPECT_NEAR(scritto->geometry().center().y(), icona->geometry().center().y(), 1);
      riquadro.close();
    });
    utente.MsgBox(testo, Icon::Warning);
  }
  ASSERT_EQ(larghezze.size(), 2U);
  EXPECT_EQ(larghezze[0], larghezze[1]);
}

TEST(FormaDelRiquadro, UnTitoloLungoSiLeggeIntero) {
  DesktopUser utente(nullptr);
  const QString titolo =
      QStringLiteral("Impostazione della risoluzione dello schermo, della data e dell'ora");
  atBox([&](QMessageBox& riquadro) {
    EXPECT_GT(riquadro.width(), riquadro.fontMetrics().horizontalAdvance(titolo));
    riquadro.close();
  });
  utente.MsgBox(QStringLiteral("x"), Icon::None, titolo);
}

namespace {

/// The text of the box as laid out, and how wide it would be on its lines.
void guardaTesto(QMessageBox& riquadro, const std::function<void(const QLabel&)>& guarda) {
  const auto* scritto = riquadro.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  ASSERT_NE(scritto, nullptr);
  guarda(*scritto);
  riquadro.close();
}

}  // namespace

TEST(TestoDelRiquadro, SiVedeInteroQuantoSiaLungo) {
  DesktopUser utente(nullptr);
  const QString parola = QStringLiteral("SOVRASCRIVERLO ");
  for (int volte = 1; volte <= 30; ++volte) {
    atBox([&](QMessageBox& riquadro) {
      guardaTesto(riquadro, [&](const QLabel& scritto) {
        if (scritto.wordWrap())
          EXPECT_GE(scritto.height(), scritto.heightForWidth(scritto.width())) << volte;
        else
          EXPECT_GE(scritto.width(), scritto.sizeHint().width()) << volte;
      });
    });
    utente.MsgBox(parola.repeated(volte).trimmed(), Icon::Question);
  }
}

TEST(TestoDelRiquadro, LaCasellaCheLasciaPassareStaSottoIlTesto) {
  DesktopUser utente(nullptr);
  const BusyGuard comando;
  mostra(utente, kAvviso);
  atBox([](QMessageBox& riquadro) {
    ASSERT_NE(riquadro.checkBox(), nullptr);
    const QRect casella = riquadro.checkBox()->geometry();
    guardaTesto(riquadro, [&](const QLabel& scritto) {
      EXPECT_GT(casella.top(), scritto.geometry().bottom());
      EXPECT_GE(scritto.height(), scritto.fontMetrics().height());
    });
  });
  utente.MsgBox(kAvviso);
}
