#include "platform/ui/hidden_program.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringList>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace {

#ifdef Q_OS_WIN
void order(QProcess& process, const QString& parameters) {
  process.setNativeArguments(parameters);
  process.setCreateProcessArgumentsModifier([](QProcess::CreateProcessArguments* arguments) {
    arguments->flags |= CREATE_NO_WINDOW;
    arguments->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
    arguments->startupInfo->wShowWindow = SW_HIDE;
  });
}
#else
void order(QProcess& process, const QString& parameters) {
  const qsizetype quote = parameters.indexOf(u'"');
  QStringList words = parameters.left(quote).split(u' ', Qt::SkipEmptyParts);
  if (quote >= 0) words.append(parameters.mid(quote + 1));
  process.setArguments(words);
  // What it writes is for nobody.
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
}
#endif

}  // namespace

int StartHidden(const HiddenProgram& what) {
  const QFileInfo program(what.program);
  if (!QFileInfo(what.folder).isDir()) return launch::kPathMissing;
  if (!program.exists()) return launch::kFileMissing;
  if (!program.isFile() || !program.isExecutable()) return launch::kNotAllowed;
  QProcess process;
  process.setProgram(program.absoluteFilePath());
  order(process, what.parameters);
  process.setWorkingDirectory(what.folder);
  return process.startDetached() ? launch::kStarted : launch::kNoProgram;
}
