#pragma once

class QLineEdit;
class QString;

/// How wide a field is.
enum class FieldWidth {
  Exact,    ///< what its sample takes
  AtLeast,  ///< that or more
};

/// Gives `field` the width of a sample of the longest text that is usual there, in whatever font the field
/// comes to have.
void widthFromSample(QLineEdit& field, const QString& sample, FieldWidth width);
