#pragma once

#include <cstddef>
#include <cstdint>

/// Error codes of the communications library and of the till, one numbering for both: a code that the till
/// answers with reaches the caller of the library unchanged.
namespace ecrcom {

inline constexpr std::int16_t kFatto = 0;
inline constexpr std::int16_t kIndirizzoErrato = 1;
inline constexpr std::int16_t kNonRaggiungibile = 2;
inline constexpr std::int16_t kTempoScaduto = 3;
inline constexpr std::int16_t kLineaInterrotta = 4;
inline constexpr std::int16_t kRispostaIncomprensibile = 5;
inline constexpr std::int16_t kComandoSconosciuto = 6;
inline constexpr std::int16_t kStatoErrato = 7;
inline constexpr std::int16_t kTrasferimentoChiuso = 8;
inline constexpr std::int16_t kTrasferimentoAperto = 9;
inline constexpr std::int16_t kFileSconosciuto = 10;
inline constexpr std::int16_t kLunghezzaErrata = 11;
inline constexpr std::int16_t kFileTroppoGrande = 12;
inline constexpr std::int16_t kFileLocaleAssente = 13;
inline constexpr std::int16_t kFileLocaleNonScritto = 14;
inline constexpr std::int16_t kNomeFileErrato = 15;
inline constexpr std::int16_t kMemoriaCassa = 16;
inline constexpr std::int16_t kManigliaErrata = 17;
inline constexpr std::int16_t kTroppiCollegamenti = 18;
inline constexpr std::int16_t kTestoErrato = 19;
inline constexpr std::int16_t kRisorseEsaurite = 20;

/// The longest message: some callers hand over 80 bytes, the NUL among them.
inline constexpr std::size_t kMessaggioMassimo = 79;

/// Italian message of a code, Windows-1252, at most kMessaggioMassimo characters. A negative code, as the
/// key-sequence calls return it, reads like its positive one. Never null.
const char* messaggio(std::int16_t codice);

}  // namespace ecrcom
