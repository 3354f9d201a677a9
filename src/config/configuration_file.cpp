#include "config/configuration_file.h"

#include <QDir>
#include <QFileInfo>
#include <cstring>

#include "config/configuration_changes.h"
#include "core/conversions.h"
#include "core/reactions.h"
#include "platform/text/file_name.h"
#include "platform/text/previous_file.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"

namespace config {

namespace {

/// The first bytes of a file, zeros behind its end.
QByteArray inizioDelFile(const QString& path, std::size_t byte) {
  const auto quanti = static_cast<qsizetype>(byte);
  return ReadFileStart(path, quanti).leftJustified(quanti, '\0');
}

void copia(const QByteArray& file, std::size_t inizio, Record meta) {
  std::memcpy(meta.data(), file.constData() + inizio, meta.size());
}

QByteArray comeByte(RecordLetto record) {
  return {reinterpret_cast<const char*>(record.data()), static_cast<qsizetype>(record.size())};
}

QByteArray fileInMemoria() {
  return comeByte(testataFile()) + comeByte(bloccoNegozio()) +
         comeByte(std::as_const(immagineProgrammazione()).byte());
}

QString testo(const Campo& campo) {
  return ByteInTesto(RecordLetto(testataFile()).subspan(campo.inizio, campo.larghezza));
}

/// What stands in the file so far, and one byte of a foreign tail, which tells it from the new one; nothing
/// where there is none yet.
QByteArray sulDisco(const QString& path) {
  if (!QFileInfo::exists(path)) return {};
  return ReadFileStart(path, static_cast<qsizetype>(kByteFile) + 1);
}

/// The new file is whole on the disk before the previous one is replaced: a disk that is full for it takes
/// neither.
void sostituisci(const QString& path, const QByteArray& vecchio, const QByteArray& nuovo) {
  const QString vero = RealTarget(path);
  TemporaryFile::Sweep(vero);
  TemporaryFile file(vero);
  file.write(nuovo);
  if (!vecchio.isEmpty() && vecchio != nuovo) KeepPrevious(path);
  file.settle();
}

}  // namespace

TestataFile& testataFile() {
  static TestataFile unica{};
  return unica;
}

BloccoNegozio& bloccoNegozio() {
  static BloccoNegozio unico{};
  return unico;
}

void azzeraConfigurazione() {
  testataFile() = {};
  bloccoNegozio() = {};
  immagineProgrammazione() = {};
}

QString versioneFile() {
  return testo(testata::kVersione);
}

QString modelloFile() {
  return testo(testata::kModello);
}

QString TestoPannello(const QString& path) {
  return QStringLiteral("File : [%1] - Versione %2").arg(FileName(path), versioneFile());
}

std::uint16_t VerificaVersioneFile(const QString& path, QString& pannello) {
  const TestataFile prima = testataFile();
  copia(inizioDelFile(path, testata::kByte), 0, testataFile());
  if (versioneFile() != QLatin1String(kVersioneFile)) {
    // The next save would write the refused version into the configuration that is open, for good.
    testataFile() = prima;
    return 1;
  }
  pannello = TestoPannello(path);
  return 0;
}

std::int16_t CaricaConfigurazione(const QString& path, Utente& utente) {
  const int esito = reazioni::conCodice(utente, "CaricaConfigurazione", "Common_PRG", [&] {
    // Short or long, the file is taken: only its version says whether it is of this format.
    const QByteArray file = inizioDelFile(path, kByteFile);
    copia(file, 0, testataFile());
    copia(file, kInizioNegozio, bloccoNegozio());
    copia(file, kInizioImmagine, immagineProgrammazione().byte());
  });
  return static_cast<std::int16_t>(esito);
}

Salvataggio SalvaConfigurazioneRaccontando(const QString& path, Utente& utente) {
  Salvataggio fatto;
  const int esito = reazioni::conCodice(utente, "SalvaConfigurazione", "CommonForKora", [&] {
    const QByteArray nuovo = fileInMemoria();
    const QByteArray vecchio = sulDisco(path);
    sostituisci(path, vecchio, nuovo);
    fatto.racconto = RaccontoModifiche(vecchio, nuovo);
  });
  fatto.esito = static_cast<std::int16_t>(esito);
  return fatto;
}

std::int16_t SalvaConfigurazione(const QString& path, Utente& utente) {
  return SalvaConfigurazioneRaccontando(path, utente).esito;
}

QString PercorsoCompagno(const QString& path) {
  return QFileInfo(path).dir().filePath(DammiNomeBase(path) + QStringLiteral("_art.mdb"));
}

}  // namespace config
