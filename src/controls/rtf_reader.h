#pragma once

#include <QByteArray>
#include <QHash>
#include <vector>

#include "controls/rtf_lexer.h"
#include "controls/rtf_text.h"

namespace rtf {

/// Reads the steps of a file into a text. Throws Errore 321 for what cannot be read.
class Reader {
 public:
  explicit Reader(const QByteArray& byte);
  Text read();

 private:
  /// What the bytes of a group are for.
  enum class Destination { Page, Nothing, Styles, ListMark };

  /// The properties of a paragraph as they stand when it ends.
  struct ParagraphForm {
    int style = -1;
    int outline = -1;
    int list = 0;
    int level = 0;
    bool inTable = false;
    Qt::Alignment alignment = Qt::AlignLeft;
  };

  struct Group {
    Destination destination = Destination::Page;
    CharFormat character;
    ParagraphForm shape;
    /// How many characters stand behind a \u for readers that do not know it.
    int fallbacks = 1;
    /// The next word tells what the group is for.
    bool start = true;
    /// That word may be passed over by who does not know it.
    bool optional = false;
  };

  void step(const Token& token);
  void open();
  void close();
  void symbol(char c);
  void word(const Token& token);
  bool target(QByteArrayView name);
  bool character(const Token& token);
  bool shape(const Token& token);
  bool table(const Token& token);
  bool special(QByteArrayView name);
  void unicode(int code);
  void text(QChar character);
  void style(QChar character);

  int title() const;
  Paragraph closeParagraph();
  void endParagraph();
  void endCell();
  void endRow();
  void dissolveRow();
  void add(Paragraph paragraph);
  void count(int& count, int max);

  QByteArray byte_;
  Lexer lexer_;
  std::vector<Group> groups_;
  int toSkip_ = 0;

  Text text_;
  Paragraph paragraph_;
  QString mark_;
  bool withMark_ = false;
  Cell cell_;
  Row row_;

  QHash<int, int> titles_;
  QString styleName_;
  int characters_ = 0;
  int blocks_ = 0;
};

}  // namespace rtf
