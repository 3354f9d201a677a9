#pragma once

#include <QString>

class Utente;

/// Asks before a file that exists is replaced; No is what Enter answers. True for a path that is free.
bool ConfermaSovrascrittura(const QString& percorso, Utente& utente);
