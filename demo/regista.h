#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>

class QWidget;

/// Plays a list of steps on the real screens: waits until a step's moment has come, then clicks or types. The
/// steps go on inside modal loops. A step whose moment does not come in time ends the play.
class Regista : public QObject {
  Q_OBJECT

 public:
  using Quando = std::function<bool()>;
  using Azione = std::function<void()>;

  Regista();
  void passo(const QString& nome, Quando quando, Azione azione);
  /// Runs the event loop until the last step. Returns 0, or 1 if a step failed.
  int esegui();
  /// Ends the play as failed.
  void fallisci(const QString& motivo);

 private:
  struct Passo {
    QString nome;
    Quando quando;
    Azione azione;
  };

  void battito();
  void recita(const Passo& passo);

  std::deque<Passo> passi_;
  QTimer orologio_;
  QElapsedTimer attesa_;
  bool inCorso_ = false;
  int esito_ = 0;
};

/// The visible top-level window of that object name, if any.
QWidget* finestra(const QString& nome);
/// The visible window's control of that name; fails with std::runtime_error where there is none.
QWidget& controllo(const QString& finestra, const QString& nome);
void clicca(const QString& finestra, const QString& nome);
/// Moves the mouse over a control.
void passaSopra(const QString& finestra, const QString& nome);
/// Replaces the text of an input box by keys.
void digita(const QString& finestra, const QString& nome, const QString& testo);
/// The same where the box drops keys typed over what it holds: the old text goes letter by letter first.
void ridigita(const QString& finestra, const QString& nome, const QString& testo);
/// The texts that a grid shows: one row of data after the other, the heading left out.
QList<QStringList> celle(const QString& finestra, const QString& griglia);
/// Clicks a cell of a grid, both from 0, the heading left out.
void cliccaCella(const QString& finestra, const QString& griglia, int riga, int colonna);
/// Opens a menu of the window and clicks one of its entries.
void scegliVoce(const QString& finestra, const QString& menu, const QString& voce);
/// Whether a file dialog or a box stands in front.
bool dialogoFile();
bool riquadro();
QString testoRiquadro();
/// The file dialog in front: its name by keys, then, once it knows the file, its button.
void digitaNomeFile(const QString& percorso);
bool fileAccettabile();
void accettaFile();
/// Clicks the first button of the box in front.
void chiudiRiquadro();
