#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// Bitmaps into what the till's printer takes. Form of a picture, told in docs/picture-format.md: width and
/// height as 16-bit numbers, little endian, then the rows from the top, one bit a dot, the most significant
/// bit first, each row filled up to whole bytes with zeros; a one prints.
namespace bitmap {

/// The widths of the printers, in dots.
inline constexpr int kSmall = 384;
inline constexpr int kLarge = 640;
/// Highest picture that the tills have memory for, in dots.
inline constexpr int kHighest = 800;
/// Largest file that is read: such a picture in 32 bits, and its head twice over.
inline constexpr qint64 kLargestFile = qint64{kLarge} * kHighest * 4 + 4096;

/// The picture in the file at `path` for a printer of `width` dots. Nothing where it is refused: no BMP of 1,
/// 4, 8, 24 or 32 bits, compressed, cut short, of another width, higher than `kHighest`. What is not of 1 bit
/// is told in black and white by spreading each dot's error over its neighbours.
std::optional<QByteArray> Convert(int width, const QString& path);

/// The order as the command line holds it: the width, a blank, a quote and the path, with or without a
/// closing quote, in however many arguments it came.
struct Order {
  int width = 0;
  QString path;
};
std::optional<Order> ReadOrder(const QStringList& arguments);

/// The file beside a bitmap that takes its picture: the same name ending in ".bin".
QString TargetOf(const QString& path);
/// Converts and writes, an empty file for a refused picture. Throws nothing; false if the file could not be
/// written, or the picture was refused.
bool ConvertFile(const Order& order);

}  // namespace bitmap
