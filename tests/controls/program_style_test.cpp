#include "controls/program_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QToolButton>

#include "controls/contrast.h"
#include "controls/palette.h"
#include "controls/style.h"

namespace {

/// True if something is painted, and every fully covered pixel of it in that colour.
bool dipintaIn(const QColor& previsto, const QPixmap& disegno) {
  const QImage immagine = disegno.toImage().convertToFormat(QImage::Format_ARGB32);
  int coperti = 0;
  for (int y = 0; y < immagine.height(); ++y)
    for (int x = 0; x < immagine.width(); ++x) {
      const QColor visto = immagine.pixelColor(x, y);
      if (visto.alpha() < 255) continue;
      ++coperti;
      if (std::abs(visto.red() - previsto.red()) > 2 || std::abs(visto.green() - previsto.green()) > 2 ||
          std::abs(visto.blue() - previsto.blue()) > 2)
        return false;
    }
  return coperti > 0;
}

}  // namespace

class FigureDelloStile : public testing::TestWithParam<bool> {
 protected:
  FigureDelloStile() {
    style::iconFolder(QStringLiteral(GESTIONALE_SOURCES "/data/icons"));
    style::apply(*qApp, GetParam() ? style::Theme::Dark : style::Theme::Light);
  }
  ~FigureDelloStile() override { qApp->setStyleSheet({}); }
  const style::Tints& t_ = style::tints(GetParam());
  const std::vector<std::tuple<QMessageBox::Icon, QStyle::StandardPixmap, QColor>> riquadri_{
      {QMessageBox::Critical, QStyle::SP_MessageBoxCritical, t_.fault},
      {QMessageBox::Warning, QStyle::SP_MessageBoxWarning, t_.busy},
      {QMessageBox::Question, QStyle::SP_MessageBoxQuestion, t_.accent},
      {QMessageBox::Information, QStyle::SP_MessageBoxInformation, t_.accent}};
};

INSTANTIATE_TEST_SUITE_P(ChiaroEScuro, FigureDelloStile, testing::Bool());

TEST_P(FigureDelloStile, IRiquadriHannoLeNostreNelLoroColore) {
  for (const auto& [icona, figura, tinta] : riquadri_) {
    EXPECT_TRUE(dipintaIn(tinta, qApp->style()->standardIcon(figura).pixmap(48))) << figura;
    EXPECT_TRUE(dipintaIn(tinta, qApp->style()->standardPixmap(figura))) << figura;
    QMessageBox riquadro;
    riquadro.setIcon(icona);
    EXPECT_TRUE(dipintaIn(tinta, riquadro.iconPixmap())) << "what the box shows, " << figura;
  }
}

TEST_P(FigureDelloStile, LeQuattroSonoDiverse) {
  std::vector<QImage> viste;
  for (const auto& [icona, figura, tinta] : riquadri_) {
    const QImage forma = qApp->style()->standardIcon(figura).pixmap(48).toImage().createAlphaMask();
    EXPECT_EQ(std::count(viste.begin(), viste.end(), forma), 0) << figura;
    viste.push_back(forma);
  }
}

TEST_P(FigureDelloStile, LeFinestreDeiFileHannoLeNostreNelColoreDelTesto) {
  for (const auto figura :
       {QStyle::SP_ArrowBack, QStyle::SP_ArrowForward, QStyle::SP_FileDialogToParent,
        QStyle::SP_FileDialogNewFolder, QStyle::SP_FileDialogListView, QStyle::SP_FileDialogDetailedView,
        QStyle::SP_DirIcon, QStyle::SP_DirHomeIcon, QStyle::SP_FileIcon, QStyle::SP_ComputerIcon})
    EXPECT_TRUE(dipintaIn(t_.text, qApp->style()->standardIcon(figura).pixmap(48))) << figura;
}

TEST_P(FigureDelloStile, SenzaIFileDelleIconeRestanoQuelleDiFusion) {
  style::iconFolder(QStringLiteral("/percorso/che/non/esiste"));
  for (const auto& [icona, figura, tinta] : riquadri_) {
    const QPixmap disegno = qApp->style()->standardIcon(figura).pixmap(48);
    EXPECT_FALSE(disegno.isNull()) << figura;
    EXPECT_FALSE(dipintaIn(tinta, disegno)) << figura;
    EXPECT_FALSE(qApp->style()->standardPixmap(figura).isNull()) << figura;
  }
}

TEST_P(FigureDelloStile, IPulsantiDeiDialoghiNonHannoIcone) {
  const QDialogButtonBox pulsanti(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
  for (const QAbstractButton* pulsante : pulsanti.buttons()) EXPECT_TRUE(pulsante->icon().isNull());
}

/// Width of what stands out from the ground inside a button's border, pixels.
int larghezzaFigura(QWidget& pulsante, const QColor& fondo) {
  constexpr int kBordo = 3;
  const QImage immagine = pulsante.grab().toImage();
  int primo = immagine.width();
  int ultimo = primo - 1;
  for (int y = kBordo; y < immagine.height() - kBordo; ++y)
    for (int x = kBordo; x < immagine.width() - kBordo; ++x)
      if (immagine.pixelColor(x, y) != fondo) {
        ultimo = primo == immagine.width() ? x : std::max(ultimo, x);
        primo = std::min(primo, x);
      }
  return ultimo - primo + 1;
}

TEST_P(FigureDelloStile, NelleFinestreDeiFileLeIconeHannoLaLoroMisura) {
  QFileDialog finestra;
  finestra.show();
  auto* su = finestra.findChild<QToolButton*>(QStringLiteral("toParentButton"));
  ASSERT_NE(su, nullptr);
  EXPECT_GE(larghezzaFigura(*su, t_.paper), su->iconSize().width() / 2);
  const auto* luoghi = finestra.findChild<QListView*>(QStringLiteral("sidebar"));
  EXPECT_EQ(luoghi->style()->pixelMetric(QStyle::PM_ListViewIconSize, nullptr, luoghi), 16);
}

TEST_P(FigureDelloStile, LaVoceDiMenuSceltaLasciaVedereLaSuaIcona) {
  QMenu menu;
  QAction* scelta = menu.addAction(style::icon(QStringLiteral("file-plus")), QStringLiteral("Nuovo"));
  menu.addAction(QStringLiteral("Apri"));
  menu.setActiveAction(scelta);
  const QRect posto = menu.actionGeometry(scelta);
  EXPECT_EQ(menu.grab().toImage().pixelColor(posto.right() - 4, posto.center().y()), t_.veil);
}

/// Points of the row in the middle of `pulsante` between the last of its icon and the first of its caption.
int vuotoDopoLIcona(QPushButton& pulsante, const QColor& fondo) {
  const QImage visto = pulsante.grab().toImage();
  const auto dipinta = [&](int x) {
    for (int y = 4; y < visto.height() - 4; ++y)
      if (visto.pixelColor(x, y) != fondo) return true;
    return false;
  };
  int x = visto.width() / 2;
  for (x = 4; x < visto.width() && !dipinta(x); ++x) {
  }
  const int inizio = x;
  for (; x < inizio + pulsante.iconSize().height() && x < visto.width(); ++x) {
  }
  while (x > inizio && !dipinta(x - 1)) --x;
  int vuoto = 0;
  for (; x < visto.width() && !dipinta(x); ++x) ++vuoto;
  return vuoto;
}

TEST_P(FigureDelloStile, LIconaDiUnPulsanteHaUnVuotoDallaScritta) {
  QPushButton pulsante(style::icon(QStringLiteral("save")), QStringLiteral("Hai"));
  pulsante.show();
  EXPECT_GE(vuotoDopoLIcona(pulsante, t_.paper), 6);
  EXPECT_GE(pulsante.iconSize().height(), pulsante.fontMetrics().ascent());
  QPushButton muto(style::icon(QStringLiteral("save")), QString());
  muto.show();
  EXPECT_EQ(muto.iconSize().width(), muto.iconSize().height()) << "without a caption it stands in the middle";
}

TEST_P(FigureDelloStile, UnaCasellaSiVedeEDiceSeEScelta) {
  QCheckBox casella;
  casella.resize(casella.sizeHint());
  casella.show();
  QStyleOptionButton opzioni;
  opzioni.initFrom(&casella);
  const QRect posto = casella.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &opzioni, &casella);
  const auto punto = [&](int x, int y) { return casella.grab().toImage().pixelColor(x, y); };
  EXPECT_GE(contrast::between(punto(posto.left(), posto.center().y()), t_.background), 3.0)
      << "the border stands out from the window";
  EXPECT_EQ(punto(posto.left() + 2, posto.center().y()), t_.paper);
  casella.setChecked(true);
  EXPECT_EQ(punto(posto.left() + 2, posto.top() + 3), t_.accent);
  const int tratto = posto.left() + qRound(0.42 * posto.width());
  EXPECT_GE(contrast::between(punto(tratto, posto.top() + qRound(0.68 * posto.height())), t_.accent), 3.0)
      << "the tick stands out from its ground";
}
