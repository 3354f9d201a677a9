#pragma once

#include <QStringList>
#include <optional>

#include "platform/ui/utente.h"

/// The file dialogs of the desktop, object names "FinestraApri" and "FinestraSalva".
namespace finestra_file {

/// Filters in the toolkit's form, "csv (*.csv)", from pairs parted by "|". A pattern "*.*" means every file.
QStringList filtri(const QString& filtro);
/// `percorso` with the extension of a filter in the toolkit's form where its name has none. A filter of every
/// file adds nothing.
QString conEstensione(const QString& percorso, const QString& filtroScelto);

std::optional<QString> apri(const FinestraFile& richiesta);
std::optional<QString> salva(const FinestraFile& richiesta);

}  // namespace finestra_file
