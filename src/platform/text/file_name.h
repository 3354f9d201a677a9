#pragma once

#include <QString>

/// What follows the last separator of a path, of either kind.
QString FileName(const QString& path);
