#pragma once

#include "editors/form_table.h"

namespace editors {

/// The general options of the till and its calendar of graphics.
const Modulo& ModuloOpzioni();

namespace opzioni {
/// Of a password, and of the time of the clearing too.
inline constexpr const char16_t* kSeiCaratteri = u"Attenzione la password deve essere di 6 caratteri !!!";

// Controls that have rules of their own.
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
