#include "core/state.h"

VarGestionePRG& varGestionePRG() {
  static VarGestionePRG unica;
  return unica;
}

CommonForKora& commonForKora() {
  static CommonForKora unica;
  return unica;
}

VarGlobal& varGlobal() {
  static VarGlobal unica;
  return unica;
}

FunzioniCmdXonXoff& funzioniCmdXonXoff() {
  static FunzioniCmdXonXoff unica;
  return unica;
}

void azzeraStato() {
  varGestionePRG() = {};
  commonForKora() = {};
  varGlobal() = {};
  funzioniCmdXonXoff() = {};
}
