#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <deque>
#include <functional>

class QWidget;

/// Plays a list of steps on the real screens: waits until a step's moment has come, then clicks or types. The
/// steps go on inside modal loops. A step whose moment does not come in time ends the play.
class Director : public QObject {
  Q_OBJECT

 public:
  using When = std::function<bool()>;
  using Action = std::function<void()>;

  Director();
  void step(const QString& name, When when, Action action);
  /// Runs the event loop until the last step. Returns 0, or 1 if a step failed.
  int run();
  /// Ends the play as failed.
  void fail(const QString& reason);

 private:
  struct Step {
    QString name;
    When when;
    Action action;
  };

  void beat();
  void perform(const Step& step);
  /// Whether the loop of a dialog that is closed has not been left yet, and with it the command that opened
  /// it has not gone on.
  bool leaving() const;

  std::deque<Step> steps_;
  QTimer clock_;
  QElapsedTimer wait_;
  bool running_ = false;
  /// Level of that loop, 0 for none, and the dialog below it.
  int left_ = 0;
  QPointer<QWidget> below_;
  int outcome_ = 0;
};

/// The visible top-level window of that object name, if any.
QWidget* window(const QString& name);
/// The visible window's control of that name; fails with std::runtime_error where there is none.
QWidget& control(const QString& window, const QString& name);
void click(const QString& window, const QString& name);
void press(const QString& window, const QString& name, Qt::Key key);
/// Moves the mouse over a control.
void hoverOver(const QString& window, const QString& name);
/// Replaces the text of an input box by keys.
void type(const QString& window, const QString& name, const QString& text);
/// The same where the box drops keys typed over what it holds: the old text goes letter by letter first.
void retype(const QString& window, const QString& name, const QString& text);
/// The texts that a grid shows: one row of data after the other, the heading left out.
QList<QStringList> cells(const QString& window, const QString& grid);
/// Clicks a cell of a grid, both from 0, the heading left out.
void clickCell(const QString& window, const QString& grid, int row, int column);
/// Clicks the entry of a list that bears this text.
void clickEntry(const QString& window, const QString& list, const QString& text);
/// Clicks a tab, from 0.
void clickTab(const QString& window, const QString& tabs, int which);
/// Opens a menu of the window and clicks one of its entries.
void chooseEntry(const QString& window, const QString& menu, const QString& entry);
/// Whether a file dialog or a box stands in front.
bool fileDialog();
bool box();
QString boxText();
/// The file dialog in front: its name by keys, then, once it knows the file, its button.
void typeFileName(const QString& path);
bool acceptableFile();
void acceptFile();
/// Clicks the first button of the box in front.
void closeBox();
/// Clicks "Sì" in the box in front.
void agreeToBox();
/// Leaves the box in front by its Esc key.
void refuseBox();
