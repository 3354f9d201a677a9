#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/errore.h"

/// A serial line, event driven: no parity, 8 data bits, 1 stop bit. Nothing here waits.
class PortaSeriale {
 public:
  /// What came in, in pieces of `InputLen` characters.
  using AllArrivo = std::function<void(const QByteArray&)>;
  /// The line broke: told once, the port is closed by then.
  using AllErrore = std::function<void(const Errore&)>;

  PortaSeriale();
  ~PortaSeriale();
  PortaSeriale(const PortaSeriale&) = delete;
  PortaSeriale& operator=(const PortaSeriale&) = delete;

  void allArrivo(AllArrivo funzione);
  void allErrore(AllErrore funzione);

  /// Opens a device by its path; one that is open is closed first. Throws Errore 8002 (no such device, empty
  /// path), 8005 (in use or not permitted), 8015 (the device does not take the settings).
  void apri(const QString& percorso, int velocita);
  void chiudi();
  bool aperta() const;
  /// Hands bytes over for sending. Throws Errore 8018 if the port is closed, 8020 if they are not taken.
  void scrivi(const QByteArray& byte);
  /// Characters to an arrival; 0: all that are waiting. At first 0.
  void InputLen(int caratteri);

 private:
  struct Interno;
  /// Goes at the next turn of the event loop: its owner may have been told something by it just now.
  struct PiuTardi {
    void operator()(Interno* interno) const;
  };
  std::unique_ptr<Interno, PiuTardi> interno_;
};

namespace serial {

/// Paths of the devices that the system lists, in its order.
QStringList elencoPorte();

/// Path of port `numero`, 1 to 16: the link `Porte/COM<numero>` of the application folder if there is one,
/// else the device at that place of the list. Empty if there is none.
QString percorsoPorta(int numero, const QString& cartella);

}  // namespace serial
