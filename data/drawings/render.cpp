#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

/// Draws an SVG file into a JPEG: render <file.svg> <file.jpg>. Returns 1 if either fails.
int main(int argc, char** argv) {
  constexpr int kQuality = 90;
  // What the menu has for it on a display of twice the scale.
  constexpr QSize kPoints(1280, 960);
  QGuiApplication application(argc, argv);
  if (argc != 3) return 1;
  QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
  if (!drawing.isValid()) return 1;
  QImage image(drawing.defaultSize().scaled(kPoints, Qt::KeepAspectRatio), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  drawing.render(&painter);
  painter.end();
  return image.save(QString::fromLocal8Bit(argv[2]), "JPG", kQuality) ? 0 : 1;
}
