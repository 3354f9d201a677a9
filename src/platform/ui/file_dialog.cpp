#include "platform/ui/file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QPointer>

namespace file_dialog {

namespace {

const QString kEveryFile = QStringLiteral("*");

/// The patterns between the last round brackets, parted by blanks.
QStringList patterns(const QString& filter) {
  const qsizetype start = filter.lastIndexOf(QLatin1Char('('));
  const qsizetype end = filter.lastIndexOf(QLatin1Char(')'));
  if (start < 0 || end < start) return {};
  return filter.sliced(start + 1, end - start - 1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString filterOf(const QString& description, const QString& pattern) {
  QStringList parts = pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts);
  for (QString& part : parts)
    if (part == QStringLiteral("*.*")) part = kEveryFile;
  const QString name = description.left(description.lastIndexOf(QLatin1Char('('))).trimmed();
  return name + QStringLiteral(" (") + parts.join(QLatin1Char(' ')) + QLatin1Char(')');
}

/// The kinds of files in Italian: the toolkit's translation lacks them.
class Provider : public QFileIconProvider {
 public:
  QString type(const QFileInfo& entry) const override {
    if (entry.isDir()) return QStringLiteral("Cartella");
    const QString extension = entry.suffix();
    return extension.isEmpty() ? QStringLiteral("File") : QStringLiteral("File ") + extension;
  }
};

/// One for all and never deleted: the thread that reads a folder may outlive its dialog.
Provider* provider() {
  static auto* const only = new Provider;
  return only;
}

/// Where it starts is told each time: the toolkit would otherwise go on from the folder of the last dialog.
QFileDialog* window(const FileRequest& request, const QString& name) {
  const QString folder = request.folder.isEmpty() ? QDir::currentPath() : request.folder;
  auto* dialog = new QFileDialog(QApplication::activeWindow(), request.title, folder);
  dialog->setObjectName(name);
  dialog->setHistory({});
  dialog->setIconProvider(provider());
  if (const QStringList choices = filters(request.filter); !choices.isEmpty())
    dialog->setNameFilters(choices);
  dialog->setLabelText(QFileDialog::LookIn, QStringLiteral("Cerca in:"));
  dialog->setLabelText(QFileDialog::FileName, QStringLiteral("Nome file:"));
  dialog->setLabelText(QFileDialog::FileType, QStringLiteral("Tipo file:"));
  dialog->setLabelText(QFileDialog::Reject, QStringLiteral("Annulla"));
  return dialog;
}

/// Runs the dialog and deletes it. The window below may go meanwhile, and takes the dialog with it.
std::optional<QString> run(const QPointer<QFileDialog>& dialog) {
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (!dialog) return std::nullopt;
  std::optional<QString> path;
  if (const QStringList chosen = dialog->selectedFiles(); accepted && !chosen.isEmpty())
    path = chosen.front();
  if (path && dialog->acceptMode() == QFileDialog::AcceptSave)
    path = withExtension(*path, dialog->selectedNameFilter());
  delete dialog;
  if (path) path = QDir::toNativeSeparators(*path);
  return path;
}

}  // namespace

QStringList filters(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList result;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) result.append(filterOf(parts[i], parts[i + 1]));
  return result;
}

QString withExtension(const QString& path, const QString& chosenFilter) {
  if (QFileInfo(path).fileName().contains(QLatin1Char('.'))) return path;
  const QString pattern = patterns(chosenFilter).value(0);
  const bool useful = pattern.startsWith(QStringLiteral("*.")) && !pattern.sliced(2).contains(kEveryFile);
  return useful ? path + pattern.sliced(1) : path;
}

std::optional<QString> open(const FileRequest& request) {
  QFileDialog* dialog = window(request, QStringLiteral("FinestraApri"));
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Apri"));
  return run(dialog);
}

std::optional<QString> save(const FileRequest& request) {
  QFileDialog* dialog = window(request, QStringLiteral("FinestraSalva"));
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Salva"));
  return run(dialog);
}

}  // namespace file_dialog
