#pragma once

#include <QPushButton>

/// A large command of a workspace: its icon on a disc, its caption, and a line that says what it is for. With
/// room the three stand one below the other; in a low place the caption stands beside the icon, alone.
class Tessera : public QPushButton {
  Q_OBJECT
  /// What the command is for, in one line.
  Q_PROPERTY(QString spiegazione READ spiegazione WRITE impostaSpiegazione)

 public:
  explicit Tessera(QWidget* parent = nullptr);

  QString spiegazione() const { return spiegazione_; }
  void impostaSpiegazione(const QString& spiegazione);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* evento) override;

 private:
  bool bassa() const;
  QFont carattereTitolo() const;
  void disegnaFondo(QPainter& pittore);
  void disegnaDisco(QPainter& pittore, const QRect& disco);
  void disegnaBassa(QPainter& pittore);
  void disegnaAlta(QPainter& pittore);

  QString spiegazione_;
};
