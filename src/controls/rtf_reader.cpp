#include "controls/rtf_reader.h"

#include <algorithm>
#include <utility>

#include "controls/rtf.h"
#include "controls/rtf_words.h"
#include "platform/error.h"
#include "platform/text/windows1252.h"

namespace rtf {

namespace {

constexpr std::size_t kDepth = 256;
constexpr int kMaxCharacters = 1'000'000;
constexpr int kMaxBlocks = 20'000;
constexpr std::size_t kMaxColumns = 64;
constexpr int kMaxLevel = 8;
/// Half points; what is smaller or larger is no text to read.
constexpr int kMinSize = 8;
constexpr int kMaxSize = 144;

[[noreturn]] void unreadable(const QString& why) {
  throw Errore{errors::kFileFormat, QStringLiteral("Il testo non è leggibile: ") + why};
}

bool on(const Token& token) {
  return !token.withNumber || token.number != 0;
}

}  // namespace

Reader::Reader(const QByteArray& byte) : byte_(byte), lexer_(byte_) {
  if (!byte.startsWith("{\\rtf")) unreadable(QStringLiteral("non è un file RTF."));
  if (byte.size() > kMaxBytes) unreadable(QStringLiteral("il file è troppo grande."));
}

Text Reader::read() {
  do {
    const Token token = lexer_.next();
    if (token.kind == Token::End) unreadable(QStringLiteral("il file finisce a metà."));
    step(token);
  } while (!groups_.empty());
  // What follows the last brace is no text: some programs fill the file up with zeros.
  return std::move(text_);
}

void Reader::step(const Token& token) {
  if (token.kind == Token::Opens) return open();
  if (token.kind == Token::Closes) return close();
  if (toSkip_ > 0) {
    --toSkip_;
    return;
  }
  if (token.kind == Token::Word) return word(token);
  if (token.kind == Token::Symbol) return symbol(token.byte);
  groups_.back().start = false;
  const QChar read(windows1252::characterOf(static_cast<unsigned char>(token.byte)));
  if (read == QLatin1Char('\t') || read.isPrint()) text(read);
}

void Reader::open() {
  if (groups_.size() >= kDepth) unreadable(QStringLiteral("troppi gruppi uno dentro l'altro."));
  toSkip_ = 0;
  Group fresh = groups_.empty() ? Group{} : groups_.back();
  fresh.start = true;
  fresh.optional = false;
  groups_.push_back(fresh);
}

void Reader::close() {
  toSkip_ = 0;
  if (groups_.size() == 1) {
    if (!paragraph_.runs.empty()) endParagraph();
    dissolveRow();
  }
  groups_.pop_back();
}

void Reader::symbol(char c) {
  Group& group = groups_.back();
  if (c == '*') {
    group.optional = group.start;
    return;
  }
  group.start = false;
  if (c == '\n' || c == '\r')
    endParagraph();
  else if (c == '\\' || c == '{' || c == '}')
    text(QLatin1Char(c));
  else if (c == '~')
    text(QChar::Nbsp);
  else if (c == '_')
    text(QChar(u'\u2011'));
  else if (c == '\t')
    text(QChar::Tabulation);
}

void Reader::word(const Token& token) {
  Group& group = groups_.back();
  if (std::exchange(group.start, false) && target(token.name)) return;
  if (group.destination == Destination::Nothing) return;
  if (token.name == "uc")
    group.fallbacks = std::clamp(token.number, 0, kMaxCharacters);
  else if (token.name == "u")
    unicode(token.number);
  else if (!character(token) && !shape(token) && group.destination != Destination::Styles && !table(token))
    special(token.name);
}

bool Reader::target(QByteArrayView name) {
  Group& group = groups_.back();
  if (group.destination == Destination::Nothing) return true;
  if (name == "pntext" || name == "listtext") {
    group.destination = Destination::ListMark;
    withMark_ = true;
  } else if (name == "stylesheet") {
    group.destination = Destination::Styles;
  } else if (group.destination != Destination::Styles && (group.optional || offPage(name))) {
    group.destination = Destination::Nothing;
  } else {
    return false;
  }
  return true;
}

bool Reader::character(const Token& token) {
  CharFormat& now = groups_.back().character;
  if (token.name == "plain")
    now = {};
  else if (token.name == "b")
    now.bold = on(token);
  else if (token.name == "i")
    now.italic = on(token);
  else if (token.name == "ul")
    now.underlined = on(token);
  else if (token.name == "ulnone")
    now.underlined = false;
  else if (token.name == "v")
    now.hidden = on(token);
  else if (token.name == "fs")
    now.size = token.withNumber ? std::clamp(token.number, kMinSize, kMaxSize) : kSize;
  else
    return false;
  return true;
}

bool Reader::shape(const Token& token) {
  ParagraphForm& now = groups_.back().shape;
  if (token.name == "pard")
    now = {};
  else if (token.name == "s")
    now.style = token.number;
  else if (token.name == "outlinelevel")
    now.outline = token.number;
  else if (token.name == "ls")
    now.list = token.number;
  else if (token.name == "ilvl")
    now.level = std::clamp(token.number, 0, kMaxLevel);
  else if (token.name == "intbl")
    now.inTable = true;
  else if (token.name == "ql" || token.name == "qj")
    now.alignment = Qt::AlignLeft;
  else if (token.name == "qc")
    now.alignment = Qt::AlignHCenter;
  else if (token.name == "qr")
    now.alignment = Qt::AlignRight;
  else
    return false;
  return true;
}

bool Reader::table(const Token& token) {
  if (token.name == "trowd")
    row_.borders.clear();
  else if (token.name == "cellx" && row_.borders.size() < kMaxColumns)
    row_.borders.push_back(token.number);
  else if (token.name == "cell")
    endCell();
  else if (token.name == "row")
    endRow();
  else if (token.name == "par" || token.name == "sect" || token.name == "nestcell")
    endParagraph();
  else
    return false;
  return true;
}

bool Reader::special(QByteArrayView name) {
  const char16_t character = specialCharacter(name);
  if (character != 0) text(QChar(character));
  return character != 0;
}

void Reader::unicode(int code) {
  const QChar read(static_cast<char16_t>(code));
  if (read.isSurrogate() || read.isPrint()) text(read);
  toSkip_ = groups_.back().fallbacks;
}

void Reader::text(QChar character) {
  const Group& group = groups_.back();
  if (group.destination == Destination::Nothing || group.character.hidden) return;
  if (group.destination == Destination::Styles) return style(character);
  count(characters_, kMaxCharacters);
  if (group.destination == Destination::ListMark) {
    mark_ += character;
    return;
  }
  std::vector<Run>& runs = paragraph_.runs;
  if (runs.empty() || runs.back().character != group.character) runs.push_back({{}, group.character});
  runs.back().text += character;
}

void Reader::style(QChar character) {
  if (character != QLatin1Char(';')) {
    count(characters_, kMaxCharacters);
    styleName_ += character;
    return;
  }
  titles_[groups_.back().shape.style] = levelOfName(std::exchange(styleName_, {}).trimmed());
}

int Reader::title() const {
  const ParagraphForm& shape = groups_.back().shape;
  if (shape.outline >= 0 && shape.outline < kLastTitle) return shape.outline + 1;
  return shape.style > 0 ? titles_.value(shape.style) : 0;
}

Paragraph Reader::closeParagraph() {
  count(blocks_, kMaxBlocks);
  Paragraph finished = std::exchange(paragraph_, {});
  const ParagraphForm& shape = groups_.back().shape;
  finished.title = title();
  finished.inList = std::exchange(withMark_, false) || shape.list > 0;
  finished.mark = std::exchange(mark_, {}).simplified();
  finished.level = shape.level;
  finished.alignment = shape.alignment;
  return finished;
}

void Reader::endParagraph() {
  if (groups_.back().destination == Destination::Page) add(closeParagraph());
}

void Reader::add(Paragraph paragraph) {
  if (groups_.back().shape.inTable) {
    cell_.push_back(std::move(paragraph));
    return;
  }
  dissolveRow();
  text_.push_back({std::move(paragraph), {}});
}

void Reader::endCell() {
  if (groups_.back().destination != Destination::Page) return;
  cell_.push_back(closeParagraph());
  if (row_.cells.size() < kMaxColumns) row_.cells.push_back(std::exchange(cell_, {}));
}

void Reader::endRow() {
  if (row_.cells.empty()) return;
  count(blocks_, kMaxBlocks);
  if (text_.empty() || text_.back().table.empty()) text_.push_back({});
  text_.back().table.push_back({std::exchange(row_.cells, {}), row_.borders});
}

void Reader::dissolveRow() {
  // Cells of a row that never ended are text all the same.
  for (Cell& cell : row_.cells)
    for (Paragraph& paragraph : cell) text_.push_back({std::move(paragraph), {}});
  row_.cells.clear();
  for (Paragraph& paragraph : cell_) text_.push_back({std::move(paragraph), {}});
  cell_.clear();
}

void Reader::count(int& count, int max) {
  if (++count > max) unreadable(QStringLiteral("il testo è troppo lungo."));
}

}  // namespace rtf
