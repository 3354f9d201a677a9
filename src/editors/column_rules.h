#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>

#include "config/department_attributes.h"
#include "config/image.h"
#include "core/conversions.h"
#include "core/key_filters.h"
#include "core/list_table.h"
#include "core/state.h"

class FlexGrid;
class Utente;

/// The columns of the editors that show a family of records as a grid: how a field is shown and stored, which
/// keys it takes, and what a text has to stand up to while it is typed.
namespace editors {

/// What a check makes of a text that has just changed.
struct Esame {
  /// The text that stays: as it came, in upper case, or the one that takes its place.
  QString testo;
  /// What the person is told; empty for a text that may stay.
  QString messaggio = {};

  bool operator==(const Esame&) const = default;
};
using Controllo = Esame (*)(const QString& testo);

/// The greatest value of a column, and how its message writes it.
struct Limite {
  double valore;
  const char16_t* testo;
};
inline constexpr Limite kLimiteImporto{99999.99, u"99999,99"};
inline constexpr Limite kLimitePercentuale{99.99, u"99,99"};
/// Of the VAT rates and of the tallons.
inline constexpr Limite kLimiteNumero{8, u"8"};
inline constexpr int kRepartoMassimoPLU = 32;

/// More than one comma, or a value above the limit: "1". An empty text counts as 0 and passes.
Esame CheckNumero(const QString& testo, const Limite& limite);
Esame CheckImporto(const QString& testo);
Esame CheckPercentuale(const QString& testo);
/// CheckNumero up to 8; then the text "0", which becomes "1". Other writings of 0 pass here, and the empty
/// text: a person who types over the number meets them on the way.
Esame CheckUnoOtto(const QString& testo);
/// 1 to 32; an empty text is below 1.
Esame CheckReparto(const QString& testo);
/// M or S in either case comes back in upper case, anything else, the empty text too, as "S".
Esame CheckTipoMS(const QString& testo);
/// S or N in the same way; anything else as "N".
Esame CheckTipoSN(const QString& testo);

/// What a column takes as the person types.
struct Regola {
  KeyRule tasti = {};
  Controllo controllo = nullptr;
  /// A value below 1 can stand there for a while, but not be saved.
  bool daUno = false;
};
inline constexpr Regola kLibera{};
inline constexpr Regola kImporto{ImportoDecimale, CheckImporto};
inline constexpr Regola kPercentuale{ImportoDecimale, CheckPercentuale};
inline constexpr Regola kUnoOtto{Cifre, CheckUnoOtto, true};
inline constexpr Regola kReparto{Cifre, CheckReparto};
inline constexpr Regola kTipoMS{kRegolaMS, CheckTipoMS};
inline constexpr Regola kTipoSN{kRegolaSiNo, CheckTipoSN};

/// Whether a text can be saved in a column of this rule.
bool salvabile(const QString& testo, const Regola& regola);

struct Colonna {
  elenco::Colonna forma;
  QString (*leggi)(config::RecordLetto record) = nullptr;
  /// Throws Errore 6 for what the field cannot hold.
  void (*scrivi)(config::Record record, const QString& testo) = nullptr;
  Regola regola = {};
  /// Longest text that is saved, in characters; 0 for no bound.
  std::size_t limite = 0;
};

/// An editor as data. Column 0 is the number of the record, from 1.
struct Tabella {
  const char* schermata;
  const char16_t* titolo;
  /// Object name of the grid.
  const char* griglia;
  /// Name of the fill, which its failure is told under.
  const char* riempimento;
  const config::Famiglia& famiglia;
  Bandiera VarGestionePRG::*modificato;
  std::span<const Colonna> colonne;
  /// "reparto", "reparti".
  const char16_t* uno;
  const char16_t* molti;
  std::span<const char16_t* const> legenda;
};

/// Of a column whose sample and heading decide on its width; 0 would hide it.
inline constexpr int kTwipMinimi = 15;

/// The leading column.
constexpr Colonna numero(const char16_t* testata, const char16_t* campione) {
  return {elenco::Colonna{testata, kTwipMinimi, elenco::kCentro, nullptr}.larga(campione)};
}

/// Whole number of a text, if it fits a byte; else Errore 6.
std::uint8_t TestoInUnByte(const QString& testo);

/// A field as its cell shows it: text, amount in hundredths, or number.
template <const config::Campo& kCampo>
QString mostra(config::RecordLetto record) {
  if constexpr (kCampo.tipo == config::Tipo::CampoTesto)
    return config::leggiTesto(record, kCampo);
  else if constexpr (kCampo.tipo == config::Tipo::Intero32)
    return CentInTesto(config::leggiIntero(record, kCampo));
  else
    return QString::number(config::leggiByte(record, kCampo));
}

/// And back.
template <const config::Campo& kCampo>
void registra(config::Record record, const QString& testo) {
  if constexpr (kCampo.tipo == config::Tipo::CampoTesto)
    config::scriviTesto(record, kCampo, testo);
  else if constexpr (kCampo.tipo == config::Tipo::Intero32)
    config::scriviIntero(record, kCampo, TestoInCent(testo));
  else
    config::scriviByte(record, kCampo, TestoInUnByte(testo));
}

/// Column of a field. `campione` is the longest text that is usual there.
template <const config::Campo& kCampo>
constexpr Colonna colonna(const char16_t* testata, const char16_t* campione, const Regola& regola) {
  const Qt::Alignment verso = kCampo.tipo == config::Tipo::CampoTesto ? elenco::kSinistra : elenco::kDestra;
  Colonna questa{elenco::Colonna{testata, kTwipMinimi, verso, nullptr}.larga(campione), mostra<kCampo>,
                 registra<kCampo>, regola, kCampo.limite};
  questa.forma.elastica = kCampo.tipo == config::Tipo::CampoTesto;
  return questa;
}

/// Column of a part of a field, centred.
constexpr Colonna parte(const char16_t* testata, QString (*leggi)(config::RecordLetto),
                        void (*scrivi)(config::Record, const QString&), const Regola& regola) {
  return {elenco::Colonna{testata, kTwipMinimi, elenco::kCentro, nullptr}.larga(u"0"), leggi, scrivi, regola};
}

/// The grid's shape: headings, widths, one row a record. Texts are left alone.
void DisponiGriglia(FlexGrid& griglia, const Tabella& tabella);
/// Every record into its row, marks taken back. A failure is told and ends the fill.
void RiempiGriglia(FlexGrid& griglia, const Tabella& tabella, Utente& utente);
/// Every row into its record, whole or not at all; bytes that no column stands for stay.
void SalvaGriglia(const FlexGrid& griglia, const Tabella& tabella);

}  // namespace editors
