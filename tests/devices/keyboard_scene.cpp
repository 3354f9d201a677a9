#include "devices/keyboard_scene.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <QtEndian>

#include "ecrcom/codes.h"

namespace {

constexpr auto kLimit = std::chrono::seconds(5);
constexpr int kLimitMs = 5000;
constexpr int kBlock = 1024;
constexpr int kTenths = 20;

class NetworkCarrier : public Carrier {
 public:
  explicit NetworkCarrier(const QString& address) {
    QByteArray ip = address.toLatin1();
    handle_ = library_.ecr_conn_xonxoff_ntw(ip.data());
    EXPECT_GE(handle_, 1);
  }
  ~NetworkCarrier() override { library_.ecr_disc_xonxoff_ntw(handle_); }
  void send(const QByteArray& keys) override {
    QByteArray copy = keys;
    EXPECT_EQ(library_.ecr_send_xonxoff_ntw(handle_, copy.data()), ecrcom::kDone);
  }
  QByteArray receive(qsizetype count) override {
    while (arrived_.size() < count) {
      QByteArray block(kBlock, ' ');
      const int size = library_.ecr_recv_xonxoff_ntw(handle_, block.data(), kBlock, kTenths);
      if (size <= 0) break;
      arrived_ += block.left(size);
    }
    QByteArray taken = arrived_.left(count);
    arrived_.remove(0, count);
    return taken;
  }
  QByteArray echo(const QByteArray&) const override { return {}; }

 private:
  Library library_;
  int handle_ = 0;
  QByteArray arrived_;
};

class SerialCarrier : public Carrier {
 public:
  explicit SerialCarrier(TestTill& till) {
    const QByteArray link = folder_.filePath(QStringLiteral("COM1")).toLocal8Bit();
    till->openSerial(link.toStdString());
    port_ = open(link.constData(), O_RDWR | O_NOCTTY);
    EXPECT_GE(port_, 0);
  }
  ~SerialCarrier() override { close(port_); }
  void send(const QByteArray& keys) override {
    EXPECT_EQ(write(port_, keys.constData(), static_cast<std::size_t>(keys.size())), keys.size());
  }
  QByteArray receive(qsizetype count) override {
    QByteArray arrived;
    while (arrived.size() < count) {
      pollfd wait{port_, POLLIN, 0};
      if (poll(&wait, 1, kLimitMs) != 1) break;
      QByteArray piece(count - arrived.size(), '\0');
      const ssize_t size = read(port_, piece.data(), static_cast<std::size_t>(piece.size()));
      if (size <= 0) break;
      arrived += piece.left(size);
    }
    return arrived;
  }
  QByteArray echo(const QByteArray& command) const override {
    return command == "X89F" ? command : command + "\r\n";
  }

 private:
  QTemporaryDir folder_;
  int port_ = -1;
};

void text(QByteArray& byte, qsizetype place, const QByteArray& value) {
  byte.replace(place, value.size(), value);
}

void number(QByteArray& byte, qsizetype place, std::int32_t value) {
  qToLittleEndian(value, byte.data() + place);
}

void department(QByteArray& byte, int which, const char* name, int vat, std::int32_t price) {
  const qsizetype record = (which - 1) * 42;
  text(byte, record, name);
  byte[record + 25] = static_cast<char>(vat - 1);
  number(byte, record + 26, price);
}

void article(QByteArray& byte, int which, const char* name, int section, std::int32_t price, char flags = 0) {
  const qsizetype record = (which - 1) * 48;
  text(byte, record, name);
  byte[record + 25] = static_cast<char>(section - 1);
  byte[record + 26] = flags;
  number(byte, record + 27, price);
}

}  // namespace

void PaperRoll::print(const std::string& line) {
  const std::lock_guard lock(mutex_);
  lines_ << QByteArray::fromStdString(line);
  grown_.notify_all();
}

QByteArrayList PaperRoll::lines(const QByteArrayList& expected) const {
  std::unique_lock lock(mutex_);
  grown_.wait_for(lock, kLimit, [&] { return lines_ == expected; });
  return lines_;
}

QByteArrayList PaperRoll::lines() const {
  const std::lock_guard lock(mutex_);
  return lines_;
}

void PaperRoll::tearOff() {
  const std::lock_guard lock(mutex_);
  lines_.clear();
}

std::unique_ptr<Carrier> carrierTo(TestTill& till, Line line) {
  if (line == Line::Network) return std::make_unique<NetworkCarrier>(till.address());
  return std::make_unique<SerialCarrier>(till);
}

KeyboardScene::KeyboardScene(Line line, ecrsim::Options options) : till(watched(std::move(options))) {
  programTill(till);
  carrier_ = carrierTo(till, line);
}

ecrsim::Options KeyboardScene::watched(ecrsim::Options options) {
  options.clock = [this] { return now; };
  options.watcher.paper = [this](const std::string& printed) { paper.print(printed); };
  options.watcher.display = [this](const std::string& upper, const std::string& lower) {
    display = {QByteArray::fromStdString(upper), QByteArray::fromStdString(lower)};
  };
  return options;
}

void programTill(const TestTill& till) {
  QByteArray departments(3361, '\0');
  department(departments, 1, "ALIMENTARI", 1, 150);
  department(departments, 2, "BEVANDE", 2, 200);
  department(departments, 3, "FRUTTA", 3, 300);
  department(departments, 7, "VARIE", 1, 700);
  department(departments, 8, "CASA", 1, 800);
  department(departments, 9, "CARO", 1, 500);
  number(departments, 8 * 42 + 30, 100);
  number(departments, 8 * 42 + 34, 2000);
  till.put(QStringLiteral("reparti.bin"), departments);
  QByteArray articles(240000, '\0');
  article(articles, 2, "LATTE", 2, 139);
  article(articles, 4, "PROSCIUTTO", 1, 1250, 1);
  article(articles, 8, "PANE", 3, 180);
  article(articles, 10, "MELE", 3, 210);
  article(articles, 11, "OMAGGIO", 1, 0, 2);
  article(articles, 12, "SENZA PREZZO", 1, 0);
  till.put(QStringLiteral("plu.bin"), articles);
  QByteArray vat(233, '\0');
  number(vat, 25, 2200);
  number(vat, 29 + 25, 1000);
  number(vat, 2 * 29 + 25, 400);
  till.put(QStringLiteral("iva.bin"), vat);
}

QByteArray riga(const QByteArray& left, const QByteArray& right) {
  return left.leftJustified(40 - right.size()) + right;
}

QByteArray centrata(const QByteArray& text) {
  return QByteArray((40 - text.size()) / 2, ' ') + text;
}

QByteArrayList piede(const QByteArray& name, const QByteArray& cashier) {
  return {"OPERATORE " + cashier, riga("22/11/2026 10:15", name), riga("MATRICOLA", "SIM 0000001"), ""};
}

std::int32_t salesCounter(const QByteArray& sales, int array, int plu) {
  EXPECT_EQ(sales.size(), 60000);
  if (sales.size() != 60000) return 0;
  return qFromLittleEndian<std::int32_t>(sales.constData() + (array * 5000 + plu - 1) * 4);
}
