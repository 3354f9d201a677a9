#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "ecrsim/memoria.h"
#include "ecrsim/simulatore.h"

namespace ecrsim {

/// What a command is answered with.
struct Risposta {
  std::int16_t codice = 0;
  std::vector<std::uint8_t> dati;
};

/// The till itself, without its line: state, memory, the nine modes. One command at a time, whoever asks.
class Registratore {
 public:
  explicit Registratore(Opzioni opzioni);

  /// The fault that strikes this command, used up by one; nothing on a good day.
  std::optional<Guasto> guasto(int modo, const std::string& file);
  /// Notes and runs a command. `dati`: the file of mode 6.
  Risposta esegui(int modo, const std::string& file, ecrcom::Byte dati);
  /// Notes a command that is not run.
  void annota(int modo, const std::string& file, std::size_t byte);
  /// The 39 bytes that tell the till's state to a key sequence.
  std::string recordStato() const;

  std::vector<Chiamata> chiamate() const;
  void dimenticaChiamate();
  void stato(char lettera);
  void guasti(std::vector<Guasto> guasti);
  void rispostaInfo(std::string testo);
  bool trasferimentoAperto() const;
  std::int64_t giornata(int scontrini, std::uint32_t seme);
  const Memoria& memoria() const { return memoria_; }
  const std::string& indirizzo() const { return opzioni_.indirizzo; }
  /// How long a frame may take once its first byte is there, and a reply to be taken.
  std::chrono::milliseconds attesa() const { return opzioni_.attesa; }

 private:
  std::int16_t permesso(int modo) const;
  Risposta lavora(int modo, const std::string& file, ecrcom::Byte dati);
  Risposta info() const;
  std::int16_t azzeraProgrammazione() const;
  std::int16_t prendiFile(const std::string& file, ecrcom::Byte dati) const;
  Risposta consegnaFile(const std::string& file) const;

  mutable std::mutex serratura_;
  Opzioni opzioni_;
  Memoria memoria_;
  std::vector<Chiamata> chiamate_;
  std::vector<Guasto> guasti_;
  bool aperto_ = false;
};

}  // namespace ecrsim
