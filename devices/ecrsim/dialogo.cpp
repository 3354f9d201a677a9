#include "ecrsim/dialogo.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "ecrcom/codici.h"
#include "ecrsim/tasti.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

using namespace ecrcom;

constexpr std::chrono::hours kSempre{24 * 365};
constexpr std::size_t kByteSpazzatura = 256;
/// What a file that is handed over too long has behind its end.
constexpr std::size_t kByteInPiu = 100;
constexpr std::uint8_t kByteAlieno = 0x55;

std::vector<std::uint8_t> tramaRisposta(std::uint8_t modo, const Risposta& risposta) {
  Intestazione testa;
  testa.tipo = Tipo::Risposta;
  testa.modo = modo;
  testa.codice = risposta.codice;
  return componi(testa, risposta.dati);
}

void falsaLunghezza(Cosa cosa, std::vector<std::uint8_t>& dati) {
  if (cosa == Cosa::FileCorto)
    dati.resize(dati.size() / 2);
  else
    dati.insert(dati.end(), std::min(kByteInPiu, kByteMassimi - dati.size()), kByteAlieno);
}

}  // namespace

void Dialogo::conduci() {
  while (servi()) continue;
}

/// One frame; whether the connection goes on.
bool Dialogo::servi() {
  if (attendi(presa_, POLLIN, std::nullopt) != Esito::Fatto) return false;
  scadenza_ = fra(registratore_.attesa());
  ByteIntestazione testa;
  if (ricevi(presa_, testa, scadenza_, true) != Esito::Fatto) return false;
  const std::optional<Intestazione> letta = leggiIntestazione(testa);
  if (!letta) return false;
  Trama trama{*letta, std::move(deposito_)};
  const bool continua = servi(testa, trama);
  deposito_ = std::move(trama.dati);
  return continua;
}

bool Dialogo::servi(const ByteIntestazione& testa, Trama& trama) {
  if (trama.intestazione.tipo == Tipo::Comando) return comando(testa, trama);
  if (!completa(testa, trama)) return false;
  if (trama.intestazione.tipo == Tipo::ApriTasti) return (tastiAperti_ = rispondi(0, {}));
  if (trama.intestazione.tipo == Tipo::Tasti) return tasti({trama.dati.begin(), trama.dati.end()});
  return false;
}

bool Dialogo::comando(const ByteIntestazione& testa, Trama& trama) {
  const Intestazione& cosa = trama.intestazione;
  if (const std::optional<Guasto> guasto = registratore_.guasto(cosa.modo, cosa.nome))
    return guasta(*guasto, testa, trama);
  if (!completa(testa, trama)) return false;
  return rispondi(cosa.modo, registratore_.esegui(cosa.modo, cosa.nome, trama.dati));
}

/// A command that goes wrong. Only the kinds that let the work be done reach the memory.
bool Dialogo::guasta(const Guasto& guasto, const ByteIntestazione& testa, Trama& trama) {
  const Intestazione& cosa = trama.intestazione;
  const bool invio = cosa.modo == ECR_SEND_MODE;
  if (guasto.cosa == Cosa::TaglioDentro && invio) {
    std::vector<std::uint8_t> meta(cosa.lunghezza / 2);
    if (ricevi(presa_, meta, scadenza_) == Esito::Fatto)
      registratore_.annota(cosa.modo, cosa.nome, meta.size());
    return false;
  }
  if (!completa(testa, trama)) return false;
  switch (guasto.cosa) {
    case Cosa::Codice:
      registratore_.annota(cosa.modo, cosa.nome, trama.dati.size());
      return rispondi(cosa.modo, {static_cast<std::int16_t>(guasto.codice), {}});
    case Cosa::Silenzio:
      registratore_.annota(cosa.modo, cosa.nome, trama.dati.size());
      aspettaFine();
      return false;
    case Cosa::TaglioPrima:
      registratore_.annota(cosa.modo, cosa.nome, trama.dati.size());
      return false;
    case Cosa::Spazzatura:
      registratore_.annota(cosa.modo, cosa.nome, trama.dati.size());
      manda(std::vector<std::uint8_t>(kByteSpazzatura, kByteAlieno));
      aspettaFine();
      return false;
    default:
      return guastaDati(guasto, trama);
  }
}

/// The work is done, or in mode 6 done with what the till took for the file; then the answer goes wrong.
bool Dialogo::guastaDati(const Guasto& guasto, Trama& trama) {
  const Intestazione& cosa = trama.intestazione;
  const bool lunghezza = guasto.cosa == Cosa::FileCorto || guasto.cosa == Cosa::FileLungo;
  if (lunghezza && cosa.modo == ECR_SEND_MODE) falsaLunghezza(guasto.cosa, trama.dati);
  Risposta risposta = registratore_.esegui(cosa.modo, cosa.nome, trama.dati);
  if (guasto.cosa == Cosa::TaglioDopo) return false;
  if (lunghezza) {
    if (risposta.codice == kFatto && cosa.modo != ECR_SEND_MODE) falsaLunghezza(guasto.cosa, risposta.dati);
    return rispondi(cosa.modo, risposta);
  }
  const std::vector<std::uint8_t> intera = tramaRisposta(cosa.modo, risposta);
  manda(Byte(intera).first(intera.size() / 2));
  return false;
}

bool Dialogo::tasti(const std::string& sequenza) {
  if (!tastiAperti_) return false;
  const EsitoTasti esito = premi(registratore_, sequenza);
  if (!rispondi(0, {esito.codice, {}})) return false;
  Intestazione testa;
  testa.tipo = Tipo::RispostaTasti;
  for (Byte resto = byteDi(esito.testo); !resto.empty();) {
    const Byte blocco = resto.first(std::min(resto.size(), kTastiMassimi));
    if (!manda(componi(testa, blocco))) return false;
    resto = resto.subspan(blocco.size());
  }
  return true;
}

bool Dialogo::rispondi(std::uint8_t modo, const Risposta& risposta) const {
  return manda(tramaRisposta(modo, risposta));
}

bool Dialogo::manda(Byte byte) const {
  return spedisci(presa_, byte, fra(registratore_.attesa())) == Esito::Fatto;
}

bool Dialogo::completa(const ByteIntestazione& testa, Trama& trama) const {
  return riceviDati(presa_, testa, scadenza_, trama) == Esito::Fatto;
}

/// Holds the line until the other side has had enough.
void Dialogo::aspettaFine() const {
  std::array<std::uint8_t, 256> resto;
  std::size_t quanti = 0;
  while (riceviQualcosa(presa_, resto, fra(kSempre), quanti) == Esito::Fatto) continue;
}

}  // namespace ecrsim
