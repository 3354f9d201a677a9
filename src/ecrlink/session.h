#pragma once

#include <QString>

#include "ecrlink/ecr_info.h"

struct Contesto;

/// The link to the till, the same for every screen that has one.
namespace ecrlink {

class VistaLink;

/// Modes of the communications library.
enum class Modo : int {
  EcrInfo = 0,
  ApriTrasferimento = 1,
  ChiudiTrasferimento = 2,
  AzzeraProgrammazione = 3,
  AzzeraFatture = 4,
  AzzeraVenduto = 5,
  Invia = 6,
  Ricevi = 7,
  ChiusuraFiscale = 8,
};

inline constexpr const char* kIndirizzoPredefinito = "192.168.0.20";
/// In front of what the library says of a code that is not 0.
inline constexpr const char16_t* kErroreComunicazione = u"Errore nella comunicazione con ECR: ";

/// At the load of a link screen: default address, local addresses, start command off. Returns 0, or -1 when
/// the computer has no name on the network (told to the person).
int InitRete(VistaLink& vista, Contesto& contesto);
/// What the click of "Connetti" came to.
enum class EsitoConnessione {
  Pronta,        ///< the till has told about itself and may transfer
  SenzaNotizie,  ///< it did not tell about itself: the person was told, and may go on all the same
  Fallita,       ///< the person was told
};
/// The click of "Connetti". What counts for the transfers is the state of the screen and of IP_ECR.
EsitoConnessione ConnettiECR(VistaLink& vista, Contesto& contesto);
bool ControllaIP(const QString& testo);
/// 0 answered, -1 address or echo impossible, another number no answer.
int PingECR(const QString& indirizzo, Contesto& contesto);
/// 1 if the file is absent (told if `mostra`), 0 if it exists.
int ControllaFile(const QString& nome, bool mostra, Contesto& contesto);

/// One call of the library at IP_ECR; a code other than 0 is shown. `risposta` takes the whole buffer of 256
/// characters in modes 0 to 5 and 8. `file` counts in modes 6 and 7 only and comes back, like IP_ECR, as the
/// library left it. Returns the code; 1, with no call, for a mode above 8.
///
/// The call runs beside the event loop: the windows go on painting, input is thrown away, and a second call
/// meanwhile fails with Errore 70. `parole` tell the person what is waited for; empty: those of the mode.
int ComandoECR(QString& file, Modo modo, QString& risposta, Contesto& contesto, const QString& parole = {});
/// The call between an opening and a closing one (mode 8: alone). Returns 0 or 1.
int avviaECR(const QString& file, Modo modo, Contesto& contesto);

}  // namespace ecrlink
