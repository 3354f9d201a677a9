#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class QKeyEvent;
class QLineEdit;

/// Keys that edit, by their character codes.
inline constexpr QChar kBackspaceKey{8};
inline constexpr QChar kCutKey{24};

/// Whether a field that holds `text` takes the key; one that is not taken is dropped. Deleting, moving and
/// copying are no keys in this sense.
using KeyFilter = bool (*)(const QString& text, QChar key);

/// What is wrong with a field that the person leaves, and what it is set to then.
struct Rejection {
  QString message;
  QString value;
};
/// Nothing for a text that may stay.
using FieldCheck = std::optional<Rejection> (*)(const QString& text);

/// Stands by a field. Keys that its filter does not take are dropped; what comes in by another road (pasted,
/// dropped, composed) is filtered character by character with the same rule. When the person leaves the field
/// for another place in the same window it is checked, and set right before the message is shown.
/// Belongs to the field.
class GuardedField : public QObject {
  Q_OBJECT

 public:
  using Tell = std::function<void(const QString& message)>;

  /// `check` may be null: the field is not checked then.
  GuardedField(QLineEdit& field, KeyFilter filter, FieldCheck check, Tell tell);

  bool eventFilter(QObject* field, QEvent* event) override;

 private:
  bool takes(const QString& text, const QKeyEvent& key) const;
  void filterInserted(const QString& now);
  void left(Qt::FocusReason reason);

  QLineEdit& field_;
  KeyFilter filter_;
  FieldCheck check_;
  Tell tell_;
  /// The text before the edit that is being looked at.
  QString before_;
};
