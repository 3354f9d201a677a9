#include "editors/grid_editor.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <algorithm>

#include "controls/FlexGrid.h"
#include "controls/cell_box.h"
#include "controls/command_key.h"
#include "controls/guarded_field.h"
#include "controls/outcome_bar.h"
#include "controls/style.h"
#include "core/figures.h"
#include "core/table_text.h"
#include "platform/ui/user_port.h"
#include "ui_grid_editor.h"

namespace {

using Kind = OutcomeBar::Kind;

constexpr int kColonneLegenda = 3;
/// How many changed rows the foot names.
constexpr int kNominate = 8;
const QColor kArancio(255, 128, 0);

bool senzaTastiUniti(const QKeyEvent& evento) {
  return (evento.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

}  // namespace

EditorGriglia::EditorGriglia(Contesto& contesto, const editors::Tabella& tabella, SalvaRighe inMemoria)
    : Schermo(contesto),
      tabella_(tabella),
      inMemoria_(inMemoria),
      ui_(std::make_unique<Ui::EditorGriglia>()) {
  setObjectName(QLatin1String(tabella.schermata));
  ui_->setupUi(this);
  vesti();
  creaCaselle();
  seguiGriglia();
  setFocusProxy(ui_->griglia);
  const PiedeComando racconto(*this, contesto, Piede::Nuovo);
  EditorGriglia::ricarica();
}

EditorGriglia::~EditorGriglia() = default;

void EditorGriglia::vesti() {
  setWindowTitle(testo(tabella_.titolo));
  ui_->TitoloEditor->setText(testo(tabella_.titolo));
  int posto = 0;
  for (const char16_t* const voce : tabella_.legenda) {
    auto* etichetta = new QLabel(testo(voce), ui_->testata);
    etichetta->setObjectName(QStringLiteral("Legenda_%1").arg(posto + 1));
    etichetta->setProperty("note", true);
    // The blanks line the arrows up for the eye alone.
    etichetta->setAccessibleName(etichetta->text().simplified());
    ui_->disposizioneLegenda->addWidget(etichetta, posto / kColonneLegenda, posto % kColonneLegenda);
    ++posto;
  }
  griglia().setObjectName(QLatin1String(tabella_.griglia));
  griglia().setAccessibleName(testo(tabella_.titolo));
  style::primary(*ui_->Cmd_Modifica, QStringLiteral("save"));
  ui_->Cmd_Reset->setIcon(style::icon(QStringLiteral("undo-2")));
  commandKey(*ui_->Cmd_Modifica, QKeySequence::Save);
}

void EditorGriglia::creaCaselle() {
  QWidget* prima = ui_->griglia;
  for (std::size_t i = 1; i < tabella_.colonne.size(); ++i) {
    auto* casella = new QLineEdit(griglia().viewport());
    casella->setObjectName(QStringLiteral("casella_%1").arg(i));
    cellbox::dress(*casella);
    casella->setAlignment(tabella_.colonne[i].forma.allineamento);
    casella->hide();
    new GuardedField(*casella, tabella_.colonne[i].regola.tasti);
    connect(casella, &QLineEdit::textChanged, this, [this] {
      reazioni::protetta(this->contesto().utente, QStringLiteral("casella_Change"), objectName(),
                         [this] { cambiata(); });
    });
    casella->installEventFilter(this);
    setTabOrder(prima, casella);
    prima = casella;
    caselle_.push_back(casella);
  }
  setTabOrder(prima, ui_->Cmd_Modifica);
}

void EditorGriglia::seguiGriglia() {
  connect(&griglia(), &FlexGrid::entered, this, &EditorGriglia::colloca);
  // The cell that is the current one already is entered by no move, but by a click, Enter or F2.
  connect(&griglia(), &FlexGrid::cellClicked, this, &EditorGriglia::colloca);
  connect(&griglia(), &FlexGrid::arranged, this, &EditorGriglia::posa);
  connect(&griglia(), &FlexGrid::scrolled, this, &EditorGriglia::posa);
}

FlexGrid& EditorGriglia::griglia() const {
  return *ui_->griglia;
}

QLineEdit& EditorGriglia::casella() const {
  return *caselle_[static_cast<std::size_t>(colonna_) - 1];
}

const editors::Colonna& EditorGriglia::colonna() const {
  return tabella_.colonne[static_cast<std::size_t>(colonna_)];
}

void EditorGriglia::colloca(int riga, int colonna) {
  if (daProgramma_) return;
  // A click on the row's number is one on its first cell.
  colonna = std::max(colonna, 1);
  if (riga != riga_ || colonna != colonna_) {
    riga_ = riga;
    colonna_ = colonna;
    prima_ = {griglia().TextMatrix(riga, colonna), modificate_.contains(riga), modificato()};
    const QScopedValueRollback nessunoScrive(daProgramma_, true);
    casella().setText(prima_.testo);
    cellbox::name(casella(), testo(this->colonna().forma.testata), riga);
    griglia().setRowInFields(riga);
  }
  posa();
  mostra();
}

void EditorGriglia::posa() {
  if (colonna_ > 0) cellbox::lay(casella(), griglia(), riga_, colonna_);
}

void EditorGriglia::mostra() {
  QLineEdit& questa = casella();
  cellbox::open(questa);
  questa.selectAll();
  // Behind the move of the focus: hidden with it, the old one would send it anywhere.
  for (QLineEdit* altra : caselle_)
    if (altra != &questa) altra->hide();
}

void EditorGriglia::nascondi() {
  if (colonna_ == 0) return;
  for (QLineEdit* una : caselle_) cellbox::close(*una, griglia());
  riga_ = 0;
  colonna_ = 0;
}

bool EditorGriglia::eventFilter(QObject* /*casella*/, QEvent* evento) {
  if (evento->type() == QEvent::KeyPress) return nellaCasella(*static_cast<const QKeyEvent*>(evento));
  return cellbox::keepsEscape(*evento);
}

/// True if the key goes no further.
bool EditorGriglia::nellaCasella(const QKeyEvent& evento) {
  // A box that is not shown has no key of its own to take.
  if (colonna_ < 1) return false;
  if (evento.key() == Qt::Key_Backtab) return passa(-1);
  if (!senzaTastiUniti(evento)) return false;
  switch (evento.key()) {
    case Qt::Key_Tab:
      return passa(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      scendi(1);
      return true;
    case Qt::Key_Up:
      scendi(-1);
      return true;
    case Qt::Key_Escape:
      rimetti();
      return true;
    case Qt::Key_F2:
      casella().end(false);
      return true;
    default:
      return freccia(evento);
  }
}

/// The whole text picked, as it is when one comes in, counts as its start and as its end.
bool EditorGriglia::freccia(const QKeyEvent& evento) {
  const QLineEdit& campo = casella();
  const bool tutto = campo.hasSelectedText() && campo.selectedText() == campo.text();
  const bool inFondo = tutto || campo.cursorPosition() == campo.text().size();
  const bool inCima = tutto || campo.cursorPosition() == 0;
  const bool destra = evento.key() == Qt::Key_Right && inFondo && colonna_ < griglia().Cols() - 1;
  const bool sinistra = evento.key() == Qt::Key_Left && inCima && colonna_ > 1;
  if (!destra && !sinistra) return false;
  griglia().setCell(riga_, colonna_ + (destra ? 1 : -1));
  return true;
}

void EditorGriglia::scendi(int righe) {
  const int riga = riga_ + righe;
  if (riga >= 1 && riga < griglia().Rows()) griglia().setCell(riga, colonna_);
}

/// To the next cell, or the one before, over the ends of the rows. False at the end of the grid: the focus
/// goes on to the commands.
bool EditorGriglia::passa(int passo) {
  int riga = riga_;
  int colonna = colonna_ + passo;
  const int ultima = griglia().Cols() - 1;
  if (colonna > ultima || colonna < 1) {
    riga += passo;
    colonna = passo > 0 ? 1 : ultima;
  }
  if (riga < 1 || riga >= griglia().Rows()) return false;
  griglia().setCell(riga, colonna);
  return true;
}

void EditorGriglia::cambiata() {
  if (daProgramma_ || colonna_ == 0) return;
  // Its cell may have been scrolled away under the hand that types.
  griglia().setCell(riga_, colonna_);
  const QString prima = griglia().TextMatrix(riga_, colonna_);
  const editors::Controllo controllo = colonna().regola.controllo;
  const editors::Esame esame = controllo ? controllo(casella().text()) : editors::Esame{casella().text()};
  if (esame.testo != casella().text()) {
    const QScopedValueRollback nessunoScrive(daProgramma_, true);
    casella().setText(esame.testo);
  }
  griglia().setTextMatrix(riga_, colonna_, esame.testo);
  if (esame.testo != prima) {
    modificato() = kVero;
    segna(riga_, true);
    mostraStato();
  }
  if (esame.messaggio.isEmpty()) return;
  casella().selectAll();
  contesto().utente.MsgBox(esame.messaggio, Icon::Warning);
  ui_->BarraEsito->tell(Kind::Warning, esame.messaggio);
}

/// The cell as it was when the box was placed. What was in the record stands up to no check.
void EditorGriglia::rimetti() {
  casella().selectAll();
  if (casella().text() == prima_.testo) return;
  // Saved by another command since then: to take the text back is a change of its own.
  const bool salvata = modificato() == kFalso;
  {
    const QScopedValueRollback nessunoScrive(daProgramma_, true);
    casella().setText(prima_.testo);
  }
  griglia().setTextMatrix(riga_, colonna_, prima_.testo);
  modificato() = salvata ? kVero : prima_.modificato;
  segna(riga_, salvata || prima_.segnata);
  casella().selectAll();
  mostraStato();
}

void EditorGriglia::segna(int riga, bool segnata) {
  if (modificate_.contains(riga) == segnata) return;
  if (segnata)
    modificate_.insert(riga);
  else
    modificate_.erase(riga);
  for (int colonna = 0; colonna < griglia().Cols(); ++colonna)
    griglia().setCellBackColor(riga, colonna, segnata ? kArancio : QColor());
}

void EditorGriglia::salvaInMemoria() {
  inMemoria_(griglia());
}

void EditorGriglia::ricarica() {
  nascondi();
  modificate_.clear();
  const QScopedValueRollback daProgramma(daProgramma_, true);
  {
    const FlexGrid::Frozen ferma(griglia());
    editors::DisponiGriglia(griglia(), tabella_);
    editors::RiempiGriglia(griglia(), tabella_, contesto().utente);
    griglia().setRowInFields(0);
  }
  if (griglia().Row() == 0) griglia().setCell(1, 1);
  mostraStato();
}

void EditorGriglia::salva() {
  if (modificato() == kFalso)
    return ui_->BarraEsito->tell(Kind::Plain, QStringLiteral("Nessuna modifica da salvare"));
  if (!tuttoSalvabile()) return;
  const bool premuto = window()->focusWidget() == ui_->Cmd_Modifica;
  if (!premuto && !editors::chiediDiSalvare(contesto())) return mostraStato();
  editors::SalvaEditorRaccontando(
      *this, modificato(), [this] { annulla(); }, *ui_->BarraEsito, contesto());
}

/// Shows the first cell that cannot be saved, and tells it.
bool EditorGriglia::tuttoSalvabile() {
  for (const int riga : modificate_)
    for (int colonna = 1; colonna < griglia().Cols(); ++colonna) {
      const editors::Colonna& una = tabella_.colonne[static_cast<std::size_t>(colonna)];
      if (editors::salvabile(griglia().TextMatrix(riga, colonna), una.regola)) continue;
      griglia().setCell(riga, colonna);
      colloca(riga, colonna);
      ui_->BarraEsito->tell(Kind::Warning, QStringLiteral("Non salvato: correggere %1, %2 %3")
                                               .arg(testo(una.forma.testata), testo(tabella_.uno))
                                               .arg(riga));
      return false;
    }
  return true;
}

void EditorGriglia::annulla() {
  modificato() = kFalso;
  ricarica();
}

/// "2 reparti (1, 5)".
QString EditorGriglia::modificate() const {
  QStringList nomi;
  for (const int riga : modificate_) {
    nomi << (nomi.size() < kNominate ? QString::number(riga) : QStringLiteral("…"));
    if (nomi.size() > kNominate) break;
  }
  return QStringLiteral("%1 (%2)").arg(
      quanti(static_cast<qint64>(modificate_.size()), testo(tabella_.uno), testo(tabella_.molti)),
      nomi.join(QStringLiteral(", ")));
}

QString EditorGriglia::oltreIlLimite() const {
  const std::size_t limite = colonna_ > 0 ? colonna().limite : 0;
  if (limite == 0 || static_cast<std::size_t>(casella().text().size()) <= limite) return {};
  return QStringLiteral(" - %1/%2 caratteri, gli ultimi si perdono").arg(casella().text().size()).arg(limite);
}

void EditorGriglia::mostraStato() {
  const bool daSalvare = !modificate_.empty();
  ui_->BarraEsito->tell(Kind::Plain,
                        daSalvare ? QString::fromUtf16(kNonSalvate) + modificate() + oltreIlLimite()
                                  : quanti(griglia().Rows() - 1, testo(tabella_.uno), testo(tabella_.molti)));
}

void EditorGriglia::on_Cmd_Modifica_clicked() {
  esegui("Cmd_Modifica_Click", [this] { salva(); });
}

void EditorGriglia::on_Cmd_Reset_clicked() {
  esegui("Cmd_Reset_Click", [this] {
    const QString perse = modificate_.empty() ? QString() : modificate();
    annulla();
    if (!perse.isEmpty()) ui_->BarraEsito->tell(Kind::Done, QStringLiteral("Modifiche annullate: ") + perse);
  });
}
