#pragma once

#include <QString>
#include <optional>

/// What the till says of itself.
namespace ecrlink {

/// Spreads the reply, items of the form key "=" value parted by commas, over the fields of ECR_INFO by
/// position; the keys are not looked at. Always 0: missing fields stay empty, an item without "=" is kept
/// whole, the last one keeps the blank tail of the buffer.
int ParseInfoECR(const QString& risposta);
/// The word of a state letter, nothing for a letter that is none.
std::optional<QString> parolaDelloStato(const QString& stato);
/// Whether transfers may run: in IDLE and PROGRAMMAZIONE.
bool statoAmmesso(const QString& stato);

}  // namespace ecrlink
