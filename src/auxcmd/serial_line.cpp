#include "auxcmd/serial_line.h"

#include <utility>

LineaCOM::LineaCOM(QString cartella) : cartella_(std::move(cartella)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    if (scadenza_) scadenza_();
  });
}

void LineaCOM::suErrore(Segnale funzione) {
  porta_.onError([funzione = std::move(funzione)](const Errore&) { funzione(); });
}

void LineaCOM::apri(int numero, int velocita) {
  porta_.open(serial::portPath(numero, cartella_), velocita);
}
