#pragma once

#include <QFrame>

class QLabel;

/// The line at the foot of a screen that tells what the last command did, success and failure alike: a sign,
/// and a text that can be copied.
class OutcomeBar : public QFrame {
  Q_OBJECT

 public:
  enum class Kind {
    Plain,    ///< counts, and what is known of the screen
    Done,     ///< what was asked for is done
    Warning,  ///< done, or not done, in a way that the person should look at
    Failed,
  };

  explicit OutcomeBar(QWidget* parent = nullptr);

  void tell(Kind kind, const QString& text);
  /// What an earlier command said goes.
  void clear();
  Kind kind() const { return kind_; }
  QString text() const;

 private:
  Kind kind_ = Kind::Plain;
  QLabel* sign_;
  QLabel* text_;
};
