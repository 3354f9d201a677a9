#pragma once

#include <string>
#include <string_view>
#include <thread>

#include "ecrsim/key_parser.h"
#include "ecrsim/till.h"

namespace ecrsim {

/// A serial line of the till: a pseudo-terminal with a link to it, answered in a thread of its own. There are
/// no sequences on it, only keys: each is obeyed as soon as it is there. Before it prints something the till
/// gives the command back, and "ZZ" stops a dump.
class SerialLine {
 public:
  /// `link` is made anew; a link of that name is replaced, anything else is not. Throws
  /// std::system_error.
  SerialLine(std::string link, Till& till);
  ~SerialLine();
  SerialLine(const SerialLine&) = delete;
  SerialLine& operator=(const SerialLine&) = delete;

 private:
  void open();
  void close();
  void listen();
  void arrived(char character);
  void rest();
  void press(const Stroke& stroke);
  bool print(const LineAnswer& answer);
  bool send(std::string_view text);
  bool goesOn(short event, int wait);

  std::string link_;
  Till& till_;
  int port_ = -1;  ///< the till's end
  int pc_ = -1;    ///< the PC's end, held open so that the line survives a program that closes it
  int waker_[2] = {-1, -1};
  KeyParser parser_;
  bool abort_ = false;  ///< the last character of a dump's time was half an abort
  std::thread thread_;
};

}  // namespace ecrsim
