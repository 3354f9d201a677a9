#pragma once

#include <QColor>
#include <QString>
#include <Qt>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/store/store.h"

class Attesa;
class FlexGrid;
class OutcomeBar;
class QLineEdit;
class QWidget;
struct Contesto;

/// The lists of the program: what stands in a grid is told by a table of columns, one line a column, from
/// which the grid's shape, its fill, the fields that a picked row goes to and the export are made.
namespace elenco {

/// Of the file dialogs of every list.
inline constexpr const char* kFiltroCSV = "csv (*.csv)|*.csv";

/// What the rows of a list came to in one column.
struct Totale {
  std::int64_t intero = 0;
  double reale = 0;
  /// Of the rows behind the last break of the list.
  std::int64_t parziale = 0;
};

/// What a cell is made from.
struct Cella {
  /// At the row that is being shown.
  const store::Recordset& righe;
  /// Place of the column in the query; -1 where the query lacks it.
  int posto;
  /// Number of the row, from 1.
  int numero;
  /// Of the column; a cell that shows a number adds it.
  Totale& totale;
};
/// Text of a cell. What it throws meets the list's reaction to failures.
using TestoCella = QString (*)(const Cella& cella);

// The common ones. A null, and a column that the query lacks, is an empty text.
QString numeroDiRiga(const Cella& cella);
QString testo(const Cella& cella);
/// Hundredths as "####0.00".
QString importo(const Cella& cella);
/// "S" or "N".
QString siNo(const Cella& cella);

inline constexpr Qt::Alignment kSinistra = Qt::AlignLeft | Qt::AlignVCenter;
inline constexpr Qt::Alignment kDestra = Qt::AlignRight | Qt::AlignVCenter;
inline constexpr Qt::Alignment kCentro = Qt::AlignCenter;

struct Colonna {
  const char16_t* testata;
  int twip;
  Qt::Alignment allineamento;
  /// Column of the query; null for a cell that needs none.
  const char* campo;
  TestoCella testo = elenco::testo;
  /// Object name of the field that a picked row's cell goes to; null for none.
  const char* casella = nullptr;
  /// Longest text that can be typed there; 0 for no bound.
  int lunghezza = 0;
  bool esportata = true;
  /// The longest text that is usual there: neither the column nor its field is narrower, whatever the font.
  const char16_t* campione = nullptr;
  /// Caption of the menu's entry that copies a cell of it; null for none.
  const char16_t* copia = nullptr;
  /// Tooltip of the heading; null for none.
  const char16_t* spiega = nullptr;
  /// Whether it takes the width that the others leave: one column at the most.
  bool elastica = false;

  constexpr Colonna larga(const char16_t* testoPiuLungo) const {
    Colonna questa = *this;
    questa.campione = testoPiuLungo;
    return questa;
  }
  constexpr Colonna copiata(const char16_t* voce) const {
    Colonna questa = *this;
    questa.copia = voce;
    return questa;
  }
  constexpr Colonna spiegata(const char16_t* suggerimento) const {
    Colonna questa = *this;
    questa.spiega = suggerimento;
    return questa;
  }
  constexpr Colonna cedevole() const {
    Colonna questa = *this;
    questa.elastica = true;
    return questa;
  }
};
using Colonne = std::span<const Colonna>;

/// Gives a grid its columns: headings, those of the first `blu` in blue, widths, alignments, menu, `fondo`
/// behind the cells (invalid: the palette's). Done again, a width that the person dragged stays.
void Disponi(FlexGrid& griglia, Colonne colonne, const QColor& fondo = {}, int blu = 0);

/// What becomes of a list when one of its steps has failed and the person was told. A missing table always
/// ends the program.
enum class AlGuasto {
  Termina,   ///< the program ends: the list must not be worked on
  Ferma,     ///< the list stays as far as it came
  Prosegue,  ///< the next cell; the one that failed keeps the text it had
};

/// Rows that stand out by the ground of some of their cells.
struct Marca {
  const char* campo;
  /// The text of `campo` that marks a row.
  const char16_t* valore;
  QColor marcata;
  QColor altre;
  int prima;
  int ultima;
};

/// A row between the rows: behind each run of them with one text in a column of the query, the last run too.
struct Rottura {
  const char* campo;
  /// Writes the row's cells from what the run came to, `parziale`, which is zero again behind it.
  void (*scrivi)(FlexGrid& griglia, int riga, const std::vector<Totale>& totali);
};

/// How a list is filled.
struct Riempimento {
  Colonne colonne;
  /// In front of a failure's number.
  QString prefisso;
  AlGuasto alGuasto = AlGuasto::Ferma;
  std::optional<Marca> marca = std::nullopt;
  /// Rows behind those of the query, left empty for the caller.
  int coda = 0;
  /// Whether cells that are not written keep what they held; else the grid is emptied first.
  bool conserva = false;
  /// The wait box to be moved along, if there is one.
  Attesa* attesa = nullptr;
  /// What stands in the middle of a list without rows.
  QString senzaRighe = {};
  /// Such a list is emptied first, whatever `conserva` says.
  std::optional<Rottura> rottura = std::nullopt;
  /// Number of a failure that other lists pass over and this one tells.
  std::optional<int> nonPassa = std::nullopt;
};

struct EsitoElenco {
  /// False if the query failed: the grid is as it was.
  bool letto = false;
  /// False if the list was given up before its last row.
  bool intero = false;
  /// Those of the query.
  int righe = 0;
  /// A total a column.
  std::vector<Totale> totali;
};

/// Runs a query on `archivio` and puts its rows into the grid from row 1 on, one event pass a record, input
/// eaten meanwhile, painted once. An empty set clears the grid and leaves one empty row.
EsitoElenco Riempi(FlexGrid& griglia, store::Database archivio, const store::Statement& istruzione,
                   const Riempimento& come, Contesto& contesto);

/// First row whose cell in `colonna` is `testo`; 0 for none, and for an empty text.
int RigaCon(const FlexGrid& griglia, int colonna, const QString& testo);

/// The fields beside a list, by its columns.
class Caselle {
 public:
  /// Finds them in the screen by the names in the table, and gives them the width of their columns' samples;
  /// a name without its field throws Errore 438.
  Caselle(const QWidget& schermo, Colonne colonne);
  /// A row of the grid goes into the fields.
  void copia(const FlexGrid& griglia, int riga) const;
  void svuota() const;
  /// Focus on the field of a column, its text selected.
  void vai(std::size_t colonna) const;
  /// How a person calls the field of a column.
  QString nome(std::size_t colonna) const;

 private:
  void scrivi(std::size_t colonna, const QString& testo) const;

  Colonne colonne_;
  /// Null where a column has none.
  std::vector<QLineEdit*> campi_;
};

/// The form of an exported list: Windows-1252, CR LF, columns parted by ";".
struct FormaCSV {
  /// The row's number before the columns.
  bool numerata = false;
  /// A further column of one blank.
  bool chiusa = false;
  /// Rows with one blank in this column of the grid stay out: they are sums between the rows. -1 for none.
  int colonnaSomme = -1;
};

/// The exported columns of rows 1 to the last.
QByteArray TestoCSV(const FlexGrid& griglia, Colonne colonne, const FormaCSV& forma);
/// The export command: asks for a file under `titolo` and writes it, whole or not at all, over one that may
/// be there; then tells so in a box and at the foot, from where the file can be opened. A cancelled dialog or
/// an empty name writes nothing. Throws Errore 61, 75 or 76; then a file that was there is as before.
void Esporta(const QString& titolo, const FlexGrid& griglia, Colonne colonne, const FormaCSV& forma,
             Contesto& contesto, OutcomeBar& piede);

}  // namespace elenco
