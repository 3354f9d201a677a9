#include "ecrlink/file_channel.h"

#include <QFile>
#include <QFileInfo>

#include "core/context.h"
#include "core/reactions.h"
#include "ecrlink/session.h"
#include "ecrlink/transfer_lock.h"
#include "platform/error.h"
#include "platform/text/previous_file.h"
#include "platform/text/temporary_file.h"
#include "platform/text/whole_file.h"

namespace ecrlink {

namespace {

constexpr int kFallito = 1;

const char* comeCaratteri(const std::uint8_t* byte) {
  return reinterpret_cast<const char*>(byte);  // bytes to bytes: the one view that is always allowed
}

void scriviSopra(const QString& nome, std::span<const std::uint8_t> immagine) {
  TemporaryFile::Sweep(nome);
  const QFileInfo vecchio(nome);
  const bool suo = vecchio.exists() && !vecchio.isSymLink();
  if (suo && (!vecchio.isFile() || !QFile(nome).open(QIODevice::ReadWrite | QIODevice::ExistingOnly)))
    throw errors::pathAccess(nome);
  const auto lunghezza = static_cast<qint64>(immagine.size());
  TemporaryFile nuovo(nome);
  nuovo.write(comeCaratteri(immagine.data()), immagine.size());
  // What a longer old file holds behind the image stays behind it: the till does not read it.
  if (suo && vecchio.size() > lunghezza) AppendRest(nome, lunghezza, nuovo);
  if (nome == QLatin1String(kFilePLU)) TagliaFile(nuovo.path(), lunghezza - 1);
  nuovo.settle(TemporaryFile::Durability::Passing);
}

void leggiSopra(const QString& nome, std::span<std::uint8_t> immagine) {
  if (!QFileInfo::exists(nome)) throw errors::fileMissing(nome);
  QFile file(nome);
  if (!QFileInfo(nome).isFile() || !file.open(QIODevice::ReadOnly)) throw errors::pathAccess(nome);
  if (immagine.empty()) return;
  char* const byte = reinterpret_cast<char*>(immagine.data());
  file.read(byte, static_cast<qint64>(immagine.size()));
  if (file.error() != QFileDevice::NoError) throw errors::pathAccess(nome);
}

int spedisci(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto,
             std::optional<ScambioEsclusivo>& scambio) {
  // A folder that takes no lock takes no file either: that is what the person is told.
  if (!scambio) prendiDovePossibile(scambio);
  if (const int esito = CreaFileProgrammazione(file, immagine, contesto); esito != 0) return esito;
  if (!scambio) scambio.emplace();
  const int esito = avviaECR(file, Modo::Invia, contesto);
  // Nobody has to wait for a box to be closed.
  if (esito != 0) scambio.reset();
  if (esito != 0) contesto.utente.MsgBox(QStringLiteral("Fallita operazione trasferimento ") + file);
  return esito;
}

/// Rules out that an old file is there when the till's comes.
void sgombra(const QString& file, Precedente precedente) {
  // Those of the library too, which names what it receives in the same way.
  TemporaryFile::Sweep(file);
  const QFileInfo vecchio(file);
  if (precedente == Precedente::Tenuto && vecchio.isFile() && !vecchio.isSymLink()) {
    const QString tenuto = PreviousName(file);
    QFile::remove(tenuto);
    if (QFile::rename(file, tenuto)) return;
  }
  RemoveFile(file);
}

}  // namespace

int SendPRGTo_ECR(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto) {
  std::optional<ScambioEsclusivo> scambio;
  return SendPRGTo_ECR(immagine, file, contesto, scambio);
}

int SendPRGTo_ECR(std::span<const std::uint8_t> immagine, const QString& file, Contesto& contesto,
                  std::optional<ScambioEsclusivo>& scambio) {
  return reazioni::oppure([&] { return spedisci(immagine, file, contesto, scambio); },
                          [&](const Errore& errore) {
                            contesto.utente.MsgBox(QStringLiteral("Errore SendPRGTo_ECR ") +
                                                   QString::number(errore.numero) + QStringLiteral(" - ") +
                                                   errore.descrizione);
                            return kFallito;
                          });
}

int CreaFileProgrammazione(const QString& file, std::span<const std::uint8_t> immagine, Contesto& contesto) {
  return reazioni::conCodice(contesto.utente, "CreaFileProgrammazione", "Common_PRG",
                             [&] { scriviSopra(file, immagine); });
}

void TagliaFile(const QString& file, std::int64_t lunghezza) {
  QFile aperto(file);
  if (!aperto.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
    throw errors::fileMissing(file);
  if (lunghezza < 0 || aperto.isSequential() || !aperto.seek(lunghezza)) throw errors::badArgument();
  if (!aperto.resize(lunghezza)) throw errors::badArgument();
}

int ReadByteFromFile(std::span<std::uint8_t> immagine, const QString& file, Contesto& contesto) {
  return reazioni::conCodice(contesto.utente, "ReadByteFromFile", "CommonForKora",
                             [&] { leggiSopra(file, immagine); });
}

std::optional<std::int64_t> RiceviFile(std::span<std::uint8_t> immagine, const QString& file,
                                       Precedente precedente, Contesto& contesto) {
  std::optional<ScambioEsclusivo> scambio;
  return RiceviFile(immagine, file, precedente, contesto, scambio);
}

std::optional<std::int64_t> RiceviFile(std::span<std::uint8_t> immagine, const QString& file,
                                       Precedente precedente, Contesto& contesto,
                                       std::optional<ScambioEsclusivo>& scambio) {
  std::optional<std::int64_t> arrivati;
  reazioni::conCodice(contesto.utente, "RiceviFile", "CommonForKora", [&] {
    if (!scambio) scambio.emplace();
    sgombra(file, precedente);
    if (avviaECR(file, Modo::Ricevi, contesto) != 0) return;
    if (ReadByteFromFile(immagine, file, contesto) != 0) return;
    arrivati = QFileInfo(file).size();
  });
  return arrivati;
}

}  // namespace ecrlink
