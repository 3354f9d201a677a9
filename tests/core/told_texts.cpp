#include "core/told_texts.h"

#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// One definition of a source: the lines up to its closing brace or its semicolon.
struct Definition {
  QString file;
  QString text;
  QString signature() const { return text.section(u'{', 0, 0); }
  QString folder() const { return QFileInfo(file).path(); }
  bool shared() const { return file.endsWith(QStringLiteral(".h")); }
};

QRegularExpression expression(const char16_t* pattern) {
  return QRegularExpression(QString::fromUtf16(pattern), QRegularExpression::DotMatchesEverythingOption);
}

QString withoutComments(const QString& source) {
  // Texts are kept whatever they hold.
  static const QRegularExpression part =
      expression(uR"re(//[^\n]*|/\*.*?\*/|("(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)'))re");
  QString left;
  qsizetype from = 0;
  for (auto found = part.globalMatch(source); found.hasNext();) {
    const QRegularExpressionMatch one = found.next();
    left += QStringView(source).mid(from, one.capturedStart() - from);
    left += one.captured(1);
    from = one.capturedEnd();
  }
  left += QStringView(source).mid(from);
  return left;
}

/// By the layout that all sources have: what stands at the beginning of a line opens or closes a definition.
std::vector<Definition> definitionsOf(const QString& file, const QString& source) {
  static const QRegularExpression passed = expression(u"^(?:#|namespace\\b|template\\b|using\\b)");
  std::vector<Definition> all;
  QString text;
  qsizetype open = 0;
  for (const QString& line : withoutComments(source).split(u'\n')) {
    if (line.trimmed().isEmpty() || line.contains(passed)) continue;
    text += line + u'\n';
    open += line.count(u'{') - line.count(u'}');
    const bool atStart = !line.startsWith(u' ');
    const bool ends =
        (atStart && line.startsWith(u'}')) || (line.trimmed().endsWith(u';') && (atStart || open <= 0));
    if (!ends) continue;
    all.push_back({file, text});
    text.clear();
    open = 0;
  }
  return all;
}

std::vector<Definition> definitions() {
  const QString root = QStringLiteral(GESTIONALE_SOURCES "/src/");
  QStringList files;
  QDirIterator sources(root, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) files << sources.next();
  files.sort();
  std::vector<Definition> all;
  for (const QString& path : std::as_const(files)) {
    // The numbers of errors have a table of their own.
    if (path.startsWith(root + QStringLiteral("platform/"))) continue;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    std::ranges::move(definitionsOf(path.mid(root.size()), QString::fromUtf8(file.readAll())),
                      std::back_inserter(all));
  }
  return all;
}

QString nameOf(const Definition& one) {
  static const QRegularExpression function = expression(u"^[^=(]*?([A-Za-z_]\\w*)\\(");
  return function.match(one.text).captured(1);
}

/// Whether the person is told something there, by the program's own means.
bool tells(const Definition& one) {
  static const QRegularExpression call = expression(
      u"\\b(?:MsgBox|tell|tellWhyDisabled|spiegaComandi|racconta|avvisa|suggerisci|mostraPasso|segnala|"
      u"prossimaIstruzione\\w*|setTabToolTip)\\(|\\bPasso \\w+\\(|\\bsegno\\w*->setText\\(|"
      u"\\bprefisso_? = |\\.senzaRighe = ");
  static const QRegularExpression said = expression(
      u"[Rr]accont|[Aa]vviso|avvertenza|motivo|[Rr]ifiut|[Mm]essaggi|OutcomeBar&|\\bkErrore|"
      u"\\b(?:Rejection|Esame)\\b|\\b(?:[Cc]ontrolla|[Vv]erifica|[Cc]heck)\\w*\\(");
  // Tables of fields and of columns are captions.
  static const QRegularExpression table =
      expression(u"^constexpr (?:editors::)?Dato\\b|\\b(?:Colonna|Dato)\\{");
  if (one.text.contains(table)) return false;
  const bool whyDisabled =
      one.text.contains(QStringLiteral("isEnabled()")) && one.text.contains(QStringLiteral("setToolTip("));
  return whyDisabled || one.text.contains(call) || one.signature().contains(said);
}

/// Whether it shows the text that it is handed. What guards commands is handed the names of procedures.
bool handsOn(const Definition& one) {
  return one.signature().contains(QStringLiteral("const QString&")) &&
         !one.file.startsWith(QStringLiteral("core/reactions")) &&
         !one.file.startsWith(QStringLiteral("core/command"));
}

/// The name of a function that gives words, or of a constant; empty for anything else. A header has tables
/// for many uses: of its constants only those that are texts.
QString giverOfWords(const Definition& one) {
  static const QRegularExpression function = expression(
      u"^(?:constexpr |const |static |inline )*[\\w:<]*(?:QString|Racconto|Esito|Esame|Rejection|Messaggi)"
      u"[\\w<>]*[&*]? (?:\\w+::)*(\\w+)\\(");
  static const QRegularExpression constant =
      expression(u"^(?:constexpr |const |static |inline )+[^({=;]*?\\b(k[A-Z]\\w*)\\b");
  static const QRegularExpression text = expression(
      u"^(?:constexpr |const |static |inline )+(?:QString|char16_t\\*|char\\*) (?:const )?(k[A-Z]\\w*)\\b");
  if (one.text.contains(QStringLiteral("Colonna{")) || one.text.contains(QStringLiteral("Dato{"))) return {};
  const QRegularExpressionMatch called = function.match(one.text);
  return called.hasMatch() ? called.captured(1)
                           : (one.shared() ? text : constant).match(one.text).captured(1);
}

using ByName = QMultiHash<QString, const Definition*>;

/// Of the definitions of a name those that it means in the user's file: its own, those of its folder, and
/// those that no other folder has.
std::vector<const Definition*> meant(const ByName& all, const QString& name, const Definition& user) {
  const bool constant = name.size() > 1 && name[0] == u'k' && name[1].isUpper();
  const QList<const Definition*> same = all.values(name);
  const bool inOneFolder = std::ranges::all_of(
      same, [&](const Definition* one) { return one->folder() == same.front()->folder(); });
  std::vector<const Definition*> his;
  for (const Definition* one : same)
    if (constant ? one->file == user.file || one->shared() : inOneFolder || one->folder() == user.folder())
      his.push_back(one);
  return his;
}

QSet<QString> captured(const QRegularExpression& word, const QString& text) {
  QSet<QString> all;
  for (auto found = word.globalMatch(text); found.hasNext();) all.insert(found.next().captured());
  return all;
}

QSet<QString> wordsOf(const QString& text) {
  static const QRegularExpression word = expression(u"\\b[A-Za-z_]\\w*\\b");
  return captured(word, text);
}

QSet<QString> calledIn(const QString& text) {
  static const QRegularExpression name = expression(u"\\b[A-Za-z_]\\w*(?=\\()");
  return captured(name, text);
}

/// The tellers; who hands a text to one of them; and whatever gives them words, to the end of the road.
std::vector<const Definition*> speaking(const std::vector<Definition>& all) {
  ByName givers;
  ByName users;
  std::vector<const Definition*> road;
  for (const Definition& one : all) {
    if (const QString name = giverOfWords(one); !name.isEmpty()) givers.insert(name, &one);
    for (const QString& name : calledIn(one.text)) users.insert(name, &one);
    if (tells(one)) road.push_back(&one);
  }
  QSet<const Definition*> tellers(road.begin(), road.end());
  for (std::size_t at = 0; at < road.size(); ++at) {
    if (!handsOn(*road[at])) continue;
    const Definition& teller = *road[at];
    for (const Definition* user : users.values(nameOf(teller))) {
      if (user->folder() != teller.folder() || tellers.contains(user)) continue;
      tellers.insert(user);
      road.push_back(user);
    }
  }
  QSet<const Definition*> seen = tellers;
  for (std::size_t at = 0; at < road.size(); ++at)
    for (const QString& name : wordsOf(road[at]->text))
      for (const Definition* giver : meant(givers, name, *road[at])) {
        if (seen.contains(giver)) continue;
        seen.insert(giver);
        road.push_back(giver);
      }
  return road;
}

/// Names and titles are no messages: of controls, of windows, of boxes, of file dialogs.
QString withoutTitles(QString text) {
  static const QRegularExpression title = expression(
      u"\\bset(?:ObjectName|AccessibleName|WindowTitle|StyleSheet)\\([^;]*;|"
      u"\\bAsk(?:Open|Save)Path\\([^;]*;|\\bFileRequest \\w+\\{[^;]*;|\\bfinestra\\([^;]*;|"
      u"\\bEsporta\\(QStringLiteral\\([^)]*\\)|"
      u"\\bIcon::\\w+,\\s*QStringLiteral\\(\"[^\"]*\"\\)");
  return text.remove(title);
}

QStringList literals(const QString& text) {
  static const QRegularExpression literal = expression(uR"re((?:(?:\b(?:u8|u))?"(?:[^"\\\n]|\\.)*"\s*)+)re");
  static const QRegularExpression seam = expression(uR"re("\s*(?:u8|u)?")re");
  QStringList all;
  for (auto found = literal.globalMatch(text); found.hasNext();) {
    QString one = found.next().captured().trimmed();
    one = one.mid(one.indexOf(u'"') + 1).chopped(1).remove(seam);
    all << one.replace(QStringLiteral("\\\""), QStringLiteral("\""));
  }
  return all;
}

bool isMessage(const QString& words) {
  static const QRegularExpression sentence = expression(u"\\w\\w.*\\s.*\\w|^[A-Z]\\w\\w.*(?:%\\d|:$)");
  static const QRegularExpression other =
      expression(u"\\*\\.|^\\s*(?i:select|insert|update|delete|pragma)\\b|=\\s*'$");
  return words.simplified().contains(sentence) && !words.contains(other);
}

}  // namespace

std::vector<ToldText> toldTexts() {
  const std::vector<Definition> all = definitions();
  std::vector<ToldText> told;
  for (const Definition* one : speaking(all))
    for (const QString& words : literals(withoutTitles(one->text)))
      if (isMessage(words)) told.push_back({one->file, words});
  return told;
}
