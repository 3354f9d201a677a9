#pragma once

#include <QString>
#include <QStringList>

#include "controls/style.h"
#include "core/state.h"

namespace ecrlink {

/// What the procedures of the link ask of the screen that they run for. The panel of the link screens is one.
class VistaLink {
 public:
  VistaLink() = default;
  VistaLink(const VistaLink&) = delete;
  VistaLink& operator=(const VistaLink&) = delete;
  virtual ~VistaLink() = default;

  virtual QString indirizzo() const = 0;
  virtual void scriviIndirizzo(const QString& indirizzo) = 0;
  /// The PC's own addresses, one a line.
  virtual QStringList indirizziLocali() const = 0;
  virtual void scriviIndirizziLocali(const QStringList& indirizzi) = 0;

  virtual void abilitaAvvia(bool abilitato) = 0;
  virtual void abilitaConnetti(bool abilitato) = 0;
  virtual bool connettiAbilitato() const = 0;
  virtual void fuocoSuConnetti() = 0;
  virtual void fuocoSuEsci() = 0;
  virtual void abilitaSchermo() = 0;

  /// What the till said of itself, its state aside.
  virtual void mostraInfo(const EcrInfo& info) = 0;
  /// Its state in a word; `lettera` is the one that stands for it.
  virtual void mostraStato(const QString& parola, const QString& lettera) = 0;
  /// What the state means for the person.
  virtual void distingui(style::Badge distintivo) = 0;

  /// What the till is being asked for and how long that may take, painted before this comes back: the call
  /// behind it waits.
  virtual void mostraPasso(const QString& passo) = 0;
  /// The step is over, whatever it came to: what stood in its place comes back.
  virtual void togliPasso() = 0;
  /// Whether the last call, or the connection as a whole, went well. A fault stays to be seen until one does.
  virtual void cassaRisponde(bool bene) = 0;
};

}  // namespace ecrlink
