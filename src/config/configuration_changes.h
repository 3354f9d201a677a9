#pragma once

#include <QByteArray>
#include <QString>

namespace config {

/// What differs between two configuration files, in the person's words and by families, each by its number of
/// records: "dati del negozio, 12 reparti, 3 aliquote". Empty for two equal ones; bytes that one of them
/// lacks count as zeros.
QString RaccontoModifiche(const QByteArray& prima, const QByteArray& dopo);

}  // namespace config
