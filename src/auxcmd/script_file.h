#pragma once

#include <QString>

struct Contesto;

/// Scripts of key sequences: text files beside the program, a sequence a line.
namespace auxcmd {

class VistaCanale;

inline constexpr const char* kScriptInvio = "test_invio.txt";

/// Path of a script of that name.
QString fileScript(const QString& nome, const Contesto& contesto);

/// Sends one of the three scripts, `numero` 1 to 3; a missing one is told. 0, or 1. No control calls it: a
/// technician who wants them sends them with "Test sequenza comandi".
int InviaScript(int numero, VistaCanale& vista, Contesto& contesto);

/// A script that asks for an answer to each line over a serial line, to its end. 0, or the code of the first
/// line that failed. Throws what the file and the port throw.
int SendFileTXT(const QString& file, VistaCanale& vista, Contesto& contesto);

}  // namespace auxcmd
