#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "platform/ui/user_port.h"

/// One box as the person saw it.
struct Box {
  QString text;
  Icon icon = Icon::None;
  QString title;
  Buttons buttons = Buttons::Ok;
  Preset preset = Preset::First;

  bool operator==(const Box&) const = default;
};
void PrintTo(const Box& box, std::ostream* output);

/// The tests' user port: answers from a script, keeps every call in order. A question (more than one button)
/// or file dialog without a scripted answer fails the test, and so does an answer left over, or boxes that
/// the test never looked at.
class ScriptedUser : public Utente {
 public:
  ~ScriptedUser() override;

  /// Script: answers to the next questions, and paths for the next dialogs, in order.
  ScriptedUser& answers(Answer answer);
  ScriptedUser& chooses(std::optional<QString> path);

  /// Every box so far, in order; marks them as looked at.
  const std::vector<Box>& boxes();
  /// As above, and forgets them.
  std::vector<Box> takeBoxes();
  const std::vector<FileRequest>& requests() const { return requests_; }
  const QStringList& programs() const { return programs_; }
  bool terminated() const { return terminated_; }

  /// Called at each box before it is answered, and at each event pass.
  std::function<void(const Box&)> onBox;
  std::function<void()> onPass;
  int passes() const { return passes_; }

  Answer ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                 Preset preset) override;
  std::optional<QString> AskOpenPath(const FileRequest& takePath) override;
  std::optional<QString> AskSavePath(const FileRequest& takePath) override;
  void DoEvents() override;
  void CopyToClipboard(const QString& text) override { clipboard_ = text; }
  QString ClipboardText() override { return clipboard_; }
  void StartProgram(const QString& program, const QStringList& arguments) override;
  void OpenWithDesktop(const QString& file) override;
  [[noreturn]] void Terminate() override;

 private:
  std::optional<QString> takePath(const FileRequest& takePath);

  std::deque<Answer> answers_;
  std::deque<std::optional<QString>> paths_;
  std::vector<Box> boxes_;
  std::vector<FileRequest> requests_;
  QStringList programs_;
  QString clipboard_;
  std::size_t lookedAt_ = 0;
  int passes_ = 0;
  bool terminated_ = false;
};
