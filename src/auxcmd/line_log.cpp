#include "auxcmd/line_log.h"

#include <QEvent>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <algorithm>
#include <utility>

#include "controls/palette.h"
#include "core/figures.h"
#include "platform/clock.h"
#include "platform/text/windows1252.h"

namespace {

/// Fonts whose letters are of one width, the best first.
constexpr const char* kFissi = "DejaVu Sans Mono,Consolas,Courier New,monospace";

/// Of what comes in, in milliseconds; one without an arrival is the pause that ends a line.
constexpr int kBattito = 200;

QString segno(auxcmd::Verso verso) {
  switch (verso) {
    case auxcmd::Verso::Inviato:
      return QStringLiteral("→ inviato ");
    case auxcmd::Verso::Ricevuto:
      return QStringLiteral("← ricevuto");
    case auxcmd::Verso::Guasto:
      break;
  }
  return QStringLiteral("✗ errore  ");
}

QColor tinta(auxcmd::Verso verso, bool scuro) {
  const style::Tints& tinte = style::tints(scuro);
  switch (verso) {
    case auxcmd::Verso::Inviato:
      return tinte.accent;
    case auxcmd::Verso::Ricevuto:
      return tinte.text;
    case auxcmd::Verso::Guasto:
      break;
  }
  return tinte.fault;
}

/// Behind the time and two blanks.
constexpr qsizetype kPostoSegno = 14;
constexpr int kMetaChiarezza = 128;

/// Gives each line the colour of its direction, which its sign tells.
class Colori : public QSyntaxHighlighter {
 public:
  explicit Colori(RegistroLinea& registro) : QSyntaxHighlighter(registro.document()), registro_(registro) {}

 protected:
  void highlightBlock(const QString& riga) override {
    const bool scuro = registro_.palette().color(QPalette::Base).lightness() < kMetaChiarezza;
    for (const auxcmd::Verso uno : {auxcmd::Verso::Inviato, auxcmd::Verso::Ricevuto, auxcmd::Verso::Guasto})
      if (riga.mid(kPostoSegno).startsWith(segno(uno)))
        setFormat(0, static_cast<int>(riga.size()), tinta(uno, scuro));
  }

 private:
  const RegistroLinea& registro_;
};

/// A control character would move the text about.
QString leggibile(const QByteArray& byte) {
  QString testo = windows1252::toText(byte);
  for (QChar& uno : testo)
    if (!uno.isPrint()) uno = u'·';
  return testo;
}

}  // namespace

RegistroLinea::RegistroLinea(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setMaximumBlockCount(kRighe);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  // By their names first: not every platform knows which of its fonts is the fixed one.
  QFont fisso(QString::fromLatin1(kFissi).split(u','));
  fisso.setStyleHint(QFont::Monospace);
  fisso.setPointSize(font().pointSize());
  setFont(fisso);
  setPlaceholderText(QStringLiteral("Qui si legge che cosa passa sulla linea"));
  new Colori(*this);
  battito_.setInterval(kBattito);
  connect(&battito_, &QTimer::timeout, this, &RegistroLinea::battito);
}

QSize RegistroLinea::minimumSizeHint() const {
  const int bordi = 2 * frameWidth() + 2 * qRound(document()->documentMargin());
  return {QPlainTextEdit::minimumSizeHint().width(), kRigheViste * fontMetrics().lineSpacing() + bordi};
}

void RegistroLinea::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (auto* colori : document()->findChildren<QSyntaxHighlighter*>()) colori->rehighlight();
}

void RegistroLinea::annota(auxcmd::Verso verso, const QByteArray& byte) {
  const bool ricevuto = verso == auxcmd::Verso::Ricevuto;
  if (verso != verso_ || !ricevuto) {
    completa();
    mostrati_ = 0;
  }
  verso_ = verso;
  arrivato_ = true;
  if (ricevuto && !battito_.isActive()) battito_.start();
  if (ricevuto && mostrati_ >= kByteMostrati) {
    taciuti_ += byte.size();
    return;
  }
  mostrati_ += byte.size();
  if (inAttesa_.isEmpty()) oraInAttesa_ = ora();
  inAttesa_.append(byte.constData(), byte.size());
  if (!ricevuto) return completa();
  if (inAttesa_.size() >= kByteRiga) componi(kByteRiga);
}

void RegistroLinea::battito() {
  if (!std::exchange(arrivato_, false)) return completa();
  scrivi();
}

void RegistroLinea::completa() {
  battito_.stop();
  componi(1);
  componiTaciuti();
  scrivi();
}

QString RegistroLinea::ora() const {
  return orologio_ ? orologio_->now().toString(QStringLiteral("HH:mm:ss.zzz")) : QString();
}

void RegistroLinea::componi(qsizetype almeno) {
  qsizetype preso = 0;
  while (inAttesa_.size() - preso >= almeno) {
    const QByteArray riga = inAttesa_.mid(preso, kByteRiga);
    preso += riga.size();
    const QString testo = leggibile(riga);
    // What failed is told in words.
    pronte_ += oraInAttesa_ + QStringLiteral("  ") + segno(verso_) + QStringLiteral("  ") +
               (verso_ == auxcmd::Verso::Guasto ? testo
                                                : testo.leftJustified(kByteRiga) + QStringLiteral("  ") +
                                                      QString::fromLatin1(riga.toHex(' ')));
  }
  inAttesa_.remove(0, preso);
}

void RegistroLinea::componiTaciuti() {
  if (taciuti_ == 0) return;
  pronte_ += ora() + QStringLiteral("  ") + segno(verso_) +
             QStringLiteral("  … e altri %1 byte").arg(cifra(taciuti_));
  taciuti_ = 0;
}

/// All lines in one change of the text: each one would be laid out, scrolled and painted by itself.
void RegistroLinea::scrivi() {
  if (pronte_.isEmpty()) return;
  QScrollBar& barra = *verticalScrollBar();
  const bool inFondo = barra.value() == barra.maximum();
  const int prima = barra.value();
  appendPlainText(std::exchange(pronte_, {}).join(u'\n'));
  barra.setValue(inFondo ? barra.maximum() : std::min(prima, barra.maximum()));
}
