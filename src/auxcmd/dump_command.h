#pragma once

#include <QString>

#include "auxcmd/dump_file.h"

struct Contesto;

/// The commands that ask a till for its legal records.
namespace auxcmd {

/// `date`: start and end, "yymmddyymmdd".
QString comandoPerDate(Memoria memoria, const QString& date);
/// `data`, "yymmdd", counts for the journal alone: the fiscal memory numbers its closures from its first day.
QString comandoPerNumeri(Memoria memoria, const QString& data, int primo, int ultimo);

/// Opens a text in the editor of the platform, which is not waited for. Throws Errore 53 if there is none.
void RunShellExecute(const QString& file, Contesto& contesto);

}  // namespace auxcmd
