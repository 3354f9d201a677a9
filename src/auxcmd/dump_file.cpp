#include "auxcmd/dump_file.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <map>
#include <memory>

#include "core/context.h"
#include "core/reactions.h"
#include "core/state.h"
#include "platform/clock.h"
#include "platform/error.h"
#include "platform/text/line_reader.h"
#include "platform/text/previous_file.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"

namespace auxcmd {

namespace {

/// Unbuffered, so that a full disk is told by the write that met it and not by a later one.
using FileAperti = std::map<std::int32_t, std::unique_ptr<QFile>>;

FileAperti& fileAperti() {
  static FileAperti aperti;
  return aperti;
}

std::int32_t numeroLibero() {
  std::int32_t numero = 1;
  while (fileAperti().contains(numero)) ++numero;
  return numero;
}

QString sigla(Memoria memoria) {
  return memoria == Memoria::DGFE ? QStringLiteral("DGFE") : QStringLiteral("MF");
}

/// The command that ends a line in which a till was asked for a record: by dates or the whole, or by numbers.
struct Comandi {
  Memoria memoria;
  const char* perDate;
  const char* perNumeri;
};
/// A line that holds commands of both counts as the journal's.
constexpr Comandi kComandi[] = {{Memoria::DGFE, "10F", "11F"}, {Memoria::MF, "12F", "13F"}};
constexpr qsizetype kLettereComando = 3;
constexpr qsizetype kAssente = -1;

/// Place behind the first command of a kind; -1 for none.
qsizetype dopoIlComando(const QByteArray& riga, const Comandi& comandi) {
  const qsizetype perDate = riga.indexOf(comandi.perDate);
  const qsizetype perNumeri = riga.indexOf(comandi.perNumeri);
  const qsizetype primo = perDate == kAssente || perNumeri == kAssente ? std::max(perDate, perNumeri)
                                                                       : std::min(perDate, perNumeri);
  return primo == kAssente ? kAssente : primo + kLettereComando;
}

struct Trovato {
  Memoria memoria;
  /// Of the stream in the file.
  qint64 inizio;
};

std::optional<Trovato> cercaComando(const QString& file) {
  LineReader righe(file);
  while (!righe.atEnd()) {
    const qint64 inizioRiga = righe.done();
    const QByteArray riga = righe.next().bytes;
    for (const Comandi& comandi : kComandi)
      if (const qsizetype dopo = dopoIlComando(riga, comandi); dopo != kAssente)
        return Trovato{comandi.memoria, inizioRiga + dopo};
  }
  return std::nullopt;
}

void togli(const QString& file) {
  if (QFileInfo::exists(file) && !QFile::remove(file)) throw errors::pathAccess(file);
}

void copia(const QString& da, qint64 inizio, const QString& a, TemporaryFile::Durability durata) {
  TemporaryFile copia(RealTarget(a));
  AppendRest(da, inizio, copia);
  copia.settle(durata);
}

}  // namespace

QString nomeFileDump(Memoria memoria, const QDateTime& quando) {
  return sigla(memoria) + quando.toString(QStringLiteral("'_'ddMMyyyy'_'HHmmss'.txt'"));
}

QByteArray testaDump(Memoria memoria, const QDateTime& quando) {
  const QString lettura = QStringLiteral("*** LETTURA %1 del %2 ***")
                              .arg(sigla(memoria), quando.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")));
  return "***\r\n" + windows1252::toBytes(lettura) + "\r\n***\r\n";
}

std::int32_t apriFileDump(const QString& percorso) {
  auto file = std::make_unique<QFile>(percorso);
  // At the end whoever else writes to it: what is appended beside a running dump stays.
  if (!file->open(QIODevice::NewOnly | QIODevice::Append | QIODevice::Unbuffered))
    throw errors::cannotOpen(percorso);
  const std::int32_t numero = numeroLibero();
  fileAperti()[numero] = std::move(file);
  return numero;
}

void scriviFileDump(std::int32_t numero, const QByteArray& byte) {
  const auto aperto = fileAperti().find(numero);
  if (aperto == fileAperti().end()) throw errors::badArgument();
  QFile& file = *aperto->second;
  if (file.write(byte) != byte.size()) throw errors::diskFull(file.fileName());
}

void chiudiFileDump(std::int32_t numero) {
  const auto chiuso = fileAperti().extract(numero);
  if (chiuso.empty()) return;
  QFile& file = *chiuso.mapped();
  file.close();
  if (file.error() != QFileDevice::NoError) throw errors::pathAccess(file.fileName());
}

void iniziaFileDump(Memoria memoria, const QDateTime& quando, const QString& cartella, FileDump& file) {
  file.di(memoria) = cartella + u'/' + nomeFileDump(memoria, quando);
  std::int32_t& numero = funzioniCmdXonXoff().NumFileDump;
  numero = apriFileDump(file.di(memoria));
  scriviFileDump(numero, testaDump(memoria, quando));
}

void ScriviDumpScontrini(const QString& testo, std::int16_t& risultato, Memoria memoria, const FileDump& file,
                         Utente& utente) {
  risultato =
      static_cast<std::int16_t>(reazioni::conCodice(utente, "ScriviDumpScontrini", "FunzioniCmdXonXoff", [&] {
        AppendToFile(file.di(memoria), windows1252::toBytes(testo));
      }));
}

QString fileTempDump(const Contesto& contesto) {
  return contesto.cartella + QStringLiteral("/TempDump_Memory.dat");
}

QString fileTemp(const Contesto& contesto) {
  return contesto.cartella + QStringLiteral("/Temp.dat");
}

std::optional<Memoria> TipoDumpMemoria(const QString& file, const Contesto& contesto) {
  const QString temp = fileTemp(contesto);
  togli(temp);
  const std::optional<Trovato> trovato = cercaComando(file);
  if (!trovato) return std::nullopt;
  copia(file, trovato->inizio, temp, TemporaryFile::Durability::Passing);
  return trovato->memoria;
}

QString ArchiviaDumpMemoria(const Contesto& contesto) {
  const QString preso = fileTempDump(contesto);
  const std::optional<Memoria> memoria = TipoDumpMemoria(preso, contesto);
  if (!memoria) return {};
  QString archiviato = contesto.cartella + u'/' + nomeFileDump(*memoria, contesto.orologio.now());
  if (QFileInfo::exists(archiviato)) throw errors::pathAccess(archiviato);
  CopiaDump(preso, archiviato);
  return archiviato;
}

void CopiaDump(const QString& da, const QString& a) {
  copia(da, 0, a, TemporaryFile::Durability::Kept);
}

}  // namespace auxcmd
