#include "platform/store/righe.h"
#include "platform/store/store.h"

namespace store {

namespace {

[[noreturn]] void nessunRecord() {
  throw Errore{errore::kNessunRecord, QStringLiteral("Nessun record corrente.")};
}
[[noreturn]] void nullo94() {
  throw Errore{errore::kNullo, QStringLiteral("Utilizzo non valido di Null")};
}
[[noreturn]] void tipo13() {
  throw Errore{errore::kTipo, QStringLiteral("Tipo non corrispondente")};
}

[[noreturn]] void campoAssente(const QString& nome) {
  throw Errore{errore::kCampoAssente,
               QStringLiteral("Elemento '%1' non trovato in questo insieme.").arg(nome)};
}

const Righe::Cella& corrente(const Righe& righe, int riga, int colonna) {
  if (riga >= righe.righe()) nessunRecord();
  if (colonna < 0 || colonna >= righe.colonne()) campoAssente(QString::number(colonna));
  return righe.cella(riga, colonna);
}

}  // namespace

Recordset::Recordset(std::shared_ptr<const Righe> righe) : righe_(std::move(righe)) {}

int Recordset::RecordCount() const {
  return righe_->righe();
}

void Recordset::MoveFirst() {
  if (vuoto()) nessunRecord();
  riga_ = 0;
}

void Recordset::MoveLast() {
  if (vuoto()) nessunRecord();
  riga_ = RecordCount() - 1;
}

void Recordset::MoveNext() {
  if (fine()) nessunRecord();
  ++riga_;
}

int Recordset::colonne() const {
  return righe_->colonne();
}

int Recordset::colonna(const QString& nome) const {
  const int posizione = righe_->colonna(nome);
  if (posizione < 0) campoAssente(nome);
  return posizione;
}

Valore Recordset::campo(const QString& nome) const {
  return campo(colonna(nome));
}

Valore Recordset::campo(int colonna) const {
  const Righe::Cella& cella = corrente(*righe_, riga_, colonna);
  switch (cella.tipo) {
    case Righe::Tipo::Intero:
      return Valore(cella.intero);
    case Righe::Tipo::Reale:
      return Valore(cella.reale);
    case Righe::Tipo::Testo: {
      const std::string_view testo = righe_->testo(cella);
      return Valore(QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size())));
    }
    case Righe::Tipo::Nullo:
      break;
  }
  return {};
}

std::int64_t Recordset::intero64(int colonna) const {
  const Righe::Cella& cella = corrente(*righe_, riga_, colonna);
  if (cella.tipo == Righe::Tipo::Intero) return cella.intero;
  if (cella.tipo == Righe::Tipo::Nullo) nullo94();
  if (cella.tipo == Righe::Tipo::Testo) tipo13();
  return Valore(cella.reale).intero64();
}

std::string_view Recordset::utf8(int colonna) const {
  const Righe::Cella& cella = corrente(*righe_, riga_, colonna);
  if (cella.tipo == Righe::Tipo::Nullo) nullo94();
  if (cella.tipo != Righe::Tipo::Testo) tipo13();
  return righe_->testo(cella);
}

QString Recordset::testo(int colonna) const {
  const Righe::Cella& cella = corrente(*righe_, riga_, colonna);
  if (cella.tipo == Righe::Tipo::Nullo) return {};
  if (cella.tipo != Righe::Tipo::Testo) return campo(colonna).testo();
  const std::string_view testo = righe_->testo(cella);
  return QString::fromUtf8(testo.data(), static_cast<qsizetype>(testo.size()));
}

bool Recordset::nullo(int colonna) const {
  return corrente(*righe_, riga_, colonna).tipo == Righe::Tipo::Nullo;
}

}  // namespace store
