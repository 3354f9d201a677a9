#pragma once

#include <QMainWindow>
#include <array>
#include <memory>

#include "controls/outcome_bar.h"
#include "core/screen.h"
#include "graphics/catalogue.h"
#include "graphics/preparation.h"

class ComandiLink;
class QListWidgetItem;
class TesseraGrafica;
namespace Ui {
class Form_Grafica;
}

/// "Qz Grafica ": which bitmap stands for which of the till's twelve pictures, and their way to the till.
class Form_Grafica : public Schermo<QMainWindow> {
  Q_OBJECT

 public:
  /// `convertitore`: set by tests alone.
  explicit Form_Grafica(Contesto& contesto, graphics::Convertitore convertitore = {});
  ~Form_Grafica() override;

 protected:
  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void changeEvent(QEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Modifica_clicked();
  void on_Cmd_Avvia_clicked();
  void on_Cmd_Esci_clicked();
  void on_Drive1_activated(int indice);
  void on_Dir1_itemActivated(QListWidgetItem* voce);
  void on_File1_itemClicked(QListWidgetItem* voce);
  void on_File1_itemActivated(QListWidgetItem* voce);
  void on_MSFlexGridGrafica_cellClicked(int riga, int colonna);
  void on_MSFlexGridGrafica_entered(int riga, int colonna);

 private:
  enum class SeManca {
    Riquadro,  ///< a box says so
    Taci,      ///< the tile says so
  };

  void vesti();
  void faiTessere();
  void misura();
  void carica();
  void caricaCatalogo();
  QString percorsoCatalogo() const;
  QString cartellaIniziale() const;

  /// Shows a folder; false, with the one before still shown, where it cannot be looked into.
  bool vaiIn(const QString& cartella);
  void riempiElenchi();
  void rileggi();
  void scegliFile(const QString& nome);
  void scegliRiga(int riga, SeManca seManca);
  void lasciata(int riga, const QString& percorso);
  /// Into the preview. A failure has been shown.
  bool mostraImmagine(const QString& percorso);
  TesseraGrafica& tessera(int riga) const;
  void aggiornaTessera(int riga);
  void aggiornaTessere();
  void raccontaScelta(int riga);
  void raccontaCartella();
  void racconta(OutcomeBar::Kind genere, const QString& testo);

  void connetti();
  /// Looks at the pictures anew for the till that has just answered. What stands against sending them to it.
  QString perQuestaCassa();
  void abilitaTutto(bool abilitati);
  /// False where the preparation failed.
  bool invia();
  int prepara(std::optional<ecrlink::ScambioEsclusivo>& scambio);
  void salva();

  std::unique_ptr<Ui::Form_Grafica> ui_;
  graphics::Convertitore convertitore_;
  ComandiLink* comandi_ = nullptr;
  std::array<TesseraGrafica*, graphics::kImmagini> tessere_{};
  QString cartella_;
  /// Path of the picture in the preview; empty for none.
  QString mostrata_;
  /// Dots across that the connected till wants; 0 while none is connected.
  int larghezza_ = 0;
  /// The catalogue's file could not be read, and nothing has been chosen since: there is nothing to save.
  bool daNonSalvare_ = false;
  bool chiusa_ = false;
};
