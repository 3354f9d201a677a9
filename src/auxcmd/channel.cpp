#include "auxcmd/channel.h"

#include <QElapsedTimer>
#include <algorithm>

#include "auxcmd/dump_file.h"
#include "auxcmd/serial_line.h"
#include "auxcmd/state_record.h"
#include "core/context.h"
#include "core/state.h"
#include "ecrlink/session.h"
#include "platform/ecrcom/library.h"
#include "platform/text/windows1252.h"
#include "platform/ui/busy_guard.h"
#include "platform/ui/event_wait.h"
#include "platform/ui/user_port.h"
#include "platform/ui/wait_pointer.h"

namespace auxcmd {

namespace {

/// What one reception asks the library for, and how long it may wait, in tenths of a second.
constexpr qsizetype kBlocco = KeysBlocks::kBlock;
constexpr int kAttesaRete = 30;
constexpr int kMessaggioLibreria = 80;
constexpr char kChiocciola = '@';

/// The answer to the state command on the serial line: its echo, and the record.
constexpr qsizetype kEco = 4;
const QString kEcoStato = QStringLiteral("X89F");
constexpr qsizetype kRispostaStato = kEco + static_cast<qsizetype>(kByteStato);

/// "COM  7" and "COM  16": the number stands behind five characters.
constexpr qsizetype kPrimaDelNumero = 5;
constexpr qsizetype kPortaAUnaCifra = 6;
constexpr qsizetype kPortaADueCifre = 7;

constexpr int kFallito = 1;

/// What is passed over at most of answers that nobody read, in bytes and in milliseconds: a till that never
/// ends its dump must not hold up the next command.
constexpr qsizetype kAvanziMassimi = qsizetype{4} * 1024 * 1024;
constexpr qint64 kTempoAvanzi = 500;

std::span<const std::uint8_t> comeByte(QByteArrayView byte) {
  return {reinterpret_cast<const std::uint8_t*>(byte.data()), static_cast<std::size_t>(byte.size())};
}

/// Whether the marker stands at the end of what came in one block.
bool finisceIlDump(QByteArrayView byte) {
  if (byte.size() < kFineDump) return false;
  const QByteArrayView fine = byte.last(kFineDump);
  return std::all_of(fine.begin(), fine.end(), [](char uno) { return uno == kChiocciola; });
}

void apri(int porta, VistaCanale& vista) {
  LineaCOM& linea = vista.linea();
  linea.apri(porta, vista.velocita());
  varGlobal().FlagRisposta = kInCorso;
  varGlobal().BufferRx.clear();
  linea.InputLen(1);
}

void manda(VistaCanale& vista, const QByteArray& byte) {
  vista.annota(Verso::Inviato, byte);
  vista.linea().Output(byte);
}

/// Until the exchange is over. The person can close what waits for it meanwhile; the timer ends a wait for a
/// line that says nothing.
void attendi(VistaCanale& vista, Contesto& contesto) {
  const BusyGuard::Suspended siPuoChiudere;
  while (varGlobal().FlagRisposta == kInCorso && !vista.chiusa()) {
    WaitForEvent();
    contesto.utente.DoEventsAtRecord();
  }
}

int inviaSullaRete(VistaCanale& vista, const QString& comando, Contesto& contesto) {
  QByteArray byte = windows1252::toBytes(comando);
  vista.annota(Verso::Inviato, byte);
  const int codice = contesto.libreria.ecr_send_xonxoff_ntw(commonForKora().hConnXonXoff, byte);
  if (codice == 0) return 0;
  if (!vista.chiusa()) erroreDiComunicazione(codice, vista, contesto);
  return kFallito;
}

/// What nobody read of earlier answers, that of a script say: taken for the next one's, it would tell a state
/// of a while ago, and each reading would be one behind from then on.
void passaOltreGliAvanzi(VistaCanale& vista, Contesto& contesto) {
  const std::int32_t collegamento = commonForKora().hConnXonXoff;
  QElapsedTimer tempo;
  tempo.start();
  qsizetype presi = 0;
  while (presi < kAvanziMassimi && tempo.elapsed() < kTempoAvanzi &&
         contesto.libreria.BlockWaits(collegamento)) {
    QByteArray blocco(kBlocco, ' ');
    const std::int32_t ricevuti = contesto.libreria.ecr_recv_xonxoff_ntw(collegamento, blocco, kAttesaRete);
    // A line that is gone is told by the sending.
    if (ricevuti <= 0 || vista.chiusa()) return;
    vista.annota(Verso::Ricevuto, blocco.left(ricevuti));
    presi += ricevuti;
  }
}

KeysBlocks prendiBlocchi(Contesto& contesto) {
  const bool dump = funzioniCmdXonXoff().FlagDump != 0;
  // A record is one block alone; what a till sends behind it is none of it.
  return contesto.libreria.ReceiveBlocks(
      commonForKora().hConnXonXoff, kAttesaRete,
      [dump](QByteArrayView byte) { return !dump || finisceIlDump(byte); });
}

/// Blocks of a dump, all in one write. True if the end of the dump stood at the end of the last.
bool blocchiDiDump(const KeysBlocks& blocchi) {
  const std::int32_t numero = funzioniCmdXonXoff().NumFileDump;
  // The blanks behind what came are written too: a dump file is made of whole blocks.
  scriviFileDump(numero, blocchi.whole());
  if (!finisceIlDump(blocchi.bytes(blocchi.count() - 1))) return false;
  scriviFileDump(numero, QByteArray(kFineDump, kChiocciola));
  return true;
}

int ricevi(VistaCanale& vista, Contesto& contesto) {
  for (;;) {
    contesto.utente.DoEvents();
    if (vista.chiusa()) return kFallito;
    const KeysBlocks blocchi = prendiBlocchi(contesto);
    // Closed while the call waited: nothing is stored any more.
    if (vista.chiusa()) return kFallito;
    for (qsizetype quale = 0; quale < blocchi.count(); ++quale) {
      vista.annota(Verso::Ricevuto, blocchi.bytes(quale).toByteArray());
      vista.scambiaLed();
    }
    if (funzioniCmdXonXoff().FlagDump == 0 && blocchi.count() > 0) {
      // The record comes alone, without the echo of the serial line. One of another length is none.
      if (RiempiStatoECR(comeByte(blocchi.bytes(0)))) varGlobal().FlagRisposta = kCompleta;
      return 0;
    }
    if (blocchi.count() > 0 && blocchiDiDump(blocchi)) {
      varGlobal().FlagRisposta = kCompleta;
      return 0;
    }
    if (!blocchi.failed()) continue;
    erroreDiComunicazione(blocchi.code, vista, contesto);
    return kFallito;
  }
}

void carattereDiDump(VistaCanale& vista, const QByteArray& byte) {
  FunzioniCmdXonXoff& funzioni = funzioniCmdXonXoff();
  // A dump that has begun may take its time.
  vista.linea().fermaTimer();
  scriviFileDump(funzioni.NumFileDump, byte);
  for (const char uno : byte)
    funzioni.ContaFine =
        uno == kChiocciola ? static_cast<std::int16_t>(funzioni.ContaFine + 1) : std::int16_t{0};
  if (funzioni.ContaFine < kFineDump) return;
  varGlobal().FlagRisposta = kCompleta;
  vista.togliAttesa();
  vista.spegniLed();
  vista.abilitaComandi();
}

void forseLoStato(VistaCanale& vista) {
  const QString& risposta = varGlobal().BufferRisposta;
  if (!risposta.startsWith(kEcoStato) || risposta.size() != kRispostaStato) return;
  const QByteArray record = windows1252::toBytes(risposta.mid(kEco));
  if (!RiempiStatoECR(comeByte(record))) return;
  vista.linea().fermaTimer();
  vista.togliAttesa();
  varGlobal().FlagRisposta = kCompleta;
}

}  // namespace

int DammiPortaCOM(VistaCanale& vista) {
  if (vista.linea().aperta()) vista.linea().chiudi();
  const QString testo = vista.porta();
  if (testo.size() == kPortaAUnaCifra) return testo.mid(kPrimaDelNumero, 1).toInt();
  if (testo.size() == kPortaADueCifre) return testo.mid(kPrimaDelNumero, 2).toInt();
  return 0;
}

void avvisaPorta(Contesto& contesto) {
  contesto.utente.MsgBox(QStringLiteral("Attenzione selezionare una porta COM valida"), Icon::Warning);
}

void erroreDiComunicazione(int codice, VistaCanale& vista, Contesto& contesto) {
  const QByteArray testo =
      contesto.libreria.ecr_get_err(static_cast<std::int16_t>(codice), kMessaggioLibreria);
  vista.annota(Verso::Guasto, testo);
  contesto.utente.MsgBox(QString::fromUtf16(ecrlink::kErroreComunicazione) + windows1252::toText(testo),
                         Icon::Critical);
}

int InviaRiceviXonXoff(int porta, VistaCanale& vista, const QString& comando, Contesto& contesto) {
  if (!commonForKora().IP_ECR.isEmpty()) {
    const WaitPointer puntatore;
    return RiceviXonXoffRete(vista, comando, contesto);
  }
  vista.fuocoSuEsci();
  apri(porta, vista);
  manda(vista, windows1252::toBytes(comando));
  vista.linea().avviaTimer(kScadenzaRisposta);
  vista.mostraAttesa();
  attendi(vista, contesto);
  if (vista.chiusa()) return kFallito;
  vista.togliAttesa();
  vista.spegniLed();
  varGlobal().BufferRx.clear();
  vista.linea().fermaTimer();
  return 0;
}

int RiceviXonXoffRete(VistaCanale& vista, const QString& comando, Contesto& contesto) {
  varGlobal().FlagRisposta = kInCorso;
  passaOltreGliAvanzi(vista, contesto);
  if (vista.chiusa()) return kFallito;
  if (inviaSullaRete(vista, comando, contesto) != 0) {
    if (!vista.chiusa()) vista.abilitaComandi();
    return kFallito;
  }
  const int esito = ricevi(vista, contesto);
  if (vista.chiusa()) return esito;
  vista.spegniLed();
  vista.abilitaComandi();
  return esito;
}

int InviaXonXoff(int porta, VistaCanale& vista, const QString& comando, Contesto& contesto) {
  vista.fuocoSuEsci();
  if (commonForKora().hConnXonXoff != 0) return inviaSullaRete(vista, comando, contesto);
  apri(porta, vista);
  manda(vista, windows1252::toBytes(comando));
  vista.linea().avviaTimer(kScadenzaRisposta);
  attendi(vista, contesto);
  varGlobal().BufferRx.clear();
  return 0;
}

void InviaByteCOM(const QByteArray& byte, VistaCanale& vista, Contesto& contesto) {
  varGlobal().FlagRisposta = kInCorso;
  varGlobal().BufferRx.clear();
  vista.linea().InputLen(0);
  manda(vista, byte);
  vista.linea().avviaTimer(kScadenzaByte);
  attendi(vista, contesto);
  varGlobal().BufferRx.clear();
}

void DatiRicevuti(VistaCanale& vista, const QByteArray& byte) {
  vista.annota(Verso::Ricevuto, byte);
  varGlobal().BufferRx = windows1252::toText(byte);
  const bool dump = funzioniCmdXonXoff().FlagDump != 0;
  if (!dump) varGlobal().BufferRisposta += varGlobal().BufferRx;
  // Events have their turn between two arrivals: one pass more at each character would cost more than the
  // rest.
  vista.scambiaLed();
  if (dump)
    carattereDiDump(vista, byte);
  else
    forseLoStato(vista);
}

void DatiDelBanco(VistaCanale& vista, const QByteArray& byte) {
  vista.annota(Verso::Ricevuto, byte);
  varGlobal().BufferRx = windows1252::toText(byte);
  varGlobal().BufferRisposta += varGlobal().BufferRx;
  vista.scambiaLed();
}

}  // namespace auxcmd
