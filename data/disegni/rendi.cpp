#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

/// Draws an SVG file into a JPEG of its own size: rendi <file.svg> <file.jpg>. Returns 1 if either fails.
int main(int argc, char** argv) {
  constexpr int kQualita = 92;
  QGuiApplication applicazione(argc, argv);
  if (argc != 3) return 1;
  QSvgRenderer disegno(QString::fromLocal8Bit(argv[1]));
  if (!disegno.isValid()) return 1;
  QImage immagine(disegno.defaultSize(), QImage::Format_RGB32);
  immagine.fill(Qt::white);
  QPainter pittore(&immagine);
  pittore.setRenderHint(QPainter::Antialiasing);
  disegno.render(&pittore);
  pittore.end();
  return immagine.save(QString::fromLocal8Bit(argv[2]), "JPG", kQualita) ? 0 : 1;
}
