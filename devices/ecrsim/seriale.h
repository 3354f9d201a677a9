#pragma once

#include <functional>
#include <string>
#include <thread>

namespace ecrsim {

/// A serial line of the till: a pseudo-terminal with a link to it, answered in a thread of its own.
class Seriale {
 public:
  /// What a key sequence prints to the line.
  using Premi = std::function<std::string(const std::string&)>;

  /// `collegamento` is made anew; a link of that name is replaced, anything else is not. Throws
  /// std::system_error.
  Seriale(std::string collegamento, Premi premi);
  ~Seriale();
  Seriale(const Seriale&) = delete;
  Seriale& operator=(const Seriale&) = delete;

 private:
  void apri();
  void chiudi();
  void ascolta();
  void arrivato(char carattere);

  std::string collegamento_;
  Premi premi_;
  int cassa_ = -1;  ///< the till's end
  int pc_ = -1;     ///< the PC's end, held open so that the line survives a program that closes it
  int sveglia_[2] = {-1, -1};
  std::string sequenza_;
  std::thread filo_;
};

}  // namespace ecrsim
