#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "ecrcom/trama.h"

namespace {

using namespace ecrcom;

void verifica(bool vero) {
  if (!vero) std::abort();
}

/// What is read as a frame must be the very bytes that its fields make, and must begin as frames do.
void rilegge(Byte byte) {
  const std::optional<TramaLetta> letta = leggiTrama(byte);
  if (!letta) return;
  verifica(puoEssereTrama(byte));
  verifica(letta->lunghezza <= byte.size());
  verifica(letta->trama.dati.size() == letta->trama.intestazione.lunghezza);
  verifica(letta->trama.intestazione.nome.size() <= kNomeMassimo);
  const std::vector<std::uint8_t> rifatta = componi(letta->trama.intestazione, letta->trama.dati);
  verifica(std::equal(rifatta.begin(), rifatta.end(), byte.begin(), byte.first(letta->lunghezza).end()));
}

/// A frame made of the bytes: it must be read back, and no longer once one of its bytes has changed.
void compone(Byte byte) {
  constexpr std::size_t kScelte = 2;
  if (byte.size() < kScelte) return;
  Intestazione testa;
  testa.tipo = static_cast<Tipo>(1 + byte[0] % 5);
  testa.modo = byte[1];
  const std::size_t lungo = std::min<std::size_t>(byte[0] % (kNomeMassimo + 1), byte.size() - kScelte);
  const Byte nome = byte.subspan(kScelte, lungo);
  if (std::find(nome.begin(), nome.end(), std::uint8_t{0}) == nome.end())
    testa.nome.assign(nome.begin(), nome.end());
  const Byte resto = byte.subspan(kScelte);
  std::vector<std::uint8_t> trama =
      componi(testa, resto.first(std::min({resto.size(), kTastiMassimi, datiMassimi(testa)})));
  verifica(leggiTrama(trama).has_value());
  trama[byte[1] % trama.size()] ^= 1U;
  verifica(!leggiTrama(trama).has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t lunghezza) {
  rilegge({dati, lunghezza});
  compone({dati, lunghezza});
  return 0;
}
