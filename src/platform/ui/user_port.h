#pragma once

#include <QString>
#include <QStringList>
#include <optional>

/// The picture beside a message.
enum class Icon { None, Critical, Question, Warning, Information };

/// The set of buttons of a message box.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };

/// What the person answered. A box closed by its frame answers Annulla where there is such a button,
/// No where there are only Yes and No, OK elsewhere.
enum class Answer { Ok, Cancel, Yes, No };

/// What an open or save dialog starts from.
struct FileRequest {
  QString title;
  /// In the form "csv (*.csv)|*.csv": pairs of description and pattern parted by "|".
  QString filter;
  /// Folder shown first; empty: the current one.
  QString folder;
};

/// Thrown by the tests' port in place of the end of the process. Not an error: nothing but the guard at the
/// event loop catches it.
struct ProgramEnded {};

/// The one door to the person at the screen: boxes, file dialogs, event pump, clipboard, other programs.
class Utente {
 public:
  Utente() = default;
  Utente(const Utente&) = delete;
  Utente& operator=(const Utente&) = delete;
  virtual ~Utente() = default;

  /// Shows a box and waits for its answer. An empty title is replaced by the application's.
  virtual Answer MsgBox(const QString& text, Icon icon = Icon::None, const QString& title = {},
                        Buttons buttons = Buttons::Ok) = 0;

  /// Path of an existing file, or nothing when the person cancelled.
  virtual std::optional<QString> AskOpenPath(const FileRequest& window) = 0;
  /// Path to write to, with the filter's extension added where the person typed none; it may exist: the
  /// caller asks. Nothing when the person cancelled.
  virtual std::optional<QString> AskSavePath(const FileRequest& window) = 0;

  /// Lets waiting events through once. Input is eaten while an `BusyGuard` lives.
  virtual void DoEvents() = 0;
  /// The same at each record of a long loop. The desktop's passes keep a beat, so that the loop does not
  /// spend its time on looking for events.
  virtual void DoEventsAtRecord() { DoEvents(); }

  virtual void CopyToClipboard(const QString& text) = 0;
  virtual QString ClipboardText() = 0;

  /// Starts another program without waiting. Throws Errore 53 if it cannot be started.
  virtual void StartProgram(const QString& program, const QStringList& arguments) = 0;
  /// Opens a file with the desktop's program for it. Throws Errore 53 if there is none.
  virtual void OpenWithDesktop(const QString& file) = 0;

  /// Ends the process at once. Open databases are closed first, unfinished transactions undone.
  [[noreturn]] virtual void Terminate() = 0;
};
