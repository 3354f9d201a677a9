#pragma once

#include <QImage>
#include <QString>

/// What the screen tells of a picture before it is sent: the converter says no more than no.
namespace graphics {

/// Highest picture that the tills take, in dots.
inline constexpr int kAltezzaMassima = 800;

struct Esame {
  /// As the dots will print it; null where there is nothing to show.
  QImage punti;
  /// "SMALL" or "LARGE", the class of tills that its width fits; empty for none.
  QString classe;
  /// Why it would be refused; empty for a picture that goes.
  QString rifiuto;
  /// No bitmap stands in its place.
  bool vuoto = false;
};

/// Looks at the bitmap `nome` in `cartella`, for a till whose pictures are `larghezza` dots wide; 0 while no
/// till is known. Throws nothing.
Esame esamina(const QString& cartella, const QString& nome, int larghezza);

/// Class of the tills that take pictures so wide; empty for none.
QString classeDi(qint64 larghezza);

}  // namespace graphics
