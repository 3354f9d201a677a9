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

/// The application folder, without a separator at its end: the program's if it is writable, else the user's,
/// which its first use fills whole or not at all from the share. Throws Errore 76 if there is no share, 61 or
/// 75 if a copy fails.
QString CartellaApplicazione(const Cartelle& cartelle);
