#include "sostegno/manual_page.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <algorithm>

namespace {

QString contents(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

/// The parts of a text that do not change, without what a sentence needs around them.
QStringList parts(const QString& text, const QRegularExpression& changing) {
  static const QRegularExpression around(QStringLiteral("^[ ().:,;\\[\\]]+|[ (:\\[\\]]+$"));
  QStringList all;
  for (QString part : text.split(changing)) all << part.remove(around);
  all.removeAll(QString());
  return all;
}

/// The literals with a blank in them.
QStringList literals(const QString& source, const QString& opening) {
  static const QRegularExpression seam(QStringLiteral("\"\\s*\""));
  const QRegularExpression literal(QStringLiteral("(?:") + opening +
                                   QStringLiteral(")\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)"));
  QStringList all;
  for (auto one = literal.globalMatch(source); one.hasNext();) {
    QString text = one.next().captured(1).trimmed().remove(seam);
    text = text.mid(1, text.size() - 2).replace(QStringLiteral("\\\""), QStringLiteral("\""));
    if (text.contains(u' ')) all << text;
  }
  return all;
}

}  // namespace

ManualPage::ManualPage(const QString& name)
    : text_(contents(QStringLiteral(GESTIONALE_SOURCES "/docs/manuale/") + name)) {}

QStringList ManualPage::quoted() const {
  static const QRegularExpression quotation(QStringLiteral("\"([^\"]+)\""));
  QStringList all;
  for (const QString& row : text_.split(u'\n')) {
    if (!row.startsWith(QStringLiteral("| "))) continue;
    const QString cell = row.section(u'|', 1, 1);
    for (auto one = quotation.globalMatch(cell); one.hasNext();) all << one.next().captured(1);
  }
  return all;
}

QStringList ManualPage::quotedBeside(std::span<const char16_t* const> texts) const {
  static const QRegularExpression dots(QStringLiteral("\\.\\.\\."));
  QStringList beside;
  for (const QString& quotation : quoted())
    for (const QString& part : parts(quotation, dots))
      if (std::ranges::none_of(texts,
                               [&](const char16_t* text) { return QString::fromUtf16(text).contains(part); }))
        beside << part;
  return beside;
}

SourceTexts sourceTexts(const QString& folder, const QString& page,
                        std::span<const char16_t* const> noMessages, const QString& opening) {
  static const QRegularExpression changing(QStringLiteral("%\\d|\\\\r\\\\n"));
  const QDir sources(QStringLiteral(GESTIONALE_SOURCES "/src/") + folder);
  SourceTexts texts;
  for (const QString& file : sources.entryList({QStringLiteral("*.cpp")}))
    for (const QString& text : literals(contents(sources.filePath(file)), opening)) {
      ++texts.seen;
      if (std::ranges::any_of(noMessages,
                              [&](const char16_t* other) { return text == QString::fromUtf16(other); }))
        continue;
      const QStringList all = parts(text, changing);
      if (std::ranges::any_of(all, [&](const QString& part) { return !page.contains(part); }))
        texts.missing << file + QStringLiteral(": ") + text;
    }
  return texts;
}
