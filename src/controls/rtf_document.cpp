#include "controls/rtf_document.h"

#include <QFontInfo>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "platform/error.h"

namespace rtf {

namespace {

constexpr std::size_t kMaxCells = 40'000;
/// Pixels at scale 1.
constexpr int kIndent = 28;
constexpr int kParagraphSpace = 8;
constexpr int kEntrySpace = 4;
constexpr int kTitleSpace = 16;
constexpr int kCellMargin = 7;
constexpr double kLeading = 125;
/// Of a heading to the text, by level.
constexpr std::array kBodies{1.0, 1.6, 1.3, 1.15, 1.05, 1.0, 1.0};
/// A paragraph wholly in bold or large letters is a heading where the file names none: from these ratios on.
constexpr double kLargeTitle = 1.5;
constexpr double kMediumTitle = 1.2;
const QColor kThread(0x80, 0x8A, 0x90);

void countLetters(const Paragraph& paragraph, std::map<int, qsizetype>& letters) {
  for (const Run& run : paragraph.runs) letters[run.character.size] += run.text.size();
}

/// The half points of most of the letters.
int textSize(const Text& text) {
  std::map<int, qsizetype> letters{{kSize, 0}};
  for (const Block& block : text) {
    countLetters(block.paragraph, letters);
    for (const Row& row : block.table)
      for (const Cell& cell : row.cells)
        for (const Paragraph& paragraph : cell) countLetters(paragraph, letters);
  }
  return std::max_element(letters.begin(), letters.end(),
                          [](const auto& one, const auto& other) { return one.second < other.second; })
      ->first;
}

class Writer {
 public:
  Writer(QTextDocument& document, int size) : cursor_(&document), size_(size) {
    document.clear();
    const QFont character = document.defaultFont();
    points_ = character.pointSizeF() > 0 ? character.pointSizeF() : QFontInfo(character).pointSizeF();
  }

  void block(const Block& block) {
    if (block.table.empty())
      paragraph(block.paragraph, std::exchange(freeBlock_, false));
    else
      table(block.table);
    first_ = false;
  }

 private:
  void paragraph(const Paragraph& paragraph, bool inPlace);
  void list(const Paragraph& paragraph, QTextBlockFormat& format);
  void entry(int level);
  void runs(const Paragraph& paragraph, int title);
  void table(const std::vector<Row>& rows);
  void cell(const QTextTableCell& place, const Cell& cell);
  int title(const Paragraph& paragraph) const;
  QTextCharFormat format(const CharFormat& character, int title) const;

  QTextCursor cursor_;
  int size_;
  double points_ = 0;
  bool first_ = true;
  /// A document begins with an empty block, and a table leaves one behind it.
  bool freeBlock_ = true;
  /// The list that the paragraph before belongs to.
  QTextList* list_ = nullptr;
  bool inTable_ = false;
};

int Writer::title(const Paragraph& paragraph) const {
  if (paragraph.title > 0 || paragraph.inList || inTable_ || paragraph.runs.empty()) return paragraph.title;
  double min = kBodies.size();
  bool bold = true;
  for (const Run& run : paragraph.runs) {
    min = std::min(min, static_cast<double>(run.character.size) / size_);
    bold = bold && run.character.bold;
  }
  if (min >= kLargeTitle) return 1;
  return min >= kMediumTitle && bold ? 2 : 0;
}

void Writer::paragraph(const Paragraph& paragraph, bool inPlace) {
  const int level = title(paragraph);
  QTextBlockFormat format;
  format.setAlignment(paragraph.alignment);
  format.setLineHeight(kLeading, QTextBlockFormat::ProportionalHeight);
  format.setHeadingLevel(level);
  if (!inTable_) {
    format.setTopMargin(level > 0 && !first_ ? kTitleSpace : 0);
    format.setBottomMargin(paragraph.inList ? kEntrySpace : kParagraphSpace);
  }
  if (!inPlace) cursor_.insertBlock(QTextBlockFormat(), QTextCharFormat());
  if (paragraph.inList)
    list(paragraph, format);
  else
    list_ = nullptr;
  cursor_.mergeBlockFormat(format);
  runs(paragraph, level);
}

void Writer::list(const Paragraph& paragraph, QTextBlockFormat& format) {
  const bool counted = std::any_of(paragraph.mark.begin(), paragraph.mark.end(),
                                   [](QChar c) { return c.isLetterOrNumber() && c != QLatin1Char('o'); });
  if (!counted) return entry(paragraph.level);
  list_ = nullptr;
  // The numbers stand as the author's program counted them.
  format.setLeftMargin(kIndent * (paragraph.level + 1));
  format.setTextIndent(-kIndent);
  format.setTabPositions({{kIndent, QTextOption::LeftTab}});
  cursor_.insertText(paragraph.mark + QLatin1Char('\t'), QTextCharFormat());
}

void Writer::entry(int level) {
  if (list_ && list_->format().indent() == level + 1) return list_->add(cursor_.block());
  QTextListFormat points;
  points.setStyle(level % 2 == 0 ? QTextListFormat::ListDisc : QTextListFormat::ListCircle);
  points.setIndent(level + 1);
  list_ = cursor_.createList(points);
}

void Writer::runs(const Paragraph& paragraph, int title) {
  for (const Run& run : paragraph.runs) cursor_.insertText(run.text, format(run.character, title));
}

QTextCharFormat Writer::format(const CharFormat& character, int title) const {
  QTextCharFormat format;
  if (character.bold || title > 0) format.setFontWeight(QFont::DemiBold);
  format.setFontItalic(character.italic);
  format.setFontUnderline(character.underlined);
  const double body =
      title > 0 ? kBodies.at(static_cast<std::size_t>(title)) : static_cast<double>(character.size) / size_;
  format.setFontPointSize(points_ * body);
  return format;
}

std::size_t columnsOf(const std::vector<Row>& rows) {
  std::size_t columns = 1;
  for (const Row& row : rows) columns = std::max(columns, row.cells.size());
  return columns;
}

/// Widths of the columns in percent, none where the borders do not tell them.
QList<QTextLength> widths(const Row& row, std::size_t columns) {
  QList<QTextLength> found;
  int left = 0;
  for (const int right : row.borders) {
    if (right <= left) return {};
    found.append(QTextLength(QTextLength::PercentageLength, 100.0 * (right - left) / row.borders.back()));
    left = right;
  }
  return static_cast<std::size_t>(found.size()) == columns ? found : QList<QTextLength>();
}

void Writer::table(const std::vector<Row>& rows) {
  const std::size_t columns = columnsOf(rows);
  QTextTableFormat format;
  format.setCellPadding(kCellMargin);
  format.setCellSpacing(0);
  format.setBorder(1);
  format.setBorderCollapse(true);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(kThread);
  format.setTopMargin(kParagraphSpace);
  format.setBottomMargin(kTitleSpace);
  format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
  format.setColumnWidthConstraints(widths(rows.front(), columns));
  QTextTable* table = cursor_.insertTable(static_cast<int>(rows.size()), static_cast<int>(columns), format);
  inTable_ = true;
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t column = 0; column < rows[row].cells.size(); ++column)
      cell(table->cellAt(static_cast<int>(row), static_cast<int>(column)), rows[row].cells[column]);
  inTable_ = false;
  list_ = nullptr;
  cursor_.movePosition(QTextCursor::End);
  freeBlock_ = true;
}

void Writer::cell(const QTextTableCell& place, const Cell& cell) {
  cursor_ = place.firstCursorPosition();
  list_ = nullptr;
  bool before = true;
  for (const Paragraph& one : cell) paragraph(one, std::exchange(before, false));
}

}  // namespace

void write(const Text& text, QTextDocument& document) {
  std::size_t cells = 0;
  for (const Block& block : text)
    if (!block.table.empty()) cells += block.table.size() * columnsOf(block.table);
  if (cells > kMaxCells)
    throw Errore{errors::kFileFormat,
                 QStringLiteral("Il testo non è leggibile: le tabelle sono troppo grandi.")};
  document.setUndoRedoEnabled(false);
  Writer writer(document, textSize(text));
  for (const Block& block : text) writer.block(block);
}

}  // namespace rtf
