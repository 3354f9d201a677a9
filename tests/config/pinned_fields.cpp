#include "config/pinned_fields.h"

#include <algorithm>
#include <string_view>

#include "config/image.h"
#include "config/narrow_lines.h"

using namespace config;

namespace {

constexpr auto kF = Tipo::Flag;
constexpr auto kB = Tipo::Byte;
constexpr auto kI = Tipo::Intero32;
constexpr auto kU = Tipo::SenzaSegno32;
constexpr auto kT = Tipo::CampoTesto;
constexpr auto kR = Tipo::Riservato;

std::vector<Posto> postiDeiParametri() {
  using namespace parametri;
  return {
      {kTipoPercentualeA, "tipo percentuale A", 0, 1, kF},
      {kPercentualeA, "percentuale A", 1, 4, kI},
      {kNumeroCassa, "numero cassa", 5, 1, kB},
      {kObbligoOperatore, "obbligo operatore", 6, 1, kF},
      {kObbligoSubtotale, "obbligo subtotale", 7, 1, kF},
      {kAzzeramentoGestionale, "azzeramento gestionale", 8, 1, kF},
      {kQuantitaUnitaria, "quantità unitaria", 9, 1, kF},
      {kNumeroArticoli, "numero articoli", 10, 1, kF},
      {kVenditaInCentesimi, "vendita in centesimi", 11, 1, kF},
      {kDatario, "datario", 12, 1, kF},
      {kVelocitaStampante, "velocità stampante", 13, 1, kB},
      {kTaglierina, "taglierina", 14, 1, kF},
      {kInfoGestionale, "info gestionale", 15, 1, kF},
      {kApparatoCOM1, "apparato su COM 1", 16, 1, kB},
      {kVelocitaCOM1, "velocità COM 1", 17, 1, kB},
      {kEchoCOM1, "echo COM 1", 18, 1, kF},
      {kApparatoCOM3, "apparato su COM 3", 19, 1, kB},
      {kVelocitaCOM3, "velocità COM 3", 20, 1, kB},
      {kEchoCOM3, "echo COM 3", 21, 1, kF},
      {kDataRevisione, "data revisione", 22, 4, kU},
      {kTxFooter, "Tx Footer", 26, 1, kF},
      {kSubtender.campo(0), "subtender", 27, 25, kT, 10},
      {kSubtender.campo(1), "subtender", 52, 25, kT, 10},
      {kSubtender.campo(2), "subtender", 77, 25, kT, 10},
      {kSubtender.campo(3), "subtender", 102, 25, kT, 10},
      {kPasswordCassa, "password apertura/chiusura cassa", 127, 7, kT, 6},
      {kModoAzzeramento, "modo azzeramento", 134, 1, kB},
      {kTempoAzzeramento, "tempo azzeramento", 135, 4, kU},
      {kTipoAzzeramento, "tipo azzeramento", 139, 1, kB},
      {kBeep, "beep", 140, 1, kF},
      {kDoppiaCopia, "doppia copia", 141, 1, kF},
      {kLineeVuote, "linee vuote", 142, 1, kB},
      {kStampaIntestazioneEsercente, "stampa intestazione esercente", 143, 1, kF},
      {kLineeCorpo, "linee del corpo", 144, 1, kB},
      {kStampaIntestazioneCliente, "stampa intestazione cliente", 145, 1, kF},
      {kAperturaCassetto, "apertura cassetto", 146, 1, kF},
      {kTipoPercentualeB, "tipo percentuale B", 147, 1, kF},
      {kPercentualeB, "percentuale B", 148, 4, kI},
      {kMassimoImporto, "massimo importo in vendita", 152, 4, kI},
      {kRepartiDaShiftare, "reparti da shiftare", 156, 1, kB},
      {kOperatorePerScontrino, "operatore per scontrino", 157, 1, kF},
      {kFatturaMensileSintetica, "fattura mensile sintetica", 158, 1, kF},
      {kPrinterAuxFatture, "printer AUX fatture", 159, 1, kB},
      {kPrinterAuxTavoli, "printer AUX tavoli", 160, 1, kB},
      {kGestioneTallon, "gestione tallon", 161, 1, kF},
      {kTallon.campo(0), "tallon", 162, 25, kT, 14},
      {kTallon.campo(1), "tallon", 187, 25, kT, 14},
      {kTallon.campo(2), "tallon", 212, 25, kT, 14},
      {kTallon.campo(3), "tallon", 237, 25, kT, 14},
      {kTallon.campo(4), "tallon", 262, 25, kT, 14},
      {kTallon.campo(5), "tallon", 287, 25, kT, 14},
      {kTallon.campo(6), "tallon", 312, 25, kT, 14},
      {kTallon.campo(7), "tallon", 337, 25, kT, 14},
      {kTestoAlternativoA, "testo alternativo percentuale A", 362, 1, kF},
      {kDescrizionePercentualeA, "descrizione percentuale A", 363, 25, kT, 24},
      {kTestoAlternativoB, "testo alternativo percentuale B", 388, 1, kF},
      {kDescrizionePercentualeB, "descrizione percentuale B", 389, 25, kT, 24},
      {kCutter, "cutter", 414, 1, kF},
      {kMark, "mark", 415, 1, kF},
      {kStampaDifferita, "stampa differita scontrino", 416, 1, kF},
      {kOraLegale, "ora legale", 417, 1, kF},
      {kRiserva, "riserva", 418, 10, kR},
  };
}

std::vector<RecordAtteso> scritti() {
  return {
      {"intestazione",
       38,
       intestazione::kByte,
       intestazione::kCampi,
       {{intestazione::kDoppiaAltezza, "doppia altezza", 0, 1, kF},
        {intestazione::kTesto, "testo", 1, 37, kT, 36}}},
      {"cortesia",
       39,
       cortesia::kByte,
       cortesia::kCampi,
       {{cortesia::kDoppiaAltezza, "doppia altezza", 0, 1, kF},
        {cortesia::kTesto, "testo", 1, 37, kT, 36},
        {cortesia::kAbilitazione, "abilitazione", 38, 1, kF}}},
      {"reparti",
       42,
       reparto::kByte,
       reparto::kCampi,
       {{reparto::kDescrizione, "descrizione", 0, 25, kT, 24},
        {reparto::kAttributi, "attributi", 25, 1, kB},
        {reparto::kPrezzo, "prezzo", 26, 4, kI},
        {reparto::kMinValore, "min valore", 30, 4, kI},
        {reparto::kMaxValore, "max valore", 34, 4, kI},
        {reparto::kSconto, "sconto", 38, 4, kI}}},
      {"plu",
       48,
       kBytePLU,
       plu::kCampi,
       {{plu::kDescrizione, "descrizione", 0, 25, kT, 24},
        {plu::kReparto, "reparto", 25, 1, kB},
        {plu::kAttributi, "attributi", 26, 1, kB},
        {plu::kPrezzo, "prezzo", 27, 4, kI},
        {plu::kCodiceEAN, "codice EAN", 31, 14, kT, 14},
        {plu::kRiserva, "riserva", 45, 3, kR}}},
      {"iva",
       29,
       iva::kByte,
       iva::kCampi,
       {{iva::kDescrizione, "descrizione", 0, 25, kT, 10}, {iva::kAliquota, "aliquota", 25, 4, kI}}},
      {"val",
       29,
       valuta::kByte,
       valuta::kCampi,
       {{valuta::kDescrizione, "descrizione", 0, 25, kT, 10}, {valuta::kCambio, "cambio", 25, 4, kI}}},
      {"operatori",
       33,
       operatore::kByte,
       operatore::kCampi,
       {{operatore::kDescrizione, "descrizione", 0, 25, kT, 10},
        {operatore::kAbilitazione, "abilitazione", 25, 1, kF},
        {operatore::kPassword, "password", 26, 7, kT, 6}}},
      {"prog_param", 428, parametri::kByte, parametri::kCampi, postiDeiParametri()},
      {"logo",
       10,
       logo::kByte,
       logo::kCampi,
       {{logo::kAbilitazione, "abilitazione", 0, 1, kF},
        {logo::kDataInizio, "data inizio", 1, 4, kU},
        {logo::kDataFine, "data fine", 5, 4, kU},
        {logo::kRiserva, "riserva", 9, 1, kR}}},
      {"negozio",
       137,
       negozio::kByte,
       negozio::kCampi,
       {{negozio::kRagioneSociale, "ragione sociale", 0, 25, kT, 24},
        {negozio::kPartitaIVA, "partita IVA", 25, 12, kT, 11},
        {negozio::kIndirizzo, "indirizzo", 37, 25, kT, 24},
        {negozio::kCitta, "città", 62, 15, kT, 14},
        {negozio::kCAP, "CAP", 77, 6, kT, 5},
        {negozio::kProvincia, "provincia", 83, 3, kT, 2},
        {negozio::kTelefono, "telefono", 86, 13, kT, 12},
        {negozio::kFax, "fax", 99, 13, kT, 12},
        {negozio::kEmail, "email", 112, 25, kT, 24}}},
      {"intestazione_corta",
       26,
       intestazione_corta::kByte,
       intestazione_corta::kCampi,
       {{intestazione_corta::kDoppiaAltezza, "doppia altezza", 0, 1, kF},
        {intestazione_corta::kPrimaLettera, "prima lettera", 1, 1, kB},
        {intestazione_corta::kRiserva, "riserva", 2, 24, kR}}},
      {"cortesia_corta",
       27,
       cortesia_corta::kByte,
       cortesia_corta::kCampi,
       {{cortesia_corta::kDoppiaAltezza, "doppia altezza", 0, 1, kF},
        {cortesia_corta::kPrimaLettera, "prima lettera", 1, 1, kB},
        {cortesia_corta::kRiserva, "riserva", 2, 24, kR},
        {cortesia_corta::kAbilitazione, "abilitazione", 26, 1, kF}}},
  };
}

}  // namespace

const std::vector<RecordAtteso>& recordAttesi() {
  static const std::vector<RecordAtteso> tutti = scritti();
  return tutti;
}

std::vector<PostoInRecord> tuttiIPosti() {
  std::vector<PostoInRecord> tutti;
  for (const RecordAtteso& record : recordAttesi())
    for (const Posto& posto : record.posti) tutti.push_back({record.nome, record.byte, posto});
  return tutti;
}

std::vector<PostoInRecord> tuttiIPosti(Tipo tipo) {
  std::vector<PostoInRecord> tutti = tuttiIPosti();
  std::erase_if(tutti, [&](const PostoInRecord& questo) { return questo.posto.tipo != tipo; });
  return tutti;
}

void PrintTo(const RecordAtteso& record, std::ostream* uscita) {
  *uscita << record.nome << ", " << record.byte << " bytes";
}

void PrintTo(const PostoInRecord& questo, std::ostream* uscita) {
  *uscita << questo.record << "/" << questo.posto.nome << " at " << questo.posto.inizio;
}

std::string nomeDelCaso(const RecordAtteso& record) {
  return record.nome;
}

std::string nomeDelCaso(const PostoInRecord& questo) {
  constexpr std::string_view kAmmessi{"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_"};
  std::string nome = questo.record + "_" + std::to_string(questo.posto.inizio) + "_" + questo.posto.nome;
  std::ranges::replace_if(
      nome, [&](char lettera) { return kAmmessi.find(lettera) == std::string_view::npos; }, '_');
  return nome;
}
