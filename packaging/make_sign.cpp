#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QPixmap>
#include <QTextStream>

#include "controls/svg_icon.h"

/// Draws the program's sign as its windows bear it: make_sign <file.svg> <folder> <side>... leaves
/// <folder>/<side>.png for each side in points. Returns 1 if it fails.
int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  bool done = words.size() > 3 && QFile::exists(words[1]) && QDir().mkpath(words[2]);
  for (const QString& side : words.mid(3)) {
    const QPixmap sign = programSign(words[1]).pixmap(QSize(side.toInt(), side.toInt()), 1.0);
    done = done && sign.width() == side.toInt() &&
           sign.save(QDir(words[2]).filePath(side + QStringLiteral(".png")));
  }
  if (!done) QTextStream(stderr) << "make_sign: " << words.mid(1).join(u' ') << ": failed\n";
  return done ? 0 : 1;
}
