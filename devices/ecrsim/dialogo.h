#pragma once

#include "ecrcom/presa.h"
#include "ecrsim/registratore.h"

namespace ecrsim {

/// One connection from its first frame to its end, faults included.
class Dialogo {
 public:
  /// `deposito` is where data arrive, for the caller to keep from one connection to the next.
  Dialogo(const ecrcom::Presa& presa, Registratore& registratore, std::vector<std::uint8_t>& deposito)
      : presa_(presa), registratore_(registratore), deposito_(deposito) {}

  /// Serves frame after frame until the peer goes, sends what is no frame, or a fault cuts the line.
  void conduci();

 private:
  bool servi();
  bool servi(const ecrcom::ByteIntestazione& testa, ecrcom::Trama& trama);
  bool comando(const ecrcom::ByteIntestazione& testa, ecrcom::Trama& trama);
  bool guasta(const Guasto& guasto, const ecrcom::ByteIntestazione& testa, ecrcom::Trama& trama);
  bool guastaDati(const Guasto& guasto, ecrcom::Trama& trama);
  bool tasti(const std::string& sequenza);
  bool rispondi(std::uint8_t modo, const Risposta& risposta) const;
  bool manda(ecrcom::Byte byte) const;
  bool completa(const ecrcom::ByteIntestazione& testa, ecrcom::Trama& trama) const;
  void aspettaFine() const;

  const ecrcom::Presa& presa_;
  Registratore& registratore_;
  std::vector<std::uint8_t>& deposito_;
  /// Of the frame that is coming in.
  ecrcom::Scadenza scadenza_{};
  bool tastiAperti_ = false;
};

}  // namespace ecrsim
