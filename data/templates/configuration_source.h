#pragma once

#include <QByteArray>
#include <QString>

/// A configuration told in words, in UTF-8, one line a field:
///
///     <family> [<record> or <first>-<last>] <field> = <value>
///
/// Families of several records want a number, from 1 as the screens count; with a range "%" in the value is
/// the record's number. Equal fields of one record are told apart by a number behind their name ("tallon 3").
/// The four parts of a department's packed byte are fields of their own: IVA, battuta singola, tipo, tallon.
/// Values stand as field_value.h tells. Empty lines and those that begin with "#" say nothing, a field
/// without a line is zero.

/// The configuration file that the source describes. Throws SourceRefused for an unknown family, record or
/// field, one told twice, a text beyond its limit or outside Windows-1252, and a value that the screens would
/// not take.
QByteArray ConfigurationOf(const QString& source);
