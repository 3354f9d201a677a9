#pragma once

#include <QString>
#include <optional>

/// The machine that the person picked for its keyboard, by its index in `ecrlink::kModelli`. It is the
/// process's: it outlives the screen that it was picked on, as the width of a line that comes from it does.
namespace editors {

/// Keeps the machine, and sets `LarghezzaRiga` to the characters of its lines. Throws Errore 9 for an index
/// outside the list; the choice is then as before.
void scegliModello(int indice);
/// Nothing before the first choice.
std::optional<int> modelloScelto();
/// Keys of the machine's keyboard: "42", "N/A" where they are not told, empty before the first choice.
QString numeroTasti();
/// As at process start; `LarghezzaRiga` stays.
void azzeraModelloScelto();

}  // namespace editors
