#include "controls/style.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <utility>

#include "controls/palette.h"
#include "controls/program_style.h"
#include "controls/svg_icon.h"

namespace style {

namespace {

constexpr int kHalfLight = 128;
/// As the style sheet has it.
constexpr int kCardCorner = 10;

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

/// Lays the style sheet on with the first window that does not do without it.
class Awaiting : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* who, QEvent* event) override {
    if (event->type() == QEvent::Polish && who->isWidgetType()) {
      const auto& widget = *static_cast<const QWidget*>(who);
      if (widget.isWindow() && !widget.property("bare").toBool()) whole();
    }
    return false;
  }
};

/// Null where the style sheet lies.
QPointer<Awaiting>& awaiting() {
  static QPointer<Awaiting> watch;
  return watch;
}

void repaint(QWidget& box) {
  box.style()->unpolish(&box);
  box.style()->polish(&box);
  box.update();
}

}  // namespace

void apply(QApplication& application, Theme theme) {
  begin(application, theme);
  whole();
}

void begin(QApplication& application, Theme theme) {
  const bool dark = theme == Theme::AsDesktop ? darkDesktop() : theme == Theme::Dark;
  const Tints& colours = tints(dark);
  applied() = &colours;
  QApplication::setStyle(new ProgramStyle(colours));
  QApplication::setPalette(palette(colours));
  if (!awaiting()) application.installEventFilter(awaiting() = new Awaiting(&application));
}

void whole() {
  if (!awaiting()) return;
  // It may be watching the very event that leads here, and watches those of the sheet no more.
  std::exchange(awaiting(), QPointer<Awaiting>())->deleteLater();
  qApp->setStyleSheet(styleSheetText(*applied()));
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

void paintCard(QPainter& painter, const QRect& place) {
  constexpr qreal kHalfPen = 0.5;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(applied()->emphasis);
  painter.setBrush(applied()->paper);
  painter.drawRoundedRect(QRectF(place).adjusted(kHalfPen, kHalfPen, -kHalfPen, -kHalfPen), kCardCorner,
                          kCardCorner);
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
