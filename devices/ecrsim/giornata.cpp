#include "ecrsim/giornata.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <random>
#include <span>
#include <stdexcept>
#include <string>

#include "config/immagine.h"
#include "ecrcom/codici.h"
#include "ecrsim/file_noti.h"

namespace ecrsim {
namespace {

constexpr std::uint32_t kRigheMassime = 8;
constexpr std::uint32_t kPezziMassimi = 6;
/// One line in so many is discounted, by so much in the hundred.
constexpr std::uint32_t kUnoScontoSu = 10;
constexpr std::int64_t kPercentoSconto = 10;
/// Where the three arrays of venduto.bin begin.
constexpr std::size_t kImporti = 0;
constexpr std::size_t kPezzi = kPosti * 4;
constexpr std::size_t kSconti = 2 * kPosti * 4;
static_assert(kPosti == config::kNumeroPLU);

struct Articolo {
  std::size_t posto;
  std::string descrizione;
  std::int32_t prezzo;
};

struct Riga {
  const Articolo* articolo;
  std::int32_t pezzi;
  std::int64_t importo;
  std::int64_t sconto;
};

std::int32_t intero(ecrcom::Byte byte, std::size_t inizio) {
  std::uint32_t valore = 0;
  for (std::size_t i = 4; i > 0; --i) valore = valore << 8U | byte[inizio + i - 1];
  return static_cast<std::int32_t>(valore);
}

void aggiungi(std::span<std::uint8_t> byte, std::size_t inizio, std::int64_t quanto) {
  using Limiti = std::numeric_limits<std::int32_t>;
  const std::int64_t somma =
      std::clamp<std::int64_t>(intero(byte, inizio) + quanto, Limiti::min(), Limiti::max());
  for (std::size_t i = 0; i < 4; ++i)
    byte[inizio + i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(somma) >> 8U * i);
}

std::string testo(ecrcom::Byte record, const config::Campo& campo) {
  const auto inizio = record.begin() + static_cast<std::ptrdiff_t>(campo.inizio);
  return {inizio, std::find(inizio, inizio + static_cast<std::ptrdiff_t>(campo.larghezza), std::uint8_t{0})};
}

std::vector<Articolo> articoli(ecrcom::Byte byte) {
  std::vector<Articolo> trovati;
  const std::size_t quanti = std::min(byte.size() / config::kBytePLU, kPosti);
  for (std::size_t posto = 0; posto < quanti; ++posto) {
    const ecrcom::Byte record = byte.subspan(posto * config::kBytePLU, config::kBytePLU);
    std::string descrizione = testo(record, config::plu::kDescrizione);
    if (descrizione.empty() && testo(record, config::plu::kCodiceEAN).empty()) continue;
    trovati.push_back({posto, std::move(descrizione), intero(record, config::plu::kPrezzo.inizio)});
  }
  return trovati;
}

/// The generator's numbers are fixed by the standard; its distributions are not, hence the remainders.
Riga batti(std::mt19937& caso, const std::vector<Articolo>& articoli) {
  const Articolo& articolo = articoli[caso() % articoli.size()];
  const auto pezzi = static_cast<std::int32_t>(1 + caso() % kPezziMassimi);
  const std::int64_t importo = std::int64_t{articolo.prezzo} * pezzi;
  const std::int64_t sconto = caso() % kUnoScontoSu == 0 ? importo * kPercentoSconto / 100 : 0;
  return {&articolo, pezzi, importo, sconto};
}

void conta(std::span<std::uint8_t> venduto, const Riga& riga) {
  const std::size_t contatore = riga.articolo->posto * 4;
  aggiungi(venduto, kImporti + contatore, riga.importo);
  aggiungi(venduto, kPezzi + contatore, riga.pezzi);
  aggiungi(venduto, kSconti + contatore, riga.sconto);
}

std::string euro(std::int64_t centesimi) {
  std::array<char, 32> testo;
  const std::int64_t assoluto = centesimi < 0 ? -centesimi : centesimi;
  std::snprintf(testo.data(), testo.size(), "%s%lld,%02lld", centesimi < 0 ? "-" : "",
                static_cast<long long>(assoluto / 100), static_cast<long long>(assoluto % 100));
  return testo.data();
}

std::string stampa(const Riga& riga) {
  std::string testo = "  " + std::to_string(riga.pezzi) + " x " + riga.articolo->descrizione + "  " +
                      euro(riga.articolo->prezzo) + "  " + euro(riga.importo) + "\r\n";
  if (riga.sconto != 0) testo += "    SCONTO  -" + euro(riga.sconto) + "\r\n";
  return testo;
}

std::vector<std::uint8_t> contatori(const Memoria& memoria) {
  std::vector<std::uint8_t> venduto;
  if (memoria.leggi(kFileVenduto, venduto) != ecrcom::kFatto) venduto.clear();
  venduto.resize(kByteVenduto);
  return venduto;
}

/// One receipt: counts it, prints it, returns what its lines come to before discounts.
std::int64_t scontrino(std::mt19937& caso, const std::vector<Articolo>& articoli,
                       std::span<std::uint8_t> venduto, std::string& giornale) {
  std::int64_t lordo = 0;
  std::int64_t sconti = 0;
  for (std::uint32_t righe = 1 + caso() % kRigheMassime; righe > 0; --righe) {
    const Riga riga = batti(caso, articoli);
    conta(venduto, riga);
    giornale += stampa(riga);
    lordo += riga.importo;
    sconti += riga.sconto;
  }
  giornale += "  TOTALE  " + euro(lordo - sconti) + "\r\n";
  return lordo;
}

}  // namespace

std::int64_t vendi(const Memoria& memoria, int scontrini, std::uint32_t seme) {
  std::vector<std::uint8_t> archivio;
  if (memoria.leggi(kFilePlu, archivio) != ecrcom::kFatto) return 0;
  const std::vector<Articolo> inVendita = articoli(archivio);
  if (inVendita.empty() || scontrini <= 0) return 0;
  std::vector<std::uint8_t> venduto = contatori(memoria);
  std::mt19937 caso(seme);
  std::string giornale;
  std::int64_t incasso = 0;
  for (int numero = 1; numero <= scontrini; ++numero) {
    giornale += "SCONTRINO " + std::to_string(numero) + "\r\n";
    incasso += scontrino(caso, inVendita, venduto, giornale);
  }
  if (memoria.scrivi(kFileVenduto, venduto) != ecrcom::kFatto || !memoria.annota(kFileGiornale, giornale))
    throw std::runtime_error("memoria della cassa non scrivibile");
  return incasso;
}

}  // namespace ecrsim
