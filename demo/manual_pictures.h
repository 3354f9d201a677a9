#pragma once

#include <QImage>
#include <QString>

/// The pictures of the users' manual: some of those that the play takes, under names of their own.
class ManualPictures {
 public:
  /// `folder` is where they go; empty for nowhere.
  explicit ManualPictures(QString folder) : folder_(std::move(folder)) {}
  /// Writes the picture where it is one of the manual's, with 256 colours at most. Returns false if it
  /// cannot.
  bool keep(const QImage& picture, const QString& photo);
  /// Those that the manual shows and the play did not take; none where they go nowhere.
  QStringList missing() const;

 private:
  QString folder_;
  QStringList taken_;
};
