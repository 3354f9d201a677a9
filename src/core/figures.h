#pragma once

#include <QString>
#include <QtGlobal>

/// Figures as sentences of the program tell them: in Italian, whatever the platform's locale.

/// "5.000".
QString cifra(qint64 valore);
/// Hundredths as "€ 1.234,50", the blank one at which no line breaks.
QString euro(qint64 centesimi);
/// "1 articolo", "5.000 articoli".
QString quanti(qint64 valore, const QString& uno, const QString& molti);
