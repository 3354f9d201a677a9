#include "graphics/file_lists.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include "graphics/catalogue.h"
#include "platform/error.h"
#include "platform/text/whole_file.h"

namespace graphics {

namespace {

/// More than a bitmap of any use takes.
constexpr qsizetype kByteMassimi = qsizetype{64} * 1024 * 1024;

void ordina(QStringList& nomi) {
  nomi.sort(Qt::CaseInsensitive);
}

QStringList nomiIn(const QString& cartella, const QStringList& forme, QDir::Filters quali) {
  QStringList nomi;
  // Looked through one by one: a folder of a million files would otherwise be read to its end.
  for (QDirIterator voci(cartella, forme, quali); voci.hasNext() && nomi.size() < kVociMassime;) {
    voci.next();
    if (nomeAmmesso(voci.fileName())) nomi.append(voci.fileName());
  }
  ordina(nomi);
  return nomi;
}

}  // namespace

QStringList unita() {
  QStringList tutte;
  for (const QFileInfo& una : QDir::drives()) tutte.append(una.absoluteFilePath());
  const QString persona = QDir::home().dirName();
  for (const QString& posto :
       {QStringLiteral("/media/") + persona, QStringLiteral("/run/media/") + persona, QStringLiteral("/mnt")})
    for (const QString& nome : cartelleIn(posto)) tutte.append(posto + u'/' + nome);
  return tutte;
}

QString unitaDi(const QString& percorso, const QStringList& unita) {
  QString migliore = unita.value(0);
  for (const QString& una : unita) {
    const QString testa = una.endsWith(u'/') ? una : una + u'/';
    if ((percorso + u'/').startsWith(testa) && una.size() > migliore.size()) migliore = una;
  }
  return migliore;
}

QStringList cartelleIn(const QString& cartella) {
  return nomiIn(cartella, {}, QDir::Dirs | QDir::NoDotAndDotDot);
}

QStringList bitmapIn(const QString& cartella) {
  return nomiIn(cartella, {QStringLiteral("*.bmp")}, QDir::Files);
}

QString PortaNellaCartella(const QString& percorso, const QString& cartella) {
  const QFileInfo origine(percorso);
  QString nome = origine.fileName();
  if (!nomeAmmesso(nome)) throw errors::badArgument();
  if (!origine.exists()) throw errors::fileMissing(percorso);
  const QString meta = percorsoBitmap(cartella, nome);
  if (origine.canonicalFilePath() == QFileInfo(meta).canonicalFilePath()) return nome;
  const QByteArray byte = ReadWholeFile(percorso, kByteMassimi);
  if (!QFileInfo::exists(meta)) {
    WriteWholeFile(meta, byte);
  } else if (ReadWholeFile(meta, kByteMassimi) != byte) {
    throw Errore{kEsisteUnAltro,
                 QStringLiteral("Nella cartella c'è già un altro %1: dare al file un altro nome").arg(nome)};
  }
  return nome;
}

}  // namespace graphics
