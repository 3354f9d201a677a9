#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

/// The drawing on white, as large as `size` allows at its own proportion. A null image if there is none.
QImage drawn(const QString& path, QSize size) {
  QSvgRenderer drawing(path);
  if (!drawing.isValid()) return {};
  QImage image(drawing.defaultSize().scaled(size, Qt::KeepAspectRatio), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  drawing.render(&painter);
  return image;
}

/// A picture of the menu, with the points it has for it on a display of twice the scale.
bool menuPicture(const QString& from, const QString& to) {
  constexpr int kQuality = 90;
  constexpr QSize kPoints(1280, 960);
  return drawn(from, kPoints).save(to, "JPG", kQuality);
}

/// A picture of the receipt, `width` dots wide and of 1 bit a dot: what is darker than the middle prints.
/// Nothing is dithered, since the head makes a smear of scattered dots.
bool receiptPicture(const QString& from, const QString& to, int width) {
  constexpr int kHighest = 800;
  constexpr int kDotsPerMetre = 8000;
  QImage dots = drawn(from, QSize(width, kHighest)).convertToFormat(QImage::Format_Mono, Qt::ThresholdDither);
  if (dots.width() != width) return false;
  dots.setDotsPerMeterX(kDotsPerMetre);
  dots.setDotsPerMeterY(kDotsPerMetre);
  return dots.save(to, "BMP");
}

}  // namespace

/// Draws an SVG file: render <file.svg> <file.jpg>, or render <file.svg> <file.bmp> <width in dots>.
/// Returns 1 if it fails.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  bool done = false;
  if (words.size() == 3) done = menuPicture(words[1], words[2]);
  if (words.size() == 4) done = receiptPicture(words[1], words[2], words[3].toInt());
  if (!done) QTextStream(stderr) << "render: " << words.mid(1).join(u' ') << ": failed\n";
  return done ? 0 : 1;
}
