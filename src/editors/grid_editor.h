#pragma once

#include <QWidget>
#include <memory>
#include <set>
#include <vector>

#include "core/screen.h"
#include "editors/changes.h"
#include "editors/column_rules.h"

class FlexGrid;
class QKeyEvent;
class QLineEdit;
namespace Ui {
class EditorGriglia;
}

/// An editor of a family of records: a grid, and for each of its columns a box, `casella_1` and so on, of
/// which one at a time lies over the current cell and goes where its cell goes. What is typed stands in the
/// cell at once and has been checked; it comes into the records by a save alone.
class EditorGriglia : public Schermo<QWidget>, public editors::Editor {
  Q_OBJECT

 public:
  using SalvaRighe = void (*)(const FlexGrid& griglia);

  /// The grid is filled. `tabella` outlives the screen; `inMemoria` moves the grid's rows into its records.
  EditorGriglia(Contesto& contesto, const editors::Tabella& tabella, SalvaRighe inMemoria);
  ~EditorGriglia() override;

  bool pronto() override { return tuttoSalvabile(); }
  void salvaInMemoria() override;
  void ricarica() override;

 protected:
  bool eventFilter(QObject* casella, QEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Modifica_clicked();
  void on_Cmd_Reset_clicked();

 private:
  /// A cell as it was when its box was placed over it.
  struct Prima {
    QString testo;
    bool segnata = false;
    Bandiera modificato = kFalso;
  };

  void vesti();
  void creaCaselle();
  void seguiGriglia();
  void colloca(int riga, int colonna);
  void posa();
  void mostra();
  void nascondi();
  bool nellaCasella(const QKeyEvent& evento);
  bool freccia(const QKeyEvent& evento);
  void scendi(int righe);
  bool passa(int passo);
  void cambiata();
  void rimetti();
  void segna(int riga, bool segnata);
  void salva();
  bool tuttoSalvabile();
  void annulla();
  void mostraStato();

  FlexGrid& griglia() const;
  QLineEdit& casella() const;
  const editors::Colonna& colonna() const;
  Bandiera& modificato() const { return varGestionePRG().*tabella_.modificato; }
  QString modificate() const;
  QString oltreIlLimite() const;

  const editors::Tabella& tabella_;
  SalvaRighe inMemoria_;
  std::unique_ptr<Ui::EditorGriglia> ui_;
  std::vector<QLineEdit*> caselle_;
  /// The cell that a box lies over; column 0 with none.
  int riga_ = 0;
  int colonna_ = 0;
  Prima prima_;
  /// Rows that were changed since the last fill.
  std::set<int> modificate_;
  /// While a box is given its text, and while the grid is filled.
  bool daProgramma_ = false;
};
