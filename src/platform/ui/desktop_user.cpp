#include "platform/ui/desktop_user.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "platform/error.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/file_dialog.h"
#include "platform/ui/message_box.h"

DesktopUser::DesktopUser(std::function<void()> close) : close_(std::move(close)) {}

Answer DesktopUser::ShowBox(const QString& text, Icon icon, const QString& title, Buttons buttons,
                            Preset preset) {
  const QString heading = title.isEmpty() ? kApplicationTitle : title;
  const message_box::Question question{text, icon, heading, buttons, preset};
  const bool notice = buttons == Buttons::Ok;
  const auto treatment =
      notice ? notices_.next(heading + QLatin1Char('\n') + text) : EqualNotices::Treatment::Shown;
  if (treatment == EqualNotices::Treatment::LetPass) return Answer::Ok;
  const BusyGuard::Suspended suspended;
  const message_box::Reply reply =
      message_box::show(question, treatment == EqualNotices::Treatment::ShownWithOffer);
  if (reply.letOthersPass) notices_.letPass();
  return reply.answer;
}

std::optional<QString> DesktopUser::AskOpenPath(const FileRequest& window) {
  const BusyGuard::Suspended suspended;
  return file_dialog::open(window);
}

std::optional<QString> DesktopUser::AskSavePath(const FileRequest& window) {
  const BusyGuard::Suspended suspended;
  return file_dialog::save(window);
}

void DesktopUser::DoEvents() {
  QCoreApplication::processEvents();
}

void DesktopUser::DoEventsAtRecord() {
  if (beat_.due()) DoEvents();
}

void DesktopUser::CopyToClipboard(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

QString DesktopUser::ClipboardText() {
  return QGuiApplication::clipboard()->text();
}

void DesktopUser::StartProgram(const QString& program, const QStringList& arguments) {
  if (!QProcess::startDetached(program, arguments)) throw errors::fileMissing(program);
}

void DesktopUser::OpenWithDesktop(const QString& file) {
  const QFileInfo entry(file);
  if (!entry.exists() || !QDesktopServices::openUrl(QUrl::fromLocalFile(entry.absoluteFilePath())))
    throw errors::fileMissing(file);
}

void DesktopUser::Terminate() {
  try {
    if (close_) close_();
  } catch (const Errore& error) {
    std::fprintf(stderr, "%d %s\n", error.numero, qUtf8Printable(error.descrizione));
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
  }
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}
