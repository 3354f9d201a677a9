#include "ecrsim/seriale.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>

#include "ecrsim/tasti.h"

namespace ecrsim {
namespace {

/// A sequence has no end mark on the line: what it asks for is recognised as soon as its last key is there,
/// and what is no sequence must not grow for ever.
constexpr std::size_t kSequenzaMassima = 1024;

[[noreturn]] void fallisci(const std::string& cosa) {
  throw std::system_error(errno, std::generic_category(), "ecrsim " + cosa);
}

void crudo(int descrittore) {
  termios modi{};
  if (tcgetattr(descrittore, &modi) != 0) return;
  cfmakeraw(&modi);
  tcsetattr(descrittore, TCSANOW, &modi);
}

bool sostituibile(const std::string& nome) {
  struct stat dati {};
  return lstat(nome.c_str(), &dati) != 0 || S_ISLNK(dati.st_mode);
}

void scriviTutto(int descrittore, std::string_view testo) {
  while (!testo.empty()) {
    const ssize_t scritti = write(descrittore, testo.data(), testo.size());
    if (scritti < 0 && errno == EINTR) continue;
    if (scritti <= 0) return;
    testo.remove_prefix(static_cast<std::size_t>(scritti));
  }
}

}  // namespace

Seriale::Seriale(std::string collegamento, Premi premi)
    : collegamento_(std::move(collegamento)), premi_(std::move(premi)) {
  try {
    apri();
    filo_ = std::thread([this] { ascolta(); });
  } catch (...) {
    chiudi();
    throw;
  }
}

Seriale::~Seriale() {
  close(std::exchange(sveglia_[1], -1));
  filo_.join();
  unlink(collegamento_.c_str());
  chiudi();
}

void Seriale::apri() {
  cassa_ = posix_openpt(O_RDWR | O_NOCTTY);
  if (cassa_ < 0 || grantpt(cassa_) != 0 || unlockpt(cassa_) != 0 || pipe(sveglia_) != 0) fallisci("seriale");
  const char* const nome = ptsname(cassa_);
  if (nome == nullptr) fallisci("seriale");
  pc_ = open(nome, O_RDWR | O_NOCTTY);
  if (pc_ < 0) fallisci(nome);
  crudo(pc_);
  // A line that nobody reads must not hold the thread for ever.
  fcntl(cassa_, F_SETFL, fcntl(cassa_, F_GETFL) | O_NONBLOCK);
  errno = EEXIST;
  if (!sostituibile(collegamento_)) fallisci(collegamento_);
  unlink(collegamento_.c_str());
  if (symlink(nome, collegamento_.c_str()) != 0) fallisci(collegamento_);
}

void Seriale::chiudi() {
  for (int* const uno : {&cassa_, &pc_, &sveglia_[0], &sveglia_[1]})
    if (*uno >= 0) close(std::exchange(*uno, -1));
}

void Seriale::ascolta() {
  for (;;) {
    std::array<pollfd, 2> attese{pollfd{cassa_, POLLIN, 0}, pollfd{sveglia_[0], POLLIN, 0}};
    if (poll(attese.data(), attese.size(), -1) < 0 && errno != EINTR) return;
    if (attese[1].revents != 0) return;
    std::array<char, 256> byte;
    const ssize_t letti = read(cassa_, byte.data(), byte.size());
    if (letti <= 0 && errno != EAGAIN && errno != EINTR) return;
    for (ssize_t i = 0; i < letti; ++i) arrivato(byte[static_cast<std::size_t>(i)]);
  }
}

/// On the serial line the till gives the sequence back before what it prints.
void Seriale::arrivato(char carattere) {
  if (carattere == '\r' || carattere == '\n' || sequenza_.size() >= kSequenzaMassima) {
    sequenza_.clear();
    return;
  }
  sequenza_ += carattere;
  const std::string_view lettura = kLetturaStato;
  if (!std::string_view(sequenza_).ends_with(lettura)) return;
  sequenza_.clear();
  scriviTutto(cassa_, std::string(lettura) + premi_(std::string(lettura)));
}

}  // namespace ecrsim
