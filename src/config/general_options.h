#pragma once

#include <array>

#include "config/field.h"

/// The till's general options: one record.
namespace config::parametri {

/// Equal texts standing one behind the other, described by their first.
struct Serie {
  Campo primo;
  std::size_t quanti;

  /// Field `indice`, from 0.
  constexpr Campo campo(std::size_t indice) const {
    Campo questo = primo;
    questo.inizio += indice * primo.larghezza;
    return questo;
  }
};

/// Kind of percentage: 1 surcharge, 0 discount.
inline constexpr Campo kTipoPercentualeA{"tipo percentuale A", 0, 1, Tipo::Flag};
inline constexpr Campo kPercentualeA{"percentuale A", 1, 4, Tipo::Intero32};
inline constexpr Campo kNumeroCassa{"numero cassa", 5, 1, Tipo::Byte};
inline constexpr Campo kObbligoOperatore{"obbligo operatore", 6, 1, Tipo::Flag};
inline constexpr Campo kObbligoSubtotale{"obbligo subtotale", 7, 1, Tipo::Flag};
inline constexpr Campo kAzzeramentoGestionale{"azzeramento gestionale", 8, 1, Tipo::Flag};
inline constexpr Campo kQuantitaUnitaria{"quantità unitaria", 9, 1, Tipo::Flag};
inline constexpr Campo kNumeroArticoli{"numero articoli", 10, 1, Tipo::Flag};
inline constexpr Campo kVenditaInCentesimi{"vendita in centesimi", 11, 1, Tipo::Flag};
inline constexpr Campo kDatario{"datario", 12, 1, Tipo::Flag};
inline constexpr Campo kVelocitaStampante{"velocità stampante", 13, 1, Tipo::Byte};
inline constexpr Campo kTaglierina{"taglierina", 14, 1, Tipo::Flag};
inline constexpr Campo kInfoGestionale{"info gestionale", 15, 1, Tipo::Flag};
/// Device 0 to 7, speed 0 to 3.
inline constexpr Campo kApparatoCOM1{"apparato su COM 1", 16, 1, Tipo::Byte};
inline constexpr Campo kVelocitaCOM1{"velocità COM 1", 17, 1, Tipo::Byte};
inline constexpr Campo kEchoCOM1{"echo COM 1", 18, 1, Tipo::Flag};
inline constexpr Campo kApparatoCOM3{"apparato su COM 3", 19, 1, Tipo::Byte};
inline constexpr Campo kVelocitaCOM3{"velocità COM 3", 20, 1, Tipo::Byte};
inline constexpr Campo kEchoCOM3{"echo COM 3", 21, 1, Tipo::Flag};
inline constexpr Campo kDataRevisione{"data revisione", 22, 4, Tipo::SenzaSegno32};
inline constexpr Campo kTxFooter{"Tx Footer", 26, 1, Tipo::Flag};
inline constexpr Serie kSubtender{{"subtender", 27, 25, Tipo::CampoTesto, 10}, 4};
inline constexpr Campo kPasswordCassa{"password apertura/chiusura cassa", 127, 7, Tipo::CampoTesto, 6};
/// Index 0 to 2.
inline constexpr Campo kModoAzzeramento{"modo azzeramento", 134, 1, Tipo::Byte};
inline constexpr Campo kTempoAzzeramento{"tempo azzeramento", 135, 4, Tipo::SenzaSegno32};
/// Index 0 to 2.
inline constexpr Campo kTipoAzzeramento{"tipo azzeramento", 139, 1, Tipo::Byte};
inline constexpr Campo kBeep{"beep", 140, 1, Tipo::Flag};
inline constexpr Campo kDoppiaCopia{"doppia copia", 141, 1, Tipo::Flag};
/// 0 to 30.
inline constexpr Campo kLineeVuote{"linee vuote", 142, 1, Tipo::Byte};
inline constexpr Campo kStampaIntestazioneEsercente{"stampa intestazione esercente", 143, 1, Tipo::Flag};
/// 10 to 99.
inline constexpr Campo kLineeCorpo{"linee del corpo", 144, 1, Tipo::Byte};
inline constexpr Campo kStampaIntestazioneCliente{"stampa intestazione cliente", 145, 1, Tipo::Flag};
inline constexpr Campo kAperturaCassetto{"apertura cassetto", 146, 1, Tipo::Flag};
inline constexpr Campo kTipoPercentualeB{"tipo percentuale B", 147, 1, Tipo::Flag};
inline constexpr Campo kPercentualeB{"percentuale B", 148, 4, Tipo::Intero32};
inline constexpr Campo kMassimoImporto{"massimo importo in vendita", 152, 4, Tipo::Intero32};
/// 0 to 20.
inline constexpr Campo kRepartiDaShiftare{"reparti da shiftare", 156, 1, Tipo::Byte};
inline constexpr Campo kOperatorePerScontrino{"operatore per scontrino", 157, 1, Tipo::Flag};
inline constexpr Campo kFatturaMensileSintetica{"fattura mensile sintetica", 158, 1, Tipo::Flag};
/// 0 none, 5, 6 or 7.
inline constexpr Campo kPrinterAuxFatture{"printer AUX fatture", 159, 1, Tipo::Byte};
/// 0 none, 5 or 6.
inline constexpr Campo kPrinterAuxTavoli{"printer AUX tavoli", 160, 1, Tipo::Byte};
inline constexpr Campo kGestioneTallon{"gestione tallon", 161, 1, Tipo::Flag};
inline constexpr Serie kTallon{{"tallon", 162, 25, Tipo::CampoTesto, 14}, 8};
inline constexpr Campo kTestoAlternativoA{"testo alternativo percentuale A", 362, 1, Tipo::Flag};
inline constexpr Campo kDescrizionePercentualeA{"descrizione percentuale A", 363, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kTestoAlternativoB{"testo alternativo percentuale B", 388, 1, Tipo::Flag};
inline constexpr Campo kDescrizionePercentualeB{"descrizione percentuale B", 389, 25, Tipo::CampoTesto, 24};
inline constexpr Campo kCutter{"cutter", 414, 1, Tipo::Flag};
inline constexpr Campo kMark{"mark", 415, 1, Tipo::Flag};
inline constexpr Campo kStampaDifferita{"stampa differita scontrino", 416, 1, Tipo::Flag};
inline constexpr Campo kOraLegale{"ora legale", 417, 1, Tipo::Flag};
inline constexpr Campo kRiserva{"riserva", 418, 10, Tipo::Riservato};

inline constexpr std::array kCampi{kTipoPercentualeA,
                                   kPercentualeA,
                                   kNumeroCassa,
                                   kObbligoOperatore,
                                   kObbligoSubtotale,
                                   kAzzeramentoGestionale,
                                   kQuantitaUnitaria,
                                   kNumeroArticoli,
                                   kVenditaInCentesimi,
                                   kDatario,
                                   kVelocitaStampante,
                                   kTaglierina,
                                   kInfoGestionale,
                                   kApparatoCOM1,
                                   kVelocitaCOM1,
                                   kEchoCOM1,
                                   kApparatoCOM3,
                                   kVelocitaCOM3,
                                   kEchoCOM3,
                                   kDataRevisione,
                                   kTxFooter,
                                   kSubtender.campo(0),
                                   kSubtender.campo(1),
                                   kSubtender.campo(2),
                                   kSubtender.campo(3),
                                   kPasswordCassa,
                                   kModoAzzeramento,
                                   kTempoAzzeramento,
                                   kTipoAzzeramento,
                                   kBeep,
                                   kDoppiaCopia,
                                   kLineeVuote,
                                   kStampaIntestazioneEsercente,
                                   kLineeCorpo,
                                   kStampaIntestazioneCliente,
                                   kAperturaCassetto,
                                   kTipoPercentualeB,
                                   kPercentualeB,
                                   kMassimoImporto,
                                   kRepartiDaShiftare,
                                   kOperatorePerScontrino,
                                   kFatturaMensileSintetica,
                                   kPrinterAuxFatture,
                                   kPrinterAuxTavoli,
                                   kGestioneTallon,
                                   kTallon.campo(0),
                                   kTallon.campo(1),
                                   kTallon.campo(2),
                                   kTallon.campo(3),
                                   kTallon.campo(4),
                                   kTallon.campo(5),
                                   kTallon.campo(6),
                                   kTallon.campo(7),
                                   kTestoAlternativoA,
                                   kDescrizionePercentualeA,
                                   kTestoAlternativoB,
                                   kDescrizionePercentualeB,
                                   kCutter,
                                   kMark,
                                   kStampaDifferita,
                                   kOraLegale,
                                   kRiserva};
inline constexpr std::size_t kByte = 428;
static_assert(coerente(kCampi, kByte));

}  // namespace config::parametri

namespace config {
using RecordParametri = std::array<std::uint8_t, parametri::kByte>;
}  // namespace config
