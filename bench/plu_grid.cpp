#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QTableView>
#include <span>
#include <vector>

#include "bench/bench.h"
#include "bench/comparison.h"
#include "config/image.h"
#include "controls/FlexGrid.h"
#include "editors/Form_PLU.h"

namespace {

constexpr int kRows = config::kNumeroPLU;
constexpr int kColumns = 6;
constexpr int kWidth = 960;
constexpr int kHeight = 600;

/// A programme in which every PLU is used.
void laySome() {
  config::ImmagineProgrammazione& image = config::immagineProgrammazione();
  for (std::size_t i = 0; i < config::kPLU.record; ++i) {
    const config::Record record = image.record(config::kPLU, i);
    config::scriviTesto(record, config::plu::kDescrizione, QStringLiteral("LATTE UHT INTERO %1").arg(i));
    config::scriviByte(record, config::plu::kReparto, static_cast<std::uint8_t>(i % 32 + 1));
    config::scriviByte(record, config::plu::kAttributi, static_cast<std::uint8_t>(i % 4));
    config::scriviIntero(record, config::plu::kPrezzo, static_cast<std::int32_t>(i * 7));
  }
}

/// The same cells in a vector of texts, made by hand from the bytes.
class PlainModel : public QAbstractTableModel {
 public:
  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(cells_.size()) / kColumns;
  }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : kColumns; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return cells_[static_cast<std::size_t>(index.row()) * kColumns +
                  static_cast<std::size_t>(index.column())];
  }

  void fill(std::span<const std::uint8_t> image) {
    std::vector<QString> cells;
    cells.reserve(static_cast<std::size_t>(qsizetype{kRows} * kColumns));
    for (int row = 0; row < kRows; ++row) {
      const std::uint8_t* record = image.data() + static_cast<std::size_t>(row) * config::kBytePLU;
      const std::uint32_t price =
          record[27] | record[28] << 8 | record[29] << 16 | static_cast<std::uint32_t>(record[30]) << 24;
      cells.push_back(QString::number(row + 1));
      cells.push_back(QString::fromLatin1(reinterpret_cast<const char*>(record)));
      cells.push_back(QString::number(static_cast<std::int32_t>(price) / 100.0, 'f', 2));
      cells.push_back(QString::number(record[25]));
      cells.push_back((record[26] & 1) != 0 ? QStringLiteral("S") : QStringLiteral("N"));
      cells.push_back((record[26] & 2) != 0 ? QStringLiteral("S") : QStringLiteral("N"));
    }
    beginResetModel();
    cells_ = std::move(cells);
    endResetModel();
  }

 private:
  std::vector<QString> cells_;
};

template <typename View, typename Fill>
void withView(benchmark::State& state, View& view, const Fill& fill) {
  laySome();
  view.resize(kWidth, kHeight);
  view.show();
  for (auto loop : state) {
    static_cast<void>(loop);
    state.SetIterationTime(seconds([&] {
      fill();
      QCoreApplication::processEvents();
    }));
    if (view.model()->index(kRows - 1, 2).data().toString().isEmpty())
      state.SkipWithError("rows are missing");
  }
}

void grid_programma(benchmark::State& state) {
  BenchUser user;
  FlexGrid grid;
  withView(state, grid, [&] {
    const FlexGrid::Frozen frozen(grid);
    editors::DisponiGriglia(grid, editors::TabellaPLU());
    editors::RiempiGriglia(grid, editors::TabellaPLU(), user);
  });
}

void grid_modello(benchmark::State& state) {
  PlainModel model;
  QTableView view;
  view.setModel(&model);
  withView(state, view,
           [&] { model.fill(std::as_const(config::immagineProgrammazione()).blocco(config::kPLU)); });
}

[[maybe_unused]] const bool kRegistered = [] {
  comparison::registerFunction("plu_grid/programma", grid_programma, {kRows});
  comparison::registerFunction("plu_grid/modello", grid_modello, {kRows});
  return true;
}();

}  // namespace
