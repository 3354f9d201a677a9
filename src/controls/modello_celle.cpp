#include "controls/modello_celle.h"

#include <algorithm>
#include <utility>

#include "controls/contrasto.h"

namespace {
constexpr Qt::Alignment kAllineamento = Qt::AlignLeft | Qt::AlignVCenter;
}

ModelloCelle::ModelloCelle(QObject* parent) : QAbstractTableModel(parent) {}

int ModelloCelle::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : righe_ - 1;
}

int ModelloCelle::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : colonne_;
}

bool ModelloCelle::dentro(int riga, int colonna) const {
  return riga >= 0 && riga < righe_ && colonna >= 0 && colonna < colonne_;
}

std::size_t ModelloCelle::posto(int riga, int colonna) const {
  return static_cast<std::size_t>(riga) * static_cast<std::size_t>(colonne_) +
         static_cast<std::size_t>(colonna);
}

QVariant ModelloCelle::data(const QModelIndex& indice, int ruolo) const {
  return indice.isValid() ? valore(indice.row() + 1, indice.column(), ruolo) : QVariant();
}

QVariant ModelloCelle::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
  if (verso == Qt::Vertical) return {};
  const QVariant trovato = valore(0, sezione, ruolo);
  // A heading may take two lines.
  return ruolo == Qt::TextAlignmentRole && trovato.isValid() ? trovato.toInt() | Qt::TextWordWrap : trovato;
}

QVariant ModelloCelle::valore(int riga, int colonna, int ruolo) const {
  if (!dentro(riga, colonna)) return {};
  switch (ruolo) {
    case Qt::DisplayRole:
      return testi_[posto(riga, colonna)];
    case Qt::TextAlignmentRole:
      return static_cast<int>(allineamento(riga, colonna));
    case Qt::BackgroundRole: {
      const QColor fondo = sfondo(riga, aspetto(riga, colonna));
      return fondo.isValid() ? QVariant(fondo) : QVariant();
    }
    case Qt::ForegroundRole:
      return coloreTesto(riga, aspetto(riga, colonna));
    default:
      return {};
  }
}

QColor ModelloCelle::sfondo(int riga, const Aspetto& aspetto) const {
  if (aspetto.haSfondo) return QColor::fromRgba(aspetto.sfondo);
  return riga == 0 ? QColor() : sfondo_;
}

QVariant ModelloCelle::coloreTesto(int riga, const Aspetto& aspetto) const {
  QColor fondo = sfondo(riga, aspetto);
  if (!fondo.isValid() && !aspetto.haTesto) return {};
  if (!fondo.isValid()) fondo = tavolozza_.color(riga == 0 ? QPalette::Window : QPalette::Base);
  if (aspetto.haTesto) return contrasto::leggibile(QColor::fromRgba(aspetto.testo), fondo);
  const QColor solito = tavolozza_.color(QPalette::Active, QPalette::Text);
  return contrasto::fra(solito, fondo) >= contrasto::kLeggibile ? solito : contrasto::biancoONero(fondo);
}

void ModelloCelle::impostaRighe(int righe) {
  const int nuove = std::max(righe, 1);
  if (nuove == righe_) return;
  const bool cresce = nuove > righe_;
  if (cresce)
    beginInsertRows({}, righe_ - 1, nuove - 2);
  else
    beginRemoveRows({}, nuove - 1, righe_ - 2);
  righe_ = nuove;
  testi_.resize(posto(righe_, 0));
  numeri_.resize(posto(righe_, 0));
  if (cresce)
    endInsertRows();
  else
    endRemoveRows();
}

void ModelloCelle::impostaColonne(int colonne) {
  const int nuove = std::max(colonne, 0);
  if (nuove == colonne_) return;
  const bool cresce = nuove > colonne_;
  if (cresce)
    beginInsertColumns({}, colonne_, nuove - 1);
  else
    beginRemoveColumns({}, nuove, colonne_ - 1);
  disponi(nuove);
  if (cresce)
    endInsertColumns();
  else
    endRemoveColumns();
}

void ModelloCelle::disponi(int colonne) {
  const std::size_t larghe = static_cast<std::size_t>(colonne);
  std::vector<QString> testi(larghe * static_cast<std::size_t>(righe_));
  std::vector<Numero> numeri(testi.size());
  for (int riga = 0; riga < righe_; ++riga)
    for (int colonna = 0; colonna < std::min(colonne, colonne_); ++colonna) {
      const std::size_t nuovo = static_cast<std::size_t>(riga) * larghe + static_cast<std::size_t>(colonna);
      testi[nuovo] = std::move(testi_[posto(riga, colonna)]);
      numeri[nuovo] = numeri_[posto(riga, colonna)];
    }
  testi_ = std::move(testi);
  numeri_ = std::move(numeri);
  delleColonne_.resize(larghe, kAllineamento);
  colonne_ = colonne;
}

void ModelloCelle::vuota() {
  const auto primo = static_cast<std::ptrdiff_t>(posto(1, 0));
  std::fill(testi_.begin() + primo, testi_.end(), QString());
  std::fill(numeri_.begin() + primo, numeri_.end(), 0);
  cambiatoTutto();
}

QString ModelloCelle::testo(int riga, int colonna) const {
  return dentro(riga, colonna) ? testi_[posto(riga, colonna)] : QString();
}

void ModelloCelle::impostaTesto(int riga, int colonna, const QString& testo) {
  if (!dentro(riga, colonna)) return;
  testi_[posto(riga, colonna)] = testo;
  cambiata(riga, colonna);
}

ModelloCelle::Aspetto ModelloCelle::aspetto(int riga, int colonna) const {
  return dentro(riga, colonna) ? aspetti_[numeri_[posto(riga, colonna)]] : Aspetto{};
}

void ModelloCelle::impostaAspetto(int riga, int colonna, const Aspetto& aspetto) {
  if (!dentro(riga, colonna)) return;
  numeri_[posto(riga, colonna)] = numeroDi(aspetto);
  cambiata(riga, colonna);
}

ModelloCelle::Numero ModelloCelle::numeroDi(const Aspetto& aspetto) {
  const auto [noto, nuovo] = noti_.try_emplace(aspetto, static_cast<Numero>(aspetti_.size()));
  if (nuovo) aspetti_.push_back(aspetto);
  return noto->second;
}

Qt::Alignment ModelloCelle::allineamento(int riga, int colonna) const {
  if (!dentro(riga, colonna)) return kAllineamento;
  const int suo = aspetto(riga, colonna).allineamento;
  return suo != 0 ? Qt::Alignment(suo) : delleColonne_[static_cast<std::size_t>(colonna)];
}

void ModelloCelle::impostaAllineamentoColonna(int colonna, Qt::Alignment allineamento) {
  if (!dentro(0, colonna)) return;
  delleColonne_[static_cast<std::size_t>(colonna)] = allineamento;
  cambiatoTutto();
}

void ModelloCelle::impostaSfondo(const QColor& sfondo) {
  sfondo_ = sfondo;
  cambiatoTutto();
}

void ModelloCelle::impostaTavolozza(const QPalette& tavolozza) {
  tavolozza_ = tavolozza;
  cambiatoTutto();
}

void ModelloCelle::sospendi() {
  sospeso_ = true;
}

void ModelloCelle::riprendi() {
  sospeso_ = false;
  if (std::exchange(cambiate_, false)) cambiatoTutto();
}

void ModelloCelle::cambiata(int riga, int colonna) {
  if (sospeso_)
    cambiate_ = true;
  else if (riga == 0)
    Q_EMIT headerDataChanged(Qt::Horizontal, colonna, colonna);
  else
    Q_EMIT dataChanged(index(riga - 1, colonna), index(riga - 1, colonna));
}

void ModelloCelle::cambiatoTutto() {
  cambiate_ = sospeso_;
  if (sospeso_ || colonne_ == 0) return;
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, colonne_ - 1);
  if (righe_ > 1) Q_EMIT dataChanged(index(0, 0), index(righe_ - 2, colonne_ - 1));
}
