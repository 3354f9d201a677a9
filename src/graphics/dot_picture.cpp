#include "graphics/dot_picture.h"

#include <QPainter>

namespace {

// Of the frame, in lines of its letters.
constexpr int kRigheMinime = 7;
constexpr int kRigheComode = 10;
constexpr int kProporzione = 2;
constexpr int kMargine = 8;
constexpr int kAngolo = 6;

}  // namespace

void PittoreDiPunti::mostra(const QImage& punti) {
  punti_ = punti;
  ridotta_ = {};
}

QRect PittoreDiPunti::dove(const QRect& posto) const {
  QSize misura = punti_.size().scaled(posto.size(), Qt::KeepAspectRatio);
  // A dot is never larger than a square of the screen's unit needs to be seen.
  misura = misura.boundedTo(punti_.size()).expandedTo({1, 1});
  QRect preso(QPoint(), misura);
  preso.moveCenter(posto.center());
  return preso;
}

void PittoreDiPunti::dipingi(QPainter& pittore, const QRect& posto) {
  if (punti_.isNull() || posto.isEmpty()) return;
  const QRect preso = dove(posto);
  const QSize misura = (QSizeF(preso.size()) * pittore.device()->devicePixelRatioF()).toSize();
  if (ridotta_.size() != misura) {
    const bool ingrandita = misura.width() >= punti_.width();
    ridotta_ =
        QPixmap::fromImage(punti_.convertToFormat(QImage::Format_RGB32)
                               .scaled(misura, Qt::IgnoreAspectRatio,
                                       ingrandita ? Qt::FastTransformation : Qt::SmoothTransformation));
  }
  pittore.drawPixmap(QRectF(preso), ridotta_, QRectF(ridotta_.rect()));
}

QuadroPunti::QuadroPunti(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void QuadroPunti::mostra(const QImage& punti) {
  pittore_.mostra(punti);
  update();
}

QSize QuadroPunti::sizeHint() const {
  const int alta = kRigheComode * fontMetrics().height();
  return {kProporzione * alta, alta};
}

QSize QuadroPunti::minimumSizeHint() const {
  const int alta = kRigheMinime * fontMetrics().height();
  return {alta, alta};
}

void QuadroPunti::paintEvent(QPaintEvent* /*event*/) {
  QPainter pittore(this);
  pittore.setRenderHint(QPainter::Antialiasing);
  const bool vuoto = punti().isNull();
  pittore.setPen(QPen(palette().color(QPalette::Mid), 1, vuoto ? Qt::DashLine : Qt::SolidLine));
  // Paper is white, on a dark desktop too: what is judged here is what comes out of the printer.
  pittore.setBrush(vuoto ? Qt::NoBrush : QBrush(Qt::white));
  pittore.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kAngolo, kAngolo);
  if (!vuoto) return pittore_.dipingi(pittore, rect().adjusted(kMargine, kMargine, -kMargine, -kMargine));
  pittore.setPen(palette().color(QPalette::PlaceholderText));
  pittore.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, QStringLiteral("Nessuna immagine scelta"));
}
