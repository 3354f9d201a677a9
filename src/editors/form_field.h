#pragma once

#include <QFrame>
#include <functional>
#include <memory>

#include "editors/form_table.h"

class EcrLibrary;
class QBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace editors {

/// Where a field stands on its screen, and what it tells its screen.
struct Posto {
  /// What holds the field.
  QWidget* dove;
  const Riquadro& riquadro;
  std::size_t riga;
  EcrLibrary& libreria;
  Segno segno;
  /// What the person reads before the row, in a series.
  QString nomeRiga = {};
  /// Told of each change by the person, or by a rule that follows from one.
  std::function<void()> cambiato;
  /// Shows a message.
  std::function<void(const QString&)> avvisa;
};

/// One field of a form on the screen: its caption, its control and a dot while it is changed. Its object name
/// is "Cornice_" and the control's. In a series the caption stands at the head of the column, not here.
class CampoModulo : public QFrame {
  Q_OBJECT

 public:
  CampoModulo(const Dato& dato, Posto posto);
  ~CampoModulo() override;

  /// The control as the record in memory has it. Throws what the till's library throws.
  void mostra();
  /// The control into the record in memory. What the control cannot show stays as it is stored.
  virtual void scrivi() = 0;
  /// Where the focus goes.
  virtual QWidget& controllo() const = 0;
  /// Whether what stands there may be saved; what may not has been replaced, and the person told.
  virtual bool accettato() { return true; }
  /// What stands there is from now on what a refused text goes back to.
  virtual void tieni() {}

  /// How far from its left edge a control stands in a series, in the font of `chi`.
  static int margineInSerie(const QWidget& chi);

  void segna(bool segnato);
  bool segnato() const { return segnato_; }
  /// As the field that a refused save is about.
  void segnaSbagliato();
  const Dato& dato() const { return dato_; }
  std::size_t riga() const { return posto_.riga; }
  /// Caption and row, or the card and the caption where that is not enough, for messages and readers of the
  /// screen.
  QString nome() const;

 protected:
  virtual void riempi() = 0;

  config::Record record() const { return recordDi(dato_, posto_.riga); }
  config::Campo campo() const { return campoDi(dato_, posto_.riga); }
  QString nomeControllo(const char* base) const {
    // What is only shown is there once.
    return dato_.genere == Genere::Mostrato ? QString(QLatin1String(base))
                                            : editors::nomeControllo(base, posto_.riquadro, posto_.riga);
  }
  const Posto& posto() const { return posto_; }
  /// Lays the controls out under the caption, or behind one another in a series.
  void disponi(const QList<QWidget*>& controlli, QLabel* conta = nullptr);
  /// Name and tooltip for a control.
  void vesti(QWidget& controllo, const QString& oggetto, const QString& parte = {}) const;
  void cambiato();

 private:
  void colora();

  const Dato& dato_;
  Posto posto_;
  QLabel* punto_;
  bool segnato_ = false;
  bool sbagliato_ = false;
  /// While the control is filled from the record.
  bool daProgramma_ = false;
};

/// A pair of buttons.
class CampoSiNo : public CampoModulo {
  Q_OBJECT

 public:
  CampoSiNo(const Dato& dato, Posto posto);
  void scrivi() override;
  QWidget& controllo() const override;
  bool si() const;

 protected:
  void riempi() override;

 private:
  void unaSolaFermata();

  QRadioButton* si_;
  QRadioButton* no_;
};

/// A list, by position or by codes.
class CampoLista : public CampoModulo {
  Q_OBJECT

 public:
  CampoLista(const Dato& dato, Posto posto);
  void scrivi() override;
  QWidget& controllo() const override;
  QComboBox& lista() const { return *lista_; }

 protected:
  void riempi() override;

 private:
  QComboBox* lista_;
};

/// A line that is typed: a text, a number or a time.
class CampoScritto : public CampoModulo {
  Q_OBJECT

 public:
  CampoScritto(const Dato& dato, Posto posto);
  void scrivi() override;
  QWidget& controllo() const override;
  bool accettato() override;
  void tieni() override;
  QLineEdit& casella() const { return *casella_; }
  /// Longest text that can be typed from now on. What is longer already stays as it is.
  void limita(int caratteri);

 protected:
  void riempi() override;

 private:
  QString letto() const;
  std::optional<Rejection> rifiuto(const QString& testo) const;
  void conta();

  QLineEdit* casella_;
  QLabel* conta_;
  /// What was filled in or saved last.
  QString caricato_;
  int limite_;
};

/// Lists of day and month, and of the year where the field has one.
class CampoData : public CampoModulo {
  Q_OBJECT

 public:
  CampoData(const Dato& dato, Posto posto);
  void scrivi() override;
  QWidget& controllo() const override;
  /// Whether each of its lists shows an entry.
  bool scelta() const;
  /// "ddmm" or "ddmmyyyy" of the entries shown.
  QString cifre() const;
  /// All its lists at their first entry.
  void allInizio();
  /// The ground of its lists.
  void sfondo(const QColor& colore);

 protected:
  void riempi() override;

 private:
  QComboBox* giorno_;
  QComboBox* mese_;
  QComboBox* anno_ = nullptr;
};

/// The field of the kind that `dato` tells.
std::unique_ptr<CampoModulo> CreaCampo(const Dato& dato, Posto posto);

}  // namespace editors
