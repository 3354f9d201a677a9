#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class Utente;

/// Money, bytes and dates: the small rules that every record and screen shares.

/// Byte n takes the code of the n-th character in the ANSI code page. Throws Errore 9 if `byte` is too small;
/// bytes behind the text stay as they were.
void TestoInByte(const QString& testo, std::span<std::uint8_t> byte);
/// The characters up to the first zero byte or the end.
QString ByteInTesto(std::span<const std::uint8_t> byte);

/// In a whole.
inline constexpr int kCentesimi = 100;

/// The decimal sign of the platform's locale.
QChar SegnoDecimale();
/// Hundredths as "####0.00", the decimal sign that of the platform's locale.
QString CentInTesto(std::int32_t valore);
/// The number at the text's beginning, 0 where there is none. The first comma of `testo` is overwritten by a
/// point and stays so.
double TestoInValore(QString& testo);
/// A number to the nearest 32-bit integer, halves to the even neighbour. Throws Errore 6 out of range.
std::int32_t InteroArrotondato(double valore);
/// Text of an amount to hundredths: TestoInValore on a copy, times 100, rounded.
std::int32_t TestoInCent(const QString& testo);
/// The leading number of a text as the platform's Val reads it: blanks skipped, point as decimal sign, 0 if
/// there is none.
double Val(const QString& testo);
/// Text to a 16-bit integer as a checked conversion: Errore 13 for what is no number, 6 out of range.
std::int16_t TestoInIntero16(const QString& testo);

/// Copies `size` bytes into `array`, redimensioned from `lower` to `size` - 1.
void BloccoInByte(const void* source, std::size_t size, std::vector<std::uint8_t>& array,
                  std::size_t lower = 0);
/// Little endian; missing bytes are zero.
std::int16_t DueByteInIntero(std::span<const std::uint8_t> byte);
std::int32_t QuattroByteInIntero(std::span<const std::uint8_t> byte);

/// The part behind the last separator up to its first ".".
QString DammiNomeBase(const QString& path);
/// An empty name or one ending in a separator is absent; otherwise the folder's listing decides.
bool FileEsiste(const QString& nome);

/// Date checks on texts of digits, -1 valid, 0 not; they show their own messages.
std::int16_t CheckDataRevisione(const QString& ddmmyyyy, Utente& utente);
std::int16_t CheckDataPeriodo(const QString& ddmm, Utente& utente);
std::int16_t CheckDataScontrino(const QString& ddmmyy, Utente& utente);
