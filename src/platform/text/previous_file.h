#pragma once

#include <QString>

#include "platform/text/temporary_file.h"

/// What a new file takes the place of, kept beside it.

/// Name of what was there before `path`: the path with ".precedente" behind it.
QString PreviousName(const QString& path);
/// Copies a regular file of any length to that name, whole or not at all. Throws Errore 61, 70, 75 or 76.
void KeepPrevious(const QString& path);
/// Writes what `path` holds from byte `from` on to `target`, block by block. Throws Errore 61 or 75.
void AppendRest(const QString& path, qint64 from, TemporaryFile& target);
