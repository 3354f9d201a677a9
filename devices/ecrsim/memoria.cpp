#include "ecrsim/memoria.h"

#include <fstream>

#include "ecrcom/codici.h"
#include "ecrcom/file_intero.h"

namespace ecrsim {

using ecrcom::EsitoFile;

Memoria::Memoria(const std::filesystem::path& cartella)
    : cartella_(cartella.empty() ? std::filesystem::current_path() : std::filesystem::absolute(cartella)) {
  std::filesystem::create_directories(cartella_);
}

std::int16_t Memoria::leggi(std::string_view nome, std::vector<std::uint8_t>& byte) const {
  switch (ecrcom::leggiFile(cartella_ / nome, byte)) {
    case EsitoFile::Fatto:
      return ecrcom::kFatto;
    case EsitoFile::Assente:
      return ecrcom::kFileSconosciuto;
    case EsitoFile::TroppoGrande:
      return ecrcom::kFileTroppoGrande;
    case EsitoFile::Errore:
      break;
  }
  return ecrcom::kMemoriaCassa;
}

// Not forced to the disk: what dies with this process is a simulation.
std::int16_t Memoria::scrivi(std::string_view nome, ecrcom::Byte byte) const {
  const EsitoFile esito = ecrcom::sostituisciFile(cartella_ / nome, byte, false);
  return esito == EsitoFile::Fatto ? ecrcom::kFatto : ecrcom::kMemoriaCassa;
}

std::int16_t Memoria::azzera(std::string_view nome, std::size_t byte) const {
  return scrivi(nome, std::vector<std::uint8_t>(byte));
}

bool Memoria::annota(std::string_view nome, std::string_view testo) const {
  std::ofstream uscita(cartella_ / nome, std::ios::app | std::ios::binary);
  uscita << testo << std::flush;
  return uscita.good();
}

}  // namespace ecrsim
