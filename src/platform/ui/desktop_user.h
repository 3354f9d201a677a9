#pragma once

#include <functional>

#include "platform/ui/beat.h"
#include "platform/ui/equal_notices.h"
#include "platform/ui/user_port.h"

/// The title of every box that has none of its own.
inline const QString kApplicationTitle = QStringLiteral("Gestionale Misuratori Fiscali");

/// The user port over the desktop's own boxes and dialogs. Each stands before the active window and lifts the
/// busy guard while it is open. A notice that comes again and again within one command can be let pass.
class DesktopUser : public Utente {
 public:
  /// `close` runs just before `Terminate` ends the process: it closes the databases.
  explicit DesktopUser(std::function<void()> close);

  std::optional<QString> AskOpenPath(const FileRequest& window) override;
  std::optional<QString> AskSavePath(const FileRequest& window) override;
  void DoEvents() override;
  void DoEventsAtRecord() override;
  void CopyToClipboard(const QString& text) override;
  QString ClipboardText() override;
  void StartProgram(const QString& program, const QStringList& arguments) override;
  void OpenWithDesktop(const QString& file) override;
  /// Exit code 0. No destructor runs: screens in the middle of a command would meet what is already gone.
  [[noreturn]] void Terminate() override;

 private:
  Answer ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                 Preset preset) override;

  std::function<void()> close_;
  Beat beat_;
  EqualNotices notices_;
};
