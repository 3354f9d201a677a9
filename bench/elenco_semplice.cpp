#include "bench/elenco_semplice.h"

#include <QCoreApplication>
#include <algorithm>
#include <fstream>

namespace {

constexpr int kLarghezza = 1000;
constexpr int kAltezza = 600;

QString testo(sqlite3_stmt* frase, int colonna) {
  const auto* byte = reinterpret_cast<const char*>(sqlite3_column_text(frase, colonna));
  return QString::fromUtf8(byte, sqlite3_column_bytes(frase, colonna));
}

QString importo(sqlite3_stmt* frase, int colonna) {
  return QString::number(sqlite3_column_int(frase, colonna) / 100.0, 'f', 2);
}

}  // namespace

int ElencoSemplice::Modello::rowCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : static_cast<int>(celle_.size()) / colonne_;
}

int ElencoSemplice::Modello::columnCount(const QModelIndex& padre) const {
  return padre.isValid() ? 0 : colonne_;
}

QVariant ElencoSemplice::Modello::data(const QModelIndex& indice, int ruolo) const {
  return ruolo == Qt::DisplayRole ? QVariant(cella(indice.row(), indice.column())) : QVariant();
}

const QString& ElencoSemplice::Modello::cella(int riga, int colonna) const {
  return celle_[static_cast<std::size_t>(riga * colonne_ + colonna)];
}

void ElencoSemplice::Modello::prendi(std::vector<QString> celle, int colonne) {
  beginResetModel();
  celle_ = std::move(celle);
  colonne_ = colonne;
  endResetModel();
}

ElencoSemplice::ElencoSemplice() {
  vista_.resize(kLarghezza, kAltezza);
  vista_.setModel(&modello_);
}

void ElencoSemplice::riempi(base::Sqlite& sqlite, const char* sql, const std::vector<int>& importi) {
  sqlite3_stmt* frase = sqlite.prepara(sql);
  const int colonne = sqlite3_column_count(frase);
  std::vector<bool> inCentesimi(static_cast<std::size_t>(colonne));
  for (const int colonna : importi) inCentesimi[static_cast<std::size_t>(colonna)] = true;
  std::vector<QString> celle;
  while (sqlite3_step(frase) == SQLITE_ROW)
    for (int i = 0; i < colonne; ++i)
      celle.push_back(inCentesimi[static_cast<std::size_t>(i)] ? importo(frase, i) : testo(frase, i));
  sqlite3_reset(frase);
  modello_.prendi(std::move(celle), colonne);
}

void ElencoSemplice::mostra() {
  vista_.show();
  QCoreApplication::processEvents();
}

void ElencoSemplice::scrivi(const std::string& file) const {
  std::ofstream uscita(file, std::ios::binary);
  for (int riga = 0; riga < righe(); ++riga) {
    QByteArray linea;
    for (int colonna = 0; colonna < modello_.columnCount({}); ++colonna)
      linea += modello_.cella(riga, colonna).toLatin1() + ';';
    uscita.write(linea.constData(), linea.size()).write("\r\n", 2);
  }
}
