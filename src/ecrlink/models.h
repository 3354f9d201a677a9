#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <optional>

/// What differs between the tills: the model that the person picks, and the size class that the till reports.
/// The two are never compared.
namespace ecrlink {

/// Articles that a till holds, and the program's archives with it.
inline constexpr int kNumeroPLU = 5000;

struct Modello {
  const char* didascalia;
  /// Keys of the keyboard; 0: not told.
  int tasti;
  const char* nome;
};

/// In the order of the option buttons of the model choice.
inline constexpr std::array kModelli{
    Modello{"Spica -------------------------> 30 tasti", 30, "SPICA"},
    Modello{"Vega -------------------------> 42 tasti", 42, "VEGA"},
    Modello{"Vega ambulante -------> 42 tasti", 42, "VEGA AMBULANTE"},
    Modello{"Rigel ---------------------> 42 tasti", 42, "RIGEL"},
    Modello{"Mira -----------------------> N/A", 0, "MIRA"},
    Modello{"Altair base --------> 52 tasti", 52, "ALTAIR BASE"},
    Modello{"Altair plus ---------> 52 tasti", 52, "ALTAIR PLUS"},
    Modello{"Deneb base ---------------> 60 tasti", 60, "DENEB BASE"},
    Modello{"Deneb fast -----------------> 60 tasti", 60, "DENEB FAST"},
    Modello{"KPR_58mm ---------------> 42 tasti", 42, "KPR_58mm"},
    Modello{"KPR_58mm ---------------> 30 tasti", 30, "KPR_58mm"},
    Modello{"KPR_80mm ---------------> 42 tasti", 42, "KPR_80mm"},
    Modello{"KPR_80mm ---------------> 30 tasti", 30, "KPR_80mm"},
};

/// Name of a model, empty for an index outside the list.
QString NomeModello(int indice);
/// Characters of a receipt line: 26 for models 9 and 10, 36 for 11 and 12, 24 for all others.
std::int16_t larghezzaRigaDelModello(int indice);

/// "S" alone is small; whatever else the till reports counts as large.
bool classePiccola(const QString& infoTipoBitmap);
/// "SMALL" or "LARGE", as the link screens show it.
QString nomeDellaClasse(const QString& infoTipoBitmap);
/// Dots across that the picture converter is told, "384" or "640"; nothing for a class that is neither "S"
/// nor "L", which the sending of graphics refuses with the text and the title below.
std::optional<QString> larghezzaGrafica(const QString& infoTipoBitmap);
inline constexpr const char16_t* kGraficaIncongruente =
    u"Il tipo di grafica non è congruente a quella dell'ECR";
inline constexpr const char16_t* kTitoloGraficaIncongruente = u"Errore invio file per la grafica";

}  // namespace ecrlink
