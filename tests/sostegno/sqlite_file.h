#pragma once

#include <QString>
#include <QStringList>

/// Runs statements on a database as another program would, which makes the file where there is none.
void runInSqlite(const QString& path, const QStringList& statements);
