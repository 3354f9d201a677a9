#pragma once

#include <QString>

/// A line of the kernel's account of a process, in KiB: "VmRSS" the memory that it holds, "VmHWM" the most
/// that it held since `forgetPeak`, "VmSize" what is set aside for it. `process` is a number, or this one.
qint64 memoryInKiB(const QString& line, const QString& process = QStringLiteral("self"));
/// The most memory that this process held counts anew from here.
void forgetPeak();
/// Fails where this process held as much as `limit` KiB more than `before`. A sanitizer keeps freed blocks:
/// under one nothing fails.
void expectPeakWithin(qint64 before, qint64 limit);
