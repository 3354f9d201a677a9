#include "graphics/catalogue.h"

#include <QDir>
#include <algorithm>

#include "core/conversions.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"

namespace graphics {

namespace {

constexpr qsizetype kByteMassimi = qsizetype{64} * 1024;
/// The longest name that a platform takes; a longer line is none of ours.
constexpr qsizetype kNomeMassimo = 255;
constexpr const char* kFineRiga = "\r\n";

const std::array<const char16_t*, kImmagini> kTipi{
    u"Logo",       u"Merceologico1", u"Natale",    u"Pasqua",       u"FestaMamma",  u"FestaPapà",
    u"FestaDonna", u"Vacanze",       u"Carnevale", u"SanValentino", u"Promozione1", u"Promozione2"};

Catalogo predefinito() {
  Catalogo catalogo;
  for (std::size_t i = 0; i < kImmagini; ++i) {
    const QString tipo = QString::fromUtf16(kTipi.at(i));
    catalogo.at(i) = {tipo, tipo + QStringLiteral(".bmp")};
  }
  return catalogo;
}

QString riga(const QList<QByteArray>& righe, std::size_t quale) {
  QByteArray byte = righe.value(static_cast<qsizetype>(quale));
  if (byte.endsWith('\r')) byte.chop(1);
  return windows1252::toText(byte.left(kNomeMassimo));
}

/// A name that held a line end would move all lines behind it.
QByteArray inRiga(const QString& testo) {
  QByteArray byte = windows1252::toBytes(testo);
  for (char& uno : byte)
    if (uno == '\r' || uno == '\n') uno = '?';
  return byte + kFineRiga;
}

bool vietato(QChar carattere) {
  return carattere == u'/' || carattere == u'\\' || carattere == u':' || carattere.unicode() < u' ';
}

}  // namespace

ModGra1& modGra1() {
  static ModGra1 modulo;
  return modulo;
}

void RiempiRecGrafica(bool leggi, const QString& percorso) {
  Catalogo& catalogo = modGra1().RecGrafica;
  if (!leggi) {
    catalogo = predefinito();
    return SaveRecGrafica(percorso);
  }
  catalogo = {};
  const QList<QByteArray> righe = ReadFileStart(percorso, kByteMassimi).split('\n');
  for (std::size_t i = 0; i < kImmagini; ++i) catalogo.at(i) = {riga(righe, 2 * i), riga(righe, 2 * i + 1)};
}

void SaveRecGrafica(const QString& percorso) {
  QByteArray byte;
  for (const VoceGrafica& voce : modGra1().RecGrafica) byte += inRiga(voce.tipo) + inRiga(voce.file);
  WriteWholeFile(percorso, byte);
}

bool nomeAmmesso(const QString& nome) {
  return !nome.isEmpty() && nome.size() <= kNomeMassimo && nome != QStringLiteral(".") &&
         nome != QStringLiteral("..") && std::none_of(nome.begin(), nome.end(), vietato);
}

bool nomeConservato(const QString& nome) {
  return nomeAmmesso(nome) && windows1252::toText(windows1252::toBytes(nome)) == nome;
}

QString percorsoBitmap(const QString& cartella, const QString& nome) {
  const QString testa = cartella.endsWith(u'/') ? cartella : cartella + u'/';
  return QDir::toNativeSeparators(testa) + nome;
}

bool bitmapEsiste(const QString& cartella, const QString& nome) {
  return nomeAmmesso(nome) && FileEsiste(percorsoBitmap(cartella, nome));
}

}  // namespace graphics
