#pragma once

#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "ecrcom/presa.h"
#include "ecrsim/registratore.h"

namespace ecrsim {

/// The address of a dotted text if it is 127.x.y.z, else nothing.
std::optional<in_addr> indirizzoLocale(const std::string& testo);

/// The till's line: listens at an address, serves each connection in a thread. Threads are kept and one of
/// them always waits for the next connection, so that a command costs no start of a thread.
class Servizio {
 public:
  /// Listens at once; throws std::system_error if the address is not a loopback one or is taken.
  Servizio(const std::string& indirizzo, Registratore& registratore);
  /// Cuts every connection and waits for their threads.
  ~Servizio();
  Servizio(const Servizio&) = delete;
  Servizio& operator=(const Servizio&) = delete;

 private:
  struct Addetto {
    /// The connection served now, closed while there is none.
    ecrcom::Presa presa;
    std::vector<std::uint8_t> deposito;
    std::thread filo;
  };

  void assumi();
  void lavora(Addetto& addetto);
  /// Takes the connection for its own; whether there is one to serve.
  bool prendi(Addetto& addetto, ecrcom::Presa presa);

  Registratore& registratore_;
  ecrcom::Presa ascolto_;
  std::mutex serratura_;
  bool chiude_ = false;
  int liberi_ = 0;
  std::list<Addetto> addetti_;
};

}  // namespace ecrsim
