#pragma once

#include <gtest/gtest.h>

#include <QPixmap>
#include <QTest>
#include <memory>

#include "controls/menu_entry.h"
#include "core/context.h"
#include "core/menu.h"
#include "core/screens.h"
#include "core/start.h"
#include "core/state.h"
#include "platform/ecrcom/library.h"
#include "platform/net/network.h"
#include "platform/store/store.h"
#include "platform/ui/scripted_user.h"
#include "sostegno/temporary_folder.h"

/// A menu over an application folder of the test's own, with the five pictures as plain colours.
class Bench : public testing::Test {
 protected:
  Bench() {
    azzeraStato();
    QDir().mkpath(app_ + QStringLiteral("/Immagini"));
    coloraImmagine("4-1.jpg", Qt::red);
    coloraImmagine("5-1.jpg", Qt::green);
    coloraImmagine("GestioneProgrammazione.jpg", Qt::blue);
    coloraImmagine("Clienti.jpg", Qt::yellow);
    coloraImmagine("About.jpg", Qt::magenta);
    registraSchermateCore(schermate_);
    registraSchermateMancanti(schermate_);
    schermate_.registra(QStringLiteral("start"), [this](Contesto& c) { return new start(c, misure_); });
  }

  QString immagine(const char* nome) const {
    return app_ + QStringLiteral("/Immagini/") + QLatin1String(nome);
  }
  void coloraImmagine(const char* nome, QColor colore) {
    QPixmap tinta(64, 48);
    tinta.fill(colore);
    ASSERT_TRUE(tinta.save(immagine(nome), "JPG", 100));
  }

  /// Shows the menu and waits until its first picture is there.
  start& menu() {
    auto& schermo = dynamic_cast<start&>(schermate_.mostra(QStringLiteral("start"), contesto_));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&schermo));
    return schermo;
  }
  MenuEntry& voce(const char* nome) {
    auto* trovata = menu().findChild<MenuEntry*>(QLatin1String(nome));
    EXPECT_NE(trovata, nullptr) << nome;
    return *trovata;
  }
  /// A real move of the mouse within the entry, never twice to the same place.
  void passaSopra(const char* nome) {
    passo_ = (passo_ + 1) % 10;
    QTest::mouseMove(&voce(nome), QPoint(20 + passo_, 8));
  }
  void clicca(const char* nome) { QTest::mouseClick(&voce(nome), Qt::LeftButton); }
  QWidget* aperta(const char* nome) const { return schermate_.trova(QLatin1String(nome)); }

  TemporaryFolder corrente_;
  QTemporaryDir cartellaApp_;
  QString app_ = cartellaApp_.path();
  ScriptedUser utente_;
  store::Workspace area_;
  LibreriaEcr libreria_{app_};
  MisureSchermo misure_{1280, 1024};
  Schermate schermate_;
  Contesto contesto_{utente_, area_, libreria_, systemNetwork(), schermate_, app_};

 private:
  int passo_ = 0;
};

inline constexpr std::array kVociMenu{"Label1", "Label2", "Label3", "Label7", "Label_CMD_XONXOFF",
                                      "Label6", "Label4"};
