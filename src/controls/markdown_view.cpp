#include "controls/markdown_view.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/text/whole_file.h"

namespace {

constexpr qsizetype kMaxBytes = qsizetype{8} << 20;
constexpr int kMargin = 24;
constexpr int kCell = 6;
constexpr int kAboveHeading = 18;
const QString kContents = QStringLiteral("README.md");

/// Pages are ours, but they are files that anybody may have changed: no markup of the web.
constexpr QTextDocument::MarkdownFeatures kDialect{QTextDocument::MarkdownDialectGitHub,
                                                   QTextDocument::MarkdownNoHTML};

/// Stands for a picture that is not shown.
QImage noPicture() {
  QImage point(1, 1, QImage::Format_ARGB32);
  point.fill(Qt::transparent);
  return point;
}

void frame(QTextTable& table, const QPalette& palette) {
  QTextTableFormat format = table.format();
  format.setBorder(1);
  format.setBorderBrush(palette.mid());
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderCollapse(true);
  format.setCellPadding(kCell);
  format.setCellSpacing(0);
  format.setTopMargin(kCell);
  format.setBottomMargin(2 * kCell);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  table.setFormat(format);
  for (int column = 0; column < table.columns(); ++column) {
    QTextTableCell cell = table.cellAt(0, column);
    QTextCharFormat heading = cell.format();
    heading.setBackground(palette.alternateBase());
    cell.setFormat(heading);
  }
}

}  // namespace

MarkdownView::MarkdownView(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setUndoRedoEnabled(false);
}

std::optional<QByteArray> MarkdownView::read(const QString& name) const {
  const QString file = QFileInfo(QDir(folder_).filePath(name)).canonicalFilePath();
  const QString within = QFileInfo(folder_).canonicalFilePath() + QLatin1Char('/');
  if (file.isEmpty() || !file.startsWith(within)) return std::nullopt;
  try {
    return ReadWholeFile(file, kMaxBytes);
  } catch (const Errore&) {
    return std::nullopt;
  }
}

QStringList MarkdownView::pages() const {
  QStringList names = QDir(folder_).entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
  if (names.removeOne(kContents)) names.prepend(kContents);
  return names;
}

bool MarkdownView::showPage(const QString& name) {
  if (!name.endsWith(QStringLiteral(".md"))) return false;
  const std::optional<QByteArray> bytes = read(name);
  if (!bytes) return false;
  page_ = name;
  document()->setDefaultFont(font());
  document()->setMarkdown(QString::fromUtf8(*bytes), kDialect);
  document()->setDocumentMargin(kMargin);
  dressHeadings();
  dressTables();
  fitPictures();
  moveCursor(QTextCursor::Start);
  verticalScrollBar()->setValue(0);
  return true;
}

QString MarkdownView::plainText(const QString& name) const {
  const std::optional<QByteArray> bytes = read(name);
  QTextDocument page;
  if (bytes) page.setMarkdown(QString::fromUtf8(*bytes), kDialect);
  return page.toPlainText();
}

QString MarkdownView::title() const {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    if (block.blockFormat().headingLevel() > 0) return block.text();
  return {};
}

QString MarkdownView::anchorOf(const QString& heading) {
  QString anchor;
  for (const QChar letter : heading.toLower()) {
    if (letter.isLetterOrNumber() || letter == u'-' || letter == u'_') anchor += letter;
    if (letter == u' ') anchor += u'-';
  }
  return anchor;
}

bool MarkdownView::goTo(const QString& anchor) {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor) continue;
    // From below, so that the heading comes to stand at the top.
    moveCursor(QTextCursor::End);
    setTextCursor(QTextCursor(block));
    ensureCursorVisible();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - kMargin);
    return true;
  }
  return false;
}

QVariant MarkdownView::loadResource(int type, const QUrl& name) {
  // Something stands for what is refused: for nothing the toolkit would look by itself.
  if (type != QTextDocument::ImageResource) return QByteArray();
  const bool elsewhere = !name.scheme().isEmpty() || !name.host().isEmpty();
  const std::optional<QByteArray> bytes = elsewhere ? std::nullopt : read(name.path());
  const QImage image = bytes ? QImage::fromData(*bytes) : QImage();
  return image.isNull() ? noPicture() : image;
}

void MarkdownView::doSetSource(const QUrl& /*name*/, QTextDocument::ResourceType /*type*/) {
  // The toolkit's own reading would follow a link to anywhere.
}

void MarkdownView::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  fitPictures();
}

void MarkdownView::dressHeadings() {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() < 2) continue;
    QTextBlockFormat format;
    format.setTopMargin(kAboveHeading);
    QTextCursor(block).mergeBlockFormat(format);
  }
}

void MarkdownView::dressTables() {
  for (QTextFrame* child : document()->rootFrame()->childFrames())
    if (auto* table = qobject_cast<QTextTable*>(child)) frame(*table, palette());
}

void MarkdownView::fitPictures() {
  // Found first and changed afterwards: a change parts the pieces anew.
  std::vector<std::pair<QTextCursor, QTextImageFormat>> pictures;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      if (!fragment.charFormat().isImageFormat()) continue;
      QTextCursor cursor(document());
      cursor.setPosition(fragment.position());
      cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
      pictures.emplace_back(cursor, fragment.charFormat().toImageFormat());
    }
  const qreal widest = viewport()->width() - 2 * kMargin;
  for (auto& [cursor, format] : pictures) {
    const auto image = document()->resource(QTextDocument::ImageResource, format.name()).value<QImage>();
    if (image.isNull()) continue;
    const qreal width = std::min<qreal>(image.width(), widest);
    format.setWidth(width);
    format.setHeight(image.height() * width / image.width());
    cursor.setCharFormat(format);
  }
}
