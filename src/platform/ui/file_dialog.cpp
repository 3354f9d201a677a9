#include "platform/ui/file_dialog.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QPointer>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>

#include "platform/ui/message_box.h"

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

/// Where the dialogs of this run start.
struct Start {
  QString first;
  /// Folder of the file that was chosen last.
  QString last;
};

Start& start() {
  static Start only;
  return only;
}

/// The first of those that are there.
QString startFolder(const FileRequest& request) {
  for (const QString& folder : {request.folder, start().last, start().first})
    if (!folder.isEmpty() && QDir(folder).exists()) return folder;
  return QDir::currentPath();
}

// Columns of the list of files.
constexpr int kName = 0;
constexpr int kModified = 3;

// Letters and lines of a dialog, and what it leaves free of a small display.
constexpr int kLetters = 128;
constexpr int kLines = 32;
constexpr int kPlaceLetters = 18;
constexpr QSize kFrame(24, 64);

/// The moment of a file as the program writes dates; the toolkit would follow the desktop's language.
class Moment : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const auto* files = qobject_cast<const QFileSystemModel*>(index.model()))
      option->text = files->lastModified(index).toString(QStringLiteral("dd/MM/yyyy HH:mm"));
  }
};

/// The toolkit's dialog on every desktop. It can ask before it hands over a file that exists, in a box like
/// every other.
class Window : public QFileDialog {
 public:
  Window(QWidget* below, const QString& title) : QFileDialog(below, title) {
    setOption(DontUseNativeDialog);
    setOption(DontConfirmOverwrite);
  }

  void askBeforeReplacing() { asks_ = true; }
  void accept() override {
    if (!asks_ || mayReplace()) QFileDialog::accept();
  }

 private:
  bool mayReplace() const {
    const QFileInfo chosen(withExtension(selectedFiles().value(0), selectedNameFilter()));
    if (!chosen.isFile()) return true;
    const QString question = QStringLiteral("%1 esiste già. Sostituirlo?").arg(chosen.fileName());
    return message_box::show({question, Icon::Question, windowTitle(), Buttons::YesNo, Preset::Last})
               .answer == Answer::Yes;
  }

  bool asks_ = false;
};

/// The list in columns as wide as what stands in them; the name has all that the others leave.
void layOut(Window& dialog) {
  dialog.setViewMode(QFileDialog::Detail);
  auto* const list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  list->setItemDelegateForColumn(kModified, new Moment(list));
  QHeaderView& heading = *list->header();
  heading.setStretchLastSection(false);
  heading.setSectionResizeMode(QHeaderView::ResizeToContents);
  heading.setSectionResizeMode(kName, QHeaderView::Stretch);
  const QFontMetrics letters = dialog.fontMetrics();
  dialog.findChild<QSplitter*>(QStringLiteral("splitter"))
      ->setSizes({letters.averageCharWidth() * kPlaceLetters, letters.averageCharWidth() * kLetters});
  const QSize free = dialog.screen()->availableSize() - kFrame;
  dialog.resize(QSize(letters.averageCharWidth() * kLetters, letters.height() * kLines).boundedTo(free));
}

/// The places at the side: the computer, and the person's folders that are there.
QList<QUrl> places() {
  QList<QUrl> urls{QUrl(QStringLiteral("file:"))};
  for (const auto place :
       {QStandardPaths::HomeLocation, QStandardPaths::DesktopLocation, QStandardPaths::DocumentsLocation}) {
    const QUrl folder = QUrl::fromLocalFile(QStandardPaths::writableLocation(place));
    if (QFileInfo(folder.toLocalFile()).isDir() && !urls.contains(folder)) urls.append(folder);
  }
  return urls;
}

/// Where it starts is told each time: the toolkit would otherwise go on from the folder of the last dialog,
/// one that was cancelled included.
Window* window(const FileRequest& request, const QString& name) {
  auto* dialog = new Window(QApplication::activeWindow(), request.title);
  dialog->setDirectory(startFolder(request));
  dialog->setObjectName(name);
  dialog->setHistory({});
  dialog->setIconProvider(provider());
  dialog->setSidebarUrls(places());
  layOut(*dialog);
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
  if (!path) return std::nullopt;
  start().last = QFileInfo(*path).absolutePath();
  return QDir::toNativeSeparators(*path);
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

void startIn(const QString& folder) {
  start() = {folder, {}};
}

std::optional<QString> open(const FileRequest& request) {
  Window* dialog = window(request, QStringLiteral("FinestraApri"));
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Apri"));
  return run(dialog);
}

std::optional<QString> save(const FileRequest& request) {
  Window* dialog = window(request, QStringLiteral("FinestraSalva"));
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setFileMode(QFileDialog::AnyFile);
  if (request.asksBeforeReplacing) dialog->askBeforeReplacing();
  dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Salva"));
  return run(dialog);
}

}  // namespace file_dialog
