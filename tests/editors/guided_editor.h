#pragma once

#include <QLineEdit>

#include "config/configuration_file.h"
#include "controls/FlexGrid.h"
#include "controls/outcome_bar.h"
#include "editors/utf8_text.h"
#include "sostegno/guided_screen.h"
#include "sostegno/troubles.h"

/// A configuration file in a folder of its own, read into memory, under the locale of the shops: zeros but
/// for its version and what a test puts there before it opens a screen.
class ConfigurationOpen : public testing::Test {
 protected:
  /// `libraryFolder` holds the communications library.
  explicit ConfigurationOpen(const QString& libraryFolder = QStringLiteral(GESTIONALE_APP));
  ~ConfigurationOpen() override;

  /// Bytes into the file at an offset, and the file into memory again.
  void put(qsizetype offset, const QByteArray& bytes);
  QByteArray onDisk(qsizetype offset, qsizetype bytes) const;
  /// The same in memory: the offset is the file's.
  QByteArray inMemory(qsizetype offset, qsizetype bytes) const;
  /// From here on `waitScreens` counts the wait screens that are shown.
  void countWaitScreens();

  WithLocale locale{"it_IT"};
  ProgramFixture program;
  int waitScreens = 0;
};

/// The same where the till's library is not where the program looks for it.
class ConfigurationWithoutLibrary : public ConfigurationOpen {
 protected:
  ConfigurationWithoutLibrary() : ConfigurationOpen(QStringLiteral("/nessuna/cartella")) {}
};

/// An editor under the hands of a person: cells clicked, keys pressed where the focus is.
class GuidedEditor : public GuidedScreen {
 public:
  GuidedEditor(ProgramFixture& program, const QString& name) : GuidedScreen(program, name) {}

  FlexGrid& grid() const;
  QString cell(int row, int column) const { return grid().TextMatrix(row, column); }
  /// The words of the heading row.
  QStringList headings() const;
  /// The data cells of a row, its number among them.
  QStringList row(int row) const;
  /// Where a cell stands in the grid's viewport.
  QRect place(int row, int column) const;
  void clickCell(int row, int column) const;
  /// Names of the boxes that are seen.
  QStringList boxes() const;
  /// The one that is seen; the test ends where there is not exactly one.
  QLineEdit& box() const;
  /// "3,1": the cell that the grid stands on.
  QString current() const;
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
  void type(const QString& keys) const;
  /// Clicks the cell, empties it with "Canc" and types.
  void write(int row, int column, const QString& keys) const;
  /// What stands under the box about a key that was not taken; empty for nothing.
  QString hint() const;
  QString foot() const { return control<OutcomeBar>("BarraEsito").text(); }
  OutcomeBar::Kind footKind() const { return control<OutcomeBar>("BarraEsito").kind(); }
  /// The rows that bear the colour of changed ones, from end to end.
  QList<int> marked() const;
};

/// A box with the warning picture.
Box warning(const QString& text);
/// One box since the last look: that of the failure of that number, in that procedure of that screen.
void expectFailure(ProgramFixture& program, int number, const char* procedure, const char* screen);
