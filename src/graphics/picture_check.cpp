#include "graphics/picture_check.h"

#include <algorithm>
#include <array>

#include "ecrlink/models.h"
#include "graphics/bitmap_file.h"
#include "graphics/catalogue.h"
#include "platform/error.h"

namespace graphics {

namespace {

constexpr std::array kBitLetti{1, 4, 8, 24, 32};
/// Of the tills' two classes, as they report themselves.
constexpr std::array kClassi{u"S", u"L"};

QString fuoriForma(const TestaBitmap& testa) {
  if (testa.compressa) return QStringLiteral("La bitmap è compressa");
  if (std::find(kBitLetti.begin(), kBitLetti.end(), testa.bit) == kBitLetti.end())
    return QStringLiteral("Colori a %1 bit: salvarla a 1 o a 24").arg(testa.bit);
  if (testa.altezza < 1) return QStringLiteral("La bitmap non ha righe");
  if (testa.altezza > kAltezzaMassima)
    return QStringLiteral("Alta %1 punti: al massimo %2").arg(testa.altezza).arg(kAltezzaMassima);
  return {};
}

QString rifiutoDi(const TestaBitmap& testa, int larghezza) {
  if (classeDi(testa.larghezza).isEmpty())
    return QStringLiteral("Larga %1 punti: ne servono 384 o 640").arg(testa.larghezza);
  if (QString forma = fuoriForma(testa); !forma.isEmpty()) return forma;
  if (!testa.intera) return QStringLiteral("Il file è incompleto");
  if (larghezza != 0 && testa.larghezza != larghezza)
    return QStringLiteral("Larga %1 punti, serve %2").arg(testa.larghezza).arg(larghezza);
  return {};
}

/// A picture of the wrong class alone is one that can be looked at.
bool siMostra(const TestaBitmap& testa) {
  return rifiutoDi(testa, 0).isEmpty();
}

Esame guarda(const QString& percorso, int larghezza) {
  const auto testa = testaDelFile(percorso);
  if (!testa) return {.punti = {}, .classe = {}, .rifiuto = QStringLiteral("Il file non è una bitmap")};
  Esame esame{.punti = {}, .classe = classeDi(testa->larghezza), .rifiuto = rifiutoDi(*testa, larghezza)};
  if (siMostra(*testa)) esame.punti = comeStampata(CaricaImmagine(percorso));
  return esame;
}

}  // namespace

QString classeDi(qint64 larghezza) {
  for (const char16_t* classe : kClassi) {
    const QString lettera = QString::fromUtf16(classe);
    if (ecrlink::larghezzaGrafica(lettera).value_or(QString()).toLongLong() == larghezza)
      return ecrlink::nomeDellaClasse(lettera);
  }
  return {};
}

Esame esamina(const QString& cartella, const QString& nome, int larghezza) {
  if (nome.isEmpty())
    return {.punti = {}, .classe = {}, .rifiuto = QStringLiteral("Nessuna bitmap"), .vuoto = true};
  if (!nomeAmmesso(nome))
    return {.punti = {}, .classe = {}, .rifiuto = QStringLiteral("Non è il nome di un file"), .vuoto = true};
  if (!bitmapEsiste(cartella, nome))
    return {.punti = {}, .classe = {}, .rifiuto = QStringLiteral("Il file non c'è"), .vuoto = true};
  try {
    return guarda(percorsoBitmap(cartella, nome), larghezza);
  } catch (const Errore& errore) {
    return {.punti = {},
            .classe = {},
            .rifiuto = errore.numero == kImmagineNonValida ? QStringLiteral("Il file non è una bitmap")
                                                           : QStringLiteral("Il file non si può leggere")};
  }
}

}  // namespace graphics
