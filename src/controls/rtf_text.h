#pragma once

#include <QString>
#include <Qt>
#include <vector>

/// A rich text between its file and the document on the screen.
namespace rtf {

/// Size of text to which no size was given, in half points.
inline constexpr int kSize = 24;

struct CharFormat {
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  bool hidden = false;
  int size = kSize;
  bool operator==(const CharFormat&) const = default;
};

struct Run {
  QString text;
  CharFormat character;
};

struct Paragraph {
  std::vector<Run> runs;
  /// 1 to 6 for a heading, 0 for plain text.
  int title = 0;
  bool inList = false;
  /// What stands before an entry of a list, "1." or a bullet.
  QString mark;
  /// Depth of the list, from 0.
  int level = 0;
  Qt::Alignment alignment = Qt::AlignLeft;
};

using Cell = std::vector<Paragraph>;

struct Row {
  std::vector<Cell> cells;
  /// Right borders of the cells in twips, as far as they were given.
  std::vector<int> borders;
};

/// A paragraph, or a table if there are rows.
struct Block {
  Paragraph paragraph;
  std::vector<Row> table;
};

using Text = std::vector<Block>;

}  // namespace rtf
