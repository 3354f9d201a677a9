#include "controls/rtf_parole.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <algorithm>

namespace rtf {

bool fuoriPagina(QByteArrayView nome) {
  static const QSet<QByteArray> nomi{
      "fonttbl",  "colortbl",   "info",       "pict",     "object",    "header",    "headerl",
      "headerr",  "headerf",    "footer",     "footerl",  "footerr",   "footerf",   "filetbl",
      "revtbl",   "listtable",  "rsidtbl",    "xmlnstbl", "fldinst",   "nextfile",  "private",
      "footnote", "annotation", "nonshppict", "template", "themedata", "datastore", "listoverridetable"};
  return nomi.contains(QByteArray::fromRawData(nome.data(), nome.size()));
}

char16_t carattereSpeciale(QByteArrayView nome) {
  static const QHash<QByteArray, char16_t> nomi{
      {"tab", u'\t'},         {"emdash", u'\u2014'},    {"endash", u'\u2013'},         {"lquote", u'\u2018'},
      {"rquote", u'\u2019'},  {"ldblquote", u'\u201C'}, {"rdblquote", u'\u201D'},      {"bullet", u'\u2022'},
      {"enspace", u'\u2002'}, {"emspace", u'\u2003'},   {"line", QChar::LineSeparator}};
  return nomi.value(QByteArray::fromRawData(nome.data(), nome.size()));
}

int livelloDelNome(const QString& nome) {
  for (const auto& inizio : {QStringLiteral("heading "), QStringLiteral("titolo ")})
    if (nome.startsWith(inizio, Qt::CaseInsensitive))
      return std::clamp(nome.mid(inizio.size()).simplified().toInt(), 0, kUltimoTitolo);
  return 0;
}

}  // namespace rtf
