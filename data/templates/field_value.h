#pragma once

#include <QString>

#include "config/field.h"

/// Values as words, into the bytes of a record. They throw SourceRefused for what no screen would take: a
/// text beyond its limit or outside Windows-1252, a number out of its range, a day that is in no calendar.

/// A text; "sì" or "no"; a number; hundredths with a comma ("12,50"); "dd/mm/yy", "dd/mm" or "hh:mm:ss" in
/// the till's encoding. Which of them, the field's kind tells.
void WriteValue(config::Record record, const config::Campo& field, const QString& value);
/// One of the four parts of a department's packed byte: IVA, battuta singola, tipo, tallon. False if `part`
/// is none of them.
bool WriteDepartmentPart(config::Record record, const QString& part, const QString& value);
