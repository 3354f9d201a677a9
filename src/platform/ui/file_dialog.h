#pragma once

#include <QStringList>
#include <optional>

#include "platform/ui/user_port.h"

/// The file dialogs of the desktop, object names "FinestraApri" and "FinestraSalva".
namespace file_dialog {

/// Filters in the toolkit's form, "csv (*.csv)", from pairs parted by "|". A pattern "*.*" means every file.
QStringList filters(const QString& filter);
/// `path` with the extension of a filter in the toolkit's form where its name has none. A filter of every
/// file adds nothing.
QString withExtension(const QString& path, const QString& chosenFilter);

std::optional<QString> open(const FileRequest& request);
std::optional<QString> save(const FileRequest& request);

}  // namespace file_dialog
