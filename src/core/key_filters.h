#pragma once

#include <QString>

#include "controls/guarded_field.h"

/// What the fields of the screens take as the person types, backspace and cut always among it. See KeyFilter.

/// Digits.
bool accettaCifre(const QString& testo, QChar tasto);
/// Digits and comma. With a comma and two decimals there, backspace only, wherever the cursor stands.
bool accettaImporto(const QString& testo, QChar tasto);
/// Digits and one comma. With two decimals there no further digit, wherever the cursor stands.
bool accettaImportoDecimale(const QString& testo, QChar tasto);
/// S and N in both cases.
bool accettaSiNo(const QString& testo, QChar tasto);
/// M and S in both cases.
bool accettaMS(const QString& testo, QChar tasto);

// Why a key was dropped, and how to go on.
QString motivoCifre(const QString& testo, QChar tasto);
QString motivoImporto(const QString& testo, QChar tasto);
QString motivoImportoDecimale(const QString& testo, QChar tasto);
QString motivoSiNo(const QString& testo, QChar tasto);
QString motivoMS(const QString& testo, QChar tasto);

// Filter and reason together, by the names that the tables of the screens use.
inline constexpr KeyRule Cifre{accettaCifre, motivoCifre};
inline constexpr KeyRule kRegolaImporto{accettaImporto, motivoImporto};
inline constexpr KeyRule ImportoDecimale{accettaImportoDecimale, motivoImportoDecimale};
inline constexpr KeyRule kRegolaSiNo{accettaSiNo, motivoSiNo};
inline constexpr KeyRule kRegolaMS{accettaMS, motivoMS};

/// Of a text that is no number all the same.
inline constexpr const char16_t* kValoreNonNumerico =
    u"Attenzione il valore immesso non è di tipo numerico !!!";

/// True for S and s; anything else is no.
bool siNo(const QString& testo);
