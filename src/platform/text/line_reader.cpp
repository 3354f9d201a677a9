#include "platform/text/line_reader.h"

#include <QFileInfo>
#include <algorithm>

#include "platform/error.h"

namespace {

constexpr qsizetype kBlock = 1 << 16;

bool endsLine(char character) {
  return character == '\r' || character == '\n';
}

}  // namespace

LineReader::LineReader(const QString& path) : file_(path) {
  const QFileInfo entry(path);
  if (!entry.exists()) throw errors::fileMissing(path);
  // A pipe or a device would hold the program up, or never end.
  if (!entry.isFile() || !file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    throw errors::pathAccess(path);
  size_ = file_.size();
}

bool LineReader::fill() {
  if (start_ < block_.size()) return true;
  start_ = 0;
  block_.resize(kBlock);
  const qint64 count = file_.read(block_.data(), kBlock);
  block_.resize(std::max<qint64>(count, 0));
  if (count < 0) throw errors::pathAccess(file_.fileName());
  return count > 0;
}

void LineReader::consume(qsizetype count) {
  start_ += count;
  done_ += count;
}

bool LineReader::atEnd() {
  return !fill();
}

Line LineReader::next() {
  if (atEnd()) throw errors::pastEnd(file_.fileName());
  Line line;
  while (fill()) {
    const char* from = block_.constData() + start_;
    const char* to = block_.constData() + block_.size();
    const char* end = std::find_if(from, to, endsLine);
    const qsizetype taken = std::min<qsizetype>(end - from, kMaxLine - line.bytes.size());
    line.bytes.append(from, taken);
    line.whole = line.whole && taken == end - from;
    consume(end - from);
    if (end == to) continue;
    const bool carriageReturn = *end == '\r';
    consume(1);
    if (carriageReturn && fill() && block_[start_] == '\n') consume(1);
    break;
  }
  return line;
}
