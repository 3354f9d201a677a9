#pragma once

#include "check.h"
#include "platform/ui/user_port.h"

/// A person who reads every box, agrees to everything and chooses no file.
class SilentUser : public Utente {
 public:
  Answer ShowBox(const QString& text, Icon, const QString&, Buttons, Preset) override {
    check(!text.isEmpty());
    ++boxes;
    return Answer::Ok;
  }
  std::optional<QString> AskOpenPath(const FileRequest&) override { return std::nullopt; }
  std::optional<QString> AskSavePath(const FileRequest&) override { return std::nullopt; }
  void DoEvents() override {}
  void CopyToClipboard(const QString&) override {}
  QString ClipboardText() override { return {}; }
  void StartProgram(const QString&, const QStringList&) override {}
  void OpenWithDesktop(const QString&) override {}
  [[noreturn]] void Terminate() override { throw ProgramEnded{}; }

  int boxes = 0;
};
