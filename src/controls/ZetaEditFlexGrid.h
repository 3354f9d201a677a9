#pragma once

#include <QLineEdit>
#include <QMenu>
#include <QObject>
#include <QPointer>
#include <array>
#include <optional>

#include "controls/FlexGrid.h"

class QKeyEvent;
class QSettings;

/// Makes a grid that is only read one that is written: a text box over the current cell, a menu, the keys of
/// the clipboard, and one level of undo. Its owner hears of it by the signals; it shows no message. Without a
/// grid nothing it is asked for does anything.
///
/// A box stays open, and on its cell, until Enter, Esc or a scrolling of the grid: where the person clicks
/// meanwhile, what is typed goes into no other cell.
class ZetaEditFlexGrid : public QObject {
  Q_OBJECT
  /// The whole text is selected as editing starts.
  Q_PROPERTY(bool AutoSelect READ AutoSelect WRITE setAutoSelect)
  /// A character typed on the grid starts editing.
  Q_PROPERTY(bool AutoEdit READ AutoEdit WRITE setAutoEdit)
  /// The heading and the fixed columns may be changed too.
  Q_PROPERTY(bool EditFixedCells READ EditFixedCells WRITE setEditFixedCells)
  /// The right button opens the menu, in the place of the grid's own.
  Q_PROPERTY(bool MenuPopup READ MenuPopup WRITE setMenuPopup)
  /// Off, the grid is as if it were not bound; a box that is open is closed.
  Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
  /// Not owned; one that goes unbinds itself. Another one forgets what could be undone.
  Q_PROPERTY(FlexGrid* Griglia READ Griglia WRITE setGriglia)

 public:
  explicit ZetaEditFlexGrid(QObject* parent = nullptr);
  ~ZetaEditFlexGrid() override;

  bool AutoSelect() const { return autoSelect_; }
  void setAutoSelect(bool on) { autoSelect_ = on; }
  bool AutoEdit() const { return autoEdit_; }
  void setAutoEdit(bool on) { autoEdit_ = on; }
  bool EditFixedCells() const { return editFixedCells_; }
  void setEditFixedCells(bool on) { editFixedCells_ = on; }
  bool MenuPopup() const { return menuPopup_; }
  void setMenuPopup(bool on);
  bool Enabled() const { return enabled_; }
  void setEnabled(bool on);
  FlexGrid* Griglia() const { return flexGriglia_; }
  void setGriglia(FlexGrid* griglia);

  /// The properties, the grid aside, under their names in the settings' present group.
  void save(QSettings& settings) const;
  /// What was not saved takes its default. Closes the box.
  void load(const QSettings& settings);

 public Q_SLOTS:
  /// Opens a box on the current cell, which is brought into view.
  void Edit();
  /// As above with this text in the place of the cell's, and the caret behind it.
  void Edit(const QString& text);
  /// The cell as it was before the last change. A second time does the same once more.
  void Undo();

 Q_SIGNALS:
  /// A cell's text was changed: by a confirmed box, clear, cut, paste or undo.
  void Change();
  /// The box was closed with no change.
  void Cancel();
  /// A box is about to open with this text.
  void EditStart(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Cell {
    int row = 0;
    int column = -1;
  };
  struct Saved {
    Cell cell;
    QString text;
  };
  /// An entry of the menu, and the key that does the same on the grid.
  struct Command;
  static const std::array<Command, 7> kCommands;

  void bind();
  void unbind();
  void forget();
  void makeParts();
  void makeMenu();
  void moveParts();
  QWidget& container() const;
  void chooseMenu();

  Cell current() const;
  bool holds(const Cell& cell) const;
  bool reaches(const Cell& cell) const;
  bool mayChange() const;
  void moveTo(const Cell& cell);
  std::optional<Cell> cellAt(const QPoint& place) const;
  void openMenu(const QPoint& at);
  void doubleClicked(int row, int column);

  void start(const std::optional<QString>& text);
  void openBox(const std::optional<QString>& text);
  void arrange();
  void confirm();
  void cancel();
  void closeBox();
  void focusGrid();
  bool keyOnGrid(const QKeyEvent& key);
  bool startsEditing(const QKeyEvent& key) const;
  bool keyInBox(const QKeyEvent& key);

  void saveUndo(const Cell& cell);
  void write(const QString& text);
  void clear();
  void copy();
  void cut();
  void paste();

  bool autoSelect_ = false;
  bool autoEdit_ = false;
  bool editFixedCells_ = false;
  bool menuPopup_ = false;
  bool enabled_ = false;
  QPointer<FlexGrid> flexGriglia_;
  /// They live where the grid lives, and may go with it.
  std::array<QPointer<QLineEdit>, 3> boxes_;
  QPointer<QMenu> mnuPopup_;
  QPointer<QAction> mnuPopup_Undo_;
  /// The box that is open, and its cell; none while all are hidden.
  QPointer<QLineEdit> txtEdit_;
  Cell edited_;
  std::optional<Saved> saved_;
};
