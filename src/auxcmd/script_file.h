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

/// A script line by line to its end; blank lines are passed over. 0, or the code of the first line that
/// failed; the network's opening sequence is one: refused, nothing goes out. Throws what the file and the
/// port throw.
int InviaFileXonXoff(const QString& file, VistaCanale& vista, Contesto& contesto);
/// The same without an opening sequence; over a serial line each line is asked for an answer. 1 without a
/// port, which is told.
int SendFileTXT(const QString& file, VistaCanale& vista, Contesto& contesto);

}  // namespace auxcmd
