#include <algorithm>
#include <cstdint>
#include <vector>

#include "check.h"
#include "config/department_attributes.h"
#include "config/image.h"
#include "config/narrow_lines.h"
#include "config/records.h"
#include "platform/error.h"

namespace {

using config::Campo;
using config::Tipo;
using Byte = std::vector<std::uint8_t>;

/// Reads a field and writes it back: the same value has to be read again, and a field that holds no text has
/// to keep its bytes.
void andataERitorno(Byte& record, const Campo& campo) {
  switch (campo.tipo) {
    case Tipo::CampoTesto:
    case Tipo::TestoPieno: {
      const QString testo = leggiTesto(record, campo);
      scriviTesto(record, campo, testo);
      check(leggiTesto(record, campo) == testo.left(static_cast<qsizetype>(campo.limite)));
      return;
    }
    case Tipo::Intero32: {
      const Byte prima = record;
      scriviIntero(record, campo, leggiIntero(record, campo));
      return check(record == prima);
    }
    case Tipo::SenzaSegno16: {
      const Byte prima = record;
      scriviSenzaSegno16(record, campo, leggiSenzaSegno16(record, campo));
      return check(record == prima);
    }
    case Tipo::SenzaSegno32: {
      const Byte prima = record;
      scriviSenzaSegno(record, campo, leggiSenzaSegno(record, campo));
      return check(record == prima);
    }
    case Tipo::Flag: {
      const bool valore = leggiFlag(record, campo);
      scriviFlag(record, campo, valore);
      return check(leggiFlag(record, campo) == valore);
    }
    case Tipo::Byte: {
      const std::uint8_t valore = leggiByte(record, campo);
      check(config::imballaAttributi(config::sballaAttributi(valore)) == valore);
      scriviByte(record, campo, valore);
      return check(leggiByte(record, campo) == valore);
    }
    case Tipo::Riservato:
      return;
  }
}

void provaFamiglia(const config::Famiglia& famiglia, const Byte& dati) {
  for (const Campo& campo : famiglia.campi) {
    if (campo.tipo == Tipo::Riservato) continue;
    Byte record = dati;
    try {
      andataERitorno(record, campo);
      check(record.size() >= campo.inizio + campo.larghezza);
    } catch (const Errore& errore) {
      check(errore.numero == errors::kOutOfRange && record == dati);
    }
  }
}

/// Narrow to wide and back gives the narrow image's own bytes again.
void provaStretta(Byte dati) {
  dati.resize(std::max(dati.size(), config::intestazione_corta::kTotale));
  Byte piena(config::intestazione::kRecord * config::intestazione::kByte);
  config::allargaIntestazione(dati, piena);
  Byte tornata = dati;
  config::restringiIntestazione(piena, tornata);
  check(tornata == dati);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t lunghezza) {
  if (lunghezza == 0) return 0;
  const Byte byte(dati + 1, dati + lunghezza);
  const auto famiglie = config::famiglie();
  provaFamiglia(*famiglie[dati[0] % famiglie.size()], byte);
  provaStretta(byte);
  return 0;
}
