#pragma once

#include <cstddef>
#include <string>
#include <thread>

/// The barest exchange: a connection, so many bytes there, a short answer back. What sending to the till is
/// measured against.
class PresaSemplice {
 public:
  explicit PresaSemplice(std::string indirizzo);
  ~PresaSemplice();
  PresaSemplice(const PresaSemplice&) = delete;
  PresaSemplice& operator=(const PresaSemplice&) = delete;

  /// Throws std::runtime_error if the answer does not come.
  void scambia(const std::string& byte) const;

 private:
  void servi() const;

  std::string indirizzo_;
  int ascolto_ = -1;
  std::thread filo_;
};
