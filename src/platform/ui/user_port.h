#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <utility>

/// The picture beside a message.
enum class Icon { None, Critical, Question, Warning, Information };

/// The set of buttons of a message box.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };

/// What the person answered. A box closed by its frame answers Cancel where there is such a button,
/// No where there are only Yes and No, OK elsewhere.
enum class Answer { Ok, Cancel, Yes, No };

/// Which button Enter presses: the first, or the last where the first would lose data.
enum class Preset { First, Last };

/// What a box without a question said.
struct Notice {
  QString text;
  Icon icon = Icon::None;
};

/// What an open or save dialog starts from.
struct FileRequest {
  QString title;
  /// In the form "csv (*.csv)|*.csv": pairs of description and pattern parted by "|".
  QString filter;
  /// Folder shown first; empty: that of the file chosen last in this run, at first the application's.
  QString folder;
  /// A save dialog asks by itself before it hands over a file that exists.
  bool asksBeforeReplacing = false;
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
  Answer MsgBox(const QString& text, Icon icon = Icon::None, const QString& title = {},
                Buttons buttons = Buttons::Ok, Preset preset = Preset::First);
  /// The gravest notice since the last call, the first of them where several are as grave; nothing where none
  /// was shown. Questions are none.
  std::optional<Notice> TakeNotice() { return std::exchange(notice_, std::nullopt); }

  /// Path of an existing file, or nothing when the person cancelled.
  virtual std::optional<QString> AskOpenPath(const FileRequest& window) = 0;
  /// Path to write to, with the filter's extension added where the person typed none; it may exist: the
  /// caller asks, unless the request does. Nothing when the person cancelled.
  virtual std::optional<QString> AskSavePath(const FileRequest& window) = 0;

  /// Lets waiting events through once. Input is eaten while a `BusyGuard` lives.
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

 private:
  virtual Answer ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                         Preset preset) = 0;

  std::optional<Notice> notice_;
};
