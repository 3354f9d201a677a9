#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <utility>
#include <vector>

#include "controls/outcome_bar.h"
#include "core/screen.h"
#include "platform/error.h"
#include "platform/store/store.h"

class QAction;
class QLabel;
class QPushButton;

/// What a front door tells of the open archive.
struct ContenutoArchivio {
  /// False for a database of another kind, which is found when its first screen opens.
  bool leggibile = false;
  /// What stands behind the archive's name at the foot: "5.000 articoli".
  QString inBreve{};
  /// The line on the card; of an archive that cannot be read it says that.
  QString perEsteso{};
};

/// A kind of archive, as its front door handles it.
struct GenereArchivio {
  /// The open one, and the path of the one that was opened last.
  const store::Database& aperto;
  const QString& percorso;
  /// Makes a new archive at a path and opens it; returns where the one before it is kept, empty for none.
  QString (*crea)(const QString& percorso, Contesto& contesto);
  /// Opens one; what fails leaves the open one as it is.
  void (*apri)(const QString& percorso, Contesto& contesto);
  void (*chiudi)();
  /// Shows nothing and throws nothing.
  ContenutoArchivio (*contenuto)();
};

/// What the front doors of the archives share: one archive is made, opened and closed, and the commands over
/// it work only while it is open. A form has the controls that `allestisci` names, and slots of its own for
/// "Nuovo" and "Apri", which are not laid down alike.
class AreaArchivio : public Schermo<QMainWindow> {
  Q_OBJECT

 protected:
  AreaArchivio(Contesto& contesto, const GenereArchivio& genere);

  /// Icons, tooltips, a button beside each menu entry, the state without an archive. `contenuto` is the line
  /// on the card; the first of `comandi` is the next step once an archive is open.
  template <typename Form>
  void allestisci(const Form& ui, QLabel& contenuto, std::vector<QWidget*> comandi) {
    allestisci({ui.mnuNuovo, ui.mnuApri, ui.mnuClose, ui.mnuManuale, ui.PulsanteNuovo, ui.PulsanteApri,
                ui.PulsanteChiudi, ui.Cmd_Esci, ui.centrale, ui.LabelArchivio, &contenuto, ui.BarraEsito,
                std::move(comandi)});
  }
  /// A button that does what the menu entry does, and is on when that is.
  static void accoppia(QPushButton& pulsante, QAction& voce);

  /// Runs a command on files: it fails without a box, only the line at the foot tells, and the screen shows
  /// what is open whatever failed.
  template <typename Corpo>
  void eseguiSuFile(const char* procedura, Corpo&& corpo) {
    const QPointer<QWidget> prima = focusWidget();
    esegui(procedura, [&] {
      try {
        std::forward<Corpo>(corpo)();
      } catch (const Errore& errore) {
        racconta(OutcomeBar::Kind::Failed, errore.descrizione);
      }
      aggiorna();
    });
    ridaiIlFuoco(prima);
  }

  /// Asks for a name, asks again before it overwrites, makes the archive and opens it. Nothing happens where
  /// the person changes their mind. Throws what failed.
  void creaArchivio();
  /// Switches the commands off, asks for a file and opens it. False, with the commands off, where the person
  /// changed their mind. Throws what failed: then they are off too.
  bool apriArchivio();
  /// Runs a screen over the open archive to its end.
  void mostraSchermata(const char* nome);
  /// The same as the one step of a command.
  void apriSchermata(const char* procedura, const char* nome);

  bool archivioAperto() const { return genere_.aperto.isOpen(); }
  /// File name of the archive that was opened last, and its path as the platform writes it.
  QString nomeArchivio() const;
  QString percorsoArchivio() const;
  bool comandiAccesi() const;
  void abilitaComandi(bool abilitati);
  /// What the tooltips of the commands say while they are off.
  void spiegaComandi(const QString& perche);
  void racconta(OutcomeBar::Kind genere, const QString& testo);
  /// Why a command waits for an archive.
  static QString senzaArchivio();

  /// The state that the screen has with an archive open or with none.
  virtual void mostraAperto(bool aperto);
  /// Shows which archive is open and what it holds.
  virtual void aggiorna();

  void closeEvent(QCloseEvent* evento) override;
  void keyPressEvent(QKeyEvent* evento) override;

 private Q_SLOTS:
  void on_mnuClose_triggered();
  void on_mnuManuale_triggered();
  void on_Cmd_Esci_clicked();

 private:
  struct Controlli {
    QAction* mnuNuovo = nullptr;
    QAction* mnuApri = nullptr;
    QAction* mnuClose = nullptr;
    QAction* mnuManuale = nullptr;
    QPushButton* PulsanteNuovo = nullptr;
    QPushButton* PulsanteApri = nullptr;
    QPushButton* PulsanteChiudi = nullptr;
    QPushButton* Cmd_Esci = nullptr;
    QWidget* centrale = nullptr;
    QLabel* nome = nullptr;
    QLabel* contenuto = nullptr;
    OutcomeBar* barra = nullptr;
    std::vector<QWidget*> comandi{};
  };

  void allestisci(Controlli controlli);
  void chiudi();
  void raccontaCreato(const QString& precedente);
  void raccontaAperto();
  /// To the control that had it before a command, or to the next step where that one is off now.
  void ridaiIlFuoco(QWidget* prima);

  GenereArchivio genere_;
  Controlli controlli_;
};
