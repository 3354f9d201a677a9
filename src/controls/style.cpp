#include "controls/style.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QStyle>

#include "controls/palette.h"
#include "controls/program_style.h"
#include "controls/svg_icon.h"

namespace style {

namespace {

constexpr int kHalfLight = 128;

/// Those of the theme that was applied last.
const Tints*& applied() {
  static const Tints* colours = &tints(false);
  return colours;
}

QString& icons() {
  static QString folder;
  return folder;
}

QString file(const QString& name) {
  return icons() + QLatin1Char('/') + name + QStringLiteral(".svg");
}

bool darkDesktop() {
  return QGuiApplication::palette().color(QPalette::Window).lightness() < kHalfLight;
}

QString nameOf(Badge state) {
  switch (state) {
    case Badge::Ready:
      return QStringLiteral("ready");
    case Badge::Busy:
      return QStringLiteral("busy");
    case Badge::Fault:
      return QStringLiteral("fault");
    case Badge::Neutral:
      break;
  }
  return QStringLiteral("neutral");
}

void repaint(QWidget& box) {
  box.style()->unpolish(&box);
  box.style()->polish(&box);
  box.update();
}

}  // namespace

void apply(QApplication& application, Theme theme) {
  const bool dark = theme == Theme::AsDesktop ? darkDesktop() : theme == Theme::Dark;
  const Tints& colours = tints(dark);
  applied() = &colours;
  QApplication::setStyle(new ProgramStyle(colours));
  QApplication::setPalette(palette(colours));
  application.setStyleSheet(styleSheetText(colours));
}

void iconFolder(const QString& folder) {
  icons() = folder;
}

QIcon icon(const QString& name) {
  return QIcon(new SvgIcon(file(name), QPalette::ButtonText));
}

QIcon primaryIcon(const QString& name) {
  return QIcon(new SvgIcon(file(name), QPalette::HighlightedText));
}

QIcon tintedIcon(const QString& name, const QColor& tint) {
  return QIcon(new SvgIcon(file(name), tint));
}

QIcon signIcon(const QString& name, Badge state) {
  const Tints& colours = *applied();
  switch (state) {
    case Badge::Ready:
      return tintedIcon(name, colours.ready);
    case Badge::Busy:
      return tintedIcon(name, colours.busy);
    case Badge::Fault:
      return tintedIcon(name, colours.fault);
    case Badge::Neutral:
      break;
  }
  return icon(name);
}

bool iconExists(const QString& name) {
  return QFile::exists(file(name));
}

void primary(QPushButton& button, const QString& name) {
  button.setProperty("primary", true);
  if (!name.isEmpty()) button.setIcon(primaryIcon(name));
  repaint(button);
}

void badge(QWidget& box, Badge state) {
  box.setProperty("badge", nameOf(state));
  repaint(box);
}

}  // namespace style
