#pragma once

#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "ecrcom/presa.h"
#include "ecrsim/registratore.h"

namespace ecrsim {

/// The address of a dotted text if it is 127.x.y.z, else nothing.
std::optional<in_addr> indirizzoLocale(const std::string& testo);

/// The till's line: listens at an address, one thread for each connection.
class Servizio {
 public:
  /// Listens at once; throws std::system_error if the address is not a loopback one or is taken.
  Servizio(const std::string& indirizzo, Registratore& registratore);
  /// Cuts every connection and waits for their threads.
  ~Servizio();
  Servizio(const Servizio&) = delete;
  Servizio& operator=(const Servizio&) = delete;

 private:
  struct Collegamento {
    ecrcom::Presa presa;
    bool finito = false;
    std::thread filo;
  };

  void accetta();
  void accogli(ecrcom::Presa presa);
  void servi(Collegamento& collegamento);
  /// Joins the threads that have ended.
  void raccogli();

  Registratore& registratore_;
  ecrcom::Presa ascolto_;
  std::mutex serratura_;
  bool chiude_ = false;
  std::list<Collegamento> collegamenti_;
  std::thread filo_;
};

}  // namespace ecrsim
