#pragma once

#include <netinet/in.h>

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "ecrcom/trama.h"

/// Sockets with a deadline: every wait ends at a moment fixed beforehand, so that a peer which sends a byte
/// now and then cannot hold a caller.
namespace ecrcom {

using Orologio = std::chrono::steady_clock;
using Scadenza = Orologio::time_point;

inline Scadenza fra(std::chrono::milliseconds attesa) {
  return Orologio::now() + attesa;
}

enum class Esito {
  Fatto,
  Scaduto,
  Rifiutato,  ///< nobody listens there, or there is no way to it
  Tagliato,   ///< the peer has gone
  Spazzatura,
  Risorse,  ///< no socket to be had
};

/// An open socket, closed with its owner. Non-blocking, without small-packet delay, closed on exec.
class Presa {
 public:
  Presa() = default;
  explicit Presa(int descrittore);
  ~Presa();
  Presa(Presa&& altra) noexcept;
  Presa& operator=(Presa&& altra) noexcept;
  Presa(const Presa&) = delete;
  Presa& operator=(const Presa&) = delete;

  int descrittore() const { return descrittore_; }
  bool aperta() const { return descrittore_ >= 0; }
  void chiudi();
  /// Ends sending and reads away what still comes, until the peer has closed or `scadenza`. Closing over
  /// unread bytes would reset the connection and lose the last reply on its way.
  void congeda(Scadenza scadenza) const;

 private:
  int descrittore_ = -1;
};

/// Address of a dotted text, or nothing if it is no such text.
std::optional<in_addr> indirizzo(const std::string& testo);
Esito connetti(in_addr indirizzo, Scadenza scadenza, Presa& presa);
Esito spedisci(const Presa& presa, Byte byte, Scadenza scadenza);
/// Fills `byte` whole. If `controlla`, garbage is told as soon as the first bytes are no frame's.
Esito ricevi(const Presa& presa, std::span<std::uint8_t> byte, Scadenza scadenza, bool controlla = false);
/// What has arrived, at most `byte`'s size; waits for the first byte.
Esito riceviQualcosa(const Presa& presa, std::span<std::uint8_t> byte, Scadenza scadenza,
                     std::size_t& quanti);
/// A whole frame, checksum proven.
Esito riceviTrama(const Presa& presa, Scadenza scadenza, Trama& trama);
/// Data that follow a header already read; proves the checksum.
Esito riceviDati(const Presa& presa, const ByteIntestazione& testa, Scadenza scadenza, Trama& trama);
/// Waits for an event of poll(); for ever if there is no deadline.
Esito attendi(const Presa& presa, short evento, std::optional<Scadenza> scadenza);

}  // namespace ecrcom
