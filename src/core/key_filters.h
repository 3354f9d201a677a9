#pragma once

#include <QString>

/// What the fields of the screens take as the person types, backspace and cut always among it. See KeyFilter.

/// Digits.
bool accettaCifre(const QString& testo, QChar tasto);
/// Digits and comma. With a comma and two decimals there, backspace only, wherever the cursor stands.
bool accettaImporto(const QString& testo, QChar tasto);
/// S and N in both cases.
bool accettaSiNo(const QString& testo, QChar tasto);

/// True for S and s; anything else is no.
bool siNo(const QString& testo);
