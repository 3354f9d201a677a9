#include "auxcmd/waiting_bar.h"

#include <QStyleOptionProgressBar>
#include <QStylePainter>

namespace {

/// The piece that moves is a quarter of the bar, and is back at its place after so many pictures.
constexpr int kPezzi = 4;
constexpr int kGiro = 24;
constexpr int kMargine = 1;
constexpr qreal kAngolo = 1.5;

/// Out and back again: 0 at the left end, 1 at the right.
qreal posto(int passo) {
  const int meta = kGiro / 2;
  const int andata = passo < meta ? passo : kGiro - passo;
  return static_cast<qreal>(andata) / meta;
}

}  // namespace

BarraAttesa::BarraAttesa(QWidget* parent) : QProgressBar(parent) {
  setRange(0, 0);
  battito_.setInterval(kBattito);
  connect(&battito_, &QTimer::timeout, this, [this] {
    passo_ = (passo_ + 1) % kGiro;
    update();
  });
}

void BarraAttesa::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter pittore(this);
  QStyleOptionProgressBar opzioni;
  initStyleOption(&opzioni);
  pittore.drawControl(QStyle::CE_ProgressBarGroove, opzioni);
  QRectF pezzo = QRectF(style()->subElementRect(QStyle::SE_ProgressBarContents, &opzioni, this))
                     .adjusted(kMargine, kMargine, -kMargine, -kMargine);
  const qreal libero = pezzo.width() * (kPezzi - 1) / kPezzi;
  pezzo.setWidth(pezzo.width() - libero);
  pezzo.translate(libero * posto(passo_), 0);
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(Qt::NoPen);
  pittore.setBrush(palette().color(QPalette::Highlight));
  pittore.drawRoundedRect(pezzo, kAngolo, kAngolo);
}

void BarraAttesa::showEvent(QShowEvent* event) {
  QProgressBar::showEvent(event);
  battito_.start();
}

void BarraAttesa::hideEvent(QHideEvent* event) {
  QProgressBar::hideEvent(event);
  battito_.stop();
}
