#include "sostegno/test_till.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <array>
#include <atomic>

#include "ecrcom/ecrcom_service.h"
#include "ecrcom/socket.h"

namespace {

constexpr std::uint32_t kLoopbackNet = 127U << 24U;
constexpr std::uint32_t kNumbers = 1U << 24U;
/// More than the tests of one program take, since programs run side by side.
constexpr std::uint32_t kPerProcess = 4093;
constexpr qsizetype kPlaces = 5000;
/// In the order of ecrsim::FaultKind.
constexpr std::array kFaultNames{"Code",     "Silence", "CutBefore", "CutWithin", "CutAfter", "ShortFile",
                                 "LongFile", "Garbage", "Noise",     "CutHead",   "CutMarker"};

/// 127.0.0.x is for people; 0 and 255 at the end look like a network and its broadcast.
bool usable(std::uint32_t number) {
  const std::uint32_t last = number & 0xFFU;
  return number > 0xFFU && last != 0 && last != 0xFFU;
}

bool free(std::uint32_t address) {
  ecrcom::Socket connection(socket(AF_INET, SOCK_STREAM, 0));
  sockaddr_in where{};
  where.sin_family = AF_INET;
  where.sin_port = htons(ecrcom::kPort);
  where.sin_addr.s_addr = htonl(address);
  return bind(connection.descriptor(), reinterpret_cast<sockaddr*>(&where), sizeof where) == 0;
}

void writeInteger(QByteArray& byte, qsizetype position, std::int32_t value) {
  qToLittleEndian(value, byte.data() + position);
}

}  // namespace

QString ownAddress() {
  static std::atomic<std::uint32_t> counter{static_cast<std::uint32_t>(getpid()) * kPerProcess};
  for (;;) {
    const std::uint32_t number = counter++ % kNumbers;
    if (!usable(number) || !free(kLoopbackNet | number)) continue;
    return QStringLiteral("127.%1.%2.%3").arg(number >> 16U).arg(number >> 8U & 0xFFU).arg(number & 0xFFU);
  }
}

QByteArray salesArchive(const std::vector<SlotSales>& sales) {
  QByteArray byte(3 * kPlaces * 4, '\0');
  for (const SlotSales& one : sales) {
    writeInteger(byte, one.slot * 4, one.amount);
    writeInteger(byte, (kPlaces + one.slot) * 4, one.pieces);
    writeInteger(byte, (2 * kPlaces + one.slot) * 4, one.discount);
  }
  return byte;
}

TestTill::TestTill(ecrsim::Options options) {
  EXPECT_TRUE(memory_.isValid());
  if (options.address == ecrsim::Options().address) options.address = ownAddress().toStdString();
  options.folder = memory_.path().toStdString();
  address_ = QString::fromStdString(options.address);
  simulator_ = std::make_unique<ecrsim::Simulator>(std::move(options));
}

bool TestTill::exists(const QString& name) const {
  return QFileInfo::exists(file(name));
}

QByteArray TestTill::byte(const QString& name) const {
  QFile entered(file(name));
  EXPECT_TRUE(entered.open(QIODevice::ReadOnly)) << name.toStdString();
  return entered.readAll();
}

void TestTill::put(const QString& name, const QByteArray& byte) const {
  QFile output(file(name));
  EXPECT_TRUE(output.open(QIODevice::WriteOnly)) << name.toStdString();
  EXPECT_EQ(output.write(byte), byte.size());
}

void TestTill::sales(const std::vector<SlotSales>& sales) const {
  put(QStringLiteral("venduto.bin"), salesArchive(sales));
}

ShortTimeouts::ShortTimeouts(int connection, int answer)
    : library_(dlopen(GESTIONALE_APP "/libecrcom.so", RTLD_NOW)) {
  if (library_ == nullptr) throw std::runtime_error(dlerror());
  reinterpret_cast<decltype(&ecr_set_timeout)>(dlsym(library_, "ecr_set_timeout"))(connection, answer);
}

ShortTimeouts::~ShortTimeouts() {
  const auto set = reinterpret_cast<decltype(&ecr_set_timeout)>(dlsym(library_, "ecr_set_timeout"));
  set(ECR_CONNECT_MS, ECR_REPLY_MS);
  dlclose(library_);
}

QStringList callsOf(TestTill& till) {
  QStringList calls;
  for (const ecrsim::Call& one : till->calls())
    calls << QStringLiteral("%1:%2").arg(one.mode).arg(QString::fromStdString(one.file));
  return calls;
}

std::string faultName(int mode, ecrsim::FaultKind kind) {
  return "Mode" + std::to_string(mode) + kFaultNames.at(static_cast<std::size_t>(kind));
}

void ecrsim::PrintTo(FaultKind kind, std::ostream* output) {
  *output << kFaultNames.at(static_cast<std::size_t>(kind));
}
