#include "ecrsim/simulatore.h"

#include <utility>

#include "ecrsim/registratore.h"
#include "ecrsim/servizio.h"
#include "ecrsim/tasti.h"

namespace ecrsim {

struct Simulatore::Interno {
  explicit Interno(Opzioni opzioni)
      : registratore(std::move(opzioni)), servizio(registratore.indirizzo(), registratore) {}

  Registratore registratore;
  Servizio servizio;
};

Simulatore::Simulatore(Opzioni opzioni) : interno_(std::make_unique<Interno>(std::move(opzioni))) {}
Simulatore::~Simulatore() = default;

std::vector<Chiamata> Simulatore::chiamate() const {
  return interno_->registratore.chiamate();
}
void Simulatore::dimenticaChiamate() {
  interno_->registratore.dimenticaChiamate();
}
void Simulatore::stato(char lettera) {
  interno_->registratore.stato(lettera);
}
void Simulatore::guasti(std::vector<Guasto> guasti) {
  interno_->registratore.guasti(std::move(guasti));
}
void Simulatore::rispostaInfo(std::string testo) {
  interno_->registratore.rispostaInfo(std::move(testo));
}
bool Simulatore::trasferimentoAperto() const {
  return interno_->registratore.trasferimentoAperto();
}

std::int64_t Simulatore::giornata(int scontrini, std::uint32_t seme) {
  return interno_->registratore.giornata(scontrini, seme);
}

std::string Simulatore::premi(const std::string& sequenza) {
  return ecrsim::premi(interno_->registratore, sequenza).testo;
}

const std::filesystem::path& Simulatore::cartella() const {
  return interno_->registratore.memoria().cartella();
}
const std::string& Simulatore::indirizzo() const {
  return interno_->registratore.indirizzo();
}

}  // namespace ecrsim
