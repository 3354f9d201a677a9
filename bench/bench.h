#pragma once

#include <QString>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/context.h"
#include "core/screens.h"
#include "platform/clock.h"
#include "platform/ecrcom/library.h"
#include "platform/store/store.h"
#include "platform/ui/beat.h"
#include "platform/ui/user_port.h"

/// A user port that answers by itself: the event pump is real, boxes vanish. Boxes with the critical icon end
/// the run, since a figure of a failed work is no figure.
class BenchUser : public Utente {
 public:
  QString toOpen_;
  /// What the next save dialogs answer; nothing: they are cancelled.
  std::optional<QString> toSave_;

  Answer ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                 Preset preset) override;
  std::optional<QString> AskOpenPath(const FileRequest& window) override;
  std::optional<QString> AskSavePath(const FileRequest& window) override;
  void DoEvents() override;
  void DoEventsAtRecord() override;
  void CopyToClipboard(const QString&) override {}
  QString ClipboardText() override { return {}; }
  void StartProgram(const QString&, const QStringList&) override {}
  void OpenWithDesktop(const QString&) override {}
  [[noreturn]] void Terminate() override;

 private:
  Beat beat_;
};

/// A folder with an archive made from the template, open in the program, and what procedures ask for.
class Bench {
 public:
  /// The archive has at least `slot` rows.
  explicit Bench(int slot = 5000);
  ~Bench();
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  /// Closes it and puts the archive back as it was made.
  void renew();
  void reopen();
  void close();
  std::filesystem::path archive() const;
  std::filesystem::path file(const std::string& name) const;

  BenchUser user;
  store::Workspace workspace{systemClock()};
  EcrLibrary library;
  Schermate screens;
  Contesto contesto;

 private:
  QTemporaryDir folder_;
  QString before_;
};

/// Seconds that `work` takes.
double seconds(const std::function<void()>& work);
