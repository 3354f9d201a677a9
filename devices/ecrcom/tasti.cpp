#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <string>

#include "ecrcom/attese.h"
#include "ecrcom/codice_esito.h"
#include "platform/ecrcom/ecrcom.h"

// The key-sequence connections: the one kind that stays open from call to call.
namespace {

using namespace ecrcom;

constexpr std::size_t kCollegamenti = 16;
/// Blocks nobody has asked for yet; a till that goes on beyond is cut off.
constexpr std::size_t kByteInAttesa = std::size_t{1024} * 1024;
constexpr std::int32_t kDecimiMassimi = 6000;
constexpr std::chrono::milliseconds kDecimo{100};

class Collegamento {
 public:
  explicit Collegamento(Presa presa) : presa_(std::move(presa)) {}

  std::int16_t manda(Tipo tipo, std::string_view testo) {
    Intestazione testa;
    testa.tipo = tipo;
    const Scadenza scadenza = fra(attesaRisposta());
    const Esito spedito = spedisci(presa_, componi(testa, byteDi(testo)), scadenza);
    return spedito == Esito::Fatto ? risposta(scadenza) : interrompi(codiceDi(spedito));
  }

  /// Bytes copied, or a code below 0.
  std::int32_t prendi(std::span<char> buffer, Scadenza scadenza) {
    while (testi_.empty()) {
      Trama trama;
      const std::int16_t codice = prossima(scadenza, trama);
      if (codice != kFatto) return -codice;
      if (trama.intestazione.tipo != Tipo::RispostaTasti) return -kRispostaIncomprensibile;
      conserva(trama);
    }
    return copiaPrimo(buffer);
  }

 private:
  /// The till's code for what was just sent. Blocks that were already on their way are kept for later.
  std::int16_t risposta(Scadenza scadenza) {
    for (;;) {
      Trama trama;
      const std::int16_t codice = prossima(scadenza, trama);
      if (codice != kFatto) return interrompi(codice);
      if (trama.intestazione.tipo == Tipo::Risposta) return trama.intestazione.codice;
      if (trama.intestazione.tipo != Tipo::RispostaTasti || !conserva(trama))
        return interrompi(kRispostaIncomprensibile);
    }
  }

  /// Hangs up: an answer that came after all would be taken for the next sequence's.
  std::int16_t interrompi(std::int16_t codice) {
    presa_.chiudi();
    return codice;
  }

  bool conserva(const Trama& trama) {
    if (!trama.dati.empty()) testi_.push_back(trama.dati);
    inAttesa_ += trama.dati.size();
    return inAttesa_ <= kByteInAttesa;
  }

  /// One block a call: the end of a dump is looked for at the end of a block. What does not fit stays.
  std::int32_t copiaPrimo(std::span<char> buffer) {
    std::vector<std::uint8_t>& primo = testi_.front();
    const std::size_t quanti = std::min(buffer.size(), primo.size());
    std::memcpy(buffer.data(), primo.data(), quanti);
    primo.erase(primo.begin(), primo.begin() + static_cast<std::ptrdiff_t>(quanti));
    if (primo.empty()) testi_.erase(testi_.begin());
    inAttesa_ -= quanti;
    return static_cast<std::int32_t>(quanti);
  }

  /// A wait that ends in the middle of a frame keeps what has come for the next one.
  std::int16_t prossima(Scadenza scadenza, Trama& trama) {
    while (!estrai(trama)) {
      if (!potrebbeDiventarlo()) return kRispostaIncomprensibile;
      std::array<std::uint8_t, 4096> pezzo;
      std::size_t quanti = 0;
      const Esito esito = riceviQualcosa(presa_, pezzo, scadenza, quanti);
      if (esito != Esito::Fatto) return codiceDi(esito);
      arrivati_.insert(arrivati_.end(), pezzo.begin(), pezzo.begin() + static_cast<std::ptrdiff_t>(quanti));
    }
    return kFatto;
  }

  bool estrai(Trama& trama) {
    std::optional<TramaLetta> letta = leggiTrama(arrivati_);
    if (!letta) return false;
    trama = std::move(letta->trama);
    arrivati_.erase(arrivati_.begin(), arrivati_.begin() + static_cast<std::ptrdiff_t>(letta->lunghezza));
    return true;
  }

  /// Whether what has arrived is the beginning of a frame that is not there whole yet.
  bool potrebbeDiventarlo() const {
    if (!puoEssereTrama(arrivati_)) return false;
    if (arrivati_.size() < kByteIntestazione) return true;
    ByteIntestazione testa;
    std::copy_n(arrivati_.begin(), kByteIntestazione, testa.begin());
    const std::optional<Intestazione> letta = leggiIntestazione(testa);
    return letta && letta->lunghezza <= kTastiMassimi &&
           arrivati_.size() < kByteIntestazione + letta->lunghezza;
  }

  Presa presa_;
  std::vector<std::uint8_t> arrivati_;
  std::vector<std::vector<std::uint8_t>> testi_;
  std::size_t inAttesa_ = 0;
};

std::mutex serratura;
std::array<std::shared_ptr<Collegamento>, kCollegamenti> collegamenti;

/// The connection of a handle, or null.
std::shared_ptr<Collegamento> collegamento(std::int32_t maniglia) {
  const std::lock_guard guardia(serratura);
  if (maniglia < 1 || static_cast<std::size_t>(maniglia) > kCollegamenti) return nullptr;
  return collegamenti[static_cast<std::size_t>(maniglia) - 1];
}

std::int32_t registra(std::shared_ptr<Collegamento> nuovo) {
  const std::lock_guard guardia(serratura);
  const auto libero = std::find(collegamenti.begin(), collegamenti.end(), nullptr);
  if (libero == collegamenti.end()) return -kTroppiCollegamenti;
  *libero = std::move(nuovo);
  return static_cast<std::int32_t>(libero - collegamenti.begin()) + 1;
}

std::int32_t apri(const char* ip) {
  const std::optional<in_addr> verso = ip == nullptr ? std::nullopt : indirizzo(ip);
  if (!verso) return -kIndirizzoErrato;
  Presa presa;
  const Esito connesso = connetti(*verso, fra(attesaConnessione()), presa);
  if (connesso != Esito::Fatto) return -codiceDi(connesso);
  auto nuovo = std::make_shared<Collegamento>(std::move(presa));
  const std::int16_t codice = nuovo->manda(Tipo::ApriTasti, {});
  return codice == kFatto ? registra(std::move(nuovo)) : -std::abs(codice);
}

}  // namespace

int32_t ecr_conn_xonxoff_ntw(char* ip) try { return apri(ip); } catch (...) {
  return -kRisorseEsaurite;
}

int16_t ecr_disc_xonxoff_ntw(int32_t handle) {
  const std::lock_guard guardia(serratura);
  if (handle < 1 || static_cast<std::size_t>(handle) > kCollegamenti) return kManigliaErrata;
  std::shared_ptr<Collegamento>& posto = collegamenti[static_cast<std::size_t>(handle) - 1];
  if (posto == nullptr) return kManigliaErrata;
  posto.reset();
  return kFatto;
}

int16_t ecr_send_xonxoff_ntw(int32_t handle, char* text) try {
  const std::shared_ptr<Collegamento> aperto = collegamento(handle);
  if (aperto == nullptr) return kManigliaErrata;
  if (text == nullptr || std::strlen(text) > kTastiMassimi) return kTestoErrato;
  return aperto->manda(Tipo::Tasti, text);
} catch (...) {
  return kRisorseEsaurite;
}

int32_t ecr_recv_xonxoff_ntw(int32_t handle, char* buffer, int32_t length, int32_t timeout) try {
  const std::shared_ptr<Collegamento> aperto = collegamento(handle);
  if (aperto == nullptr || buffer == nullptr || length <= 0) return -kManigliaErrata;
  const auto attesa = kDecimo * std::clamp(timeout, 0, kDecimiMassimi);
  return aperto->prendi({buffer, static_cast<std::size_t>(length)}, fra(attesa));
} catch (...) {
  return -kRisorseEsaurite;
}
