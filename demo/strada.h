#pragma once

#include <QElapsedTimer>
#include <QString>

#include "demo/cassa_esterna.h"
#include "demo/regista.h"

/// The main road: new archive, article list in, archive to the till, a day at the till, its sales back and
/// cleared, then both archives looked at, corrected and exported. Every figure that it prints is compared
/// with what the till holds; a difference ends it with 1.
class Strada {
 public:
  struct Luoghi {
    /// Application folder: ecrsim, sample articles.
    QString applicazione;
    /// Where archive, till memory and pictures are left.
    QString cartella;
  };

  Strada(Luoghi luoghi, CassaEsterna& cassa);
  int percorri();

 private:
  void creaArchivio();
  void importa();
  void scegliFile(const QString& percorso);
  void collega(const QString& finestra, const QString& comando);
  void trasferisci();
  void vendi();
  void ricevi();
  void archivioArticoli();
  void cercaArticoli();
  void correggiArticolo();
  void esportaArticoli();
  void archivioVenduto();
  void torna();

  void fotografa(const QString& finestra, const QString& nome);
  void fotografaRiquadro(const QString& nome);
  void attendiRiquadro(const QString& testo, const QString& foto);
  void riga(const QString& cosa, const QString& valore);
  void pretendi(bool vero, const QString& cosa);
  void confrontaInvio();
  void confrontaVenduto();
  void confrontaRicerca();
  void confrontaCorrezione();
  void confrontaExportArticoli();
  void confrontaElencoVenduto();
  void confrontaExportVenduto();
  /// Clicks the export of a screen, names the file and looks at the message.
  void esporta(const QString& finestra, const QString& file, const QString& foto);
  QString inCartella(const QString& nome) const;

  Luoghi luoghi_;
  CassaEsterna& cassa_;
  Regista regista_;
  QElapsedTimer cronometro_;
  QString archivio_;
  QString elenco_;
  QString giornoRicevuto_;
  /// Slot of the article that was corrected, from 1.
  int corretto_ = 0;
  int foto_ = 0;
};
