#pragma once

#include <filesystem>
#include <string>
#include <thread>

/// A pseudo-terminal whose other side answers one command with a dump, a character at a time, each at the
/// moment at which a line of that speed would bring it.
class FedLine {
 public:
  /// How long the dump lasts, in seconds.
  static constexpr int kLasts = 2;

  /// The dump goes by `speed` bits a second, ten a character; what becomes of it is watched in the file
  /// "DGFE_..." of `folder`, which must have its head before the command goes out.
  FedLine(int speed, std::filesystem::path folder);
  ~FedLine();
  FedLine(const FedLine&) = delete;
  FedLine& operator=(const FedLine&) = delete;

  const std::string& device() const { return device_; }
  /// Characters of the dump, its marker included.
  int length() const { return speed_ / kBitsOfCharacter * kLasts; }
  /// The same by plain calls: each character that comes in goes into `file`. Throws std::runtime_error.
  void copyInto(const std::filesystem::path& file) const;

  /// Once the dump is over: seconds that the process took on the processor while it was fed, the feeding
  /// taken out, and by how many seconds of the line the file was behind at its worst. -1 if there was nothing
  /// to watch.
  double processor();
  double behind();

 private:
  static constexpr int kBitsOfCharacter = 10;

  void feed();
  void await();

  int speed_;
  std::filesystem::path folder_;
  int ours_ = -1;
  int theirs_ = -1;
  std::string device_;
  double processor_ = -1;
  double behind_ = -1;
  std::thread thread_;
};
