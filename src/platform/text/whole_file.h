#pragma once

#include <QByteArray>
#include <QString>

#include "platform/text/temporary_file.h"

/// Files read, written and removed in one go. Each failure throws an Errore that names the file: 53 (no such
/// file), 61 (disk full), 62 (longer than allowed), 75 (not allowed, or no regular file) or 76 (no such
/// folder).

/// All bytes of a regular file of at most `most` bytes. A pipe or a device would hold the program up, or
/// never end: 75.
QByteArray ReadWholeFile(const QString& path, qsizetype most);
/// The same, but of a longer file its first `most` bytes alone.
QByteArray ReadFileStart(const QString& path, qsizetype most);
/// Writes a file whole or not at all: on a failure what stood there before stays, or nothing does. Follows a
/// link, so that a list kept elsewhere stays where it is.
void WriteWholeFile(const QString& path, const QByteArray& bytes,
                    TemporaryFile::Durability durability = TemporaryFile::Durability::Kept);
/// Adds the bytes of a file, however many, to a new one.
void CopyInto(TemporaryFile& output, const QString& source);
/// Adds to the end of a file, which is made if it is missing.
void AppendToFile(const QString& path, const QByteArray& bytes);
/// Removes a file, or a link and not what it leads to. Nothing where there is none.
void RemoveFile(const QString& path);
