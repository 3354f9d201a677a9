#include "articles/line_reader.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/error.h"

namespace articles {

namespace {

constexpr qsizetype kBlocco = 1 << 16;

bool fineRiga(char carattere) {
  return carattere == '\r' || carattere == '\n';
}

Errore illeggibile(const QFile& file) {
  return {errors::kPathAccess, QStringLiteral("Impossibile leggere il file ") + file.fileName()};
}

}  // namespace

LettoreRighe::LettoreRighe(const QString& percorso) : file_(percorso) {
  const QFileInfo voce(percorso);
  if (!voce.exists()) throw Errore{errors::kFileMissing, QStringLiteral("File non trovato: ") + percorso};
  // A pipe or a device would hold the program up, or never end.
  if (!voce.isFile() || !file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) throw illeggibile(file_);
  dimensione_ = file_.size();
}

bool LettoreRighe::riempi() {
  if (inizio_ < blocco_.size()) return true;
  inizio_ = 0;
  blocco_.resize(kBlocco);
  const qint64 quanti = file_.read(blocco_.data(), kBlocco);
  blocco_.resize(std::max<qint64>(quanti, 0));
  if (quanti < 0) throw illeggibile(file_);
  return quanti > 0;
}

void LettoreRighe::consuma(qsizetype quanti) {
  inizio_ += quanti;
  letti_ += quanti;
}

bool LettoreRighe::fine() {
  return !riempi();
}

Riga LettoreRighe::prossima() {
  if (fine()) throw Errore{errors::kPastEnd, QStringLiteral("Lettura oltre la fine del file")};
  Riga riga;
  while (riempi()) {
    const char* da = blocco_.constData() + inizio_;
    const char* a = blocco_.constData() + blocco_.size();
    const char* fine = std::find_if(da, a, fineRiga);
    const qsizetype presi = std::min<qsizetype>(fine - da, kRigaMassima - riga.byte.size());
    riga.byte.append(da, presi);
    riga.intera = riga.intera && presi == fine - da;
    consuma(fine - da);
    if (fine == a) continue;
    const bool ritorno = *fine == '\r';
    consuma(1);
    if (ritorno && riempi() && blocco_[inizio_] == '\n') consuma(1);
    break;
  }
  return riga;
}

}  // namespace articles
