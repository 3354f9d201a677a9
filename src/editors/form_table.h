#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "config/field.h"
#include "controls/guarded_field.h"
#include "core/state.h"

/// A screen of many fields as data: which control edits which field of which record, by which rule, in which
/// card of which tab. A field is one line of such a table; screen, fill, save and marks follow from it.
namespace editors {

enum class Genere {
  SiNo,       ///< a pair of buttons, `_SI` and `_NO`, over a flag
  Lista,      ///< a list, stored by the position of its entry
  Codici,     ///< a list, stored by codes of its own
  Testo,      ///< a text
  Centesimi,  ///< a decimal number, stored in hundredths
  Numero,     ///< digits, stored as one byte
  Ora,        ///< hhmmss, stored in the till's encoding of a time
  Data,       ///< lists of day, month and year, stored in the till's encoding of a date
  Giorno,     ///< lists of day and month, stored in the same encoding
  Mostrato,   ///< a locked line that shows what is known elsewhere, stored nowhere
  Perso,      ///< a text that is asked for and dropped
};

/// One of the working copies, by the number of its record from 0.
using Provenienza = config::Record (*)(std::size_t record);

/// What is wrong with a field's text, in the words of its message; empty for one that may stay.
using Verifica = QString (*)(const QString& testo);

using Voci = std::span<const char16_t* const>;

/// The names of the lists behind the first one, of a date.
struct AltreListe {
  const char* mese = nullptr;
  const char* anno = nullptr;
};

/// One field. In a series there is one of it for each row: its controls bear the row's number from 0 behind
/// their names.
struct Dato {
  /// Object name of the control; of a pair what stands before `_SI` and `_NO`, of a date its list of days.
  const char* controllo;
  const char16_t* didascalia;
  Genere genere;
  config::Campo campo = {};
  Provenienza record = nullptr;
  /// From one row's field to the next one's, in bytes, where a series stands in one record.
  std::size_t passo = 0;

  // Lists
  Voci elementi = {};
  /// Stored for the first entry, the second and so on.
  std::span<const std::uint8_t> codici = {};
  /// What the list says while nothing is picked.
  const char16_t* vuota = u"";
  /// It opens at its first entry whatever is stored, and that is saved.
  bool sempreLaPrima = false;
  AltreListe altre = {};

  // Texts and numbers
  /// What a line shows that is stored nowhere.
  QString (*valore)() = nullptr;
  KeyRule tasti = {};
  Verifica verifica = nullptr;
  /// What a text that may not stay is replaced by; without one by what was filled in.
  const char16_t* predefinito = nullptr;
  /// The longest text that is usual there, for its width; of a text the limit's length counts without one.
  const char16_t* campione = nullptr;
  /// Exactly as wide as its sample.
  bool stretto = false;
  bool mascherato = false;
  /// Blanks around it are not saved.
  bool rifilato = false;

  // For the eye
  /// Beside the field.
  const char16_t* nota = u"";
  /// Unit and range, in the tooltip.
  const char16_t* suggerimento = u"";
  const char16_t* si = u"SI";
  const char16_t* no = u"NO";
};

/// A titled card.
struct Riquadro {
  const char16_t* titolo;
  std::span<const Dato> dati;
  /// Rows of a series, each with all of `dati`; 0 for fields that are there once.
  std::size_t righe = 0;
  /// What stands before the rows of a series, "%1" being their number from 1: one for all, or one a row.
  Voci nomi = {};
  /// Locked lines above the rows of a series, and what stands before them.
  std::span<const Dato> primaRiga = {};
  const char16_t* nomePrimaRiga = u"";
  /// Fields side by side, where there is no series.
  int affiancati = 1;
  /// In the second column of the tab.
  bool secondaColonna = false;
  /// Its title says which fields are meant: others have the same captions, or these say little alone.
  bool nominato = false;
  /// Object name of the card, where it has one of its own.
  const char* nome = "";
};

/// A tab, with the names of its commands; without a name it has those of the tab before it.
struct Pagina {
  const char16_t* titolo;
  std::span<const Riquadro> riquadri;
  /// Name of the procedure that fills the tab, where it is not that of the whole screen.
  const char* riempimento = nullptr;
  const char* salva = "Cmd_Modifica";
  const char* annulla = "Cmd_Reset";
};

/// Whether a change is told on the frame around the control or on the control itself.
enum class Segno { Cornice, Campo };

struct Modulo {
  const char* schermata;
  const char16_t* titolo;
  /// Name of the procedure that fills the screen, for the message of its failure.
  const char* riempimento;
  std::span<const Pagina> pagine;
  Bandiera VarGestionePRG::*modificato;
  Segno segno = Segno::Campo;
  const char16_t* annulla = u"Annulla Modifiche";
};

/// How often the fields of a card are there.
constexpr std::size_t volte(const Riquadro& riquadro) {
  return riquadro.righe == 0 ? 1 : riquadro.righe;
}

/// The object name of a control: with the row's number behind it in a series.
inline QString nomeControllo(const char* nome, const Riquadro& riquadro, std::size_t riga) {
  const QString base = QLatin1String(nome);
  return riquadro.righe == 0 ? base : base + u'_' + QString::number(riga);
}

/// The field that row `riga` of a series edits.
constexpr config::Campo campoDi(const Dato& dato, std::size_t riga) {
  config::Campo campo = dato.campo;
  campo.inizio += dato.passo * riga;
  return campo;
}

/// The record that it stands in.
inline config::Record recordDi(const Dato& dato, std::size_t riga) {
  return dato.record(dato.passo == 0 ? riga : 0);
}

}  // namespace editors
