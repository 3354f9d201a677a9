#include "controls/tessera.h"

#include <QGuiApplication>
#include <QPainter>
#include <QStyleOptionButton>

namespace {

// Pixels at scale 1.
constexpr QSize kMisura{300, 190};
constexpr int kAltezzaBassa = 150;
constexpr int kDisco = 72;
constexpr int kDiscoBasso = 38;
constexpr int kMargine = 12;
constexpr int kSpazio = 10;
constexpr int kSpazioTitolo = 4;

constexpr double kIngrandimento = 1.35;

}  // namespace

Tessera::Tessera(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void Tessera::impostaSpiegazione(const QString& spiegazione) {
  spiegazione_ = spiegazione;
  setToolTip(spiegazione);
  setAccessibleDescription(spiegazione);
  update();
}

bool Tessera::bassa() const {
  return height() < kAltezzaBassa;
}

QFont Tessera::carattereTitolo() const {
  QFont carattere = font();
  carattere.setWeight(QFont::DemiBold);
  if (!bassa()) carattere.setPointSizeF(carattere.pointSizeF() * kIngrandimento);
  return carattere;
}

QSize Tessera::sizeHint() const {
  return kMisura.expandedTo(minimumSizeHint());
}

QSize Tessera::minimumSizeHint() const {
  QFont carattere = font();
  carattere.setWeight(QFont::DemiBold);
  const int larghezza = QFontMetrics(carattere).horizontalAdvance(text());
  return {larghezza + kDiscoBasso + kSpazio + 2 * kMargine, kDiscoBasso + kMargine};
}

void Tessera::disegnaFondo(QPainter& pittore) {
  QStyleOptionButton opzioni;
  initStyleOption(&opzioni);
  opzioni.text.clear();
  opzioni.icon = {};
  style()->drawControl(QStyle::CE_PushButton, &opzioni, &pittore, this);
}

void Tessera::disegnaDisco(QPainter& pittore, const QRect& disco) {
  pittore.setRenderHint(QPainter::Antialiasing);
  pittore.setPen(Qt::NoPen);
  pittore.setBrush(isEnabled() ? palette().color(QPalette::Midlight)
                               : palette().color(QPalette::Disabled, QPalette::Highlight));
  pittore.drawEllipse(disco);
  const int bordo = disco.width() / 4;
  icon().paint(&pittore, disco.adjusted(bordo, bordo, -bordo, -bordo), Qt::AlignCenter,
               isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void Tessera::disegnaBassa(QPainter& pittore) {
  const QRect disco(kMargine, (height() - kDiscoBasso) / 2, kDiscoBasso, kDiscoBasso);
  disegnaDisco(pittore, disco);
  pittore.setFont(carattereTitolo());
  pittore.setPen(palette().color(QPalette::ButtonText));
  pittore.drawText(rect().adjusted(disco.right() + kSpazio, 0, -kMargine, 0),
                   Qt::AlignVCenter | Qt::AlignLeft, text());
}

void Tessera::disegnaAlta(QPainter& pittore) {
  const int titolo = QFontMetrics(carattereTitolo()).height();
  const int nota = fontMetrics().height();
  int y = (height() - kDisco - kSpazio - titolo - kSpazioTitolo - nota) / 2;
  disegnaDisco(pittore, QRect((width() - kDisco) / 2, y, kDisco, kDisco));
  y += kDisco + kSpazio;
  pittore.setFont(carattereTitolo());
  pittore.setPen(palette().color(QPalette::ButtonText));
  pittore.drawText(QRect(0, y, width(), titolo), Qt::AlignCenter, text());
  y += titolo + kSpazioTitolo;
  pittore.setFont(font());
  // The style sheet has thinned the widget's own placeholder colour.
  pittore.setPen(isEnabled() ? QGuiApplication::palette().color(QPalette::PlaceholderText)
                             : palette().color(QPalette::ButtonText));
  pittore.drawText(QRect(kMargine, y, width() - 2 * kMargine, nota), Qt::AlignCenter,
                   fontMetrics().elidedText(spiegazione_, Qt::ElideRight, width() - 2 * kMargine));
}

void Tessera::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  disegnaFondo(pittore);
  if (bassa())
    disegnaBassa(pittore);
  else
    disegnaAlta(pittore);
}
