#pragma once

#include <QString>

/// What is done once at start, before the menu shows. `cartella`: the application folder.
///
/// Deletes the checksum library's log there (one in the current folder is looked for and left alone) and
/// calls the library once, to have it in memory before it is needed. A step that fails is passed over.
void PreparaAvvio(const QString& cartella);
