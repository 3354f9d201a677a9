#include "demo/manual_pictures.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <algorithm>
#include <array>

namespace {

struct Picture {
  /// As the play calls it, without its number.
  const char* photo;
  /// As the pages call it, without ".png".
  const char* name;
};

constexpr std::array kPictures{
    Picture{"menu", "menu"},
    Picture{"gestione-importata", "gestione"},
    Picture{"archivio-articoli-cerca", "correzione"},
    Picture{"archivio-articoli-corretto", "archivio-articoli"},
    Picture{"trasferimento-fatto", "trasferimento"},
    Picture{"ricezione-fatta-lunedi", "ricezione"},
    Picture{"archivio-venduto-totali", "archivio-venduto"},
    Picture{"anagrafe-nuovo", "anagrafe-nuovo"},
    Picture{"anagrafe-completato", "anagrafe-clienti"},
    Picture{"ricezione-fatture-fatta", "ricezione-fatture"},
    Picture{"archivio-fatture", "archivio-fatture"},
    Picture{"grafica", "grafica"},
    Picture{"stato-cassa", "stato-cassa"},
    Picture{"comandi-giornale", "comandi-ausiliari"},
    Picture{"prove-vendita", "prove"},
    Picture{"ricezione-configurazione-fatta", "configurazione-ricevuta"},
    Picture{"reparti-modificati", "reparti"},
    Picture{"iva", "iva"},
    Picture{"negozio", "negozio"},
    Picture{"operatori", "operatori"},
    Picture{"opzioni-scontrino", "opzioni"},
    Picture{"opzioni-calendario", "calendario"},
    Picture{"tastiera", "tastiera"},
    Picture{"invio-di-nuovo-fatto", "scambio"},
};

constexpr qsizetype kColours = 256;
/// Of Qt's scale for PNG: the smallest file.
constexpr int kSmallest = 0;

/// What tells a shade from its neighbours.
constexpr QRgb kShade = 0xFFFCFCFC;

/// One colour a shade, of the shades that are used most: a gradient leaves room for the letters.
QList<QRgb> mostUsed(const QImage& picture) {
  QHash<QRgb, int> uses;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) ++uses[picture.pixel(x, y)];
  QList<QRgb> colours = uses.keys();
  // By value where two are used as often: the same picture gives the same file.
  std::ranges::sort(colours, [&](QRgb one, QRgb other) {
    return std::pair(uses[one], one) > std::pair(uses[other], other);
  });
  QSet<QRgb> shades;
  colours.removeIf([&](QRgb one) {
    const auto before = shades.size();
    shades.insert(one & kShade);
    return shades.size() == before;
  });
  colours.resize(std::min(colours.size(), kColours));
  return colours;
}

}  // namespace

bool ManualPictures::keep(const QImage& picture, const QString& photo) {
  const auto* const found =
      std::ranges::find(kPictures, photo, [](const Picture& one) { return QString::fromLatin1(one.photo); });
  if (folder_.isEmpty() || found == kPictures.end()) return true;
  taken_.append(photo);
  const QImage solid = picture.convertToFormat(QImage::Format_RGB32);
  return solid.convertToFormat(QImage::Format_Indexed8, mostUsed(solid), Qt::AvoidDither)
      .save(folder_ + QLatin1Char('/') + QLatin1String(found->name) + QStringLiteral(".png"), "PNG",
            kSmallest);
}

QStringList ManualPictures::missing() const {
  QStringList left;
  if (folder_.isEmpty()) return left;
  for (const Picture& one : kPictures)
    if (!taken_.contains(QLatin1String(one.photo))) left.append(QLatin1String(one.photo));
  return left;
}
