#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <optional>

/// Bitmap files as the screen looks at them. Every length and size in them is bounded before it is believed.
namespace graphics {

/// What the head of a bitmap file tells.
struct TestaBitmap {
  /// In dots; the height without the sign that tells the order of the rows.
  qint64 larghezza = 0;
  qint64 altezza = 0;
  int bit = 0;
  bool compressa = false;
  /// Whether the file is as long as its head says.
  bool intera = false;
};

/// Nothing for what is no bitmap. `lunghezza`: bytes of the whole file.
std::optional<TestaBitmap> testaBitmap(const QByteArray& inizio, qint64 lunghezza);
/// The head of the file at `percorso`. Throws Errore 53 or 75 where it cannot be read.
std::optional<TestaBitmap> testaDelFile(const QString& percorso);

/// Number and text of a file that is there and holds no picture.
inline constexpr int kImmagineNonValida = 481;

/// The picture in a file. Throws Errore 53, 62 (beyond every bound), 75, or the one above.
QImage CaricaImmagine(const QString& percorso);
/// What the printer makes of a picture: black dots on white, colours told by spread dots.
QImage comeStampata(const QImage& immagine);

}  // namespace graphics
