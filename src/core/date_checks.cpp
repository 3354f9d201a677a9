#include "core/conversions.h"
#include "core/state.h"
#include "platform/ui/user_port.h"

namespace {

/// The three messages of a date check, each shown with the critical icon.
struct MessaggiData {
  QString mese30;
  QString febbraio28;
  QString febbraio29;
};

int numero(const QString& cifre) {
  return cifre.toInt();
}

/// A year as it stands in the text: the two digits 00 are divisible by 400.
bool bisestile(int anno) {
  if (anno % 400 == 0) return true;
  if (anno % 100 == 0) return false;
  return anno % 4 == 0;
}

Bandiera rifiuta(Utente& utente, const QString& messaggio) {
  utente.MsgBox(messaggio, Icon::Critical);
  return kFalso;
}

/// A day of 0, or of 32 in a month of 31, passes: programmes saved with such a day must stay editable.
Bandiera controlla(int giorno, int mese, bool annoBisestile, const MessaggiData& messaggi, Utente& utente) {
  if (mese < 1 || mese > 12) return kFalso;
  const bool mese30 = mese == 4 || mese == 6 || mese == 9 || mese == 11;
  if (mese30 && giorno > 30) return rifiuta(utente, messaggi.mese30);
  if (mese == 2 && !annoBisestile && giorno >= 29) return rifiuta(utente, messaggi.febbraio28);
  if (mese == 2 && annoBisestile && giorno >= 30) return rifiuta(utente, messaggi.febbraio29);
  return kVero;
}

MessaggiData messaggiBrevi() {
  return {QStringLiteral("ATTENZIONE Errore il mese inserito e' di 30 giorni "),
          QStringLiteral("ATTENZIONE Errore febbraio è di 28 giorni"),
          QStringLiteral("ATTENZIONE Errore febbraio è di 29 giorni")};
}

Bandiera controllaTesto(const QString& cifre, bool annoBisestile, const MessaggiData& messaggi,
                        Utente& utente) {
  return controlla(numero(cifre.mid(0, 2)), numero(cifre.mid(2, 2)), annoBisestile, messaggi, utente);
}

}  // namespace

std::int16_t CheckDataRevisione(const QString& ddmmyyyy, Utente& utente) {
  const MessaggiData messaggi{QStringLiteral("ATTENZIONE Errore il mese inserito deve essere di 30 giorni "),
                              QStringLiteral("ATTENZIONE Errore febbraio deve essere di 28 giorni"),
                              QStringLiteral("ATTENZIONE Errore febbraio deve essere di 29 giorni")};
  return controllaTesto(ddmmyyyy, bisestile(numero(ddmmyyyy.mid(4, 4))), messaggi, utente);
}

std::int16_t CheckDataPeriodo(const QString& ddmm, Utente& utente) {
  return controllaTesto(ddmm, false, messaggiBrevi(), utente);
}

std::int16_t CheckDataScontrino(const QString& ddmmyy, Utente& utente) {
  return controllaTesto(ddmmyy, bisestile(numero(ddmmyy.right(2))), messaggiBrevi(), utente);
}
