#include "controls/voce_menu.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace {

// Pixels at scale 1.
constexpr int kIcona = 24;
constexpr int kMargine = 14;
constexpr int kAltezza = 54;
constexpr int kAltezzaMinima = 32;
constexpr int kBarra = 4;
constexpr int kSpigolo = 8;

/// Some captions begin with a blank; on the screen all of them stand on one line.
QString leggibile(const QString& testo) {
  return testo.trimmed();
}

}  // namespace

VoceMenu::VoceMenu(QWidget* parent) : QAbstractButton(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  setIconSize({kIcona, kIcona});
}

void VoceMenu::impostaAspetto(int aspetto) {
  if (aspetto_ == aspetto) return;
  aspetto_ = aspetto;
  update();
}

int VoceMenu::larghezzaMinima() const {
  return fontMetrics().horizontalAdvance(leggibile(text())) + iconSize().width() + 3 * kMargine + kBarra;
}

QSize VoceMenu::sizeHint() const {
  return {larghezzaMinima() + 2 * kMargine, kAltezza};
}

QSize VoceMenu::minimumSizeHint() const {
  return {larghezzaMinima(), std::max(kAltezzaMinima, fontMetrics().height() + kBarra)};
}

void VoceMenu::mouseMoveEvent(QMouseEvent* evento) {
  QAbstractButton::mouseMoveEvent(evento);
  Q_EMIT mosso();
}

void VoceMenu::focusInEvent(QFocusEvent* evento) {
  QAbstractButton::focusInEvent(evento);
  update();
  // A window or a box that comes to the front gives the focus back: nobody moved to this entry then.
  if (evento->reason() == Qt::TabFocusReason || evento->reason() == Qt::BacktabFocusReason)
    Q_EMIT raggiunto();
}

void VoceMenu::focusOutEvent(QFocusEvent* evento) {
  QAbstractButton::focusOutEvent(evento);
  update();
}

void VoceMenu::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(evento);
}

void VoceMenu::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  pittore.setRenderHint(QPainter::Antialiasing);
  const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (aspetto_ != 0) {
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(palette().midlight());
    pittore.drawRoundedRect(area, kSpigolo, kSpigolo);
    pittore.setBrush(palette().highlight());
    const double alto = area.height() / 2;
    pittore.drawRoundedRect(QRectF(area.left() + 3, area.center().y() - alto / 2, kBarra, alto), 2, 2);
  }
  if (hasFocus()) {
    pittore.setPen(QPen(palette().highlight(), 2));
    pittore.setBrush(Qt::NoBrush);
    pittore.drawRoundedRect(area, kSpigolo, kSpigolo);
  }
  const QRect posto(kMargine + kBarra, (height() - iconSize().height()) / 2, iconSize().width(),
                    iconSize().height());
  icon().paint(&pittore, posto);
  pittore.setPen(palette().color(QPalette::WindowText));
  pittore.drawText(rect().adjusted(posto.right() + kMargine, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   leggibile(text()));
}
