#pragma once

#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "ecrcom/socket.h"
#include "ecrsim/till.h"

namespace ecrsim {

/// The address of a dotted text if it is 127.x.y.z, else nothing.
std::optional<in_addr> loopbackAddress(const std::string& text);

/// The till's line: listens at an address, serves each connection in a thread. A few threads are kept and one
/// of them always waits for the next connection, so that a command costs no start of a thread; those that
/// many connections at once needed beyond them end with their connections.
class Listener {
 public:
  /// Listens at once; throws std::system_error if the address is not a loopback one or is taken.
  Listener(const std::string& address, Till& till);
  /// Cuts every connection and waits for their threads.
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

 private:
  struct Worker {
    /// The connection served now, closed while there is none.
    ecrcom::Socket connection;
    std::thread thread;
  };
  using Workers = std::list<Worker>;

  void addWorker();
  void work(Workers::iterator worker);
  /// Takes the connection for its own; whether there is one to serve.
  bool take(Worker& worker, ecrcom::Socket connection);
  /// The connection has ended; whether its thread is to wait for another.
  bool release(Workers::iterator worker);

  Till& till_;
  ecrcom::Socket listener_;
  std::mutex mutex_;
  bool closes_ = false;
  int free_ = 0;
  Workers workers_;
  /// The last thread that ended, for the next one to join.
  Workers ended_;
};

}  // namespace ecrsim
