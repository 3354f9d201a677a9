#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPixmap>
#include <QTextStream>

#include "controls/svg_icon.h"

namespace {

/// Leaves the cover of a drawing at one size: a byte a point, 0 free and 255 covered, line by line.
bool draw(const QString& file, const QString& folder, int side) {
  const QPixmap drawn = QIcon(new SvgIcon(file, QColor(Qt::white))).pixmap(QSize(side, side), 1.0);
  const QImage cover = drawn.toImage().convertToFormat(QImage::Format_Alpha8);
  QFile out(QStringLiteral("%1/%2-%3.cover").arg(folder, QFileInfo(file).completeBaseName()).arg(side));
  if (cover.size() != QSize(side, side) || !out.open(QIODevice::WriteOnly)) return false;
  for (int y = 0; y < side; ++y)
    if (out.write(reinterpret_cast<const char*>(cover.constScanLine(y)), side) != side) return false;
  return out.flush();
}

}  // namespace

/// Draws an icon as the program's start reads it: draw_covers <file.svg> <folder> <side>... leaves
/// <folder>/<name>-<side>.cover for each side in points. Returns 1 if it fails.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  bool done = words.size() > 3 && QFile::exists(words[1]);
  for (const QString& side : words.mid(3)) done = done && draw(words[1], words[2], side.toInt());
  if (!done) QTextStream(stderr) << "draw_covers: " << words.mid(1).join(u' ') << ": failed\n";
  return done ? 0 : 1;
}
