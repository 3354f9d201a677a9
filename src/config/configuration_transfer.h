#pragma once

#include <QString>
#include <array>
#include <cstdint>
#include <functional>

#include "config/image.h"
#include "config/narrow_lines.h"

struct Contesto;

/// The exchange of the whole configuration with the till: nine files, one family of records each. What goes
/// out and comes in is `immagineProgrammazione()`.
namespace config {

inline constexpr int kFileConfigurazione = 9;

/// Called behind each file with how many are through.
using AlFileFatto = std::function<void(int)>;

/// The lines as the small tills exchange them. All zero at start; bytes that the narrowing does not write
/// stay as an earlier exchange left them.
struct RigheStrette {
  std::array<std::uint8_t, intestazione_corta::kTotale> intestazione{};
  std::array<std::uint8_t, cortesia_corta::kTotale> cortesia{};
};
/// The one instance of the process.
RigheStrette& righeStrette();
void azzeraRigheStrette();

/// Whether the till that is connected holds fiscal data not yet closed, as its ECR INFO had it.
bool CassaBloccata();
/// The fiscal closure of the till. Tells how it went; true if it is done.
bool AzzeraCassa(Contesto& contesto);

struct Invio {
  bool riuscito = false;
  /// Files that the till has, and the bytes of their records.
  int file = 0;
  std::int64_t byte = 0;
  /// Records with an EAN or a description among those sent.
  int articoli = 0;
};
/// Sends the nine files in the order in which the till takes them, the lines narrow to a till of class "S".
/// The first failure, which has been shown, ends the sending; the till keeps what it has by then.
Invio InviaConfigurazione(Contesto& contesto, const AlFileFatto& alFile);
/// The same with the articles of the archive beside the open configuration; where they cannot all be read,
/// which has been shown, nothing is sent. Throws what ArchivioCompagno throws, with nothing sent.
Invio InviaConArticoli(Contesto& contesto, const AlFileFatto& alFile);
QString RaccontoInvio(const Invio& invio);

enum class EsitoRicezione {
  Fatta,          ///< all is in memory, in the file and in the archive beside it
  Interrotta,     ///< a file did not come: what came before is in memory alone
  NonSalvata,     ///< all is in memory alone
  SenzaArticoli,  ///< all is in memory and in the file, the archive beside it is as it was
};
struct Ricezione {
  EsitoRicezione esito = EsitoRicezione::Interrotta;
  /// Files that came, and the bytes of them that were kept.
  int file = 0;
  std::int64_t byte = 0;
  int articoli = 0;
  /// Of the files shorter or longer than their records: a sentence each.
  QString avviso{};
  /// What the saving changed in the file, by families.
  QString cambiati{};
};
/// Fetches the nine files into memory. A file shorter than its records leaves the rest as memory held it; of
/// the lines of a till that is not of class "L" only the bytes that a narrow one carries are taken. The first
/// failure has been shown and ends the reception.
Ricezione RiceviConfigurazione(Contesto& contesto, const AlFileFatto& alFile);
/// The same, then the file of the open configuration and the articles of the archive beside it. Both are kept
/// as they were under their PreviousName. Every failure has been shown.
Ricezione RiceviESalva(Contesto& contesto, const AlFileFatto& alFile);
QString RaccontoRicezione(const Ricezione& ricezione);

}  // namespace config
