#pragma once

#include <QFrame>
#include <functional>

class Clock;
class QLabel;
class QToolButton;

/// The line at the foot of a screen that tells what the last command did, success and failure alike: a sign,
/// a text that can be copied, the time, and where there is one what can be done with it.
class OutcomeBar : public QFrame {
  Q_OBJECT

 public:
  enum class Kind {
    Plain,    ///< counts, and what is known of the screen
    Done,     ///< what was asked for is done
    Warning,  ///< done, or not done, in a way that the person should look at
    Failed,
  };
  /// What the button beside the text does.
  struct Action {
    QString caption;
    std::function<void()> run;
  };

  explicit OutcomeBar(QWidget* parent = nullptr);

  /// From now on the time stands beside what is told. The clock outlives the bar.
  void keepTime(const Clock& clock) { clock_ = &clock; }
  void tell(Kind kind, const QString& text) { tell(kind, text, {}); }
  void tell(Kind kind, const QString& text, Action action);
  /// What an earlier command said goes.
  void clear();
  Kind kind() const { return kind_; }
  QString text() const;

 private:
  Kind kind_ = Kind::Plain;
  const Clock* clock_ = nullptr;
  Action action_;
  QLabel* sign_;
  QLabel* text_;
  QToolButton* button_;
  QLabel* time_;
};
