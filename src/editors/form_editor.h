#pragma once

#include <QIcon>
#include <QWidget>
#include <memory>
#include <vector>

#include "core/screen.h"
#include "editors/changes.h"
#include "editors/form_table.h"

class QPushButton;
namespace Ui {
class EditorModulo;
}
namespace editors {
class CampoModulo;
struct Posto;
}  // namespace editors

/// An editor of single fields, built from a table: tabs of titled cards, a dot on what was changed and on its
/// tab, and a pair of commands for each tab. What is typed comes into the records by a save alone.
class EditorModulo : public Schermo<QWidget>, public editors::Editor {
  Q_OBJECT

 public:
  /// Built, not filled: the screen of the class fills itself. `modulo` outlives it.
  EditorModulo(Contesto& contesto, const editors::Modulo& modulo);
  ~EditorModulo() override;

  bool pronto() override;
  void salvaInMemoria() override;
  void ricarica() override;

 protected:
  /// What the screen itself asks for before a save is thought of. False has been shown and told.
  virtual bool controlla() { return true; }
  /// The same once it is decided to save.
  virtual bool salvabile() { return true; }
  /// What the screen shows once all of it is in the file.
  virtual void dopoIlSalvataggio() { ricarica(); }
  /// A field was changed by the person, or by a rule behind such a change.
  virtual void dopo(editors::CampoModulo& /*campo*/) {}

  /// The field of that control. Of a pair or a date it is named as in the table.
  template <typename Campo = editors::CampoModulo>
  Campo& campo(const char* controllo, std::size_t riga = 0) const {
    return static_cast<Campo&>(trovato(controllo, riga));
  }
  /// The card of that name, for what a screen adds to it.
  QWidget& carta(const char* nome) const;
  /// Shows a message, and tells it at the foot.
  void avvisa(const QString& messaggio);
  void racconta(const QString& avviso);
  /// The field's tab in front, and the focus on it.
  void porta(editors::CampoModulo& campo);
  Bandiera& modificato() const { return varGestionePRG().*modulo_.modificato; }
  /// The field counts as changed from now on, whoever has changed it.
  void segna(editors::CampoModulo& campo);
  void ResetBackColorFrame();
  /// What is typed as a number, once more from the records.
  void mostraNumeri();

 private:
  void costruisci();
  void pagina(const editors::Pagina& pagina, class QScrollArea& rotolo);
  void riquadro(const editors::Riquadro& riquadro, class QBoxLayout& colonna);
  void riga(const QString& nome, std::span<const editors::Dato> dati, const editors::Riquadro& riquadro,
            std::size_t quale, class QGridLayout& griglia, int suo);
  void serie(const editors::Riquadro& riquadro, class QGridLayout& griglia);
  editors::CampoModulo* aggiungi(const editors::Dato& dato, editors::Posto posto);
  QWidget* comandi(const editors::Pagina& pagina);
  editors::CampoModulo& trovato(const char* controllo, std::size_t riga) const;

  QString riempimentoDi(const editors::CampoModulo& campo) const;
  void cambiato(editors::CampoModulo& campo);
  bool controllaSegnati();
  bool campiGiusti();
  void salva();
  void annulla();
  void mostraStato();
  QString modificati() const;
  bool premuto() const;

  const editors::Modulo& modulo_;
  std::unique_ptr<Ui::EditorModulo> ui_;
  std::vector<editors::CampoModulo*> campi_;
  std::vector<QPushButton*> salva_;
  /// Of each tab, which pair of commands is its.
  std::vector<int> comandiDi_;
  QIcon segnoScheda_;
};
