#pragma once

#include <gtest/gtest.h>

#include <QCloseEvent>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>
#include <array>

#include "controls/menu_entry.h"
#include "core/menu.h"
#include "core/start.h"
#include "sostegno/program_fixture.h"

/// Stands for a workspace of the menu, which comes back when it closes.
class StandIn : public QWidget {
 public:
  explicit StandIn(Contesto& contesto) : contesto_(contesto) {}

 protected:
  void closeEvent(QCloseEvent* event) override {
    MostraMenu(contesto_);
    event->accept();
  }

 private:
  Contesto& contesto_;
};

/// A menu over an application folder of the test's own, with the five pictures as plain colours.
class MenuFixture : public testing::Test {
 protected:
  MenuFixture() {
    QDir().mkpath(app_ + QStringLiteral("/Immagini"));
    paintPicture("4-1.jpg", Qt::red);
    paintPicture("5-1.jpg", Qt::green);
    paintPicture("GestioneProgrammazione.jpg", Qt::blue);
    paintPicture("Clienti.jpg", Qt::yellow);
    paintPicture("About.jpg", Qt::magenta);
    registraSchermateCore(program_.screens);
    for (const char* workspace :
         {"Form_Grafica", "Form_GestioneMMC", "MDIForm_PRG", "Form_GestioneClienti", "Form_Comandi_XONXOFF"})
      program_.screens.registra(QLatin1String(workspace),
                                [](Contesto& contesto) { return new StandIn(contesto); });
    program_.screens.registra(QStringLiteral("start"),
                              [this](Contesto& contesto) { return new start(contesto, display_); });
  }

  QString picture(const char* name) const {
    return app_ + QStringLiteral("/Immagini/") + QLatin1String(name);
  }
  void paintPicture(const char* name, QColor colour) const {
    QPixmap plain(64, 48);
    plain.fill(colour);
    ASSERT_TRUE(plain.save(picture(name), "JPG", 100));
  }

  /// Shows the menu and waits until it is the active window; its first picture may come later.
  start& menu() {
    auto& screen = dynamic_cast<start&>(program_.screens.mostra(QStringLiteral("start"), program_.contesto));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    return screen;
  }
  MenuEntry& entry(const char* name) {
    auto* found = menu().findChild<MenuEntry*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  /// A real move of the mouse within the entry, never twice to the same place.
  void moveOver(const char* name) {
    step_ = (step_ + 1) % 10;
    QTest::mouseMove(&entry(name), QPoint(20 + step_, 8));
  }
  void click(const char* name) { QTest::mouseClick(&entry(name), Qt::LeftButton); }
  QWidget* open(const char* name) const { return program_.screens.trova(QLatin1String(name)); }

 private:
  QTemporaryDir applicationFolder_;

 protected:
  QString app_ = applicationFolder_.path();
  MisureSchermo display_{1280, 1024};
  ProgramFixture program_{app_, app_};

 private:
  int step_ = 0;
};

inline constexpr std::array kMenuEntries{"Label1", "Label2", "Label3", "Label7", "Label_CMD_XONXOFF",
                                         "Label6", "Label4"};
