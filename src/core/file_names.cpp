#include <QFileInfo>
#include <algorithm>

#include "core/conversions.h"
#include "core/paths.h"

namespace {

constexpr QLatin1Char kSeparatoreWindows('\\');
constexpr QLatin1Char kSeparatore('/');

bool separatore(QChar carattere) {
  return carattere == kSeparatoreWindows || carattere == kSeparatore;
}

}  // namespace

QString PercorsoNativo(const QString& percorso) {
#if defined(Q_OS_WIN)
  return percorso;
#else
  QString nativo = percorso;
  return nativo.replace(kSeparatoreWindows, kSeparatore);
#endif
}

QString DammiNomeBase(const QString& path) {
  const auto dopo = std::find_if(path.crbegin(), path.crend(), separatore).base();
  const QString nome = path.sliced(dopo - path.cbegin());
  return nome.left(nome.indexOf(QLatin1Char('.')));
}

bool FileEsiste(const QString& nome) {
  if (nome.isEmpty() || separatore(nome.back())) return false;
  const auto presente = [](const QFileInfo& voce) { return voce.exists() && !voce.isDir(); };
  return presente(QFileInfo(nome)) || presente(QFileInfo(PercorsoNativo(nome)));
}
