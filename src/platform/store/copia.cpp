#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFileInfo>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "platform/store/aperti.h"
#include "platform/store/connessione.h"
#include "platform/store/copia_viva.h"
#include "platform/store/giornale.h"
#include "platform/store/store.h"

namespace store {

namespace {

constexpr std::size_t kBlocco = 65536;
constexpr mode_t kPermessi = 0666;

Errore daErrno(int numero, const QString& percorso) {
  switch (numero) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return {errore::kDiscoPieno, QStringLiteral("Disco pieno.")};
    case ENOENT:
    case ENOTDIR:
      return {errore::kPercorsoAssente, QStringLiteral("Percorso non trovato: '%1'.").arg(percorso)};
    case ETXTBSY:
    case EBUSY:
      return {errore::kAccessoNegato, QStringLiteral("Accesso negato: '%1'.").arg(percorso)};
    default:
      return {errore::kAccessoPercorso,
              QStringLiteral("Errore di accesso al percorso o al file '%1'.").arg(percorso)};
  }
}

/// A file descriptor of its own; closing it early tells whether the last bytes were taken.
class Descrittore {
 public:
  explicit Descrittore(int fd) : fd_(fd) {}
  ~Descrittore() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descrittore(const Descrittore&) = delete;
  Descrittore& operator=(const Descrittore&) = delete;
  int fd() const { return fd_; }
  bool valido() const { return fd_ >= 0; }
  bool chiudi() { return ::close(std::exchange(fd_, -1)) == 0; }

 private:
  int fd_;
};

/// A file beside the target, gone again unless it took the target's place.
class Provvisorio {
 public:
  explicit Provvisorio(const QString& destinazione)
      : destinazione_(destinazione),
        nome_((destinazione + QStringLiteral(".XXXXXX")).toUtf8()),
        file_(::mkstemp(nome_.data())) {
    if (!file_.valido()) throw daErrno(errno, destinazione);
  }
  ~Provvisorio() {
    if (!posato_) ::unlink(nome_.constData());
  }
  Provvisorio(const Provvisorio&) = delete;
  Provvisorio& operator=(const Provvisorio&) = delete;

  void scrivi(const char* byte, std::size_t quanti);
  void posa();
  const QByteArray& nome() const { return nome_; }

 private:
  void permessi() const;
  void sincronizzaCartella() const;

  QString destinazione_;
  QByteArray nome_;
  Descrittore file_;
  bool posato_ = false;
};

void Provvisorio::scrivi(const char* byte, std::size_t quanti) {
  while (quanti > 0) {
    const ssize_t scritti = ::write(file_.fd(), byte, quanti);
    if (scritti < 0 && errno == EINTR) continue;
    if (scritti <= 0) throw daErrno(scritti < 0 ? errno : ENOSPC, destinazione_);
    byte += scritti;
    quanti -= static_cast<std::size_t>(scritti);
  }
}

// The template may be read-only; an archive is born writable, or as the file was whose place it takes.
void Provvisorio::permessi() const {
  struct stat vecchio {};
  if (::stat(destinazione_.toUtf8().constData(), &vecchio) == 0) {
    ::fchmod(file_.fd(), vecchio.st_mode & kPermessi);
    return;
  }
  const mode_t maschera = ::umask(0);
  ::umask(maschera);
  ::fchmod(file_.fd(), kPermessi & ~maschera);
}

void Provvisorio::sincronizzaCartella() const {
  const QByteArray cartella = QFileInfo(destinazione_).absolutePath().toUtf8();
  const Descrittore descrittore(::open(cartella.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descrittore.valido()) ::fsync(descrittore.fd());
}

void Provvisorio::posa() {
  permessi();
  if (::fsync(file_.fd()) != 0 || !file_.chiudi()) throw daErrno(errno, destinazione_);
  if (::rename(nome_.constData(), destinazione_.toUtf8().constData()) != 0)
    throw daErrno(errno, destinazione_);
  posato_ = true;
  sincronizzaCartella();
}

void copiaByte(const QString& sorgente, Provvisorio& uscita) {
  const Descrittore entrata(::open(sorgente.toUtf8().constData(), O_RDONLY | O_CLOEXEC));
  if (!entrata.valido()) throw daErrno(errno, sorgente);
  std::array<char, kBlocco> blocco{};
  for (;;) {
    const ssize_t letti = ::read(entrata.fd(), blocco.data(), blocco.size());
    if (letti < 0 && errno == EINTR) continue;
    if (letti < 0) throw daErrno(errno, sorgente);
    if (letti == 0) return;
    uscita.scrivi(blocco.data(), static_cast<std::size_t>(letti));
  }
}

void controllaSorgente(const QString& sorgente) {
  const QFileInfo file(sorgente);
  if (sorgente.isEmpty() || !file.exists())
    throw Errore{errore::kFileAssente, QStringLiteral("Impossibile trovare il file '%1'.").arg(sorgente)};
  if (!file.isFile() || !file.isReadable()) throw daErrno(EACCES, sorgente);
}

/// The file itself where the target is a link.
QString destinazioneVera(const QString& destinazione) {
  const QFileInfo file(destinazione);
  if (destinazione.isEmpty() || file.isDir() || (file.exists() && !file.isWritable()))
    throw daErrno(EACCES, destinazione);
  return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}

void rifiutaSeInUso(const QString& destinazione) {
  for (const Connessione* connessione : aperti::su(destinazione))
    if (connessione->inTransazione())
      throw Errore{errore::kAccessoNegato,
                   QStringLiteral("Accesso negato: '%1' è in uso.").arg(destinazione)};
}

}  // namespace

void CopiaArchivio(const QString& sorgente, const QString& destinazione) {
  controllaSorgente(sorgente);
  const QString vera = destinazioneVera(destinazione);
  rifiutaSeInUso(vera);
  const bool sorgenteAperta = !aperti::su(sorgente).empty();
  if (sorgenteAperta && QFileInfo(sorgente).canonicalFilePath() == vera)
    throw Errore{errore::kAccessoNegato, QStringLiteral("Accesso negato: '%1' è in uso.").arg(destinazione)};
  Provvisorio uscita(vera);
  if (sorgenteAperta)
    CopiaViva(sorgente, QString::fromUtf8(uscita.nome()));
  else
    copiaByte(sorgente, uscita);
  ChiudiGiornale(vera);
  uscita.posa();
  // The file that these stood on is no archive any more: a write through them would be lost.
  for (Connessione* connessione : aperti::su(vera)) connessione->abbandona();
}

}  // namespace store
