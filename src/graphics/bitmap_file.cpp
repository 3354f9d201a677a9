#include "graphics/bitmap_file.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>
#include <cstdlib>

#include "platform/error.h"
#include "platform/text/whole_file.h"

namespace graphics {

namespace {

// Of the head, little endian.
constexpr qsizetype kTesta = 54;
constexpr qsizetype kDatiDa = 10;
constexpr qsizetype kByteIntestazione = 14;
constexpr qsizetype kLarghezza = 18;
constexpr qsizetype kAltezza = 22;
constexpr qsizetype kBit = 28;
constexpr qsizetype kCompressione = 30;
constexpr quint32 kIntestazione = 40;
constexpr quint32 kSemplice = 0;
/// Masks told for each channel: how some programs write 32 bits, uncompressed all the same.
constexpr quint32 kMaschere = 3;
constexpr int kBitMascherati = 32;
/// Rows are filled up to this.
constexpr int kBitRiga = 32;
constexpr int kByteRiga = kBitRiga / 8;

constexpr qsizetype kFileMassimo = qsizetype{64} * 1024 * 1024;
constexpr int kLatoMassimo = 4096;
constexpr int kGrigioMedio = 128;

template <typename Numero>
Numero numero(const QByteArray& byte, qsizetype posto) {
  return qFromLittleEndian<Numero>(byte.constData() + posto);
}

Errore nonValida(const QString& percorso) {
  return {kImmagineNonValida, QStringLiteral("Immagine non valida: ") + percorso};
}

}  // namespace

std::optional<TestaBitmap> testaBitmap(const QByteArray& inizio, qint64 lunghezza) {
  if (inizio.size() < kTesta || !inizio.startsWith("BM")) return std::nullopt;
  if (numero<quint32>(inizio, kByteIntestazione) < kIntestazione) return std::nullopt;
  TestaBitmap testa;
  testa.larghezza = numero<qint32>(inizio, kLarghezza);
  testa.altezza = std::abs(qint64{numero<qint32>(inizio, kAltezza)});
  testa.bit = numero<quint16>(inizio, kBit);
  const auto compressione = numero<quint32>(inizio, kCompressione);
  testa.compressa = compressione != kSemplice && !(compressione == kMaschere && testa.bit == kBitMascherati);
  const qint64 riga = (testa.larghezza * testa.bit + kBitRiga - 1) / kBitRiga * kByteRiga;
  const qint64 righe = lunghezza - qint64{numero<quint32>(inizio, kDatiDa)};
  // By division: the product of two hostile numbers would not fit.
  testa.intera = riga > 0 && righe / riga >= testa.altezza;
  return testa;
}

std::optional<TestaBitmap> testaDelFile(const QString& percorso) {
  return testaBitmap(ReadFileStart(percorso, kTesta), QFileInfo(percorso).size());
}

QImage CaricaImmagine(const QString& percorso) {
  QByteArray byte = ReadWholeFile(percorso, kFileMassimo);
  QBuffer contenuto(&byte);
  contenuto.open(QIODevice::ReadOnly);
  QImageReader lettore(&contenuto, "bmp");
  const QSize misure = lettore.size();
  if (misure.isEmpty() || misure.width() > kLatoMassimo || misure.height() > kLatoMassimo)
    throw nonValida(percorso);
  QImage immagine = lettore.read();
  if (immagine.isNull()) throw nonValida(percorso);
  return immagine;
}

QImage comeStampata(const QImage& immagine) {
  if (immagine.format() != QImage::Format_Mono && immagine.format() != QImage::Format_MonoLSB)
    return immagine.convertToFormat(QImage::Format_Grayscale8)
        .convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::DiffuseDither);
  QImage stampata = immagine;
  QList<QRgb> colori = stampata.colorTable();
  for (QRgb& colore : colori) colore = qGray(colore) < kGrigioMedio ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
  stampata.setColorTable(colori);
  return stampata;
}

}  // namespace graphics
