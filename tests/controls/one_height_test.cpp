// Fields, buttons and lists that fold up stand in one row: they are of one height and look alike.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/contrast.h"
#include "controls/palette.h"
#include "controls/style.h"

namespace {

/// A window with one of each.
struct Riga {
  Riga() {
    lista.addItems({QStringLiteral("Settembre"), QStringLiteral("Maggio")});
    figurato.setIcon(style::icon(QStringLiteral("save")));
    azione.setObjectName(QStringLiteral("AzioneEsito"));
    azione.setText(QStringLiteral("Apri il report"));
    auto* colonna = new QVBoxLayout(&finestra);
    for (QWidget* uno : std::initializer_list<QWidget*>{&campo, &lista, &pulsante, &figurato, &azione})
      colonna->addWidget(uno);
    style::primary(pulsante);
    finestra.show();
  }

  QWidget finestra;
  QLineEdit campo{QStringLiteral("gq")};
  QComboBox lista;
  QPushButton pulsante{QStringLiteral("Avvia")};
  QPushButton figurato{QStringLiteral("Salva")};
  QToolButton azione;
};

class UnaSolaAltezza : public testing::TestWithParam<qreal> {
 protected:
  UnaSolaAltezza() {
    style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
    style::apply(*qApp, style::Theme::Light);
    QFont lettere = prima_;
    lettere.setPointSizeF(GetParam());
    QApplication::setFont(lettere);
  }
  ~UnaSolaAltezza() override {
    QApplication::setFont(prima_);
    qApp->setStyleSheet({});
  }

 private:
  QFont prima_ = QApplication::font();
};

TEST_P(UnaSolaAltezza, CampoListaPulsanteEAzioneDelPiede) {
  const Riga riga;
  const int altezza = riga.campo.height();
  EXPECT_EQ(riga.lista.height(), altezza);
  EXPECT_EQ(riga.pulsante.height(), altezza);
  EXPECT_EQ(riga.figurato.height(), altezza);
  EXPECT_EQ(riga.azione.height(), altezza);
  // Nothing may squeeze them: a body that scrolls gives its controls the least that they take.
  EXPECT_EQ(riga.campo.minimumSizeHint().height(), altezza);
  EXPECT_GE(riga.campo.minimumHeight(), altezza);
  EXPECT_GE(riga.pulsante.minimumHeight(), altezza);
}

INSTANTIATE_TEST_SUITE_P(Punti, UnaSolaAltezza, testing::Values(9.0, 10.0, 11.25, 12.0));

class ListaPieghevole : public testing::TestWithParam<bool> {
 protected:
  ListaPieghevole() { style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light); }
  ~ListaPieghevole() override {
    style::apply(*qApp, style::Theme::Light);
    qApp->setStyleSheet({});
  }
  /// The list painted alone; its line is the first pixel of the middle row, its ground the tenth.
  QImage dipinta() {
    lista_.addItem(QStringLiteral("01"));
    lista_.resize(120, 28);
    return lista_.grab().toImage();
  }
  static QColor linea(const QImage& immagine) { return immagine.pixelColor(0, immagine.height() / 2); }
  static QColor fondo(const QImage& immagine) { return immagine.pixelColor(10, 4); }

  const style::Tints& t_ = style::tints(GetParam());
  QComboBox lista_;
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, ListaPieghevole, testing::Bool());

TEST_P(ListaPieghevole, HaIlFondoELaLineaDiUnCampo) {
  const QImage immagine = dipinta();
  EXPECT_EQ(fondo(immagine), t_.paper);
  EXPECT_EQ(linea(immagine), t_.border);
  EXPECT_GE(contrast::between(linea(immagine), fondo(immagine)), 3.0);
}

TEST_P(ListaPieghevole, LaFrecciaSiVede) {
  const QImage immagine = dipinta();
  double migliore = 0;
  for (int x = immagine.width() - 20; x < immagine.width() - 2; ++x)
    for (int y = 4; y < immagine.height() - 4; ++y)
      migliore = std::max(migliore, contrast::between(immagine.pixelColor(x, y), t_.paper));
  EXPECT_GE(migliore, 3.0);
}

TEST_P(ListaPieghevole, SpentaPerdeLaLinea) {
  lista_.setEnabled(false);
  const QImage immagine = dipinta();
  EXPECT_EQ(fondo(immagine), t_.background);
  EXPECT_EQ(linea(immagine), t_.emphasis);
}

TEST_P(ListaPieghevole, ColFuocoHaLaLineaDelFuoco) {
  lista_.show();
  lista_.activateWindow();
  lista_.setFocus();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&lista_));
  EXPECT_EQ(linea(dipinta()), t_.accent);
}

TEST(RigheDiUnElenco, NonStannoPiuStretteDiQuelleConUnIcona) {
  style::apply(*qApp, style::Theme::Light);
  QListWidget elenco;
  elenco.addItem(QStringLiteral("Natale.bmp"));
  elenco.show();
  EXPECT_GE(elenco.visualItemRect(elenco.item(0)).height(), 20);
  qApp->setStyleSheet({});
}

}  // namespace
