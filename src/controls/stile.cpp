#include "controls/stile.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QStyle>

#include "controls/icona_svg.h"
#include "controls/stile_programma.h"
#include "controls/tavolozza.h"

namespace stile {

namespace {

constexpr int kMezzaLuce = 128;

QString& icone() {
  static QString cartella;
  return cartella;
}

QString file(const QString& nome) {
  return icone() + QLatin1Char('/') + nome + QStringLiteral(".svg");
}

bool desktopScuro() {
  return QGuiApplication::palette().color(QPalette::Window).lightness() < kMezzaLuce;
}

QString nomeDi(Distintivo stato) {
  switch (stato) {
    case Distintivo::Pronto:
      return QStringLiteral("pronto");
    case Distintivo::Occupato:
      return QStringLiteral("occupato");
    case Distintivo::Guasto:
      return QStringLiteral("guasto");
    case Distintivo::Neutro:
      break;
  }
  return QStringLiteral("neutro");
}

void ridipingi(QWidget& riquadro) {
  riquadro.style()->unpolish(&riquadro);
  riquadro.style()->polish(&riquadro);
  riquadro.update();
}

}  // namespace

void applica(QApplication& applicazione, Tema tema) {
  const bool scuro = tema == Tema::ComeIlDesktop ? desktopScuro() : tema == Tema::Scuro;
  const Tinte& colori = tinte(scuro);
  QApplication::setStyle(new StileProgramma(colori));
  QApplication::setPalette(tavolozza(colori));
  applicazione.setStyleSheet(foglioDiStile(colori));
}

void cartellaIcone(const QString& cartella) {
  icone() = cartella;
}

QIcon icona(const QString& nome) {
  return QIcon(new IconaSvg(file(nome), QPalette::ButtonText));
}

QIcon iconaPrimaria(const QString& nome) {
  return QIcon(new IconaSvg(file(nome), QPalette::HighlightedText));
}

QIcon iconaTinta(const QString& nome, const QColor& tinta) {
  return QIcon(new IconaSvg(file(nome), tinta));
}

bool iconaPresente(const QString& nome) {
  return QFile::exists(file(nome));
}

void primario(QPushButton& pulsante, const QString& nome) {
  pulsante.setProperty("primario", true);
  if (!nome.isEmpty()) pulsante.setIcon(iconaPrimaria(nome));
  ridipingi(pulsante);
}

void distintivo(QWidget& riquadro, Distintivo stato) {
  riquadro.setProperty("distintivo", nomeDi(stato));
  ridipingi(riquadro);
}

}  // namespace stile
