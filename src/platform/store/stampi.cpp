#include "platform/store/stampi.h"

#include <algorithm>
#include <charconv>

namespace store {

namespace {

/// Digits that fit a 64-bit integer whatever they are.
constexpr std::size_t kCifreSicure = 18;

bool cifra(char c) {
  return c >= '0' && c <= '9';
}

/// What may follow a whole number without belonging to it. Anything else goes the long way.
bool chiudeNumero(char c) {
  return std::string_view(" ,);=<>+-*/\r\n\t").find(c) != std::string_view::npos;
}

bool intero(std::string_view sorgente, std::size_t& qui, Parametro& parametro) {
  std::size_t fine = qui;
  while (fine < sorgente.size() && cifra(sorgente[fine])) ++fine;
  if (fine == qui || fine - qui > kCifreSicure) return false;
  if (fine < sorgente.size() && !chiudeNumero(sorgente[fine])) return false;
  std::from_chars(sorgente.data() + qui, sorgente.data() + fine, parametro.intero);
  qui = fine;
  return true;
}

bool testo(std::string_view sorgente, std::size_t& qui, char apice, Parametro& parametro) {
  if (qui >= sorgente.size() || sorgente[qui] != apice) return false;
  const std::size_t chiusura = sorgente.find(apice, qui + 1);
  if (chiusura == std::string_view::npos) return false;
  // A doubled quote goes on with the text.
  if (chiusura + 1 < sorgente.size() && sorgente[chiusura + 1] == apice) return false;
  parametro.testo = sorgente.substr(qui + 1, chiusura - qui - 1);
  qui = chiusura + 1;
  return true;
}

}  // namespace

bool Stampo::riempiLetterale(std::string_view sorgente, std::size_t& qui,
                             const Traduzione::Letterale& letterale) {
  Parametro& parametro = traduzione_.parametri[letterale.parametro];
  return parametro.tipo == Parametro::Tipo::Testo
             ? testo(sorgente, qui, modello_[letterale.inizio], parametro)
             : intero(sorgente, qui, parametro);
}

bool Stampo::riempi(std::string_view sorgente) {
  if (!traduzione_.ricalcabile || sorgente.find('\0') != std::string_view::npos) return false;
  const std::string_view modello = modello_;
  std::size_t qui = 0;
  std::size_t la = 0;
  for (const Traduzione::Letterale& letterale : traduzione_.letterali) {
    const std::size_t fisso = letterale.inizio - la;
    if (sorgente.substr(qui, fisso) != modello.substr(la, fisso)) return false;
    qui += fisso;
    if (!riempiLetterale(sorgente, qui, letterale)) return false;
    la = letterale.inizio + letterale.lunghezza;
  }
  return sorgente.substr(qui) == modello.substr(la);
}

void Stampo::rifai(std::string_view sorgente, const Dizionario& dizionario) {
  Traduci(sorgente, dizionario, traduzione_);
  if (traduzione_.ricalcabile) modello_ = sorgente;
}

const Traduzione& Stampi::traduci(std::string_view sorgente, const Dizionario& dizionario) {
  for (Stampo& stampo : stampi_)
    if (stampo.riempi(sorgente)) return stampo.traduzione();
  Stampo& stampo = stampi_[prossimo_];
  stampo.rifai(sorgente, dizionario);
  if (stampo.traduzione().ricalcabile) prossimo_ = (prossimo_ + 1) % stampi_.size();
  return stampo.traduzione();
}

}  // namespace store
