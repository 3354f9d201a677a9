#pragma once

#include <QByteArray>
#include <QString>

class LineaCOM;
struct Contesto;

/// The key-sequence channel: a text that stands for what an operator would press goes to the till, over the
/// network or a serial line, and what the till answers comes back. A till connected over the network is asked
/// there; otherwise the port that the console shows is used.
namespace auxcmd {

enum class Verso { Inviato, Ricevuto, Guasto };

/// A screen as the channel sees it.
class VistaCanale {
 public:
  VistaCanale() = default;
  VistaCanale(const VistaCanale&) = delete;
  VistaCanale& operator=(const VistaCanale&) = delete;
  virtual ~VistaCanale() = default;

  /// The text of `cboPort`.
  virtual QString porta() const = 0;
  /// The number of `Combo2`.
  virtual int velocita() const = 0;
  virtual LineaCOM& linea() = 0;
  virtual void fuocoSuEsci() = 0;
  /// `Cmd_Esci` and `Cmd_Avvia` on.
  virtual void abilitaComandi() = 0;
  /// `LedDati` and `LedDati2` change places.
  virtual void scambiaLed() = 0;
  virtual void spegniLed() = 0;
  /// The wait box.
  virtual void mostraAttesa() = 0;
  virtual void togliAttesa() = 0;
  /// The person has closed the screen in the middle: it is asked for nothing more, and nothing is stored.
  virtual bool chiusa() const = 0;
  /// For the log of the line.
  virtual void annota(Verso verso, const QByteArray& byte) = 0;
};

/// How long a screen waits for the serial line, in milliseconds.
inline constexpr int kScadenzaRisposta = 2000;
inline constexpr int kScadenzaByte = 10000;
/// The run of "@" that ends a dump.
inline constexpr int kFineDump = 46;

/// Values of `FlagRisposta`.
enum Risposta : int { kInCorso = 0, kCompleta = 1, kErrorePorta = 2, kTempoScaduto = 100 };

/// Number of the port that the screen shows, which is closed if it is open; 0 for none.
int DammiPortaCOM(VistaCanale& vista);

/// Sends a command and collects its answer; comes back when that is complete, or will not be. 0, or 1 for a
/// failure of the network, which has been shown. Throws what opening and writing the port throw.
int InviaRiceviXonXoff(int porta, VistaCanale& vista, const QString& comando, Contesto& contesto);
/// The network's half of it.
int RiceviXonXoffRete(VistaCanale& vista, const QString& comando, Contesto& contesto);
/// Sends a command; over the network without waiting for an answer. 0, or 1 as above.
int InviaXonXoff(int porta, VistaCanale& vista, const QString& comando, Contesto& contesto);
/// Bytes as they are on the open port. Throws as above.
void InviaByteCOM(const QByteArray& byte, VistaCanale& vista, Contesto& contesto);

/// What came in on the console's line: to the dump file, or to the state record once it is whole.
/// Throws what writing the dump file throws.
void DatiRicevuti(VistaCanale& vista, const QByteArray& byte);
/// The same for a screen of the test bench, which reads nothing out of it.
void DatiDelBanco(VistaCanale& vista, const QByteArray& byte);

/// Warns that no port is picked.
void avvisaPorta(Contesto& contesto);
/// Shows what the library says of a code.
void erroreDiComunicazione(int codice, VistaCanale& vista, Contesto& contesto);

}  // namespace auxcmd
