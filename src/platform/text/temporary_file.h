#pragma once

#include <QByteArray>
#include <QString>

/// A file of its own, closed with its owner.
class FileDescriptor {
 public:
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  int number() const { return number_; }
  bool valid() const { return number_ >= 0; }
  /// Closing early tells whether the last bytes were taken.
  bool close();

 private:
  int number_;
};

/// A new file beside `target` that takes the target's place whole or not at all: whatever fails, and whoever
/// looks, the name stands for the bytes before or for those after. Where it did not take the place it is gone
/// with its owner; a program that is killed leaves it behind, for `Sweep`.
///
/// A link in the target's place is replaced, not followed. Every failure throws Errore 61, 70, 75 or 76 with
/// the target's path.
class TemporaryFile {
 public:
  enum class Durability {
    Kept,     ///< on the disk before the name changes: what a person keeps
    Passing,  ///< not waited for: what the next transfer writes anew
  };

  explicit TemporaryFile(const QString& target);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  /// Of the new file, for who writes or cuts it by other means.
  QString path() const { return QString::fromUtf8(name_); }
  void write(const char* bytes, std::size_t count);
  void write(const QByteArray& bytes);
  void settle(Durability durability = Durability::Kept);

  /// Removes what programs that are gone left beside `target`.
  static void Sweep(const QString& target);

 private:
  void takePermissions() const;
  void syncFolder() const;

  QString target_;
  QByteArray name_;
  FileDescriptor file_;
  bool settled_ = false;
};

/// The file that a path stands for: behind a link, the one that the link leads to. Throws Errore 75 for an
/// empty path, for what is no regular file and for a file that may not be written.
QString RealTarget(const QString& path);
