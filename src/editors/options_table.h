#pragma once

#include "editors/form_table.h"

namespace editors {

/// The general options of the till and its calendar of graphics.
const Modulo& ModuloOpzioni();

/// Controls that have rules of their own.
namespace opzioni {
inline constexpr const char* kCOM1 = "ComboCOM1";
inline constexpr const char* kCOM2 = "ComboCOM2";
inline constexpr const char* kTavoli = "ComboPrinterAuxTavoli";
inline constexpr const char* kTempo = "vkTextBoxTempoAzz";
inline constexpr const char* kRevisione = "Combo_GG_REV";
inline constexpr const char* kAlternativoA = "vkOptionButtonTestoAlternativoA";
inline constexpr const char* kAlternativoB = "vkOptionButtonTestoAlternativoB";
inline constexpr const char* kDescrizioneA = "vkTextBoxDescrizioneTipoPercA";
inline constexpr const char* kDescrizioneB = "vkTextBoxDescrizioneTipoPercB";
inline constexpr const char* kTallon = "vkOptionButton_TALLON";
inline constexpr const char* kCorniceTallon = "vkFrameTallon";
inline constexpr const char* kInizio = "CmbGiorno";
inline constexpr const char* kFine = "CmbGiornoFine";
}  // namespace opzioni

}  // namespace editors
