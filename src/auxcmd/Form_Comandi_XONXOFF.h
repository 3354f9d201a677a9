#pragma once

#include <QMainWindow>
#include <memory>

#include "auxcmd/channel.h"
#include "auxcmd/dump_file.h"
#include "auxcmd/serial_line.h"
#include "core/screen.h"

class QComboBox;
namespace Ui {
class Form_Comandi_XONXOFF;
}

/// " Gestione Comandi Ausiliari ECR": reads the till's state, dumps its journal and its fiscal memory, over
/// the network or a serial line, and leads to the test bench.
class Form_Comandi_XONXOFF : public Schermo<QMainWindow>, public auxcmd::VistaCanale {
  Q_OBJECT

 public:
  explicit Form_Comandi_XONXOFF(Contesto& contesto);
  ~Form_Comandi_XONXOFF() override;

  QString porta() const override;
  int velocita() const override;
  LineaCOM& linea() override { return linea_; }
  void fuocoSuEsci() override;
  void abilitaComandi() override;
  void scambiaLed() override;
  void spegniLed() override;
  void mostraAttesa() override;
  void togliAttesa() override;
  bool chiusa() const override { return chiusa_; }
  void annota(auxcmd::Verso verso, const QByteArray& byte) override;

 protected:
  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;
  void resizeEvent(QResizeEvent* evento) override;
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private Q_SLOTS:
  void on_Cmd_Avvia_clicked();
  void on_Cmd_Esci_clicked();
  void on_Cmd_CopiaRegistro_clicked();
  void on_Cmd_SalvaRegistro_clicked();
  void on_mnuTestSeqCmd_triggered();
  void on_mnuCodiciErrori_triggered();
  void on_mnuManuale_triggered();

 private:
  /// A command that lets events through: closed meanwhile, the screen under its feet stays until its end.
  template <typename Corpo>
  void eseguiFinoInFondo(const char* procedura, Corpo&& corpo, Piede piede = Piede::Nuovo);

  void carica();
  void vesti();
  void vestiNumeri();
  void seguiLinea();
  void spiegaAvvia();
  /// The log has what the boxes above leave, and no less than its own least height.
  void dividi();
  void riempiPorte();
  void riempiDate();
  void seguiScelte();

  void connetti();
  void collegaSequenze();
  void portaScelta();
  /// What can be set, by what is to be read.
  void abilitaScelte();
  void DisabilitaInfoRxPrg();
  void AbilitaInfoRxPrg();
  void abilitaFontiERicerche(bool abilitate);
  void SetDataScontrino();
  void EnableDataScontrino();
  void DisableDataScontrino();
  bool CheckDataPerNumScontrini() const;

  void avvia();
  void leggiStato();
  void leggiMemoria();
  int esegueNelCanale(const QString& comando);
  void diciStato();
  void diciLetto();
  void diciDump(int esito);
  /// The command of a dump; empty for one that was refused, which was told.
  QString comandoDump();
  QString perDate(auxcmd::Memoria memoria);
  QString perNumeri(auxcmd::Memoria memoria);
  auxcmd::Memoria memoria() const;
  QString rifiuta(const QString& messaggio, Icon icona);
  bool portaValida();
  void occupa(bool occupata);
  void guastoDellaPorta(const Errore& errore);

  void seguiProve();
  bool collegata();
  void inviaScript(const QString& file);

  void esci();
  void offriFile();
  void scollega();
  void finisci();
  QString nomeUltimoDump() const;

  std::unique_ptr<Ui::Form_Comandi_XONXOFF> ui_;
  LineaCOM linea_;
  auxcmd::FileDump file_;
  QString ultimo_;
  bool verde_ = false;
  bool inCorso_ = false;
  int comandi_ = 0;
  bool divisaAMano_ = false;
  bool chiusa_ = false;
};
