#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class FieldHint;
class QKeyEvent;
class QLineEdit;

/// Keys that edit, by their character codes.
inline constexpr QChar kBackspaceKey{8};
inline constexpr QChar kCutKey{24};

/// Whether a field that holds `text` takes the key; one that is not taken is dropped. Deleting, moving and
/// copying are no keys in this sense.
using KeyFilter = bool (*)(const QString& text, QChar key);
/// Why a key was dropped, and how to go on where that is not plain: one line for the person.
using KeyHint = QString (*)(const QString& text, QChar key);

/// What a field takes. Without a filter it takes everything.
struct KeyRule {
  KeyFilter takes = nullptr;
  KeyHint why = nullptr;
};

/// What is wrong with a field that the person leaves, and what it is set to then.
struct Rejection {
  QString message;
  QString value;
};
/// Nothing for a text that may stay.
using FieldCheck = std::function<std::optional<Rejection>(const QString& text)>;

/// Stands by a field. Keys that its rule does not take are dropped, and a line under the field says why until
/// the next key that is taken; so it does for one that finds the field full. The decimal key of the number
/// pad types the comma, unless the field takes a point. What comes in by another road (pasted, dropped,
/// composed) is filtered character by character with the same rule.
///
/// When the person leaves the field for another place in the same window it is checked, set right before the
/// message is shown, and has the focus again behind it. Belongs to the field.
class GuardedField : public QObject {
  Q_OBJECT

 public:
  using Tell = std::function<void(const QString& message)>;

  /// `check` may be null: the field is not checked then.
  explicit GuardedField(QLineEdit& field, KeyRule rule = {}, FieldCheck check = nullptr, Tell tell = {});

  /// Checks the field of `window` that has the focus as if it were left: for a command that is given by a
  /// key. False if it was refused: the person was told, and the command must not run.
  static bool settled(const QWidget& window);

  bool eventFilter(QObject* field, QEvent* event) override;

 private:
  bool keyPressed(const QKeyEvent& key);
  bool typesComma(const QKeyEvent& key) const;
  std::optional<QString> refusal(const QKeyEvent& key) const;
  void filterInserted(const QString& now);
  void tellFull();
  bool accepted();
  void left(Qt::FocusReason reason);
  void takeFocusBack();

  QLineEdit& field_;
  KeyRule rule_;
  FieldCheck check_;
  Tell tell_;
  FieldHint* hint_;
  /// The text before the edit that is being looked at.
  QString before_;
  /// The text that the hint was told for.
  QString told_;
};
