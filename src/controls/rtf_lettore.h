#pragma once

#include <QByteArray>
#include <QHash>
#include <vector>

#include "controls/rtf_lessico.h"
#include "controls/rtf_testo.h"

namespace rtf {

/// Reads the steps of a file into a text. Throws Errore 321 for what cannot be read.
class Lettore {
 public:
  explicit Lettore(const QByteArray& byte);
  Testo leggi();

 private:
  /// What the bytes of a group are for.
  enum class Meta { Pagina, Nulla, Stili, SegnoElenco };

  /// The properties of a paragraph as they stand when it ends.
  struct Forma {
    int stile = -1;
    int contorno = -1;
    int elenco = 0;
    int livello = 0;
    bool inTabella = false;
    Qt::Alignment allineamento = Qt::AlignLeft;
  };

  struct Gruppo {
    Meta meta = Meta::Pagina;
    Carattere carattere;
    Forma forma;
    /// How many characters stand behind a \u for readers that do not know it.
    int ripieghi = 1;
    /// The next word tells what the group is for.
    bool inizio = true;
    /// That word may be passed over by who does not know it.
    bool facoltativo = false;
  };

  void passo(const Segno& segno);
  void apri();
  void chiudi();
  void simbolo(char c);
  void parola(const Segno& segno);
  bool destinazione(QByteArrayView nome);
  bool carattere(const Segno& segno);
  bool forma(const Segno& segno);
  bool tabella(const Segno& segno);
  bool speciale(QByteArrayView nome);
  void unicode(int codice);
  void testo(QChar carattere);
  void stile(QChar carattere);

  int titolo() const;
  Paragrafo chiudiParagrafo();
  void fineParagrafo();
  void fineCella();
  void fineRiga();
  void sciogliRiga();
  void aggiungi(Paragrafo paragrafo);
  void conta(int& quanti, int massimo);

  QByteArray byte_;
  Lessico lessico_;
  std::vector<Gruppo> gruppi_;
  int daSaltare_ = 0;

  Testo testo_;
  Paragrafo paragrafo_;
  QString segno_;
  bool conSegno_ = false;
  Cella cella_;
  Riga riga_;

  QHash<int, int> titoli_;
  QString nomeStile_;
  int caratteri_ = 0;
  int blocchi_ = 0;
};

}  // namespace rtf
