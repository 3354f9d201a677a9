#include "ecrcom/file_intero.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

namespace ecrcom {
namespace {

constexpr mode_t kPermessi = 0666;  // cut by the process's mask, as for any file that it makes
constexpr int kTentativi = 16;

class Descrittore {
 public:
  explicit Descrittore(int numero) : numero_(numero) {}
  ~Descrittore() {
    if (numero_ >= 0) close(numero_);
  }
  Descrittore(const Descrittore&) = delete;
  Descrittore& operator=(const Descrittore&) = delete;
  int numero() const { return numero_; }
  bool aperto() const { return numero_ >= 0; }
  /// A late write error, of a network folder say, shows up here.
  bool chiudi() {
    const int vecchio = numero_;
    numero_ = -1;
    return close(vecchio) == 0;
  }

 private:
  int numero_;
};

/// A name of nobody else's beside `percorso`: process, then a count, then a try.
std::string nomeProvvisorio(const std::string& percorso) {
  static std::atomic<unsigned> contatore{0};
  const std::size_t barra = percorso.rfind('/');
  const std::size_t inizio = barra == std::string::npos ? 0 : barra + 1;
  return percorso.substr(0, inizio) + "." + percorso.substr(inizio) + "." + std::to_string(getpid()) + "." +
         std::to_string(contatore++);
}

int creaProvvisorio(const std::string& percorso, std::string& nome) {
  for (int prova = 0; prova < kTentativi; ++prova) {
    nome = nomeProvvisorio(percorso);
    const int numero = open(nome.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPermessi);
    if (numero >= 0 || errno != EEXIST) return numero;
  }
  return -1;
}

bool scriviTutto(int numero, Byte byte) {
  while (!byte.empty()) {
    const ssize_t scritti = write(numero, byte.data(), byte.size());
    if (scritti < 0 && errno == EINTR) continue;
    if (scritti <= 0) return false;
    byte = byte.subspan(static_cast<std::size_t>(scritti));
  }
  return true;
}

bool leggiTutto(int numero, std::vector<std::uint8_t>& byte, std::size_t davanti) {
  std::size_t letti = davanti;
  while (letti < byte.size()) {
    const ssize_t quanti = read(numero, byte.data() + letti, byte.size() - letti);
    if (quanti < 0 && errno == EINTR) continue;
    if (quanti < 0) return false;
    if (quanti == 0) break;
    letti += static_cast<std::size_t>(quanti);
  }
  byte.resize(letti);
  return true;
}

/// Gives the new file the old one's name. A plain rename over a file makes some file systems write the new
/// bytes out first, 0.2 ms for the articles; who does not ask for that swaps the names where it can.
bool subentra(const std::string& provvisorio, const std::string& percorso, bool sincronizza) {
#ifdef RENAME_EXCHANGE
  struct stat vecchio {};
  const bool file = lstat(percorso.c_str(), &vecchio) == 0 && S_ISREG(vecchio.st_mode);
  const bool scambiati =
      !sincronizza && file &&
      renameat2(AT_FDCWD, provvisorio.c_str(), AT_FDCWD, percorso.c_str(), RENAME_EXCHANGE) == 0;
  if (scambiati) return unlink(provvisorio.c_str()) == 0;
#endif
  return std::rename(provvisorio.c_str(), percorso.c_str()) == 0;
}

}  // namespace

EsitoFile leggiFile(const std::string& percorso, std::vector<std::uint8_t>& byte, std::size_t davanti) {
  Descrittore file(open(percorso.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file.aperto()) return errno == ENOENT ? EsitoFile::Assente : EsitoFile::Errore;
  struct stat dati {};
  if (fstat(file.numero(), &dati) != 0 || !S_ISREG(dati.st_mode)) return EsitoFile::Errore;
  if (dati.st_size > static_cast<off_t>(kByteMassimi)) return EsitoFile::TroppoGrande;
  byte.resize(davanti + static_cast<std::size_t>(dati.st_size));
  return leggiTutto(file.numero(), byte, davanti) ? EsitoFile::Fatto : EsitoFile::Errore;
}

EsitoFile sostituisciFile(const std::string& percorso, Byte byte, bool sincronizza) {
  std::string provvisorio;
  Descrittore file(creaProvvisorio(percorso, provvisorio));
  if (!file.aperto()) return EsitoFile::Errore;
  const bool scritto = scriviTutto(file.numero(), byte) && (!sincronizza || fsync(file.numero()) == 0);
  const bool chiuso = file.chiudi();
  if (scritto && chiuso && subentra(provvisorio, percorso, sincronizza)) return EsitoFile::Fatto;
  unlink(provvisorio.c_str());
  return EsitoFile::Errore;
}

}  // namespace ecrcom
