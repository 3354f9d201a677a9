#include "auxcmd/line_log.h"

#include <QScrollBar>
#include <algorithm>

#include "core/figures.h"
#include "platform/clock.h"
#include "platform/text/windows1252.h"

namespace {

/// Silence behind which what came in has its line, in milliseconds.
constexpr int kPausa = 80;

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
  QFont fisso(QStringLiteral("monospace"));
  fisso.setStyleHint(QFont::Monospace);
  fisso.setPointSize(font().pointSize());
  setFont(fisso);
  setPlaceholderText(QStringLiteral("Qui si legge che cosa passa sulla linea"));
  pausa_.setSingleShot(true);
  pausa_.setInterval(kPausa);
  connect(&pausa_, &QTimer::timeout, this, &RegistroLinea::completa);
}

void RegistroLinea::annota(auxcmd::Verso verso, const QByteArray& byte) {
  if (verso != verso_ || verso != auxcmd::Verso::Ricevuto) {
    completa();
    mostrati_ = 0;
  }
  verso_ = verso;
  if (verso == auxcmd::Verso::Ricevuto && mostrati_ >= kByteMostrati) {
    taciuti_ += byte.size();
    return pausa_.start();
  }
  mostrati_ += byte.size();
  inAttesa_ += byte;
  if (verso == auxcmd::Verso::Ricevuto && inAttesa_.size() < kByteRiga) return pausa_.start();
  completa();
}

void RegistroLinea::completa() {
  pausa_.stop();
  const QString ora = orologio_ ? orologio_->now().toString(QStringLiteral("HH:mm:ss.zzz")) : QString();
  while (!inAttesa_.isEmpty()) {
    const QByteArray riga = inAttesa_.left(kByteRiga);
    inAttesa_.remove(0, riga.size());
    const QString testo = leggibile(riga);
    // What failed is told in words.
    scrivi(ora + QStringLiteral("  ") + segno(verso_) + QStringLiteral("  ") +
           (verso_ == auxcmd::Verso::Guasto ? testo
                                            : testo.leftJustified(kByteRiga) + QStringLiteral("  ") +
                                                  QString::fromLatin1(riga.toHex(' '))));
  }
  if (taciuti_ == 0) return;
  scrivi(ora + QStringLiteral("  ") + segno(verso_) +
         QStringLiteral("  … e altri %1 byte").arg(cifra(taciuti_)));
  taciuti_ = 0;
}

void RegistroLinea::scrivi(const QString& riga) {
  QScrollBar& barra = *verticalScrollBar();
  const bool inFondo = barra.value() == barra.maximum();
  const int prima = barra.value();
  appendPlainText(riga);
  barra.setValue(inFondo ? barra.maximum() : std::min(prima, barra.maximum()));
}
