#include "platform/store/traduttore.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/store/data_ora.h"
#include "platform/store/modello_like.h"

namespace store {

Traduttore::Traduttore(std::string_view sorgente, const Dizionario& dizionario, Traduzione& esito)
    : sorgente_(sorgente), dizionario_(dizionario), esito_(esito), lessico_(sorgente) {
  esito_.sql.clear();
  esito_.parametri.clear();
  esito_.testi.clear();
  esito_.mappa.clear();
  esito_.letterali.clear();
  esito_.definizione = false;
  esito_.ricalcabile = false;
}

std::size_t Traduttore::posizione(const Pezzo& pezzo) const {
  return pezzo.simbolo == Simbolo::Fine ? sorgente_.size()
                                        : static_cast<std::size_t>(pezzo.intero.data() - sorgente_.data());
}

// Every token is followed by a blank, so that two of them never grow together into a comment of the engine's.
void Traduttore::scrivi(std::string_view testo) {
  esito_.sql.append(testo);
  esito_.sql.push_back(' ');
}

void Traduttore::segna(const Pezzo& pezzo) {
  if (esito_.conMappa) esito_.mappa.push_back({esito_.sql.size(), posizione(pezzo)});
}

std::string_view Traduttore::conserva(std::string testo) {
  return esito_.testi.emplace_back(std::move(testo));
}

void Traduttore::parametroTesto(std::string_view testo) {
  esito_.parametri.push_back({Parametro::Tipo::Testo, 0, 0, testo});
}

void Traduttore::parametroIntero(std::int64_t valore) {
  esito_.parametri.push_back({Parametro::Tipo::Intero, valore, 0, {}});
  scrivi("?");
}

/// The parameter that comes next stands in the source as this token.
void Traduttore::ricorda(std::string_view letterale) {
  esito_.letterali.push_back({esito_.parametri.size(),
                              static_cast<std::size_t>(letterale.data() - sorgente_.data()),
                              letterale.size()});
}

std::string_view Traduttore::contenuto(const Pezzo& testo) {
  if (!testo.doppioApice) return testo.dentro;
  irripetibile_ = true;
  std::string semplice;
  for (std::size_t i = 0; i < testo.dentro.size(); ++i) {
    semplice.push_back(testo.dentro[i]);
    if (testo.dentro[i] == testo.intero.front()) ++i;
  }
  return conserva(std::move(semplice));
}

void Traduttore::esegui() {
  inizio();
  for (Pezzo p = lessico_.prossimo(); p.simbolo != Simbolo::Fine; p = lessico_.prossimo()) {
    segna(p);
    if (esito_.definizione && p.intero != ";")
      pezzoDiDefinizione(p);
    else
      pezzo(p);
  }
  esito_.ricalcabile = !irripetibile_ && !esito_.definizione;
}

void Traduttore::inizio() {
  const Pezzo primo = lessico_.prossimo();
  segna(primo);
  const Parola verbo = primo.simbolo == Simbolo::Parola ? RiconosciParola(primo.intero) : Parola::Nessuna;
  switch (verbo) {
    case Parola::Alter:
    case Parola::Create:
    case Parola::Drop:
      esito_.definizione = true;
      [[fallthrough]];
    case Parola::Delete:
    case Parola::Explain:
    case Parola::Insert:
    case Parola::Select:
    case Parola::Update:
      parolaChiave(verbo, primo);
      return;
    default:
      break;
  }
  throw ErroreDiSintassi(QStringLiteral("attesa una istruzione DELETE, INSERT, SELECT o UPDATE"), sorgente_,
                         posizione(primo));
}

void Traduttore::pezzo(const Pezzo& pezzo) {
  if (pezzo.simbolo == Simbolo::Parola) return parola(pezzo);
  if (pezzo.simbolo == Simbolo::NomeTraParentesi) return nome(pezzo.dentro);
  precedente_ = Parola::Nessuna;
  attesa_ = Attesa::Qualsiasi;
  dopoPunto_ = false;
  if (pezzo.simbolo == Simbolo::Operatore) return operatore(pezzo);
  ultimoNome_ = {};
  if (pezzo.simbolo == Simbolo::Numero) return numero(pezzo.intero);
  if (pezzo.simbolo == Simbolo::Data) return data(pezzo);
  ricorda(pezzo.intero);
  parametroTesto(contenuto(pezzo));
  scrivi("?");
}

void Traduttore::parola(const Pezzo& pezzo) {
  const bool soloNome = dopoPunto_ || attesa_ == Attesa::Nome;
  const Parola chiave = dopoPunto_ ? Parola::Nessuna : RiconosciParola(pezzo.intero);
  if (chiave != Parola::Nessuna) return parolaChiave(chiave, pezzo);
  if (!soloNome && lessico_.sbircia() == '(') return funzione(pezzo);
  nome(pezzo.intero);
}

void Traduttore::parolaChiave(Parola parola, const Pezzo& pezzo) {
  const Parola prima = std::exchange(precedente_, parola);
  attesa_ = Attesa::Qualsiasi;
  switch (parola) {
    case Parola::Cascade:
      if (prima == Parola::Delete) return;  // the relations of the file say what goes with a row
      break;
    case Parola::Like:
      return like(pezzo);
    case Parola::True:
      ultimoNome_ = {};
      return parametroIntero(1);
    case Parola::False:
      ultimoNome_ = {};
      return parametroIntero(0);
    case Parola::As:
    case Parola::From:
    case Parola::Into:
    case Parola::Join:
    case Parola::Update:
      attesa_ = Attesa::Nome;
      break;
    case Parola::Group:
    case Parola::Order:
      posizioniDiColonna_ = true;
      break;
    case Parola::Having:
    case Parola::Select:
      posizioniDiColonna_ = false;
      break;
    default:
      break;
  }
  ultimoNome_ = {};
  scrivi(TestoParola(parola));
}

void Traduttore::nome(std::string_view nome) {
  if (!std::exchange(dopoPunto_, false)) inizioNome_ = esito_.sql.size();
  ultimoNome_ = nome;
  precedente_ = Parola::Nessuna;
  attesa_ = Attesa::Qualsiasi;
  esito_.sql.push_back('[');
  esito_.sql.append(nome);
  esito_.sql.append("] ");
}

void Traduttore::funzione(const Pezzo& pezzo) {
  const std::string_view tradotta = FunzioneTradotta(pezzo.intero);
  if (tradotta.empty())
    throw Errore{
        errore::kFunzioneIgnota,
        QStringLiteral("Funzione '%1' non definita nell'espressione.")
            .arg(QString::fromUtf8(pezzo.intero.data(), static_cast<qsizetype>(pezzo.intero.size())))};
  ultimoNome_ = {};
  precedente_ = Parola::Nessuna;
  scrivi(tradotta);
}

void Traduttore::operatore(const Pezzo& pezzo) {
  const char simbolo = pezzo.intero.front();
  if (simbolo == ';') return fine(pezzo);
  if (simbolo == '.' && !ultimoNome_.empty()) {
    dopoPunto_ = true;
    return scrivi(".");
  }
  ultimoNome_ = {};
  if (simbolo == '*' && esito_.sql == "DELETE ") return;
  scrivi(simbolo == '&' ? "||" : pezzo.intero);
}

void Traduttore::fine(const Pezzo& pezzo) {
  if (lessico_.sbircia() == '\0' && lessico_.posizione() >= sorgente_.size()) return;
  const std::size_t dopo = posizione(pezzo) + 1;
  throw Errore{errore::kTestoDopoLaFine,
               QStringLiteral("Caratteri trovati dopo la fine dell'istruzione SQL: '%1'.")
                   .arg(Frammento(sorgente_, dopo))};
}

void Traduttore::numero(std::string_view testo) {
  if (posizioniDiColonna_) return scrivi(testo);
  const char* const ultimo = testo.data() + testo.size();
  std::int64_t intero = 0;
  const auto [dopo, esito] = std::from_chars(testo.data(), ultimo, intero);
  if (esito == std::errc() && dopo == ultimo) {
    ricorda(testo);
    return parametroIntero(intero);
  }
  irripetibile_ = true;
  double reale = 0;
  if (std::from_chars(testo.data(), ultimo, reale).ec != std::errc())
    throw ErroreDiSintassi(QStringLiteral("numero troppo grande"), sorgente_,
                           static_cast<std::size_t>(testo.data() - sorgente_.data()));
  esito_.parametri.push_back({Parametro::Tipo::Reale, 0, reale, {}});
  scrivi("?");
}

void Traduttore::data(const Pezzo& pezzo) {
  irripetibile_ = true;
  const auto momento = LeggiDataOra(pezzo.dentro);
  if (!momento) throw ErroreDiSintassi(QStringLiteral("data non valida"), sorgente_, posizione(pezzo));
  parametroTesto(conserva(FormaOrdinabile(*momento)));
  scrivi("?");
}

void Traduttore::pezzoDiDefinizione(const Pezzo& pezzo) {
  if (pezzo.simbolo != Simbolo::Testo) return scrivi(pezzo.intero);
  std::string letterale(1, '\'');
  for (const char c : contenuto(pezzo)) letterale.append(c == '\'' ? 2 : 1, c);
  letterale.push_back('\'');
  scrivi(letterale);
}

void Dizionario::aggiungi(std::string_view colonna) {
  colonne_.emplace(colonna);
}

bool Dizionario::prefisso(std::string_view colonna) const {
  return colonne_.find(colonna) != colonne_.end();
}

bool Dizionario::Ordine::operator()(std::string_view primo, std::string_view secondo) const {
  const auto minuscola = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
  return std::lexicographical_compare(primo.begin(), primo.end(), secondo.begin(), secondo.end(),
                                      [&](char a, char b) { return minuscola(a) < minuscola(b); });
}

// The engine's own functions stop at a zero byte: a text with one would pass for shorter than its column.
void Traduci(std::string_view sorgente, const Dizionario& dizionario, Traduzione& esito) {
  const std::size_t zero = sorgente.find('\0');
  if (zero != std::string_view::npos)
    throw ErroreDiSintassi(QStringLiteral("carattere non valido"), sorgente.substr(0, zero), 0);
  Traduttore(sorgente, dizionario, esito).esegui();
}

}  // namespace store
