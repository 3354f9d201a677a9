#include "graphics/picture_tile.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "controls/palette.h"

namespace {

// Pixels at scale 1.
constexpr int kMargine = 8;
constexpr int kSpazio = 4;
constexpr int kAngolo = 8;
constexpr int kOrloBollo = 5;
constexpr int kSpesso = 2;

/// Of the picture, and of the foot at most, in lines of the letters.
constexpr int kRigheImmagine = 3;
constexpr int kRighePiede = 3;
/// Letters of a line, with room to spare and without.
constexpr int kLettere = 19;
constexpr int kLettereMinime = 14;

constexpr qreal kCarattereBollo = 0.85;
constexpr int kMezzaLuce = 128;

const style::Tints& tinte(const QWidget& di) {
  return style::tints(di.palette().color(QPalette::Window).lightness() < kMezzaLuce);
}

/// The one bitmap among what is dragged; empty for anything else.
QString bitmapTrascinata(const QMimeData* dati) {
  const QList<QUrl> indirizzi = dati->urls();
  if (indirizzi.size() != 1 || !indirizzi.front().isLocalFile()) return {};
  const QString percorso = indirizzi.front().toLocalFile();
  return percorso.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive) ? percorso : QString();
}

}  // namespace

TesseraGrafica::TesseraGrafica(int numero, QWidget* parent) : QAbstractButton(parent), numero_(numero) {
  setObjectName(QStringLiteral("tessera_%1").arg(numero));
  setCheckable(true);
  setAcceptDrops(true);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void TesseraGrafica::mostra(const QString& tipo, const QString& file, const graphics::Esame& esame) {
  tipo_ = tipo;
  file_ = file;
  esame_ = esame;
  pittore_.mostra(esame.punti);
  QStringList detto{QStringLiteral("%1 %2").arg(numero_).arg(tipo)};
  for (const QString& parte : {file, esame.classe, esame.rifiuto})
    if (!parte.isEmpty()) detto.append(parte);
  setAccessibleName(detto.join(QStringLiteral(", ")));
  setToolTip(detto.join(u'\n'));
  update();
}

QSize TesseraGrafica::sizeHint() const {
  const QFontMetrics lettere = fontMetrics();
  return {lettere.averageCharWidth() * kLettere + 2 * kMargine,
          (kRigheImmagine + 2) * lettere.height() + 2 * (kMargine + kSpazio)};
}

QSize TesseraGrafica::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * kLettereMinime + 2 * kMargine, sizeHint().height()};
}

/// The letter by which a till reports its class: the whole word would push the type aside.
QString TesseraGrafica::bollo() const {
  return esame_.classe.left(1);
}

QString TesseraGrafica::piede() const {
  return esame_.rifiuto.isEmpty() ? file_ : esame_.rifiuto;
}

void TesseraGrafica::dipingiFondo(QPainter& pittore) const {
  const style::Tints& tinte = ::tinte(*this);
  const bool vivo = isChecked() || sopra_;
  QPen orlo(vivo || hasFocus() ? tinte.accent : tinte.border, vivo ? kSpesso : 1);
  if (esame_.vuoto) orlo.setStyle(Qt::DashLine);
  pittore.setPen(orlo);
  pittore.setBrush(sopra_ || underMouse() ? tinte.veil : tinte.paper);
  const qreal dentro = orlo.widthF() / 2;
  pittore.drawRoundedRect(QRectF(rect()).adjusted(dentro, dentro, -dentro, -dentro), kAngolo, kAngolo);
  if (!hasFocus()) return;
  pittore.setPen(QPen(tinte.accent, 1, Qt::DotLine));
  pittore.setBrush(Qt::NoBrush);
  pittore.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), kAngolo - 3, kAngolo - 3);
}

void TesseraGrafica::dipingiTesta(QPainter& pittore, const QRect& riga) const {
  const style::Tints& tinte = ::tinte(*this);
  QRect libero = riga;
  if (!esame_.classe.isEmpty()) {
    QFont piccolo = font();
    piccolo.setPointSizeF(piccolo.pointSizeF() * kCarattereBollo);
    piccolo.setWeight(QFont::DemiBold);
    const int largo = QFontMetrics(piccolo).horizontalAdvance(bollo()) + 2 * kOrloBollo;
    const QRect tondo(riga.right() + 1 - largo, riga.top(), largo, riga.height());
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(tinte.emphasis);
    pittore.drawRoundedRect(tondo, tondo.height() / 2.0, tondo.height() / 2.0);
    pittore.setPen(tinte.text);
    pittore.setFont(piccolo);
    pittore.drawText(tondo, Qt::AlignCenter, bollo());
    libero.setRight(tondo.left() - kSpazio);
  }
  QFont forte = font();
  forte.setWeight(QFont::DemiBold);
  pittore.setFont(forte);
  pittore.setPen(tinte.text);
  const QString testa = QStringLiteral("%1 %2").arg(numero_).arg(tipo_);
  pittore.drawText(libero, Qt::AlignVCenter | Qt::AlignLeft,
                   QFontMetrics(forte).elidedText(testa, Qt::ElideRight, libero.width()));
}

void TesseraGrafica::dipingiPiede(QPainter& pittore, const QRect& posto) const {
  const style::Tints& tinte = ::tinte(*this);
  const bool rifiutata = !esame_.rifiuto.isEmpty() && !esame_.vuoto;
  pittore.setFont(font());
  pittore.setPen(rifiutata ? tinte.fault : tinte.faint);
  if (!esame_.rifiuto.isEmpty())
    return pittore.drawText(posto, Qt::AlignCenter | Qt::TextWordWrap, esame_.rifiuto);
  pittore.drawText(posto, Qt::AlignCenter, fontMetrics().elidedText(file_, Qt::ElideMiddle, posto.width()));
}

void TesseraGrafica::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  pittore.setRenderHint(QPainter::Antialiasing);
  dipingiFondo(pittore);
  QRect dentro = rect().adjusted(kMargine, kMargine, -kMargine, -kMargine);
  const int riga = fontMetrics().height();
  dipingiTesta(pittore, {dentro.left(), dentro.top(), dentro.width(), riga});
  dentro.setTop(dentro.top() + riga + kSpazio);
  if (esame_.punti.isNull()) return dipingiPiede(pittore, dentro);
  const int serve = esame_.rifiuto.isEmpty()
                        ? riga
                        : pittore.boundingRect(dentro, Qt::AlignCenter | Qt::TextWordWrap, piede()).height();
  const int alto = qBound(riga, serve, kRighePiede * riga);
  const QRect carta = dentro.adjusted(0, 0, 0, -alto - kSpazio);
  pittore.fillRect(carta, Qt::white);
  pittore_.dipingi(pittore, carta.adjusted(2, 2, -2, -2));
  dipingiPiede(pittore, {dentro.left(), carta.bottom() + 1 + kSpazio, dentro.width(), alto});
}

void TesseraGrafica::dragEnterEvent(QDragEnterEvent* evento) {
  if (bitmapTrascinata(evento->mimeData()).isEmpty()) return;
  sopra_ = true;
  update();
  evento->acceptProposedAction();
}

void TesseraGrafica::dragLeaveEvent(QDragLeaveEvent* /*evento*/) {
  sopra_ = false;
  update();
}

void TesseraGrafica::dropEvent(QDropEvent* evento) {
  sopra_ = false;
  update();
  const QString percorso = bitmapTrascinata(evento->mimeData());
  if (percorso.isEmpty()) return;
  // The file stays where it was dragged from.
  evento->setDropAction(Qt::CopyAction);
  evento->accept();
  Q_EMIT lasciata(percorso);
}
