#include "sales/reception_note.h"

#include <QCryptographicHash>
#include <QFile>
#include <QUrl>
#include <optional>
#include <vector>

#include "platform/error.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"

namespace sales::nota {

namespace {

const QString kFile = QStringLiteral("venduto.bin.ricevuto");
/// Hundreds of tills.
constexpr qsizetype kMassimo = qsizetype{256} * 1024;

/// A line of the note: three fields parted by tabs, address and path with their signs escaped.
struct Riga {
  QByteArray impronta;
  QString cassa;
  QString archivio;
};

std::optional<Riga> letta(const QByteArray& scritta) {
  const QList<QByteArray> campi = scritta.split('\t');
  if (campi.size() != 3) return std::nullopt;
  return Riga{campi[0], QUrl::fromPercentEncoding(campi[1]), QUrl::fromPercentEncoding(campi[2])};
}

/// Where the note cannot be read nothing is known of an earlier reception: as if there had been none.
std::vector<Riga> righe() {
  std::vector<Riga> tutte;
  try {
    for (const QByteArray& scritta : ReadWholeFile(kFile, kMassimo).split('\n'))
      if (std::optional<Riga> riga = letta(scritta)) tutte.push_back(*riga);
  } catch (const Errore&) {
    return {};
  }
  return tutte;
}

/// Takes the till's line out; how many there were.
std::size_t toglieDi(const QString& cassa, std::vector<Riga>& tutte) {
  return std::erase_if(tutte, [&](const Riga& riga) { return riga.cassa == cassa; });
}

void riscrivi(const std::vector<Riga>& tutte) {
  QByteArray testo;
  for (const Riga& riga : tutte)
    testo += riga.impronta + '\t' + QUrl::toPercentEncoding(riga.cassa) + '\t' +
             QUrl::toPercentEncoding(riga.archivio, "/") + '\n';
  TemporaryFile::Sweep(kFile);
  // A link in its place is no note of this program's: what it leads to stays.
  TemporaryFile file(kFile);
  file.write(testo);
  file.settle();
}

}  // namespace

QByteArray impronta(const QByteArray& venduto) {
  return QCryptographicHash::hash(venduto, QCryptographicHash::Sha256).toHex();
}

QString archivioDi(const QByteArray& impronta) {
  for (const Riga& riga : righe())
    if (riga.impronta == impronta) return riga.archivio;
  return {};
}

QString archivio(const QString& cassa) {
  const std::vector<Riga> tutte = righe();
  for (const Riga& riga : tutte)
    if (riga.cassa == cassa) return riga.archivio;
  return tutte.empty() ? QString() : tutte.back().archivio;
}

void scrivi(const QByteArray& impronta, const QString& archivio, const QString& cassa) {
  std::vector<Riga> tutte = righe();
  toglieDi(cassa, tutte);
  tutte.push_back({impronta, cassa, archivio});
  riscrivi(tutte);
}

void togli(const QString& cassa) {
  std::vector<Riga> altre = righe();
  const auto tolte = toglieDi(cassa, altre);
  if (altre.empty()) {
    QFile::remove(kFile);
    return;
  }
  if (tolte == 0) return;
  try {
    riscrivi(altre);
  } catch (const Errore&) {
    // The till is cleared whatever becomes of the note: a line too many warns once more than it need.
  }
}

}  // namespace sales::nota
