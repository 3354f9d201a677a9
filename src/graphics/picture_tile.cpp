#include "graphics/picture_tile.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "controls/palette.h"

namespace {

// Pixels at scale 1.
constexpr int kMargine = 6;
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

/// The longest of the heads that the tills' own types make.
constexpr const char16_t* kTestaPiuLunga = u"2 Merceologico1";

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

/// Its weight gives way before its letters do, in all twelve alike.
void TesseraGrafica::dipingiTesta(QPainter& pittore, const QRect& riga) const {
  const QString testa = QStringLiteral("%1 %2").arg(numero_).arg(tipo_);
  QFont carattere = font();
  carattere.setWeight(QFont::DemiBold);
  if (QFontMetrics(carattere).horizontalAdvance(QString::fromUtf16(kTestaPiuLunga)) > riga.width())
    carattere.setWeight(font().weight());
  pittore.setFont(carattere);
  pittore.setPen(::tinte(*this).text);
  pittore.drawText(riga, Qt::AlignVCenter | Qt::AlignLeft,
                   QFontMetrics(carattere).elidedText(testa, Qt::ElideRight, riga.width()));
}

QFont TesseraGrafica::carattereBollo() const {
  QFont piccolo = font();
  piccolo.setPointSizeF(piccolo.pointSizeF() * kCarattereBollo);
  piccolo.setWeight(QFont::DemiBold);
  return piccolo;
}

int TesseraGrafica::larghezzaBollo() const {
  if (esame_.classe.isEmpty()) return 0;
  return QFontMetrics(carattereBollo()).horizontalAdvance(bollo()) + 2 * kOrloBollo;
}

/// In the lower right corner, where no type is cut short by it.
void TesseraGrafica::dipingiBollo(QPainter& pittore, const QRect& dentro) const {
  const int largo = larghezzaBollo();
  if (largo == 0) return;
  const style::Tints& tinte = ::tinte(*this);
  const int alto = fontMetrics().height();
  const QRect tondo(dentro.right() + 1 - largo, dentro.bottom() + 1 - alto, largo, alto);
  pittore.setPen(Qt::NoPen);
  pittore.setBrush(tinte.emphasis);
  pittore.drawRoundedRect(tondo, alto / 2.0, alto / 2.0);
  pittore.setPen(tinte.text);
  pittore.setFont(carattereBollo());
  pittore.drawText(tondo, Qt::AlignCenter, bollo());
}

void TesseraGrafica::dipingiPiede(QPainter& pittore, const QRect& posto) const {
  const style::Tints& tinte = ::tinte(*this);
  const bool rifiutata = !esame_.rifiuto.isEmpty() && !esame_.vuoto;
  pittore.setFont(font());
  pittore.setPen(rifiutata ? tinte.fault : tinte.faint);
  if (!esame_.rifiuto.isEmpty())
    return pittore.drawText(posto, Qt::AlignCenter | Qt::TextWordWrap, esame_.rifiuto);
  const bool siLegge = fontMetrics().horizontalAdvance(file_) <= posto.width();
  // All end alike: that part is missed least.
  const QString nome = siLegge ? file_ : QFileInfo(file_).completeBaseName();
  pittore.drawText(posto, Qt::AlignCenter, fontMetrics().elidedText(nome, Qt::ElideMiddle, posto.width()));
}

void TesseraGrafica::paintEvent(QPaintEvent* /*evento*/) {
  QPainter pittore(this);
  pittore.setRenderHint(QPainter::Antialiasing);
  dipingiFondo(pittore);
  QRect dentro = rect().adjusted(kMargine, kMargine, -kMargine, -kMargine);
  const int riga = fontMetrics().height();
  dipingiTesta(pittore, {dentro.left(), dentro.top(), dentro.width(), riga});
  dentro.setTop(dentro.top() + riga + kSpazio);
  dipingiBollo(pittore, dentro);
  const int bollo = larghezzaBollo();
  QRect testo = dentro.adjusted(0, 0, bollo == 0 ? 0 : -bollo - kSpazio, 0);
  if (esame_.punti.isNull()) return dipingiPiede(pittore, testo);
  pittore.setFont(font());
  const int serve = esame_.rifiuto.isEmpty()
                        ? riga
                        : pittore.boundingRect(testo, Qt::AlignCenter | Qt::TextWordWrap, piede()).height();
  const int alto = qBound(riga, serve, kRighePiede * riga);
  const QRect carta = dentro.adjusted(0, 0, 0, -alto - kSpazio);
  pittore.fillRect(carta, Qt::white);
  pittore_.dipingi(pittore, carta.adjusted(2, 2, -2, -2));
  testo.setTop(carta.bottom() + 1 + kSpazio);
  dipingiPiede(pittore, testo);
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
