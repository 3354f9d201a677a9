#include "core/startup.h"

#include <QFile>

#include "core/conversions.h"
#include "platform/usermmc/usermmc.h"

namespace {
constexpr QLatin1String kLogCrc("crc32Log.txt");
constexpr double kProva = 123.0;
}  // namespace

void PreparaAvvio(const QString& cartella) {
  // Asked for the record of older installations, which kept the log in the current folder; it is not ours to
  // delete there.
  [[maybe_unused]] const bool nellaCorrente = FileEsiste(kLogCrc);
  const QString log = cartella + QLatin1Char('/') + kLogCrc;
  if (FileEsiste(log)) QFile::remove(log);
  UserMMC::_conv_double_long(kProva);
}
