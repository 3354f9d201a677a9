#pragma once

#include <QLabel>
#include <QPointer>

/// A line of text under a field, over what stands there; readers of the screen are told it as the field's
/// description. Its object name is the field's with "Avviso_" before it.
class FieldHint : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field.
  explicit FieldHint(QWidget& field);
  ~FieldHint() override;

  void tell(const QString& text);
  void withdraw();
  bool isTold() const;

 private:
  void place();

  QWidget& field_;
  /// Made when there is first something to tell; it lies in the field's window.
  QPointer<QLabel> label_;
  /// Of the field, while it has nothing to tell.
  QString description_;
};
