// Every screen by keys alone, and as a screen reader finds it.
#include "system/keyboard_walk.h"

#include <gmock/gmock.h>

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

#include "system/every_screen.h"

namespace {

/// Each screen in turn.
class OgniSchermata : public testing::TestWithParam<Screen> {
 protected:
  Shop shop_;
};

/// What is to be said of a look; empty if nothing is.
std::string blame(QStringList (*look)(QWidget&), QWidget& window) {
  return look(window).join(u'\n').toStdString();
}

TEST_P(OgniSchermata, SiGiraSiPremeESiLeggeSenzaTopoNeOcchi) {
  bool opened = false;
  GetParam().open(shop_, [&](QWidget& window) {
    opened = true;
    EXPECT_EQ(blame(walk::names, window), "") << "for who does not see";
    EXPECT_EQ(blame(walk::byTab, window), "") << "by Tab and back";
    EXPECT_EQ(blame(walk::order, window), "") << "down and to the right on each tab";
    EXPECT_EQ(blame(walk::bySpace, window), "") << "each command by the space bar";
    EXPECT_EQ(blame(walk::byMenus, window), "") << "menus by letters and arrows";
  });
  EXPECT_TRUE(opened);
}

TEST_P(OgniSchermata, UnTastoAvviaUnComando) {
  if (!GetParam().startByKey) {
    GetParam().open(shop_, [](QWidget& window) {
      EXPECT_TRUE(window.findChildren<QAbstractButton*>().isEmpty()) << "there is a command after all";
    });
    return;
  }
  GetParam().open(shop_, [this](QWidget& window) { GetParam().startByKey(shop_, GuidedScreen(window)); });
}

INSTANTIATE_TEST_SUITE_P(Di, OgniSchermata, testing::ValuesIn(everyScreen()),
                         [](const auto& one) { return std::string(one.param.name); });

/// A window of the test's own, with what a walk has to blame.
class GiroDiProva : public testing::Test {
 protected:
  template <typename Control>
  Control& add(const char* name, int row, int column, const QString& text = {}) {
    auto* control = new Control;
    control->setObjectName(QString::fromLatin1(name));
    if (!text.isEmpty()) control->setProperty("text", text);
    grid_->addWidget(control, row, column);
    return *control;
  }
  void show() {
    window_.setWindowTitle(QStringLiteral("Prova"));
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  std::string blame(QStringList (*look)(QWidget&)) { return ::blame(look, window_); }

  QWidget window_;
  QGridLayout* grid_ = new QGridLayout(&window_);
};

TEST_F(GiroDiProva, UnPulsanteSenzaTabulatoreSiVede) {
  add<QPushButton>("primo", 0, 0, QStringLiteral("Primo")).setFocus();
  add<QPushButton>("muto", 1, 0, QStringLiteral("Muto")).setFocusPolicy(Qt::ClickFocus);
  show();
  EXPECT_EQ(blame(walk::byTab), "muto [QPushButton] is never reached by Tab");
}

TEST_F(GiroDiProva, DelleOpzioniBastaUnaLeAltreColleFrecce) {
  add<QRadioButton>("una", 0, 0, QStringLiteral("Una")).setChecked(true);
  add<QRadioButton>("altra", 1, 0, QStringLiteral("Altra"));
  add<QPushButton>("avvia", 2, 0, QStringLiteral("Avvia")).setFocus();
  show();
  EXPECT_EQ(blame(walk::byTab), "");
}

TEST_F(GiroDiProva, UnPassoAllIndietroSiVede) {
  auto& a = add<QPushButton>("a", 0, 0, QStringLiteral("A"));
  auto& b = add<QPushButton>("b", 1, 0, QStringLiteral("B"));
  auto& c = add<QPushButton>("c", 2, 0, QStringLiteral("C"));
  QWidget::setTabOrder(&a, &c);
  QWidget::setTabOrder(&c, &b);
  a.setFocus();
  show();
  EXPECT_EQ(blame(walk::order),
            "Tab goes backwards: c [QPushButton] to b [QPushButton], b [QPushButton] to a [QPushButton]");
}

TEST_F(GiroDiProva, UnaSchedaLasciataAMetaSiVede) {
  auto& card = add<QFrame>("scheda", 0, 0);
  card.setProperty("card", true);
  auto* column = new QVBoxLayout(&card);
  QList<QPushButton*> inside;
  for (const char* name : {"uno", "due"}) {
    inside.append(new QPushButton(QString::fromLatin1(name)));
    inside.last()->setObjectName(QString::fromLatin1(name));
    column->addWidget(inside.last());
  }
  auto& foot = add<QPushButton>("piede", 1, 0, QStringLiteral("Piede"));
  auto& last = add<QPushButton>("fine", 2, 0, QStringLiteral("Fine"));
  QWidget::setTabOrder(inside[0], &foot);
  QWidget::setTabOrder(&foot, inside[1]);
  QWidget::setTabOrder(inside[1], &last);
  inside[0]->setFocus();
  show();
  EXPECT_EQ(blame(walk::order), "Tab comes back into scheda [QFrame] at due [QPushButton]");
}

TEST_F(GiroDiProva, UnPulsanteCheNonSenteLaBarraSiVede) {
  struct Deaf : QPushButton {
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
  };
  add<Deaf>("sordo", 0, 0, QStringLiteral("Sordo")).setFocus();
  show();
  EXPECT_EQ(blame(walk::bySpace), "sordo [QPushButton] is not pressed by Space");
}

TEST_F(GiroDiProva, NomiCheMancanoOVuotiSiVedono) {
  add<QPushButton>("senza", 0, 0);
  add<QPushButton>("largo", 1, 0, QStringLiteral("Due  vuoti"));
  add<QPushButton>("segni", 2, 0, QStringLiteral("..."));
  add<QLineEdit>("campo", 3, 1);
  add<QLabel>("scritta", 3, 0, QStringLiteral("Prezzo"));
  show();
  const std::string found = blame(walk::names);
  EXPECT_THAT(found, testing::HasSubstr("senza [role 43] has no name"));
  EXPECT_THAT(found, testing::HasSubstr("largo [role 43] is called with doubled blanks: Due  vuoti"));
  EXPECT_THAT(found, testing::HasSubstr("segni [role 43] is called without a letter: ..."));
  EXPECT_THAT(found, testing::HasSubstr("campo [role 42] has no name"));
  EXPECT_THAT(found, testing::HasSubstr("campo [QLineEdit] has no label tied to it"));
}

}  // namespace
