#include "core/list_table.h"

#include <QFileInfo>
#include <QLineEdit>
#include <algorithm>
#include <utility>

#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "controls/sample_width.h"
#include "core/command.h"
#include "core/context.h"
#include "core/conversions.h"
#include "core/figures.h"
#include "core/reactions.h"
#include "core/table_text.h"
#include "core/wait_box.h"
#include "platform/text/whole_file.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/user_port.h"

namespace elenco {

namespace {

constexpr int kTestata = 0;
constexpr int kAltezzaTestata = 600;  // twips
constexpr int kAssente = -1;
constexpr int kSenzaLimite = 32767;
constexpr int kMembroAssente = 438;
const QColor kBlu(0, 0, 255);

bool nulla(const Cella& cella) {
  return cella.posto == kAssente || cella.righe.isNull(cella.posto);
}

int postoDi(const store::Recordset& righe, const char* campo) {
  return campo == nullptr ? kAssente : righe.place(QLatin1String(campo));
}

/// One fill under way.
class Corsa {
 public:
  Corsa(FlexGrid& griglia, const Riempimento& come, Contesto& contesto)
      : griglia_(griglia), come_(come), contesto_(contesto) {}

  EsitoElenco esegui(store::Database archivio, const store::Statement& istruzione) {
    std::optional<store::Recordset> righe;
    passo([&] { righe.emplace(archivio.OpenRecordset(istruzione)); });
    if (!righe) return esito_;
    esito_.letto = true;
    esito_.righe = righe->RecordCount();
    esito_.totali.resize(come_.colonne.size());
    griglia_.setRowInFields(0);
    griglia_.setNotice({});
    if (righe->empty()) {
      vuoto();
      esito_.intero = true;
    } else {
      dimensiona();
      esito_.intero = tutte(*righe);
      if (come_.rottura) chiudi();
    }
    return esito_;
  }

 private:
  /// True unless the list ends here.
  template <typename Passo>
  bool passo(Passo&& corpo) {
    bool detto = false;
    const auto fatto = reazioni::prossimaIstruzioneRiempimento(contesto_.utente, come_.prefisso, [&] {
      try {
        corpo();
      } catch (const Errore& errore) {
        if (errore.numero != come_.nonPassa) throw;
        reazioni::segnala(contesto_.utente, come_.prefisso, errore);
        detto = true;
      }
    });
    if (!detto && fatto != reazioni::Esito::Segnalato) return true;
    if (come_.alGuasto == AlGuasto::Termina) contesto_.utente.Terminate();
    return come_.alGuasto == AlGuasto::Prosegue;
  }

  void vuoto() {
    griglia_.Clear();
    // No row is picked any more.
    griglia_.setRows(FlexGrid::kFirstRow);
    griglia_.setRows(FlexGrid::kFirstRow + 1);
    griglia_.setNotice(come_.senzaRighe);
  }

  /// What was there goes with its colours and its current cell; of a list that keeps its cells only the rows
  /// behind the query's.
  void dimensiona() {
    if (!come_.conserva || come_.rottura) griglia_.setRows(FlexGrid::kFirstRow);
    const int prima = griglia_.Rows();
    for (int riga = std::max(prima - come_.coda, FlexGrid::kFirstRow); riga < prima; ++riga) pulisci(riga);
    // A list with breaks has one behind each row at the most; what it does not use is cut at its end.
    const int alPiu = come_.rottura ? 2 * esito_.righe : esito_.righe;
    griglia_.setRows(FlexGrid::kFirstRow + alPiu + come_.coda);
    for (int riga = FlexGrid::kFirstRow + alPiu; riga < griglia_.Rows(); ++riga) pulisci(riga);
  }

  void pulisci(int riga) {
    for (int colonna = 0; colonna < griglia_.Cols(); ++colonna) {
      griglia_.setTextMatrix(riga, colonna, {});
      griglia_.setCellBackColor(riga, colonna, {});
      griglia_.setCellForeColor(riga, colonna, {});
    }
  }

  /// False if the list was given up.
  bool tutte(store::Recordset& righe) {
    std::vector<int> posti;
    for (const Colonna& colonna : come_.colonne) posti.push_back(postoDi(righe, colonna.campo));
    const int marca = come_.marca ? postoDi(righe, come_.marca->campo) : kAssente;
    const int rottura = come_.rottura ? postoDi(righe, come_.rottura->campo) : kAssente;
    for (int numero = FlexGrid::kFirstRow; !righe.atEnd(); righe.MoveNext(), ++numero, ++riga_) {
      if (rottura != kAssente) spezza(righe.text(rottura));
      if (!una(righe, posti, numero)) return false;
      if (marca != kAssente) colora(righe, marca);
      if (come_.attesa) come_.attesa->avanza(numero, esito_.righe);
      contesto_.utente.DoEventsAtRecord();
    }
    return true;
  }

  bool una(const store::Recordset& righe, const std::vector<int>& posti, int numero) {
    for (std::size_t i = 0; i < posti.size(); ++i) {
      const bool avanti = passo([&] {
        const Cella cella{righe, posti[i], numero, esito_.totali[i]};
        griglia_.setTextMatrix(riga_, static_cast<int>(i), come_.colonne[i].testo(cella));
      });
      if (!avanti) return false;
    }
    return true;
  }

  /// Before a row of the run `questa`: the row of the run that ends here.
  void spezza(QString questa) {
    if (riga_ > FlexGrid::kFirstRow && questa != serie_) scriviRottura();
    serie_ = std::move(questa);
  }

  void scriviRottura() {
    come_.rottura->scrivi(griglia_, riga_++, esito_.totali);
    for (Totale& totale : esito_.totali) totale.parziale = 0;
  }

  /// The end of a list with breaks: the last of them, and no row that nobody wrote.
  void chiudi() {
    if (esito_.intero)
      scriviRottura();
    else
      ++riga_;
    griglia_.setRows(riga_ + come_.coda);
  }

  void colora(const store::Recordset& righe, int posto) {
    const Marca& marca = *come_.marca;
    const bool marcata = righe.text(posto) == QStringView(marca.valore);
    for (int colonna = marca.prima; colonna <= marca.ultima; ++colonna)
      griglia_.setCellBackColor(riga_, colonna, marcata ? marca.marcata : marca.altre);
  }

  FlexGrid& griglia_;
  const Riempimento& come_;
  Contesto& contesto_;
  EsitoElenco esito_;
  /// The row of the grid that is being written.
  int riga_ = FlexGrid::kFirstRow;
  /// What the rows of the present run have in common.
  QString serie_;
};

bool diSomme(const FlexGrid& griglia, int riga, const FormaCSV& forma) {
  return forma.colonnaSomme >= 0 && griglia.TextMatrix(riga, forma.colonnaSomme) == u" ";
}

int righeEsportate(const FlexGrid& griglia, const FormaCSV& forma) {
  int quante = 0;
  for (int riga = FlexGrid::kFirstRow; riga < griglia.Rows(); ++riga)
    quante += diSomme(griglia, riga, forma) ? 0 : 1;
  return quante;
}

}  // namespace

QString numeroDiRiga(const Cella& cella) {
  return QString::number(cella.numero);
}

QString testo(const Cella& cella) {
  return nulla(cella) ? QString() : cella.righe.text(cella.posto);
}

QString importo(const Cella& cella) {
  return nulla(cella) ? QString() : CentInTesto(cella.righe.field(cella.posto).int32());
}

QString siNo(const Cella& cella) {
  if (nulla(cella)) return {};
  return cella.righe.field(cella.posto).boolean() ? QStringLiteral("S") : QStringLiteral("N");
}

void Disponi(FlexGrid& griglia, Colonne colonne, const QColor& fondo, int blu) {
  griglia.setCols(static_cast<int>(colonne.size()));
  griglia.setHeadingHeight(kAltezzaTestata);
  griglia.setBackColor(fondo);
  griglia.setWholeRows(true);
  QList<FlexGrid::CopyEntry> menu;
  int numero = 0;
  for (const Colonna& colonna : colonne) {
    griglia.setTextMatrix(kTestata, numero, ::testo(colonna.testata));
    griglia.setColSample(numero, ::testo(colonna.campione));
    if (!griglia.isSizedByHand(numero)) griglia.setColWidth(numero, colonna.twip);
    griglia.setColAlignment(numero, colonna.allineamento);
    griglia.setHeadingToolTip(numero, ::testo(colonna.spiega));
    if (numero < blu) griglia.setCellForeColor(kTestata, numero, kBlu);
    if (colonna.elastica) griglia.setSpareColumn(numero);
    if (colonna.copia) menu.append({::testo(colonna.copia), numero});
    ++numero;
  }
  griglia.setCopyEntries(menu);
}

EsitoElenco Riempi(FlexGrid& griglia, store::Database archivio, const store::Statement& istruzione,
                   const Riempimento& come, Contesto& contesto) {
  const BusyGuard occupato;
  const FlexGrid::Frozen ferma(griglia);
  return Corsa(griglia, come, contesto).esegui(std::move(archivio), istruzione);
}

int RigaCon(const FlexGrid& griglia, int colonna, const QString& testo) {
  if (testo.isEmpty()) return 0;
  for (int riga = FlexGrid::kFirstRow; riga < griglia.Rows(); ++riga)
    if (griglia.TextMatrix(riga, colonna) == testo) return riga;
  return 0;
}

Caselle::Caselle(const QWidget& schermo, Colonne colonne) : colonne_(colonne) {
  for (const Colonna& colonna : colonne) {
    const QString nome = QLatin1String(colonna.casella);
    auto* campo = nome.isEmpty() ? nullptr : schermo.findChild<QLineEdit*>(nome);
    if (!nome.isEmpty() && !campo)
      throw Errore{kMembroAssente, QStringLiteral("Proprietà o metodo non supportati dall'oggetto: ") + nome};
    campi_.push_back(campo);
    if (campo && colonna.campione)
      widthFromSample(*campo, ::testo(colonna.campione),
                      colonna.elastica ? FieldWidth::AtLeast : FieldWidth::Exact);
  }
}

void Caselle::scrivi(std::size_t colonna, const QString& testo) const {
  QLineEdit* const campo = campi_[colonna];
  if (!campo) return;
  const int limite = colonne_[colonna].lunghezza > 0 ? colonne_[colonna].lunghezza : kSenzaLimite;
  // A value of the archive may be longer than what can be typed: cut here, it would be saved short.
  campo->setMaxLength(std::max(limite, static_cast<int>(testo.size())));
  campo->setText(testo);
  campo->setCursorPosition(0);
}

void Caselle::copia(const FlexGrid& griglia, int riga) const {
  for (std::size_t i = 0; i < campi_.size(); ++i) scrivi(i, griglia.TextMatrix(riga, static_cast<int>(i)));
}

void Caselle::vai(std::size_t colonna) const {
  QLineEdit* const campo = campi_[colonna];
  if (!campo) return;
  campo->setFocus(Qt::OtherFocusReason);
  campo->selectAll();
}

QString Caselle::nome(std::size_t colonna) const {
  return campi_[colonna] ? campi_[colonna]->accessibleName() : QString();
}

void Caselle::svuota() const {
  for (std::size_t i = 0; i < campi_.size(); ++i) scrivi(i, {});
}

QByteArray TestoCSV(const FlexGrid& griglia, Colonne colonne, const FormaCSV& forma) {
  const QString separatore = QStringLiteral(";");
  QString lista;
  for (int riga = FlexGrid::kFirstRow; riga < griglia.Rows(); ++riga) {
    if (diSomme(griglia, riga, forma)) continue;
    QString linea = forma.numerata ? QString::number(riga) : QString();
    bool prima = !forma.numerata;
    for (std::size_t i = 0; i < colonne.size(); ++i) {
      if (!colonne[i].esportata) continue;
      if (!std::exchange(prima, false)) linea += separatore;
      linea += griglia.TextMatrix(riga, static_cast<int>(i));
    }
    if (forma.chiusa) linea += separatore + u' ';
    lista += linea + QStringLiteral("\r\n");
  }
  return windows1252::toBytes(lista);
}

void Esporta(const QString& titolo, const FlexGrid& griglia, Colonne colonne, const FormaCSV& forma,
             Contesto& contesto, OutcomeBar& piede) {
  const std::optional<QString> scelto =
      contesto.utente.AskSavePath({titolo, QLatin1String(kFiltroCSV), {}, true});
  if (!scelto || scelto->isEmpty())
    return piede.tell(OutcomeBar::Kind::Plain, QStringLiteral("Esportazione annullata: nessun file scritto"));
  WriteWholeFile(*scelto, TestoCSV(griglia, colonne, forma));
  contesto.utente.MsgBox(QStringLiteral("Creazione del file ") + *scelto + QStringLiteral(" terminata."),
                         Icon::Information);
  const int righe = righeEsportate(griglia, forma);
  const QString quante = righe == 1 ? QStringLiteral("Esportata 1 riga")
                                    : QStringLiteral("Esportate %1 righe").arg(cifra(righe));
  const auto apri = [&contesto, percorso = *scelto] {
    comando(contesto, "AzioneEsito_Click", QStringLiteral("BarraEsito"),
            [&] { contesto.utente.OpenWithDesktop(percorso); });
  };
  piede.tell(OutcomeBar::Kind::Done, quante + QStringLiteral(" in ") + QFileInfo(*scelto).fileName(),
             {QStringLiteral("Apri"), apri});
}

}  // namespace elenco
