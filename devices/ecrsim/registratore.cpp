#include "ecrsim/registratore.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "ecrcom/codici.h"
#include "ecrsim/file_noti.h"
#include "ecrsim/giornata.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

/// States in which a till lets its memory be touched, and those in which it closes its day.
constexpr std::string_view kStatiTrasferimento = "IP";
constexpr std::string_view kStatiChiusura = "IPA";
constexpr std::size_t kInfoMassima = 256;
constexpr std::string_view kRispostaFatto = "OK";

std::vector<std::uint8_t> byteDi(std::string_view testo) {
  const ecrcom::Byte byte = ecrcom::byteDi(testo);
  return {byte.begin(), byte.end()};
}

}  // namespace

Registratore::Registratore(Opzioni opzioni)
    : opzioni_(std::move(opzioni)), memoria_(opzioni_.cartella), guasti_(opzioni_.guasti) {}

std::optional<Guasto> Registratore::guasto(int modo, const std::string& file) {
  const std::lock_guard guardia(serratura_);
  const auto trovato = std::find_if(guasti_.begin(), guasti_.end(), [&](const Guasto& uno) {
    return uno.modo == modo && (uno.file.empty() || uno.file == file);
  });
  if (trovato == guasti_.end()) return std::nullopt;
  const Guasto questo = *trovato;
  if (trovato->volte > 0 && --trovato->volte == 0) guasti_.erase(trovato);
  return questo;
}

void Registratore::annota(int modo, const std::string& file, std::size_t byte) {
  const std::lock_guard guardia(serratura_);
  chiamate_.push_back({modo, file, byte});
}

Risposta Registratore::esegui(int modo, const std::string& file, ecrcom::Byte dati) {
  const std::lock_guard guardia(serratura_);
  Risposta risposta{permesso(modo), {}};
  if (risposta.codice == ecrcom::kFatto) risposta = lavora(modo, file, dati);
  const std::size_t byte = modo == ECR_FETCH_MODE ? risposta.dati.size() : dati.size();
  chiamate_.push_back({modo, file, byte});
  return risposta;
}

std::int16_t Registratore::permesso(int modo) const {
  if (modo < ECR_INFO_MODE || modo > ECR_FISCAL_CLOSURE_MODE) return ecrcom::kComandoSconosciuto;
  // Asked for before anything else, and by a PC that does not know whether one is open.
  if (modo == ECR_INFO_MODE || modo == ECR_CLOSE_MODE) return ecrcom::kFatto;
  const bool chiusura = modo == ECR_FISCAL_CLOSURE_MODE;
  const std::string_view stati = chiusura ? kStatiChiusura : kStatiTrasferimento;
  if (stati.find(opzioni_.stato) == std::string_view::npos) return ecrcom::kStatoErrato;
  const bool vuoleChiuso = chiusura || modo == ECR_OPEN_MODE;
  if (vuoleChiuso && aperto_) return ecrcom::kTrasferimentoAperto;
  if (!vuoleChiuso && !aperto_) return ecrcom::kTrasferimentoChiuso;
  return ecrcom::kFatto;
}

Risposta Registratore::lavora(int modo, const std::string& file, ecrcom::Byte dati) {
  std::int16_t codice = ecrcom::kFatto;
  switch (modo) {
    case ECR_INFO_MODE:
      return info();
    case ECR_OPEN_MODE:
    case ECR_CLOSE_MODE:
      aperto_ = modo == ECR_OPEN_MODE;
      break;
    case ECR_RESET_MODE:
      codice = azzeraProgrammazione();
      break;
    case ECR_CLEAR_INVOICES_MODE:
      codice = memoria_.azzera(kFileFatture, kByteFatture);
      break;
    case ECR_CLEAR_SALES_MODE:
      codice = memoria_.azzera(kFileVenduto, kByteVenduto);
      break;
    case ECR_SEND_MODE:
      return {prendiFile(file, dati), {}};
    case ECR_FETCH_MODE:
      return consegnaFile(file);
    default:
      opzioni_.fiscale = 0;
      break;
  }
  return codice == ecrcom::kFatto ? Risposta{codice, byteDi(kRispostaFatto)} : Risposta{codice, {}};
}

/// Positions, not keys, are what the PC goes by: software 1, size class 2, memory card 3, state 11, model 12,
/// fiscal data not closed 17.
Risposta Registratore::info() const {
  std::string testo = opzioni_.rispostaInfo;
  if (testo.empty()) {
    testo = "VER=" + opzioni_.versione + ",BMP=" + opzioni_.bitmap + ",MMC=" + opzioni_.mmc +
            ",PLU=5000,REP=80,IVA=8,VAL=4,OPE=10,CLI=250,FAT=1000,STATO=" + opzioni_.stato +
            ",MOD=" + opzioni_.modello +
            ",MATR=0000001,CASSA=1,LAN=1,COM=2,FISC=" + std::to_string(opzioni_.fiscale) + ",DGFE=1,PROT=1";
    testo.resize(std::min(testo.size(), kInfoMassima));
  }
  return {ecrcom::kFatto, byteDi(testo)};
}

std::int16_t Registratore::azzeraProgrammazione() const {
  for (const FileNoto& file : fileNoti()) {
    if (!file.programmazione) continue;
    const std::int16_t codice = memoria_.azzera(file.nome, file.byte(opzioni_.bitmap));
    if (codice != ecrcom::kFatto) return codice;
  }
  return ecrcom::kFatto;
}

std::int16_t Registratore::prendiFile(const std::string& file, ecrcom::Byte dati) const {
  const FileNoto* noto = fileNoto(file);
  if (noto == nullptr || !noto->siInvia) return ecrcom::kFileSconosciuto;
  if (!noto->accetta(dati.size(), opzioni_.bitmap)) return ecrcom::kLunghezzaErrata;
  const std::size_t letti = noto->byte(opzioni_.bitmap);
  return memoria_.scrivi(file, letti == 0 ? dati : dati.first(letti));
}

/// A file that someone laid into the memory goes out as it is, whatever its length.
Risposta Registratore::consegnaFile(const std::string& file) const {
  const FileNoto* noto = fileNoto(file);
  if (noto == nullptr || !noto->siRiceve) return {ecrcom::kFileSconosciuto, {}};
  Risposta risposta;
  risposta.codice = memoria_.leggi(file, risposta.dati);
  if (risposta.codice != ecrcom::kFatto) risposta.dati.clear();
  return risposta;
}

/// Kind, maker, serial number; fiscal, receipt closed, fiscal; two receipt numbers; memory card and fiscal
/// memory in per cent; printer and paper in order, card present.
std::string Registratore::recordStato() const {
  return "ECRSIM0000001FCF000000000000000 000 OOP";
}

std::vector<Chiamata> Registratore::chiamate() const {
  const std::lock_guard guardia(serratura_);
  return chiamate_;
}

void Registratore::dimenticaChiamate() {
  const std::lock_guard guardia(serratura_);
  chiamate_.clear();
}

void Registratore::stato(char lettera) {
  const std::lock_guard guardia(serratura_);
  opzioni_.stato = lettera;
}

void Registratore::guasti(std::vector<Guasto> guasti) {
  const std::lock_guard guardia(serratura_);
  guasti_ = std::move(guasti);
}

void Registratore::rispostaInfo(std::string testo) {
  const std::lock_guard guardia(serratura_);
  opzioni_.rispostaInfo = std::move(testo);
}

bool Registratore::trasferimentoAperto() const {
  const std::lock_guard guardia(serratura_);
  return aperto_;
}

std::int64_t Registratore::giornata(int scontrini, std::uint32_t seme) {
  const std::lock_guard guardia(serratura_);
  return vendi(memoria_, scontrini, seme);
}

}  // namespace ecrsim
