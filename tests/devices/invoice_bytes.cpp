#include "devices/invoice_bytes.h"

#include <gtest/gtest.h>

#include <QtEndian>

namespace {

std::int32_t integer(const QByteArray& record, qsizetype place) {
  return qFromLittleEndian<std::int32_t>(record.constData() + place);
}

}  // namespace

std::vector<InvoiceRead> invoicesOf(const QByteArray& archive) {
  EXPECT_EQ(archive.size(), 77000);
  std::vector<InvoiceRead> invoices;
  for (int place = 1; place * 77 <= archive.size(); ++place) {
    const QByteArray record = archive.mid((place - 1) * 77, 77);
    if (record[0] == '\0') {
      EXPECT_EQ(record, QByteArray(77, '\0')) << place;
      continue;
    }
    InvoiceRead invoice;
    invoice.place = place;
    invoice.type = static_cast<unsigned char>(record[0]);
    invoice.customer = qFromLittleEndian<std::uint16_t>(record.constData() + 1);
    const QByteArray holder = record.mid(3, 41);
    invoice.holder = holder.left(holder.indexOf('\0') < 0 ? 41 : holder.indexOf('\0'));
    invoice.moment = qFromLittleEndian<std::uint32_t>(record.constData() + 44);
    invoice.total = integer(record, 48);
    invoice.taxable = integer(record, 52);
    invoice.tax = integer(record, 56);
    invoice.unpaid = integer(record, 60);
    invoice.reserved = record.mid(64);
    invoices.push_back(invoice);
  }
  return invoices;
}

QByteArray customerTable(const std::vector<CustomerWritten>& customers) {
  QByteArray byte(44250, '\0');
  for (const CustomerWritten& one : customers) {
    const qsizetype record = (one.code - 1) * 177;
    byte[record] = static_cast<char>(one.flag);
    byte.replace(record + 1, one.name.size(), one.name);
  }
  EXPECT_EQ(byte.size(), 44250);
  return byte;
}
