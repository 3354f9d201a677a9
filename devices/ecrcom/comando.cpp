#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "ecrcom/attese.h"
#include "ecrcom/codice_esito.h"
#include "ecrcom/file_intero.h"
#include "platform/ecrcom/ecrcom.h"

namespace {

using namespace ecrcom;

std::string testoDi(const char* testo) {
  return testo == nullptr ? std::string() : std::string(testo);
}

/// A name in the current folder, and nothing that leads out of it.
bool nomeBuono(const std::string& nome) {
  return !nome.empty() && nome.size() <= kNomeMassimo && nome != "." && nome != ".." &&
         nome.find_first_of("/\\") == std::string::npos;
}

/// Leaves room for the header in front.
std::int16_t leggiDaInviare(const std::string& nome, std::vector<std::uint8_t>& byte) {
  switch (leggiFile(nome, byte, kByteIntestazione)) {
    case EsitoFile::Fatto:
      return kFatto;
    case EsitoFile::TroppoGrande:
      return kFileTroppoGrande;
    default:
      return kFileLocaleAssente;
  }
}

bool rispondeA(const Intestazione& risposta, std::uint8_t modo) {
  return risposta.tipo == Tipo::Risposta && risposta.modo == modo;
}

/// One command, one connection. A reply that comes is whole and of this command.
std::int16_t scambia(in_addr verso, const std::vector<std::uint8_t>& comando, std::uint8_t modo,
                     Trama& risposta) {
  Presa presa;
  const Esito connesso = connetti(verso, fra(attesaConnessione()), presa);
  if (connesso != Esito::Fatto) return codiceDi(connesso);
  const Scadenza scadenza = fra(attesaRisposta());
  const Esito spedito = spedisci(presa, comando, scadenza);
  // A till that refuses a file before it has read it answers and hangs up: its answer says more than the cut.
  if (spedito != Esito::Fatto && spedito != Esito::Tagliato) return codiceDi(spedito);
  const Esito ricevuto = riceviTrama(presa, scadenza, risposta);
  if (ricevuto != Esito::Fatto) return codiceDi(ricevuto);
  return rispondeA(risposta.intestazione, modo) ? risposta.intestazione.codice : kRispostaIncomprensibile;
}

/// Over the blanks, without a NUL: what lies behind stays blank.
void copiaRisposta(const std::vector<std::uint8_t>& dati, char* buffer, std::int32_t lunghezza) {
  if (buffer == nullptr || lunghezza <= 0 || dati.empty()) return;
  std::memcpy(buffer, dati.data(), std::min(dati.size(), static_cast<std::size_t>(lunghezza)));
}

std::int16_t esegui(const std::string& ip, const std::string& nome, std::uint8_t modo, Trama& risposta) {
  const bool conFile = modo == ECR_SEND_MODE || modo == ECR_FETCH_MODE;
  const std::optional<in_addr> verso = indirizzo(ip);
  if (!verso) return kIndirizzoErrato;
  if (conFile && !nomeBuono(nome)) return kNomeFileErrato;
  // Kept for the next call: a fresh quarter of a megabyte costs as much as sending it over the loopback.
  static thread_local std::vector<std::uint8_t> comando;
  comando.resize(kByteIntestazione);
  if (modo == ECR_SEND_MODE) {
    const std::int16_t letto = leggiDaInviare(nome, comando);
    if (letto != kFatto) return letto;
  }
  Intestazione testa;
  testa.modo = modo;
  if (conFile) testa.nome = nome;
  intesta(testa, comando);
  const std::int16_t codice = scambia(*verso, comando, modo, risposta);
  if (codice != kFatto || modo != ECR_FETCH_MODE) return codice;
  return sostituisciFile(nome, risposta.dati, true) == EsitoFile::Fatto ? kFatto : kFileLocaleNonScritto;
}

}  // namespace

int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length) try {
  if (mode < ECR_INFO_MODE || mode > ECR_FISCAL_CLOSURE_MODE) return kComandoSconosciuto;
  Trama risposta;
  const std::int16_t codice = esegui(testoDi(ip), testoDi(file), static_cast<std::uint8_t>(mode), risposta);
  if (mode != ECR_SEND_MODE && mode != ECR_FETCH_MODE && codice == kFatto)
    copiaRisposta(risposta.dati, buffer, buffer_length);
  return codice;
} catch (const std::bad_alloc&) {
  return kRisorseEsaurite;
} catch (...) {
  return kRispostaIncomprensibile;
}

void ecr_get_err(int16_t code, char* text) {
  if (text == nullptr) return;
  const char* const testo = messaggio(code);
  std::memcpy(text, testo, std::strlen(testo) + 1);
}
