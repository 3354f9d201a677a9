#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QPalette>
#include <map>
#include <tuple>
#include <vector>

/// The cells of a grid: a text and the number of an appearance each, in two flat arrays; the few appearances
/// that are in use are kept once. Rows count as the grid counts them: 0 is the heading, and to the views row
/// r is model row r - 1. What lies outside reads empty and is not written.
class ModelloCelle : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// Of a cell that wants other than its column and its grid give it. Invalid colours and no alignment:
  /// theirs.
  struct Aspetto {
    bool haSfondo = false;
    bool haTesto = false;
    QRgb sfondo = 0;
    QRgb testo = 0;
    int allineamento = 0;
    bool operator<(const Aspetto& altro) const {
      return std::tie(haSfondo, haTesto, sfondo, testo, allineamento) <
             std::tie(altro.haSfondo, altro.haTesto, altro.sfondo, altro.testo, altro.allineamento);
    }
  };

  explicit ModelloCelle(QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& indice, int ruolo) const override;
  QVariant headerData(int sezione, Qt::Orientation verso, int ruolo) const override;

  int righe() const { return righe_; }
  int colonne() const { return colonne_; }
  void impostaRighe(int righe);
  void impostaColonne(int colonne);
  void vuota();

  QString testo(int riga, int colonna) const;
  void impostaTesto(int riga, int colonna, const QString& testo);
  Aspetto aspetto(int riga, int colonna) const;
  void impostaAspetto(int riga, int colonna, const Aspetto& aspetto);
  Qt::Alignment allineamento(int riga, int colonna) const;
  void impostaAllineamentoColonna(int colonna, Qt::Alignment allineamento);

  /// Ground of the data cells that have none of their own; invalid: the palette's.
  void impostaSfondo(const QColor& sfondo);
  /// The colours around the cells, against which theirs have to be read.
  void impostaTavolozza(const QPalette& tavolozza);

  /// While suspended, changes of cells are gathered; the views are told at the end, once.
  void sospendi();
  void riprendi();

 private:
  using Numero = quint32;

  bool dentro(int riga, int colonna) const;
  std::size_t posto(int riga, int colonna) const;
  QVariant valore(int riga, int colonna, int ruolo) const;
  QColor sfondo(int riga, const Aspetto& aspetto) const;
  QVariant coloreTesto(int riga, const Aspetto& aspetto) const;
  Numero numeroDi(const Aspetto& aspetto);
  void disponi(int colonne);
  void cambiata(int riga, int colonna);
  void cambiatoTutto();

  int righe_ = 1;
  int colonne_ = 0;
  std::vector<QString> testi_;
  std::vector<Numero> numeri_;
  std::vector<Aspetto> aspetti_{Aspetto{}};
  std::map<Aspetto, Numero> noti_{{Aspetto{}, 0}};
  std::vector<Qt::Alignment> delleColonne_;
  QColor sfondo_;
  QPalette tavolozza_;
  bool sospeso_ = false;
  bool cambiate_ = false;
};
