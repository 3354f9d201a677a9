#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "core/screen.h"
#include "customers/registry.h"

class PrimaryCommand;
class QFocusEvent;
class QLabel;
class QLineEdit;
class QPushButton;
namespace elenco {
class Caselle;
}
namespace Ui {
class Form_AnagraficaClienti;
}

/// "Anagrafica Clienti": finding, adding, correcting and deleting the customers of the open archive.
class Form_AnagraficaClienti : public Schermo<QDialog> {
  Q_OBJECT

 public:
  /// Fills the list under the wait box; a failure of the fill ends the program.
  explicit Form_AnagraficaClienti(Contesto& contesto);
  ~Form_AnagraficaClienti() override;

  customers::CampiCliente campi() const;
  /// The store command for 0, the change command for 1, both for any other number: which of them are on
  /// tells whether the fields are those of a new customer or of one who is there.
  void AbilitaTasti(int quali);
  void DisabilitaTasti(int quali);

 protected:
  bool eventFilter(QObject* chi, QEvent* evento) override;

 private Q_SLOTS:
  void on_Vmd_Cerca_clicked();
  void on_Cmd_Refresh_clicked();
  void on_Cmd_Reset_clicked();
  void on_Cmd_nuovo_clicked();
  void on_vkCmd_Memorizza_Cliente_clicked();
  void on_Cmd_Modifica_clicked();
  void on_Cmd_Elimina_clicked();
  void on_Cmd_Export_clicked();
  void on_vkCommand1_clicked();
  void on_Cmd_Esci_clicked();
  void on_MSFlexGridClienti_cellClicked(int riga);

 private:
  struct Conteggio {
    QLineEdit* campo;
    QLabel* etichetta;
    int limite;
  };

  void vesti();
  void preparaTasti();
  void sorvegliaCampi();
  void contaCampo(QLineEdit& campo, QLabel& etichetta, customers::ColonnaCliente colonna);
  void apri();

  void cancellaCampi();
  /// The fields show the customer of a code as the list has him; empty where it has none.
  void rinfrescaCampi(const QString& codice);
  void copiaRiga(int riga);
  void rifaiElenco();
  /// Counts the customers of the archive and tells those of the list.
  void mostraQuanti();
  void raccontaElenco();

  void nuovo();
  void memorizza();
  void modifica();
  void elimina();
  void fatture();
  /// Says at the foot what of the fields has gone unsaved; true if something has.
  bool diciPerse(const QString& perse, const char16_t* come);
  /// Leads to the field that a store or a change refused.
  void rifiutato(const customers::EsitoCliente& esito);

  /// The primary command, the mark in the list and the counts follow what stands in the fields.
  void seguiCampi();
  void contaCampi();
  void seguiPrimario();
  void codiceCambiato();
  void partitaIVACambiata();
  void partitaIVALasciata(const QFocusEvent& evento);
  void avvisa(const char* procedura, const QString& messaggio, Icon icona);
  /// The save that Ctrl+S gives; null with both off.
  QPushButton* salvataggio() const;
  /// How the foot calls the customer that the fields were filled with.
  QString scelto() const;

  std::unique_ptr<Ui::Form_AnagraficaClienti> ui_;
  std::unique_ptr<elenco::Caselle> caselle_;
  std::unique_ptr<PrimaryCommand> primario_;
  std::vector<Conteggio> conteggi_;
  /// The fields as the picked row, "Nuovo" or the last save left them; without a code with none of these.
  customers::CampiCliente scelta_;
  /// They are those of a customer to be stored.
  bool nuovo_ = false;
  bool daSalvare_ = false;
  /// While the program itself writes into the fields.
  bool copia_ = false;
  /// The code that was looked at last.
  QString codice_;
};
