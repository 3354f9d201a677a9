#pragma once

#include <QString>

/// Where the program's files lie.

/// The path with the platform's separators: texts of the program may hold "\" as well as "/".
QString PercorsoNativo(const QString& percorso);
