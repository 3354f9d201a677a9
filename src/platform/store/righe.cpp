#include "platform/store/righe.h"

#include <utility>

namespace store {

Righe::Righe(std::vector<QString> nomi, Ingombro atteso) : nomi_(std::move(nomi)) {
  celle_.reserve(atteso.celle);
  testi_.reserve(atteso.byte);
}

int Righe::colonna(const QString& nome) const {
  for (std::size_t i = 0; i < nomi_.size(); ++i)
    if (nomi_[i].compare(nome, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
  return -1;
}

Righe::Cella* Righe::nuovaRiga() {
  const std::size_t inizio = celle_.size();
  celle_.resize(inizio + nomi_.size());
  ++righe_;
  return celle_.data() + inizio;
}

void Righe::scriviTesto(Cella& cella, std::string_view testo) {
  cella.tipo = Tipo::Testo;
  cella.inizio = testi_.size();
  cella.lunghezza = static_cast<std::uint32_t>(testo.size());
  testi_.append(testo);
}

}  // namespace store
