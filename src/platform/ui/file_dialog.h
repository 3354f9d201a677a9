#pragma once

#include <QStringList>
#include <optional>

#include "platform/ui/user_port.h"

/// The file dialogs of the desktop, object names "FinestraApri" and "FinestraSalva". Each starts in the
/// folder that its request names; where it names none, in that of the file that was chosen last in this run.
namespace file_dialog {

/// Where a dialog starts whose request names no folder while none was used. Forgets the one used last.
void startIn(const QString& folder);

/// Filters in the toolkit's form, "csv (*.csv)", from pairs parted by "|". A pattern "*.*" means every file.
QStringList filters(const QString& filter);
/// `path` with the extension of a filter in the toolkit's form where its name has none. A filter of every
/// file adds nothing.
QString withExtension(const QString& path, const QString& chosenFilter);

std::optional<QString> open(const FileRequest& request);
std::optional<QString> save(const FileRequest& request);

}  // namespace file_dialog
