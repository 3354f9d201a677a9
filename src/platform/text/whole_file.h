#pragma once

#include <QByteArray>
#include <QString>

/// Writes a file whole or not at all: on a failure what stood there before stays, or nothing does. Throws
/// Errore 61 (disk full), 75 (not allowed) or 76 (no such folder), which name the file.
void WriteWholeFile(const QString& path, const QByteArray& byte);
