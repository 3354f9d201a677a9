#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class Form_ATTESA;
}

/// The wait box: shown non-modally before a long filling of a grid, unloaded behind it.
class Form_ATTESA : public QWidget {
  Q_OBJECT

 public:
  explicit Form_ATTESA(QWidget* parent = nullptr);
  ~Form_ATTESA() override;

 private:
  std::unique_ptr<Ui::Form_ATTESA> ui_;
};
