#pragma once

#include <QString>

/// Where the program's files lie.

/// The path with the platform's separators: texts of the program may hold "\" as well as "/".
QString PercorsoNativo(const QString& percorso);

/// The three places of which one is the application folder.
struct Cartelle {
  /// Folder of the program's file.
  QString programma;
  /// The user's own data folder; its parent may not exist yet.
  QString dati;
  /// What was installed for every user of the machine.
  QString condivisa;
};

/// As this machine has them: beside the program the share is `../share/gestionale`.
Cartelle CartelleDelSistema();

/// True if a file can be made in the folder.
bool Scrivibile(const QString& cartella);

/// The application folder, without a separator at its end: the program's if it is writable and not installed
/// (the superuser may write beside every program), else the user's. Its first use fills that one whole or not
/// at all from the share; each later one brings back what is missing, and what the share's list of contents
/// tells as new replaces what the user left as it was brought. Throws Errore 76 if there is no share, 61 or
/// 75 if a copy fails.
QString CartellaApplicazione(const Cartelle& cartelle);

/// Where the transfer files go: the current folder, or the application folder where that one cannot be
/// written or is the share, in which the desktop's menu starts the program.
QString CartellaTrasferimenti(const Cartelle& cartelle, const QString& corrente, const QString& applicazione);
