#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <QTableView>
#include <string>
#include <vector>

#include "bench/base_sqlite.h"

/// What a screen with a list is measured against: the rows read straight through SQLite into a vector of
/// texts, and a table view over them. No rule, no event pass, no colour.
class ElencoSemplice {
 public:
  ElencoSemplice();

  /// Reads the rows of a query, amounts in hundredths through two decimals, and hands them to the view.
  /// `importi` are the columns of amounts.
  void riempi(base::Sqlite& sqlite, const char* sql, const std::vector<int>& importi);
  /// Shows the view and lets it paint.
  void mostra();
  /// Every row as a line of its cells parted by ";", CR LF behind each, single bytes.
  void scrivi(const std::string& file) const;
  int righe() const { return modello_.rowCount({}); }

 private:
  class Modello : public QAbstractTableModel {
   public:
    int rowCount(const QModelIndex& padre) const override;
    int columnCount(const QModelIndex& padre) const override;
    QVariant data(const QModelIndex& indice, int ruolo) const override;

    void prendi(std::vector<QString> celle, int colonne);
    const QString& cella(int riga, int colonna) const;

   private:
    std::vector<QString> celle_;
    int colonne_ = 1;
  };

  Modello modello_;
  QTableView vista_;
};
