#include "platform/store/row_set.h"
#include "platform/store/store.h"

namespace store {

namespace {

[[noreturn]] void noCurrentRecord() {
  throw Errore{errors::kNoCurrentRecord, QStringLiteral("Nessun record corrente.")};
}

[[noreturn]] void noSuchField(const QString& name) {
  throw Errore{errors::kNoSuchField,
               QStringLiteral("Elemento '%1' non trovato in questo insieme.").arg(name)};
}

const RowSet::Cell& current(const RowSet& rows, int row, int column) {
  if (row >= rows.rows()) noCurrentRecord();
  if (column < 0 || column >= rows.columns()) noSuchField(QString::number(column));
  return rows.cell(row, column);
}

}  // namespace

Recordset::Recordset(std::shared_ptr<const RowSet> rows) : rows_(std::move(rows)) {}

int Recordset::RecordCount() const {
  return rows_->rows();
}

void Recordset::MoveFirst() {
  if (empty()) noCurrentRecord();
  row_ = 0;
}

void Recordset::MoveLast() {
  if (empty()) noCurrentRecord();
  row_ = RecordCount() - 1;
}

void Recordset::MoveNext() {
  if (atEnd()) noCurrentRecord();
  ++row_;
}

int Recordset::columns() const {
  return rows_->columns();
}

int Recordset::place(const QString& name) const {
  return rows_->column(name);
}

int Recordset::column(const QString& name) const {
  const int position = place(name);
  if (position < 0) noSuchField(name);
  return position;
}

Value Recordset::field(const QString& name) const {
  return field(column(name));
}

Value Recordset::field(int column) const {
  const RowSet::Cell& cell = current(*rows_, row_, column);
  switch (cell.kind) {
    case RowSet::Kind::Integer:
      return Value(cell.integer);
    case RowSet::Kind::Real:
      return Value(cell.real);
    case RowSet::Kind::Text: {
      const std::string_view text = rows_->text(cell);
      return Value(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    }
    case RowSet::Kind::Null:
      break;
  }
  return {};
}

std::int64_t Recordset::int64(int column) const {
  const RowSet::Cell& cell = current(*rows_, row_, column);
  if (cell.kind == RowSet::Kind::Integer) return cell.integer;
  if (cell.kind == RowSet::Kind::Null) throw errors::nullValue();
  if (cell.kind == RowSet::Kind::Text) throw errors::typeMismatch();
  return Value(cell.real).int64();
}

std::string_view Recordset::utf8(int column) const {
  const RowSet::Cell& cell = current(*rows_, row_, column);
  if (cell.kind == RowSet::Kind::Null) throw errors::nullValue();
  if (cell.kind != RowSet::Kind::Text) throw errors::typeMismatch();
  return rows_->text(cell);
}

QString Recordset::text(int column) const {
  const RowSet::Cell& cell = current(*rows_, row_, column);
  if (cell.kind == RowSet::Kind::Null) return {};
  if (cell.kind != RowSet::Kind::Text) return field(column).text();
  const std::string_view text = rows_->text(cell);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool Recordset::isNull(int column) const {
  return current(*rows_, row_, column).kind == RowSet::Kind::Null;
}

}  // namespace store
