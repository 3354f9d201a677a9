#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <utility>
#include <vector>

struct Contesto;

/// The screens of the program by name. Each is one instance, made at its first use, gone when it is unloaded
/// (closing a screen unloads it), fresh at its next use. Upper layers register their screens here, so that a
/// lower one can open them by name.
class Schermate {
 public:
  using Fabbrica = std::function<QWidget*(Contesto&)>;

  Schermate() = default;
  ~Schermate();
  Schermate(const Schermate&) = delete;
  Schermate& operator=(const Schermate&) = delete;

  void registra(const QString& nome, Fabbrica fabbrica);
  /// A screen whose class bears its name and is made from a Contesto.
  template <typename Schermo>
  void registra() {
    registra(QLatin1String(Schermo::staticMetaObject.className()),
             [](Contesto& contesto) { return new Schermo(contesto); });
  }
  bool registrata(const QString& nome) const;
  /// The instance, made now if there is none, in the middle of the display and no larger than it. Throws
  /// Errore 9 for a name that nobody registered.
  QWidget& carica(const QString& nome, Contesto& contesto);
  /// As carica, for a screen that stands in another one: made in there, since what changes its parent later
  /// is polished and laid out once more, with all that it holds.
  QWidget& caricaDentro(QWidget& dentro, const QString& nome, Contesto& contesto);
  /// Loads, shows non-modally and brings to the front.
  QWidget& mostra(const QString& nome, Contesto& contesto);
  /// Loads a screen, runs it to its end with the others shut off, and unloads it. A busy guard of the command
  /// that opens it is lifted meanwhile.
  void mostraModale(const QString& nome, Contesto& contesto);
  /// The instance if there is one.
  QWidget* trova(const QString& nome) const;
  /// The screen made last of those that are seen; null for none.
  QWidget* davanti() const;
  /// Closes and destroys the instance, the busy guard notwithstanding; nothing if there is none. False if the
  /// screen refused to be closed: it stays then.
  bool scarica(const QString& nome);
  /// In the order in which they were made; one that refuses stays, and the others go all the same.
  void scaricaTutte();

 private:
  /// From the moment of its closing a screen counts no more, though it is destroyed later.
  void dimentica(const QWidget* schermo);

  std::map<QString, Fabbrica> fabbriche_;
  std::vector<std::pair<QString, QPointer<QWidget>>> aperte_;
  std::vector<QPointer<QWidget>> morenti_;
};

/// Leaves a screen: unloads it and shows the one that it leads back to, if there is one of that name.
void torna(QWidget& schermo, const QString& casa, Contesto& contesto);
