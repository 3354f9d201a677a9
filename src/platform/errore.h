#pragma once

#include <QString>

/// A failure of the platform, the store or a conversion: the one type that low layers throw.
/// `numero` is one of the numbers below, `descrizione` the Italian text that reaches the user.
struct Errore {
  int numero = 0;
  QString descrizione;
};

namespace errore {

// Conversions.
inline constexpr int kArgomento = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kIndice = 9;
inline constexpr int kDivisionePerZero = 11;
inline constexpr int kTipo = 13;
inline constexpr int kNullo = 94;

// Files.
inline constexpr int kFileAssente = 53;
inline constexpr int kFileAperto = 55;
inline constexpr int kDiscoPieno = 61;
inline constexpr int kOltreLaFine = 62;
inline constexpr int kAccessoNegato = 70;
inline constexpr int kAccessoPercorso = 75;
inline constexpr int kPercorsoAssente = 76;
inline constexpr int kFormatoFile = 321;

// Serial line.
inline constexpr int kPortaAssente = 8002;
inline constexpr int kPortaOccupata = 8005;
inline constexpr int kPortaImpostazioni = 8015;
inline constexpr int kPortaChiusa = 8018;
inline constexpr int kPortaGuasta = 8020;

// Foreign libraries.
inline constexpr int kIngressoAssente = 453;

// Store.
inline constexpr int kMemoriaEsaurita = 7;
inline constexpr int kNessunRecord = 3021;
inline constexpr int kChiaveDuplicata = 3022;
inline constexpr int kArchivioAssente = 3024;
inline constexpr int kNessunaTransazione = 3034;
inline constexpr int kErroreDisco = 3043;
inline constexpr int kParametroMancante = 3061;
inline constexpr int kNonEseguibile = 3065;  ///< a query that returns rows handed to Execute
inline constexpr int kSolaLettura = 3073;
inline constexpr int kSintassi = 3075;
inline constexpr int kTabellaAssente = 3078;
inline constexpr int kCampoAmbiguo = 3079;
inline constexpr int kFunzioneIgnota = 3085;
inline constexpr int kTestoDopoLaFine = 3142;
inline constexpr int kTestoTroppoLungo = 3163;
inline constexpr int kRecordCollegati = 3200;
inline constexpr int kSenzaRighe = 3219;  ///< a statement that returns no rows opened as a record set
inline constexpr int kBloccato = 3260;
inline constexpr int kCampoAssente = 3265;
inline constexpr int kValoreObbligatorio = 3314;
inline constexpr int kRegolaViolata = 3317;
inline constexpr int kNonDatabase = 3343;
inline constexpr int kNumeroValori = 3346;  ///< as many values as columns were expected
inline constexpr int kHandleChiuso = 3420;
inline constexpr int kConversione = 3421;

}  // namespace errore
