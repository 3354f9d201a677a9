#pragma once

#include <QString>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/store/store.h"

/// Flags as the whole program keeps them: 0 for no, -1 (65535 unsigned) for yes.
using Bandiera = std::int16_t;
inline constexpr Bandiera kVero = -1;
inline constexpr Bandiera kFalso = 0;

/// State of the configuration editor.
struct VarGestionePRG {
  QString NomeFileDat;
  QString PathConfigurazione;
  std::int16_t LarghezzaRiga = 0;
  Bandiera ModificaNegozio = kFalso;
  Bandiera ModificaReparti = kFalso;
  Bandiera ModificaPLU = kFalso;
  Bandiera ModificaIVA = kFalso;
  Bandiera ModificaValuta = kFalso;
  Bandiera ModificaOperatori = kFalso;
  Bandiera ModificaOpzioni = kFalso;
  std::array<std::uint8_t, 39> StatoECR{};
  std::int16_t ConfigurazioneCaricata = 0;
};

/// Fields of the last ECR INFO reply, in the order of the reply.
struct EcrInfo {
  static constexpr std::size_t kCampi = 19;
  std::array<QString, kCampi> campo;

  QString& InfoVersioneSW = campo[0];
  QString& InfoTipoBitmap = campo[1];
  QString& InfoTipoMMC = campo[2];
  QString& InfoCampo4 = campo[3];
  QString& InfoCampo5 = campo[4];
  QString& InfoCampo6 = campo[5];
  QString& InfoCampo7 = campo[6];
  QString& InfoCampo8 = campo[7];
  QString& InfoCampo9 = campo[8];
  QString& InfoCampo10 = campo[9];
  QString& InfoStato = campo[10];
  QString& InfoTipoMacchina = campo[11];
  QString& InfoCampo13 = campo[12];
  QString& InfoCampo14 = campo[13];
  QString& InfoCampo15 = campo[14];
  QString& InfoCampo16 = campo[15];
  QString& InfoDatiFiscali = campo[16];
  QString& InfoCampo18 = campo[17];
  QString& InfoCampo19 = campo[18];

  EcrInfo() = default;
  EcrInfo(const EcrInfo& altro) : campo(altro.campo) {}
  EcrInfo& operator=(const EcrInfo& altro) {
    campo = altro.campo;
    return *this;
  }
};

/// State of the link to the till.
struct CommonForKora {
  /// Dotted address of the connected till; empty: no till on the network.
  QString IP_ECR;
  /// Key-sequence connection, 0 for none.
  std::int32_t hConnXonXoff = 0;
  EcrInfo ECR_INFO;
};

/// The open archives and the exchange in progress on the serial line.
struct VarGlobal {
  store::Database DB_Articoli;
  store::Database DB_Clienti;
  QString NomeDB_Articoli;
  QString NomeDB_Clienti;
  /// "Form_Grafica" or "MDIForm_PRG": the menu entry through which a shared screen was reached.
  QString FormChiamante;
  /// 0 waiting, 1 end of dump seen, 2 port error, 100 time-out.
  std::int16_t FlagRisposta = 0;
  QString BufferRx;
  QString BufferRisposta;
  /// 1 while a screen of the archive works on a database assigned to a till.
  std::int16_t FlagVariazioni = 0;
  /// Set by a fill on a grave failure, just before the program ends.
  std::int16_t FlagAnomalia = 0;
};

struct FunzioniCmdXonXoff {
  /// Open dump file; 0 for none.
  std::int32_t NumFileDump = 0;
  /// 1 while a dump, not a state reply, is expected.
  std::int16_t FlagDump = 0;
  /// How many "@" in a row have come in.
  std::int16_t ContaFine = 0;
};

/// The one instance of each, from process start to process end.
VarGestionePRG& varGestionePRG();
CommonForKora& commonForKora();
VarGlobal& varGlobal();
FunzioniCmdXonXoff& funzioniCmdXonXoff();

/// All four as at process start; what a test calls before it begins.
void azzeraStato();
