#include "controls/FlexGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <numeric>

#include "controls/colonne_fisse.h"
#include "controls/modello_celle.h"
#include "controls/testata.h"

namespace {

constexpr int kTwipPerPixel = 15;
/// Of a column that was given no width.
constexpr int kTwipColonna = 1500;
/// Pixels above and below the text of a row.
constexpr int kAria = 8;
constexpr int kAriaTestata = 12;

int pixel(int twip, double ingrandimento = 1) {
  return qRound(std::max(twip, 0) * ingrandimento / kTwipPerPixel);
}

/// A cell's text may not break the shape of the table that it is pasted into.
QString inUnaCella(QString testo) {
  for (QChar& c : testo)
    if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r')) c = QLatin1Char(' ');
  return testo;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), modello_(new ModelloCelle(this)) {
  setAccessibleName(QStringLiteral("Griglia"));
  setHorizontalHeader(new Testata(this));
  setModel(modello_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->hide();
  fisse_ = new ColonneFisse(*this);
  connect(fisse_, &ColonneFisse::premuta, this, &FlexGrid::premutaFissa);
  connect(this, &QAbstractItemView::clicked, this,
          [this](const QModelIndex& cella) { Q_EMIT clic(cella.row() + 1, cella.column()); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, &FlexGrid::ridimensionata);
  modello_->impostaTavolozza(palette());
  // Narrow columns are laid down too.
  horizontalHeader()->setMinimumSectionSize(1);
  misuraRighe();
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const {
  return modello_->righe();
}

int FlexGrid::Cols() const {
  return modello_->colonne();
}

void FlexGrid::impostaRows(int righe) {
  if (Row() >= std::max(righe, 1)) selectionModel()->clear();
  modello_->impostaRighe(righe);
}

void FlexGrid::impostaCols(int colonne) {
  if (Col() >= std::max(colonne, 0)) selectionModel()->clear();
  modello_->impostaColonne(colonne);
  twip_.resize(Cols(), kTwipColonna);
  mostraColonne();
}

void FlexGrid::Clear() {
  modello_->vuota();
}

QString FlexGrid::TextMatrix(int riga, int colonna) const {
  return modello_->testo(riga, colonna);
}

void FlexGrid::impostaTextMatrix(int riga, int colonna, const QString& testo) {
  modello_->impostaTesto(riga, colonna, testo);
}

QColor FlexGrid::CellBackColor(int riga, int colonna) const {
  const ModelloCelle::Aspetto aspetto = modello_->aspetto(riga, colonna);
  return aspetto.haSfondo ? QColor::fromRgba(aspetto.sfondo) : QColor();
}

void FlexGrid::impostaCellBackColor(int riga, int colonna, const QColor& colore) {
  ModelloCelle::Aspetto aspetto = modello_->aspetto(riga, colonna);
  aspetto.haSfondo = colore.isValid();
  aspetto.sfondo = colore.isValid() ? colore.rgba() : QRgb{};
  modello_->impostaAspetto(riga, colonna, aspetto);
}

QColor FlexGrid::CellForeColor(int riga, int colonna) const {
  const ModelloCelle::Aspetto aspetto = modello_->aspetto(riga, colonna);
  return aspetto.haTesto ? QColor::fromRgba(aspetto.testo) : QColor();
}

void FlexGrid::impostaCellForeColor(int riga, int colonna, const QColor& colore) {
  ModelloCelle::Aspetto aspetto = modello_->aspetto(riga, colonna);
  aspetto.haTesto = colore.isValid();
  aspetto.testo = colore.isValid() ? colore.rgba() : QRgb{};
  modello_->impostaAspetto(riga, colonna, aspetto);
}

Qt::Alignment FlexGrid::CellAlignment(int riga, int colonna) const {
  return modello_->allineamento(riga, colonna);
}

void FlexGrid::impostaCellAlignment(int riga, int colonna, Qt::Alignment allineamento) {
  ModelloCelle::Aspetto aspetto = modello_->aspetto(riga, colonna);
  aspetto.allineamento = static_cast<int>(allineamento);
  modello_->impostaAspetto(riga, colonna, aspetto);
}

void FlexGrid::impostaColAlignment(int colonna, Qt::Alignment allineamento) {
  modello_->impostaAllineamentoColonna(colonna, allineamento);
}

void FlexGrid::impostaColWidth(int colonna, int twip) {
  if (colonna < 0 || colonna >= Cols()) return;
  twip_[colonna] = std::max(twip, 0);
  mostraColonne();
}

int FlexGrid::ColWidth(int colonna) const {
  return twip_.value(colonna);
}

void FlexGrid::ridimensionata(int colonna, int /*prima*/, int larghezza) {
  if (!dispone_ && colonna < twip_.size())
    twip_[colonna] = qRound(larghezza * kTwipPerPixel / ingrandimento());
}

void FlexGrid::impostaAltezzaTestata(int twip) {
  altezzaTestata_ = pixel(twip);
  misuraRighe();
}

void FlexGrid::impostaFixedCols(int colonne) {
  fixed_ = std::max(colonne, 0);
  if (Col() >= 0 && Col() < FixedCols()) selectionModel()->clear();
  mostraColonne();
}

int FlexGrid::FixedCols() const {
  return std::min(fixed_, Cols());
}

void FlexGrid::mostraColonne() {
  const QScopedValueRollback nonLUtente(dispone_, true);
  QList<int> larghezze;
  const double quanto = ingrandimento();
  for (const int twip : std::as_const(twip_)) larghezze.append(pixel(twip, quanto));
  for (int colonna = 0; colonna < Cols(); ++colonna) {
    const bool visibile = colonna >= FixedCols() && larghezze[colonna] > 0;
    setColumnHidden(colonna, !visibile);
    if (visibile) setColumnWidth(colonna, larghezze[colonna]);
  }
  fisse_->mostra(FixedCols(), larghezze);
  // The row headings keep the place that the fixed columns lie on.
  verticalHeader()->setFixedWidth(fisse_->larghezza());
  verticalHeader()->setVisible(fisse_->larghezza() > 0);
  updateGeometries();
}

void FlexGrid::impostaLarghezzaPiena(bool piena) {
  piena_ = piena;
  mostraColonne();
}

double FlexGrid::ingrandimento() const {
  const int somma = std::accumulate(twip_.begin(), twip_.end(), 0);
  if (!piena_ || somma == 0) return 1;
  const int barra = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  // Half a pixel a column is what rounding may take.
  const double libera = width() - 2 * frameWidth() - barra - Cols() / 2.0;
  return std::max(1.0, libera * kTwipPerPixel / somma);
}

void FlexGrid::resizeEvent(QResizeEvent* evento) {
  QTableView::resizeEvent(evento);
  if (piena_) mostraColonne();
}

void FlexGrid::updateGeometries() {
  QTableView::updateGeometries();
  if (fisse_ != nullptr) fisse_->disponi();
}

void FlexGrid::misuraRighe() {
  const int riga = fontMetrics().height();
  verticalHeader()->setMinimumSectionSize(riga + kAria);
  verticalHeader()->setDefaultSectionSize(riga + kAria);
  horizontalHeader()->setFixedHeight(std::max(altezzaTestata_, riga + kAriaTestata));
  FlexGrid::updateGeometries();
}

void FlexGrid::changeEvent(QEvent* evento) {
  QTableView::changeEvent(evento);
  if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange) misuraRighe();
  if (evento->type() == QEvent::PaletteChange || evento->type() == QEvent::StyleChange)
    modello_->impostaTavolozza(palette());
}

void FlexGrid::impostaBackColor(const QColor& colore) {
  modello_->impostaSfondo(colore);
}

int FlexGrid::Row() const {
  return currentIndex().row() + 1;
}

int FlexGrid::Col() const {
  return currentIndex().column();
}

void FlexGrid::impostaCella(int riga, int colonna) {
  const QModelIndex cella = modello_->index(riga - 1, colonna);
  if (!cella.isValid() || colonna < FixedCols()) return;
  setCurrentIndex(cella);
  scrollTo(cella);
}

void FlexGrid::selezionaRiga(int riga) {
  if (riga < 1 || riga >= Rows() || FixedCols() >= Cols()) return;
  if (Row() != riga) impostaCella(riga, FixedCols());
  selectionModel()->select({modello_->index(riga - 1, 0), modello_->index(riga - 1, Cols() - 1)},
                           QItemSelectionModel::ClearAndSelect);
}

void FlexGrid::premutaFissa(const QModelIndex& cella) {
  setFocus(Qt::MouseFocusReason);
  impostaCella(cella.row() + 1, FixedCols());
  Q_EMIT clic(cella.row() + 1, cella.column());
}

void FlexGrid::currentChanged(const QModelIndex& nuova, const QModelIndex& prima) {
  QTableView::currentChanged(nuova, prima);
  if (nuova.isValid()) Q_EMIT entrata(nuova.row() + 1, nuova.column());
}

void FlexGrid::impostaRedraw(bool acceso) {
  const bool eraAcceso = Redraw();
  spento_ = acceso ? std::max(spento_ - 1, 0) : spento_ + 1;
  if (Redraw() == eraAcceso) return;
  if (acceso)
    modello_->riprendi();
  else
    modello_->sospendi();
  setUpdatesEnabled(acceso);
}

bool FlexGrid::Redraw() const {
  return spento_ == 0;
}

QString FlexGrid::Clip() const {
  QStringList righe;
  for (const QItemSelectionRange& zona : selectionModel()->selection())
    for (int riga = zona.top(); riga <= zona.bottom(); ++riga) {
      QStringList celle;
      for (int colonna = zona.left(); colonna <= zona.right(); ++colonna)
        celle << inUnaCella(TextMatrix(riga + 1, colonna));
      righe << celle.join(QLatin1Char('\t'));
    }
  return righe.join(QLatin1Char('\n'));
}

void FlexGrid::copia() const {
  // With nothing selected the clipboard keeps what it holds.
  if (selectionModel()->hasSelection()) QGuiApplication::clipboard()->setText(Clip());
}

void FlexGrid::keyPressEvent(QKeyEvent* evento) {
  if (evento->matches(QKeySequence::Copy)) return copia();
  const int tasto = evento->key();
  const bool sceglie = tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Space;
  if (!sceglie || evento->modifiers().testFlag(Qt::ControlModifier)) return QTableView::keyPressEvent(evento);
  if (!evento->isAutoRepeat() && Row() > 0) Q_EMIT clic(Row(), Col());
}
