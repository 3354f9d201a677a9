// Every screen looked at with the letters that are usual and with larger ones.
#include "system/screen_look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTest>
#include <algorithm>
#include <utility>

#include "controls/style.h"
#include "system/every_screen.h"

namespace {

constexpr qreal kLarger = 1.25;
/// What a window has on the smallest display, inside its frame and beside a task bar.
constexpr QSize kSmallestDisplay(1016, 732);
constexpr int kFrame = 16;

/// The program's own look, and the letters of the desktop again behind the test.
class LookOfTheProgram {
 public:
  LookOfTheProgram() {
    style::iconFolder(QStringLiteral(GESTIONALE_APP "/icons"));
    style::apply(*qApp, style::Theme::Light);
  }
  ~LookOfTheProgram() {
    QApplication::setFont(usual_);
    style::apply(*qApp, style::Theme::Light);
    qApp->setStyleSheet({});
  }
  LookOfTheProgram(const LookOfTheProgram&) = delete;
  LookOfTheProgram& operator=(const LookOfTheProgram&) = delete;

  void growLetters() const {
    QFont larger = usual_;
    larger.setPointSizeF(usual_.pointSizeF() * kLarger);
    QApplication::setFont(larger);
  }

 private:
  QFont usual_ = QApplication::font();
};

std::string lines(const QStringList& blame) {
  return blame.join(u'\n').toStdString();
}

class AspettoDiOgniSchermata : public testing::TestWithParam<Screen> {
 protected:
  void look(const Use& use) {
    bool opened = false;
    GetParam().open(shop_, [&](QWidget& window) {
      opened = true;
      // What is laid out a moment later, such as a foot that takes another line.
      QCoreApplication::processEvents();
      use(window);
    });
    EXPECT_TRUE(opened);
  }

  LookOfTheProgram program_;
  Shop shop_;
};

TEST_P(AspettoDiOgniSchermata, HaLettereUnicheTestiInteriMarginiEAltezzeDiTutte) {
  look([](QWidget& window) {
    EXPECT_EQ(lines(look::keys(window)), "");
    EXPECT_EQ(lines(look::texts(window)), "");
    EXPECT_EQ(lines(look::places(window)), "");
    EXPECT_EQ(lines(look::margins(window)), "");
    EXPECT_EQ(lines(look::heights(window)), "");
    EXPECT_EQ(lines(look::contrasts(window)), "");
    EXPECT_EQ(lines(look::reasons(window)), "");
  });
}

TEST_P(AspettoDiOgniSchermata, AlBuioSiLeggeTutto) {
  style::apply(*qApp, style::Theme::Dark);
  look([](QWidget& window) { EXPECT_EQ(lines(look::contrasts(window)), ""); });
}

TEST_P(AspettoDiOgniSchermata, ConLettereUnQuartoPiuGrandiRestaIntera) {
  program_.growLetters();
  look([](QWidget& window) {
    // The tests' own display is smaller than any that there is.
    if (window.width() > window.screen()->availableSize().width() - kFrame) window.resize(kSmallestDisplay);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines(look::texts(window)), "");
    EXPECT_EQ(lines(look::places(window)), "");
    EXPECT_EQ(lines(look::heights(window)), "");
    EXPECT_LE(window.minimumSizeHint().width(), kSmallestDisplay.width());
    EXPECT_LE(window.minimumSizeHint().height(), kSmallestDisplay.height());
  });
}

INSTANTIATE_TEST_SUITE_P(Di, AspettoDiOgniSchermata, testing::ValuesIn(everyScreen()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(CalendarioDellaGrafica, HaIlSuoFondoGiaAllApertura) {
  // A style sheet gives a list its own colours back once it comes into another window.
  const LookOfTheProgram program;
  const auto calendar = std::ranges::find_if(everyScreen(), [](const Screen& screen) {
    return QLatin1String(screen.name) == QLatin1String("OpzioniCalendario");
  });
  ASSERT_NE(calendar, everyScreen().end());
  Shop shop;
  bool opened = false;
  calendar->open(shop, [&](QWidget& window) {
    opened = true;
    for (const char* list : {"CmbGiorno_0", "CmbMese_0", "CmbGiornoFine_11", "CmbMeseFine_11"}) {
      auto* one = window.findChild<QComboBox*>(QLatin1String(list));
      ASSERT_NE(one, nullptr) << list;
      EXPECT_EQ(one->grab().toImage().pixelColor(3, one->height() / 2), QColor(0xE0, 0xE0, 0xE0)) << list;
    }
  });
  EXPECT_TRUE(opened);
}

TEST(TestaDegliArchivi, DiceQualeEAperto) {
  Shop shop;
  shop.openCustomers();
  for (const auto& [screen, archive] :
       {std::pair{"Form_ArchivioArticoli", "archivio.mdb"}, std::pair{"Form_ArchivioVenduto", "archivio.mdb"},
        std::pair{"Form_AnagraficaClienti", "clienti.mdb"},
        std::pair{"Form_ArchivioFattureClienti", "clienti.mdb"}})
    EXPECT_EQ(GuidedScreen(shop.room, QLatin1String(screen)).text(QStringLiteral("LabelArchivio")),
              QStringLiteral("Archivio: ") + QLatin1String(archive))
        << screen;
}

/// The screens that the program makes known, as its source names them.
QSet<QString> screensOfTheProgram() {
  QFile source(QStringLiteral(GESTIONALE_SOURCES "/src/program.cpp"));
  EXPECT_TRUE(source.open(QIODevice::ReadOnly));
  static const QRegularExpression known(QStringLiteral("registra<(\\w+)>"));
  QSet<QString> names;
  QRegularExpressionMatchIterator found = known.globalMatch(QString::fromUtf8(source.readAll()));
  while (found.hasNext()) names.insert(found.next().captured(1));
  return names;
}

TEST(OgniSchermataDelProgramma, HaUnaRigaNellElenco) {
  QSet<QString> missing = screensOfTheProgram();
  ASSERT_GT(missing.size(), 25);
  for (const Screen& screen : everyScreen()) {
    Shop shop;
    screen.open(shop, [&](QWidget& window) {
      missing.remove(window.objectName());
      // Editors stand in the window of the configuration.
      for (const QWidget* inside : window.findChildren<QWidget*>()) missing.remove(inside->objectName());
    });
  }
  EXPECT_EQ(lines(missing.values()), "");
}

/// A window of the test's own, with what a look has to blame.
class SguardoDiProva : public testing::Test {
 protected:
  template <typename Control>
  Control& add(const char* name, const QRect& place, const QString& text = {}) {
    auto* control = new Control(&window_);
    control->setObjectName(QString::fromLatin1(name));
    if (!text.isEmpty()) control->setProperty("text", text);
    control->setGeometry(place);
    return *control;
  }
  std::string blame(QStringList (*look)(QWidget&)) {
    window_.resize(400, 300);
    window_.show();
    return lines(look(window_));
  }

  LookOfTheProgram program_;
  QWidget window_;
};

TEST_F(SguardoDiProva, UnaLetteraPerDueCoseSiVede) {
  add<QPushButton>("avvia", {20, 20, 120, 28}, QStringLiteral("&Avvia"));
  add<QPushButton>("annulla", {20, 60, 120, 28}, QStringLiteral("&Annulla"));
  EXPECT_EQ(blame(look::keys), "Alt+A stands for avvia [QPushButton] and annulla [QPushButton]");
}

TEST_F(SguardoDiProva, UnTestoCheNonCiStaSiVede) {
  add<QLabel>("scritta", {20, 20, 10, 28}, QStringLiteral("Ragione sociale del cliente"));
  add<QPushButton>("pulsante", {20, 60, 30, 28}, QStringLiteral("Salva Modifiche"));
  auto& list = add<QComboBox>("elenco", {20, 100, 40, 28});
  list.addItem(QStringLiteral("Settembre"));
  auto& box = add<QLineEdit>("casella", {20, 140, 40, 28}, QStringLiteral("KPR_80mm e altro"));
  box.setReadOnly(true);
  const QStringList found = QString::fromStdString(blame(look::texts)).split(u'\n');
  ASSERT_EQ(found.size(), 4);
  EXPECT_TRUE(found[0].startsWith(QStringLiteral("scritta [QLabel] has 10 of ")));
  EXPECT_TRUE(found[1].startsWith(QStringLiteral("pulsante [QPushButton] has 30 of ")));
  EXPECT_TRUE(found[2].startsWith(QStringLiteral("elenco [QComboBox] has ")));
  EXPECT_TRUE(found[3].startsWith(QStringLiteral("casella [QLineEdit] has ")));
}

TEST_F(SguardoDiProva, CioCheEsceECioCheCopreSiVede) {
  add<QPushButton>("fuori", {350, 20, 100, 28}, QStringLiteral("Fuori"));
  add<QPushButton>("sotto", {20, 60, 120, 28}, QStringLiteral("Sotto"));
  add<QLineEdit>("sopra", {100, 70, 120, 28});
  const std::string found = blame(look::places);
  EXPECT_NE(found.find("fuori [QPushButton] reaches out of its place"), std::string::npos) << found;
  EXPECT_NE(found.find(" lies over "), std::string::npos) << found;
}

TEST_F(SguardoDiProva, MarginiEAltezzeDiversiSiVedono) {
  add<QPushButton>("pulsante", {24, 20, 120, 34}, QStringLiteral("Avvia"));
  add<QLineEdit>("campo", {200, 20, 180, 28});
  EXPECT_EQ(blame(look::margins), "24 at the left");
  EXPECT_EQ(blame(look::heights), "28: campo [QLineEdit]\n34: pulsante [QPushButton]");
}

TEST_F(SguardoDiProva, UnTestoSbiaditoSiVede) {
  add<QLabel>("chiara", {20, 20, 200, 28}, QStringLiteral("Scritta"))
      .setStyleSheet(QStringLiteral("color: #9aa4aa"));
  add<QLabel>("scura", {20, 60, 200, 28}, QStringLiteral("Scritta"));
  add<QPushButton>("pulsante", {20, 100, 120, 28}, QStringLiteral("Avvia"))
      .setStyleSheet(QStringLiteral("color: #9aa4aa"));
  const QStringList found = QString::fromStdString(blame(look::contrasts)).split(u'\n');
  ASSERT_EQ(found.size(), 2);
  EXPECT_TRUE(found[0].startsWith(QStringLiteral("chiara [QLabel] has 2.")));
  EXPECT_TRUE(found[1].startsWith(QStringLiteral("pulsante [QPushButton] has 2.")));
}

TEST_F(SguardoDiProva, UnComandoSpentoSenzaUnPercheSiVede) {
  add<QPushButton>("muto", {20, 20, 120, 28}, QStringLiteral("Muto")).setEnabled(false);
  auto& speaking = add<QPushButton>("parla", {20, 60, 120, 28}, QStringLiteral("Parla"));
  speaking.setEnabled(false);
  speaking.setToolTip(QStringLiteral("Prima connettere la cassa"));
  EXPECT_EQ(blame(look::reasons), "muto [QPushButton] does not say why it is off");
}

}  // namespace
