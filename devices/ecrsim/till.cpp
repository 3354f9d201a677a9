#include "ecrsim/till.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "ecrcom/codes.h"
#include "ecrsim/known_files.h"
#include "ecrsim/pictures.h"
#include "ecrsim/sales_day.h"
#include "platform/ecrcom/ecrcom.h"

namespace ecrsim {
namespace {

/// States in which a till lets its memory be touched, and those in which it closes its day.
constexpr std::string_view kTransferStates = "IP";
constexpr std::string_view kClosureStates = "IPA";
constexpr std::size_t kMaxInfo = 256;
constexpr std::string_view kDoneReply = "OK";

constexpr unsigned char kFirstPrintable = 0x20;

bool printable(char character) {
  return static_cast<unsigned char>(character) >= kFirstPrintable;
}

std::vector<std::uint8_t> byteOf(std::string_view text) {
  const ecrcom::Bytes byte = ecrcom::byteOf(text);
  return {byte.begin(), byte.end()};
}

}  // namespace

Till::Till(Options options)
    : options_(std::move(options)),
      memory_(options_.folder),
      machine_(memory_, options_.state, options_.mmc, options_.clock, options_.watcher),
      faults_(options_.faults) {
  machine_.desk().printer = options_.printer;
  machine_.desk().paper = options_.paper;
}

std::optional<Fault> Till::fault(int mode, const std::string& file) {
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(faults_.begin(), faults_.end(), [&](const Fault& one) {
    return one.mode == mode && (one.file.empty() || one.file == file);
  });
  if (found == faults_.end()) return std::nullopt;
  const Fault fault = *found;
  if (found->times > 0 && --found->times == 0) faults_.erase(found);
  return fault;
}

void Till::note(int mode, const std::string& file, std::size_t byte) {
  const std::lock_guard lock(mutex_);
  calls_.push_back({mode, file, byte});
}

Reply Till::run(int mode, const std::string& file, ecrcom::Bytes data) {
  const std::lock_guard lock(mutex_);
  Reply reply{permission(mode), {}};
  if (reply.code == ecrcom::kDone) reply = work(mode, file, data);
  const std::size_t byte = mode == ECR_FETCH_MODE ? reply.data.size() : data.size();
  calls_.push_back({mode, file, byte});
  return reply;
}

std::int16_t Till::permission(int mode) const {
  if (mode < ECR_INFO_MODE || mode > ECR_FISCAL_CLOSURE_MODE) return ecrcom::kUnknownCommand;
  // Asked for before anything else, and by a PC that does not know whether one is open.
  if (mode == ECR_INFO_MODE || mode == ECR_CLOSE_MODE) return ecrcom::kDone;
  const bool closing = mode == ECR_FISCAL_CLOSURE_MODE;
  const std::string_view states = closing ? kClosureStates : kTransferStates;
  if (states.find(machine_.state()) == std::string_view::npos) return ecrcom::kWrongState;
  const bool wantsClosed = closing || mode == ECR_OPEN_MODE;
  if (wantsClosed && open_) return ecrcom::kTransferOpen;
  if (!wantsClosed && !open_) return ecrcom::kTransferClosed;
  return ecrcom::kDone;
}

Reply Till::work(int mode, const std::string& file, ecrcom::Bytes data) {
  std::int16_t code = ecrcom::kDone;
  switch (mode) {
    case ECR_INFO_MODE:
      return info();
    case ECR_OPEN_MODE:
    case ECR_CLOSE_MODE:
      open_ = mode == ECR_OPEN_MODE;
      machine_.transferOpen(open_);
      break;
    case ECR_RESET_MODE:
      code = clearProgramming();
      break;
    case ECR_CLEAR_INVOICES_MODE:
      code = memory_.clear(kInvoicesFile, kInvoicesBytes);
      break;
    case ECR_CLEAR_SALES_MODE:
      code = memory_.clear(kSalesFile, kSalesBytes);
      break;
    case ECR_SEND_MODE:
      return {takeFile(file, data), {}};
    case ECR_FETCH_MODE:
      return handOverFile(file);
    default:
      code = closeFiscalDay();
      break;
  }
  return code == ecrcom::kDone ? Reply{code, byteOf(kDoneReply)} : Reply{code, {}};
}

std::int16_t Till::closeFiscalDay() {
  machine_.refresh();
  if (machine_.fiscalClosure()) {
    options_.fiscal = 0;
    return ecrcom::kDone;
  }
  return machine_.memoryFailed() ? ecrcom::kTillMemory : ecrcom::kWrongState;
}

/// Positions, not keys, are what the PC goes by: software 1, size class 2, memory card 3, state 11, model 12,
/// fiscal data not closed 17.
Reply Till::info() const {
  std::string text = options_.infoReply;
  if (text.empty()) {
    text = "VER=" + options_.version + ",BMP=" + options_.bitmap + ",MMC=" + options_.mmc +
           ",PLU=5000,REP=80,IVA=8,VAL=4,OPE=10,CLI=250,FAT=1000,STATO=" + machine_.state() +
           ",MOD=" + options_.pattern +
           ",MATR=0000001,CASSA=1,LAN=1,COM=2,FISC=" + std::to_string(openReceipts()) + ",DGFE=1,PROT=1";
    text.resize(std::min(text.size(), kMaxInfo));
  }
  return {ecrcom::kDone, byteOf(text)};
}

std::int16_t Till::clearProgramming() const {
  if (openReceipts() > 0) return ecrcom::kWrongState;
  for (const KnownFile& file : knownFiles()) {
    if (!file.programming) continue;
    const std::int16_t code = memory_.clear(file.name, file.byte(options_.bitmap));
    if (code != ecrcom::kDone) return code;
  }
  return ecrcom::kDone;
}

std::int16_t Till::takeFile(const std::string& file, ecrcom::Bytes data) const {
  const KnownFile* known = knownFile(file);
  if (known == nullptr || !known->sendable) return ecrcom::kUnknownFile;
  if (openReceipts() > 0 && known->wantsClosedDay()) return ecrcom::kWrongState;
  if (!known->accepts(data.size(), options_.bitmap)) return ecrcom::kBadLength;
  if (file == kPicturesFile) return takePictures(data);
  const std::size_t read = known->byte(options_.bitmap);
  return memory_.write(file, data.first(read));
}

std::int16_t Till::takePictures(ecrcom::Bytes data) const {
  const std::optional<Pictures> pictures = readPictures(data, options_.bitmap);
  if (!pictures) return ecrcom::kBadLength;
  const std::int16_t code = memory_.write(kPicturesFile, data);
  return code == ecrcom::kDone ? printPictures(*pictures, memory_) : code;
}

/// A file that someone laid into the memory goes out as it is, whatever its length. A till that nobody has
/// programmed yet has a programme all the same, of zeros.
Reply Till::handOverFile(const std::string& file) const {
  const KnownFile* known = knownFile(file);
  if (known == nullptr || !known->fetchable) return {ecrcom::kUnknownFile, {}};
  Reply reply;
  if (known->programming && !memory_.has(file)) {
    reply.data.resize(known->byte(options_.bitmap));
    return reply;
  }
  reply.code = memory_.read(file, reply.data);
  if (reply.code != ecrcom::kDone) reply.data.clear();
  return reply;
}

KeyResult Till::press(std::string_view sequence) {
  const std::lock_guard lock(mutex_);
  if (!std::all_of(sequence.begin(), sequence.end(), printable)) return {ecrcom::kBadText, {}};
  machine_.refresh();
  std::vector<LineAnswer> answers;
  machine_.type(sequence, answers);
  return resultOf(std::move(answers));
}

KeyResult Till::press(const Stroke& stroke) {
  const std::lock_guard lock(mutex_);
  machine_.refresh();
  std::vector<LineAnswer> answers;
  machine_.press(stroke, answers);
  return resultOf(std::move(answers));
}

/// A key that is refused shows on the till alone; a memory that fails is told to the PC as well.
KeyResult Till::resultOf(std::vector<LineAnswer> answers) {
  return {machine_.memoryFailed() ? ecrcom::kTillMemory : ecrcom::kDone, std::move(answers)};
}

void Till::pause() {
  const std::lock_guard lock(mutex_);
  machine_.pause();
}

bool Till::waits() const {
  const std::lock_guard lock(mutex_);
  return machine_.waits();
}

bool Till::error() const {
  const std::lock_guard lock(mutex_);
  return machine_.error();
}

bool Till::closeDay() {
  const std::lock_guard lock(mutex_);
  return closeFiscalDay() == ecrcom::kDone;
}

std::vector<Call> Till::calls() const {
  const std::lock_guard lock(mutex_);
  return calls_;
}

void Till::forgetCalls() {
  const std::lock_guard lock(mutex_);
  calls_.clear();
}

void Till::state(char letter) {
  const std::lock_guard lock(mutex_);
  machine_.state(letter);
}

void Till::faults(std::vector<Fault> faults) {
  const std::lock_guard lock(mutex_);
  faults_ = std::move(faults);
}

void Till::infoReply(std::string text) {
  const std::lock_guard lock(mutex_);
  options_.infoReply = std::move(text);
}

bool Till::transferOpen() const {
  const std::lock_guard lock(mutex_);
  return open_;
}

std::int64_t Till::salesDay(int receipts, std::uint32_t seed) {
  const std::lock_guard lock(mutex_);
  machine_.refresh();
  return ringUp(machine_, receipts, seed);
}

int Till::invoices(int count, std::uint32_t seed) {
  const std::lock_guard lock(mutex_);
  machine_.refresh();
  return ringUpInvoices(machine_, count, seed);
}

int Till::issueInvoice(InvoiceOrder order, std::string_view keys) {
  const std::lock_guard lock(mutex_);
  machine_.refresh();
  return machine_.issueInvoice(std::move(order), keys);
}

}  // namespace ecrsim
