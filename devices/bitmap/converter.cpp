#include "bitmap/converter.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QSaveFile>
#include <QStringList>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace bitmap {

namespace {

constexpr qsizetype kFileHead = 14;
constexpr qsizetype kInfoHead = 40;
constexpr qsizetype kDataAt = 10;
constexpr qsizetype kInfoSizeAt = 14;
constexpr qsizetype kWidthAt = 18;
constexpr qsizetype kHeightAt = 22;
constexpr qsizetype kBitsAt = 28;
constexpr qsizetype kCompressionAt = 30;
constexpr std::array kBits{1, 4, 8, 24, 32};
constexpr quint32 kPlain = 0;
/// Masks told for each channel: how some programs write 32 bits, uncompressed all the same.
constexpr quint32 kMasks = 3;
constexpr int kMasked = 32;
constexpr int kBitsPerByte = 8;
/// Rows in the file are filled up to this.
constexpr int kRowBits = 32;
constexpr int kMiddleGrey = 128;
constexpr int kHeadBytes = 4;

template <typename Number>
Number at(const QByteArray& file, qsizetype place) {
  return qFromLittleEndian<Number>(file.constData() + place);
}

/// Whether the head tells of a picture for this printer, and the file is as long as the head says.
bool wellFormed(const QByteArray& file, int width) {
  if (file.size() < kFileHead + kInfoHead || !file.startsWith("BM")) return false;
  if (at<quint32>(file, kInfoSizeAt) < quint32{kInfoHead}) return false;
  const qint64 height = std::abs(qint64{at<qint32>(file, kHeightAt)});
  if (at<qint32>(file, kWidthAt) != width || height == 0 || height > kHighest) return false;
  const int bits = at<quint16>(file, kBitsAt);
  if (std::find(kBits.begin(), kBits.end(), bits) == kBits.end()) return false;
  const auto compression = at<quint32>(file, kCompressionAt);
  if (compression != kPlain && !(compression == kMasks && bits == kMasked)) return false;
  const qint64 row = (qint64{width} * bits + kRowBits - 1) / kRowBits * (kRowBits / kBitsPerByte);
  return file.size() - qint64{at<quint32>(file, kDataAt)} >= row * height;
}

QByteArray read(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > kLargestFile) return {};
  return file.read(kLargestFile);
}

bool prints(const QImage& picture, int x, int y) {
  return qGray(picture.pixel(x, y)) < kMiddleGrey;
}

QByteArray packed(const QImage& picture) {
  const int rowBytes = (picture.width() + kBitsPerByte - 1) / kBitsPerByte;
  QByteArray bytes(kHeadBytes + qsizetype{rowBytes} * picture.height(), '\0');
  qToLittleEndian(static_cast<quint16>(picture.width()), bytes.data());
  qToLittleEndian(static_cast<quint16>(picture.height()), bytes.data() + sizeof(quint16));
  for (int y = 0; y < picture.height(); ++y) {
    char* const row = bytes.data() + kHeadBytes + qsizetype{rowBytes} * y;
    for (int x = 0; x < picture.width(); ++x) {
      const int bit = 0x80 >> (x % kBitsPerByte);
      if (prints(picture, x, y)) row[x / kBitsPerByte] = static_cast<char>(row[x / kBitsPerByte] | bit);
    }
  }
  return bytes;
}

bool write(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
         file.commit();
}

}  // namespace

std::optional<QByteArray> Convert(int width, const QString& path) {
  QByteArray file = read(path);
  if (!wellFormed(file, width)) return std::nullopt;
  QBuffer device(&file);
  device.open(QIODevice::ReadOnly);
  QImage picture = QImageReader(&device, "bmp").read();
  if (picture.isNull() || picture.width() != width) return std::nullopt;
  if (picture.format() != QImage::Format_Mono && picture.format() != QImage::Format_MonoLSB)
    picture = picture.convertToFormat(QImage::Format_Grayscale8)
                  .convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::DiffuseDither);
  return packed(picture);
}

std::optional<Order> ReadOrder(const QStringList& arguments) {
  const QString line = arguments.join(u' ');
  const qsizetype blank = line.indexOf(u' ');
  bool isNumber = false;
  const int width = line.left(blank).toInt(&isNumber);
  if (blank < 0 || !isNumber || (width != kSmall && width != kLarge)) return std::nullopt;
  QString path = line.mid(blank + 1);
  if (path.startsWith(u'"')) path.remove(0, 1);
  if (path.endsWith(u'"')) path.chop(1);
  if (path.isEmpty()) return std::nullopt;
  return Order{width, path};
}

QString TargetOf(const QString& path) {
  const QFileInfo file(path);
  return file.path() + u'/' + file.completeBaseName() + QStringLiteral(".bin");
}

bool ConvertFile(const Order& order) {
  const std::optional<QByteArray> picture = Convert(order.width, order.path);
  const bool written = write(TargetOf(order.path), picture.value_or(QByteArray()));
  return written && picture.has_value();
}

}  // namespace bitmap
