#include "controls/rtf_lettore.h"

#include <algorithm>
#include <utility>

#include "controls/rtf.h"
#include "controls/rtf_parole.h"
#include "platform/errore.h"
#include "platform/text/windows1252.h"

namespace rtf {

namespace {

constexpr std::size_t kProfondita = 256;
constexpr int kMassimoCaratteri = 1'000'000;
constexpr int kMassimoBlocchi = 20'000;
constexpr std::size_t kMassimoColonne = 64;
constexpr int kMassimoLivello = 8;
/// Half points; what is smaller or larger is no text to read.
constexpr int kMisuraMinima = 8;
constexpr int kMisuraMassima = 144;

[[noreturn]] void illeggibile(const QString& perche) {
  throw Errore{errore::kFormatoFile, QStringLiteral("Il testo non è leggibile: ") + perche};
}

bool acceso(const Segno& segno) {
  return !segno.conNumero || segno.numero != 0;
}

}  // namespace

Lettore::Lettore(const QByteArray& byte) : byte_(byte), lessico_(byte_) {
  if (!byte.startsWith("{\\rtf")) illeggibile(QStringLiteral("non è un file RTF."));
  if (byte.size() > kMassimo) illeggibile(QStringLiteral("il file è troppo grande."));
}

Testo Lettore::leggi() {
  do {
    const Segno segno = lessico_.prossimo();
    if (segno.tipo == Segno::Fine) illeggibile(QStringLiteral("il file finisce a metà."));
    passo(segno);
  } while (!gruppi_.empty());
  // What follows the last brace is no text: some programs fill the file up with zeros.
  return std::move(testo_);
}

void Lettore::passo(const Segno& segno) {
  if (segno.tipo == Segno::Apre) return apri();
  if (segno.tipo == Segno::Chiude) return chiudi();
  if (daSaltare_ > 0) {
    --daSaltare_;
    return;
  }
  if (segno.tipo == Segno::Parola) return parola(segno);
  if (segno.tipo == Segno::Simbolo) return simbolo(segno.byte);
  gruppi_.back().inizio = false;
  const QChar letto(windows1252::carattereDi(static_cast<unsigned char>(segno.byte)));
  if (letto == QLatin1Char('\t') || letto.isPrint()) testo(letto);
}

void Lettore::apri() {
  if (gruppi_.size() >= kProfondita) illeggibile(QStringLiteral("troppi gruppi uno dentro l'altro."));
  daSaltare_ = 0;
  Gruppo nuovo = gruppi_.empty() ? Gruppo{} : gruppi_.back();
  nuovo.inizio = true;
  nuovo.facoltativo = false;
  gruppi_.push_back(nuovo);
}

void Lettore::chiudi() {
  daSaltare_ = 0;
  if (gruppi_.size() == 1) {
    if (!paragrafo_.tratti.empty()) fineParagrafo();
    sciogliRiga();
  }
  gruppi_.pop_back();
}

void Lettore::simbolo(char c) {
  Gruppo& gruppo = gruppi_.back();
  if (c == '*') {
    gruppo.facoltativo = gruppo.inizio;
    return;
  }
  gruppo.inizio = false;
  if (c == '\n' || c == '\r')
    fineParagrafo();
  else if (c == '\\' || c == '{' || c == '}')
    testo(QLatin1Char(c));
  else if (c == '~')
    testo(QChar::Nbsp);
  else if (c == '_')
    testo(QChar(u'\u2011'));
  else if (c == '\t')
    testo(QChar::Tabulation);
}

void Lettore::parola(const Segno& segno) {
  Gruppo& gruppo = gruppi_.back();
  if (std::exchange(gruppo.inizio, false) && destinazione(segno.nome)) return;
  if (gruppo.meta == Meta::Nulla) return;
  if (segno.nome == "uc")
    gruppo.ripieghi = std::clamp(segno.numero, 0, kMassimoCaratteri);
  else if (segno.nome == "u")
    unicode(segno.numero);
  else if (!carattere(segno) && !forma(segno) && gruppo.meta != Meta::Stili && !tabella(segno))
    speciale(segno.nome);
}

bool Lettore::destinazione(QByteArrayView nome) {
  Gruppo& gruppo = gruppi_.back();
  if (gruppo.meta == Meta::Nulla) return true;
  if (nome == "pntext" || nome == "listtext") {
    gruppo.meta = Meta::SegnoElenco;
    conSegno_ = true;
  } else if (nome == "stylesheet") {
    gruppo.meta = Meta::Stili;
  } else if (gruppo.meta != Meta::Stili && (gruppo.facoltativo || fuoriPagina(nome))) {
    gruppo.meta = Meta::Nulla;
  } else {
    return false;
  }
  return true;
}

bool Lettore::carattere(const Segno& segno) {
  Carattere& ora = gruppi_.back().carattere;
  if (segno.nome == "plain")
    ora = {};
  else if (segno.nome == "b")
    ora.grassetto = acceso(segno);
  else if (segno.nome == "i")
    ora.corsivo = acceso(segno);
  else if (segno.nome == "ul")
    ora.sottolineato = acceso(segno);
  else if (segno.nome == "ulnone")
    ora.sottolineato = false;
  else if (segno.nome == "v")
    ora.nascosto = acceso(segno);
  else if (segno.nome == "fs")
    ora.misura = segno.conNumero ? std::clamp(segno.numero, kMisuraMinima, kMisuraMassima) : kMisura;
  else
    return false;
  return true;
}

bool Lettore::forma(const Segno& segno) {
  Forma& ora = gruppi_.back().forma;
  if (segno.nome == "pard")
    ora = {};
  else if (segno.nome == "s")
    ora.stile = segno.numero;
  else if (segno.nome == "outlinelevel")
    ora.contorno = segno.numero;
  else if (segno.nome == "ls")
    ora.elenco = segno.numero;
  else if (segno.nome == "ilvl")
    ora.livello = std::clamp(segno.numero, 0, kMassimoLivello);
  else if (segno.nome == "intbl")
    ora.inTabella = true;
  else if (segno.nome == "ql" || segno.nome == "qj")
    ora.allineamento = Qt::AlignLeft;
  else if (segno.nome == "qc")
    ora.allineamento = Qt::AlignHCenter;
  else if (segno.nome == "qr")
    ora.allineamento = Qt::AlignRight;
  else
    return false;
  return true;
}

bool Lettore::tabella(const Segno& segno) {
  if (segno.nome == "trowd")
    riga_.bordi.clear();
  else if (segno.nome == "cellx" && riga_.bordi.size() < kMassimoColonne)
    riga_.bordi.push_back(segno.numero);
  else if (segno.nome == "cell")
    fineCella();
  else if (segno.nome == "row")
    fineRiga();
  else if (segno.nome == "par" || segno.nome == "sect" || segno.nome == "nestcell")
    fineParagrafo();
  else
    return false;
  return true;
}

bool Lettore::speciale(QByteArrayView nome) {
  const char16_t carattere = carattereSpeciale(nome);
  if (carattere != 0) testo(QChar(carattere));
  return carattere != 0;
}

void Lettore::unicode(int codice) {
  const QChar letto(static_cast<char16_t>(codice));
  if (letto.isSurrogate() || letto.isPrint()) testo(letto);
  daSaltare_ = gruppi_.back().ripieghi;
}

void Lettore::testo(QChar carattere) {
  const Gruppo& gruppo = gruppi_.back();
  if (gruppo.meta == Meta::Nulla || gruppo.carattere.nascosto) return;
  if (gruppo.meta == Meta::Stili) return stile(carattere);
  conta(caratteri_, kMassimoCaratteri);
  if (gruppo.meta == Meta::SegnoElenco) {
    segno_ += carattere;
    return;
  }
  std::vector<Tratto>& tratti = paragrafo_.tratti;
  if (tratti.empty() || tratti.back().carattere != gruppo.carattere) tratti.push_back({{}, gruppo.carattere});
  tratti.back().testo += carattere;
}

void Lettore::stile(QChar carattere) {
  if (carattere != QLatin1Char(';')) {
    conta(caratteri_, kMassimoCaratteri);
    nomeStile_ += carattere;
    return;
  }
  titoli_[gruppi_.back().forma.stile] = livelloDelNome(std::exchange(nomeStile_, {}).trimmed());
}

int Lettore::titolo() const {
  const Forma& forma = gruppi_.back().forma;
  if (forma.contorno >= 0 && forma.contorno < kUltimoTitolo) return forma.contorno + 1;
  return forma.stile > 0 ? titoli_.value(forma.stile) : 0;
}

Paragrafo Lettore::chiudiParagrafo() {
  conta(blocchi_, kMassimoBlocchi);
  Paragrafo finito = std::exchange(paragrafo_, {});
  const Forma& forma = gruppi_.back().forma;
  finito.titolo = titolo();
  finito.inElenco = std::exchange(conSegno_, false) || forma.elenco > 0;
  finito.segno = std::exchange(segno_, {}).simplified();
  finito.livello = forma.livello;
  finito.allineamento = forma.allineamento;
  return finito;
}

void Lettore::fineParagrafo() {
  if (gruppi_.back().meta == Meta::Pagina) aggiungi(chiudiParagrafo());
}

void Lettore::aggiungi(Paragrafo paragrafo) {
  if (gruppi_.back().forma.inTabella) {
    cella_.push_back(std::move(paragrafo));
    return;
  }
  sciogliRiga();
  testo_.push_back({std::move(paragrafo), {}});
}

void Lettore::fineCella() {
  if (gruppi_.back().meta != Meta::Pagina) return;
  cella_.push_back(chiudiParagrafo());
  if (riga_.celle.size() < kMassimoColonne) riga_.celle.push_back(std::exchange(cella_, {}));
}

void Lettore::fineRiga() {
  if (riga_.celle.empty()) return;
  conta(blocchi_, kMassimoBlocchi);
  if (testo_.empty() || testo_.back().tabella.empty()) testo_.push_back({});
  testo_.back().tabella.push_back({std::exchange(riga_.celle, {}), riga_.bordi});
}

void Lettore::sciogliRiga() {
  // Cells of a row that never ended are text all the same.
  for (Cella& cella : riga_.celle)
    for (Paragrafo& paragrafo : cella) testo_.push_back({std::move(paragrafo), {}});
  riga_.celle.clear();
  for (Paragrafo& paragrafo : cella_) testo_.push_back({std::move(paragrafo), {}});
  cella_.clear();
}

void Lettore::conta(int& quanti, int massimo) {
  if (++quanti > massimo) illeggibile(QStringLiteral("il testo è troppo lungo."));
}

}  // namespace rtf
