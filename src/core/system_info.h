#pragma once

class Utente;

/// Starts the system's own information tool: the one that the registry names where there is a registry, else
/// the first of the desktop's usual ones that is installed. Says so if there is none.
void StartSysInfo(Utente& utente);
