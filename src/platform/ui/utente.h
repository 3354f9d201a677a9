#pragma once

#include <QString>
#include <QStringList>
#include <optional>

/// The picture beside a message.
enum class Icona { Nessuna, Critica, Domanda, Esclamazione, Informazione };

/// The set of buttons of a message box.
enum class Pulsanti { OK, OKAnnulla, SiNo, SiNoAnnulla };

/// What the person answered. A box closed by its frame answers Annulla where there is such a button,
/// No where there are only Yes and No, OK elsewhere.
enum class Risposta { OK, Annulla, Si, No };

/// What an open or save dialog starts from.
struct FinestraFile {
  QString titolo;
  /// In the form "csv (*.csv)|*.csv": pairs of description and pattern parted by "|".
  QString filtro;
  /// Folder shown first; empty: the current one.
  QString cartella;
};

/// Thrown by the tests' port in place of the end of the process. Not an error: nothing but the guard at the
/// event loop catches it.
struct ProgrammaTerminato {};

/// The one door to the person at the screen: boxes, file dialogs, event pump, clipboard, other programs.
class Utente {
 public:
  Utente() = default;
  Utente(const Utente&) = delete;
  Utente& operator=(const Utente&) = delete;
  virtual ~Utente() = default;

  /// Shows a box and waits for its answer. An empty title is replaced by the application's.
  virtual Risposta MsgBox(const QString& testo, Icona icona = Icona::Nessuna, const QString& titolo = {},
                          Pulsanti pulsanti = Pulsanti::OK) = 0;

  /// Path of an existing file, or nothing when the person cancelled.
  virtual std::optional<QString> FinestraApri(const FinestraFile& finestra) = 0;
  /// Path to write to, with the filter's extension added where the person typed none; it may exist: the
  /// caller asks. Nothing when the person cancelled.
  virtual std::optional<QString> FinestraSalva(const FinestraFile& finestra) = 0;

  /// Lets waiting events through once. Input is eaten while an `Occupato` lives.
  virtual void DoEvents() = 0;
  /// The same at each record of a long loop. The desktop's passes keep a beat, so that the loop does not
  /// spend its time on looking for events.
  virtual void DoEventsAlRecord() { DoEvents(); }

  virtual void CopiaNegliAppunti(const QString& testo) = 0;
  virtual QString TestoDegliAppunti() = 0;

  /// Starts another program without waiting. Throws Errore 53 if it cannot be started.
  virtual void AvviaProgramma(const QString& programma, const QStringList& argomenti) = 0;
  /// Opens a file with the desktop's program for it. Throws Errore 53 if there is none.
  virtual void ApriConDesktop(const QString& file) = 0;

  /// Ends the process at once. Open databases are closed first, unfinished transactions undone.
  [[noreturn]] virtual void Termina() = 0;
};
