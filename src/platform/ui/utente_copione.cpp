#include "platform/ui/utente_copione.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <ostream>

void PrintTo(const Riquadro& riquadro, std::ostream* uscita) {
  *uscita << "\"" << riquadro.testo.toStdString() << "\" icon " << static_cast<int>(riquadro.icona) << " title \""
          << riquadro.titolo.toStdString() << "\" buttons " << static_cast<int>(riquadro.pulsanti);
}

UtenteCopione::~UtenteCopione() {
  EXPECT_TRUE(risposte_.empty()) << risposte_.size() << " scripted answers were never asked for";
  EXPECT_TRUE(percorsi_.empty()) << percorsi_.size() << " scripted paths were never asked for";
  for (std::size_t i = guardati_; i < riquadri_.size(); ++i)
    ADD_FAILURE() << "a box that the test did not look at: " << testing::PrintToString(riquadri_[i]);
}

UtenteCopione& UtenteCopione::risponde(Risposta risposta) {
  risposte_.push_back(risposta);
  return *this;
}

UtenteCopione& UtenteCopione::sceglie(std::optional<QString> percorso) {
  percorsi_.push_back(std::move(percorso));
  return *this;
}

const std::vector<Riquadro>& UtenteCopione::riquadri() {
  guardati_ = riquadri_.size();
  return riquadri_;
}

std::vector<Riquadro> UtenteCopione::prendiRiquadri() {
  guardati_ = 0;
  return std::exchange(riquadri_, {});
}

Risposta UtenteCopione::MsgBox(const QString& testo, Icona icona, const QString& titolo, Pulsanti pulsanti) {
  riquadri_.push_back({testo, icona, titolo, pulsanti});
  if (alRiquadro) alRiquadro(Riquadro{testo, icona, titolo, pulsanti});
  if (pulsanti == Pulsanti::OK) return Risposta::OK;
  if (risposte_.empty()) {
    ADD_FAILURE() << "a question without a scripted answer: " << testo.toStdString();
    return pulsanti == Pulsanti::SiNo ? Risposta::No : Risposta::Annulla;
  }
  const Risposta risposta = risposte_.front();
  risposte_.pop_front();
  return risposta;
}

std::optional<QString> UtenteCopione::finestra(const FinestraFile& richiesta) {
  finestre_.push_back(richiesta);
  if (percorsi_.empty()) {
    ADD_FAILURE() << "a file dialog without a scripted path";
    return std::nullopt;
  }
  std::optional<QString> percorso;
  percorso.swap(percorsi_.front());
  percorsi_.pop_front();
  return percorso;
}

std::optional<QString> UtenteCopione::FinestraApri(const FinestraFile& richiesta) { return finestra(richiesta); }
std::optional<QString> UtenteCopione::FinestraSalva(const FinestraFile& richiesta) { return finestra(richiesta); }

void UtenteCopione::DoEvents() {
  ++passaggi_;
  if (alPassaggio) alPassaggio();
  QCoreApplication::processEvents();
}

void UtenteCopione::AvviaProgramma(const QString& programma, const QStringList& argomenti) {
  programmi_.append((QStringList{programma} + argomenti).join(QLatin1Char(' ')));
}

void UtenteCopione::ApriConDesktop(const QString& file) { programmi_.append(file); }

void UtenteCopione::Termina() {
  terminato_ = true;
  throw ProgrammaTerminato{};
}
