#pragma once

#include <functional>
#include <string>
#include <thread>

namespace ecrsim {

/// A serial line of the till: a pseudo-terminal with a link to it, answered in a thread of its own.
class SerialLine {
 public:
  /// What a key sequence prints to the line.
  using Press = std::function<std::string(const std::string&)>;

  /// `link` is made anew; a link of that name is replaced, anything else is not. Throws
  /// std::system_error.
  SerialLine(std::string link, Press press);
  ~SerialLine();
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;

 private:
  void open();
  void close();
  void listen();
  void arrived(char character);

  std::string link_;
  Press press_;
  int till_ = -1;  ///< the till's end
  int pc_ = -1;    ///< the PC's end, held open so that the line survives a program that closes it
  int waker_[2] = {-1, -1};
  std::string sequence_;
  std::thread thread_;
};

}  // namespace ecrsim
