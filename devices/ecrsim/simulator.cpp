#include "ecrsim/simulator.h"

#include <utility>

#include "ecrsim/listener.h"
#include "ecrsim/serial_line.h"
#include "ecrsim/till.h"

namespace ecrsim {

struct Simulator::Impl {
  explicit Impl(Options options) : till(std::move(options)), listener(till.address(), till) {}

  Till till;
  Listener listener;
  std::unique_ptr<SerialLine> serial;
};

Simulator::Simulator(Options options) : impl_(std::make_unique<Impl>(std::move(options))) {}
Simulator::~Simulator() = default;

std::vector<Call> Simulator::calls() const {
  return impl_->till.calls();
}
void Simulator::forgetCalls() {
  impl_->till.forgetCalls();
}
void Simulator::state(char letter) {
  impl_->till.state(letter);
}
void Simulator::faults(std::vector<Fault> faults) {
  impl_->till.faults(std::move(faults));
}
void Simulator::infoReply(std::string text) {
  impl_->till.infoReply(std::move(text));
}
bool Simulator::transferOpen() const {
  return impl_->till.transferOpen();
}

std::int64_t Simulator::salesDay(int receipts, std::uint32_t seed) {
  return impl_->till.salesDay(receipts, seed);
}

int Simulator::invoices(int count, std::uint32_t seed) {
  return impl_->till.invoices(count, seed);
}

int Simulator::issueInvoice(const InvoiceOrder& order, const std::string& keys) {
  return impl_->till.issueInvoice(order, keys);
}

std::string Simulator::press(const std::string& sequence) {
  std::string printed;
  const KeyResult result = impl_->till.press(sequence);
  for (const LineAnswer& answer : result.answers) {
    std::string text(answer.text->size(), '\0');
    text.resize(answer.text->read(text));
    printed += text + answer.marker;
  }
  return printed;
}

bool Simulator::error() const {
  return impl_->till.error();
}

bool Simulator::closeDay() {
  return impl_->till.closeDay();
}

void Simulator::openSerial(const std::string& link) {
  impl_->serial = std::make_unique<SerialLine>(link, impl_->till);
}

const std::filesystem::path& Simulator::folder() const {
  return impl_->till.memory().folder();
}
const std::string& Simulator::address() const {
  return impl_->till.address();
}

}  // namespace ecrsim
