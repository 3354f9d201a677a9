#pragma once

#include <QLockFile>
#include <optional>

class Utente;

namespace ecrlink {

/// The transfer files of the current folder in the hands of one program, for its own life. Two that exchanged
/// at once would read each other's files: a till was cleared of sales that nobody had read.
class ScambioEsclusivo {
 public:
  /// Throws Errore 70 while another program exchanges in this folder, 75 where no file can be made in it. The
  /// lock of a program that is gone is taken over.
  ScambioEsclusivo();

 private:
  QLockFile serratura_;
};

/// Before a step that needs no file, or fails by itself without one: a folder that takes no lock, and so no
/// transfer file either, leaves `scambio` empty. Throws Errore 70 while another program exchanges.
void prendiDovePossibile(std::optional<ScambioEsclusivo>& scambio);
/// The same, but false where another program exchanges, and the person told.
bool prendiODillo(std::optional<ScambioEsclusivo>& scambio, Utente& utente);

}  // namespace ecrlink
