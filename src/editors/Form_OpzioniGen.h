#pragma once

#include "editors/form_editor.h"

namespace editors {

class CampoData;

/// What the zeroing time has to be, "hhmmss"; empty for a time, else its message.
QString VerificaTempoAzz(const QString& testo);

}  // namespace editors

/// "Opzioni Generali".
class Form_OpzioniGen : public EditorModulo {
  Q_OBJECT

 public:
  explicit Form_OpzioniGen(Contesto& contesto);

  void ricarica() override;
  void salvaInMemoria() override { SalvaOpzioni(); }

 protected:
  bool controlla() override { return CheckTempoAzz(); }
  bool salvabile() override;
  void dopoIlSalvataggio() override;
  void dopo(editors::CampoModulo& campo) override;

 private:
  void RiempiOpzGen();
  /// Every field into its record; the dates have been tested by then.
  void SalvaOpzioni() { EditorModulo::salvaInMemoria(); }
  bool CheckTempoAzz();
  bool CheckCampoDataInizio(std::size_t riga);
  bool CheckCampoDataFine(std::size_t riga);
  void arrossa(editors::CampoData& campo);
  bool giornoGiusto(editors::CampoData& campo);
  bool inOrdine(std::size_t riga, editors::CampoData& daSegnare);
  void ResetBackColorDate();
  void apparatoScelto();
  void testoAlternativo(const char* coppia, const char* descrizione);
  void abilitaTallon();
  void revisioneScelta();
  void rigaScelta(std::size_t riga, bool inizio);
};
