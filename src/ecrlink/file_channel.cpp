#include "ecrlink/file_channel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/context.h"
#include "core/reactions.h"
#include "ecrlink/session.h"
#include "platform/error.h"

namespace ecrlink {

namespace {

constexpr int kFallito = 1;

Errore fileAssente() {
  return {errors::kFileMissing, QStringLiteral("File non trovato")};
}
Errore argomentoNonValido() {
  return {errors::kBadArgument, QStringLiteral("Chiamata di routine o argomento non validi")};
}

/// Why a file could not be made, opened or read.
Errore accessoFallito(const QString& file) {
  const QFileInfo info(file);
  if (!info.absoluteDir().exists()) return {errors::kPathMissing, QStringLiteral("Percorso non trovato")};
  return {errors::kPathAccess, QStringLiteral("Errore nell'accesso al percorso/file")};
}

const char* comeCaratteri(const std::uint8_t* byte) {
  return reinterpret_cast<const char*>(byte);  // bytes to bytes: the one view that is always allowed
}

/// Unbuffered, so that each write tells at once how much of it the disk took.
void scriviTutto(QFile& file, std::span<const std::uint8_t> immagine) {
  const auto lunghezza = static_cast<qint64>(immagine.size());
  if (lunghezza == 0) return;
  if (file.write(comeCaratteri(immagine.data()), lunghezza) != lunghezza)
    throw Errore{errors::kDiskFull, QStringLiteral("Disco pieno")};
}

/// The old file is not emptied: a longer one keeps its tail, which the till does not read.
void scriviSopra(const QString& nome, std::span<const std::uint8_t> immagine) {
  QFile file(nome);
  if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) throw accessoFallito(nome);
  scriviTutto(file, immagine);
}

template <typename Corpo>
int sorvegliata(Contesto& contesto, const QString& procedura, const QString& modulo, Corpo&& corpo) {
  try {
    corpo();
    return 0;
  } catch (const Errore& errore) {
    reazioni::segnalaImprevisto(contesto.utente, errore, procedura, modulo);
    return kFallito;
  }
}

void leggiSopra(const QString& nome, std::span<std::uint8_t> immagine) {
  if (!QFileInfo::exists(nome)) throw fileAssente();
  QFile file(nome);
  if (!file.open(QIODevice::ReadOnly)) throw accessoFallito(nome);
  if (immagine.empty()) return;
  char* const byte = reinterpret_cast<char*>(immagine.data());
  if (file.read(byte, static_cast<qint64>(immagine.size())) < 0) throw accessoFallito(nome);
}

int spedisci(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto) {
  if (const int esito = CreaFileProgrammazione(file, immagine, contesto); esito != 0) return esito;
  const int esito = avviaECR(file, Modo::Invia, contesto);
  if (esito != 0) contesto.utente.MsgBox(QStringLiteral("Fallita operazione trasferimento ") + file);
  return esito;
}

}  // namespace

int SendPRGTo_ECR(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto) {
  try {
    return spedisci(immagine, file, contesto);
  } catch (const Errore& errore) {
    contesto.utente.MsgBox(QStringLiteral("Errore SendPRGTo_ECR ") + QString::number(errore.numero) +
                           QStringLiteral(" - ") + errore.descrizione);
    return kFallito;
  }
}

int CreaFileProgrammazione(const QString& file, std::span<const std::uint8_t> immagine, Contesto& contesto) {
  return sorvegliata(contesto, QStringLiteral("CreaFileProgrammazione"), QStringLiteral("Common_PRG"), [&] {
    scriviSopra(file, immagine);
    if (file == QLatin1String(kFilePLU)) TagliaFile(file, static_cast<std::int64_t>(immagine.size()) - 1);
  });
}

void TagliaFile(const QString& file, std::int64_t lunghezza) {
  QFile aperto(file);
  if (!aperto.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
    throw fileAssente();
  if (lunghezza < 0 || aperto.isSequential() || !aperto.seek(lunghezza)) throw argomentoNonValido();
  if (!aperto.resize(lunghezza)) throw argomentoNonValido();
}

int ReadByteFromFile(std::span<std::uint8_t> immagine, const QString& file, Contesto& contesto) {
  return sorvegliata(contesto, QStringLiteral("ReadByteFromFile"), QStringLiteral("CommonForKora"),
                     [&] { leggiSopra(file, immagine); });
}

}  // namespace ecrlink
