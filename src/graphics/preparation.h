#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <optional>

#include "ecrlink/transfer_lock.h"
#include "platform/ui/hidden_program.h"

class SteadyProgress;
struct Contesto;

/// The twelve bitmaps of the catalogue into the one file that goes to the till.
namespace graphics {

inline constexpr const char* kFileBitmap = "bitmap.bin";
inline constexpr const char* kConvertitore = "bitmap.exe";

/// How the converter is started. Tests alone set it otherwise.
struct Convertitore {
  std::function<int(const HiddenProgram&)> lancia = StartHidden;
  /// All the time that it has for a picture: nobody waits for its end.
  std::chrono::milliseconds attesa{1000};
};

/// Where the batch stands.
struct Avanzamento {
  /// At the number of pictures that are done.
  SteadyProgress& barra;
  /// Told the number, from 1, and the file of the picture that comes next.
  std::function<void(int, const QString&)> annuncia;
};

/// Makes "bitmap.bin" of the bitmaps in `cartella`: what the converter wrote for each, in order, nothing in
/// between. 0 on success; 1 on a failure, which has been shown: what was collected so far then stands under
/// the name. The transfer files of the folder are the caller's, in `scambio`, from before the old file goes.
int ManageFileBMP(const QString& cartella, Avanzamento avanzamento, const Convertitore& convertitore,
                  std::optional<ecrlink::ScambioEsclusivo>& scambio, Contesto& contesto);
/// Has one bitmap converted, by whole path, with the width that the connected till needs. 0 when the
/// converter was started and has had its time, whatever it made of it; every failure has been shown.
int InvertoFileBMP(const QString& bitmap, const QString& cartella, const Convertitore& convertitore,
                   Contesto& contesto);

/// The text of a start that failed; empty for a number that has none.
QString testoDelLancio(int esito);
/// Where the batch looks for what the converter made of a bitmap: ".bmp" becomes ".bin" in every place of
/// the path, in the name of a folder too.
QString percorsoConvertito(const QString& bitmap);

}  // namespace graphics
