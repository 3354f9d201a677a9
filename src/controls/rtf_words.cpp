#include "controls/rtf_words.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <algorithm>

namespace rtf {

bool offPage(QByteArrayView name) {
  static const QSet<QByteArray> names{
      "fonttbl",  "colortbl",   "info",       "pict",     "object",    "header",    "headerl",
      "headerr",  "headerf",    "footer",     "footerl",  "footerr",   "footerf",   "filetbl",
      "revtbl",   "listtable",  "rsidtbl",    "xmlnstbl", "fldinst",   "nextfile",  "private",
      "footnote", "annotation", "nonshppict", "template", "themedata", "datastore", "listoverridetable"};
  return names.contains(QByteArray::fromRawData(name.data(), name.size()));
}

char16_t specialCharacter(QByteArrayView name) {
  static const QHash<QByteArray, char16_t> names{
      {"tab", u'\t'},         {"emdash", u'\u2014'},    {"endash", u'\u2013'},         {"lquote", u'\u2018'},
      {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'},      {"bullet", u'\u2022'},
      {"enspace", u'\u2002'}, {"emspace", u'\u2003'},   {"line", QChar::LineSeparator}};
  return names.value(QByteArray::fromRawData(name.data(), name.size()));
}

int levelOfName(const QString& name) {
  for (const auto& start : {QStringLiteral("heading "), QStringLiteral("titolo ")})
    if (name.startsWith(start, Qt::CaseInsensitive))
      return std::clamp(name.mid(start.size()).simplified().toInt(), 0, kLastTitle);
  return 0;
}

}  // namespace rtf
