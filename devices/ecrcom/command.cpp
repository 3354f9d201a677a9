#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "ecrcom/result_code.h"
#include "ecrcom/timeouts.h"
#include "ecrcom/whole_file.h"
#include "platform/ecrcom/ecrcom.h"

namespace {

using namespace ecrcom;

std::string textOf(const char* text) {
  return text == nullptr ? std::string() : std::string(text);
}

/// A name in the current folder, and nothing that leads out of it.
bool goodName(const std::string& name) {
  return !name.empty() && name.size() <= kMaxName && name != "." && name != ".." &&
         name.find_first_of("/\\") == std::string::npos;
}

/// Leaves room for the header in front.
std::int16_t readToSend(const std::string& name, std::vector<std::uint8_t>& byte) {
  switch (readFile(name, byte, kHeaderBytes)) {
    case FileResult::Done:
      return kDone;
    case FileResult::TooLarge:
      return kFileTooLarge;
    default:
      return kLocalFileMissing;
  }
}

bool repliesTo(const Header& reply, std::uint8_t mode) {
  return reply.kind == FrameType::Reply && reply.mode == mode;
}

/// One command, one connection. A reply that comes is whole and of this command.
std::int16_t exchange(in_addr till, const std::vector<std::uint8_t>& command, std::uint8_t mode,
                      Frame& reply) {
  Socket connection;
  const IoResult connected = connect(till, within(connectTimeout()), connection);
  if (connected != IoResult::Done) return codeOf(connected);
  const Deadline deadline = within(replyTimeout());
  const IoResult dispatched = dispatch(connection, command, deadline);
  // A till that refuses a file before it has read it answers and hangs up: its answer says more than the cut.
  if (dispatched != IoResult::Done && dispatched != IoResult::Cut) return codeOf(dispatched);
  const IoResult received = receiveFrame(connection, deadline, reply);
  if (received != IoResult::Done) return codeOf(received);
  return repliesTo(reply.header, mode) ? reply.header.code : kGarbledReply;
}

/// Over the blanks, without a NUL: what lies behind stays blank.
void copyReply(const std::vector<std::uint8_t>& data, char* buffer, std::int32_t length) {
  if (buffer == nullptr || length <= 0 || data.empty()) return;
  std::memcpy(buffer, data.data(), std::min(data.size(), static_cast<std::size_t>(length)));
}

std::int16_t run(const std::string& ip, const std::string& name, std::uint8_t mode, Frame& reply) {
  const bool withFile = mode == ECR_SEND_MODE || mode == ECR_FETCH_MODE;
  const std::optional<in_addr> till = address(ip);
  if (!till) return kBadAddress;
  if (withFile && !goodName(name)) return kBadFileName;
  // Kept for the next call: a fresh quarter of a megabyte costs as much as sending it over the loopback.
  static thread_local std::vector<std::uint8_t> command;
  command.resize(kHeaderBytes);
  if (mode == ECR_SEND_MODE) {
    const std::int16_t read = readToSend(name, command);
    if (read != kDone) return read;
  }
  Header head;
  head.mode = mode;
  if (withFile) head.name = name;
  writeHeader(head, command);
  const std::int16_t code = exchange(*till, command, mode, reply);
  if (code != kDone || mode != ECR_FETCH_MODE) return code;
  return replaceFile(name, reply.data, true) == FileResult::Done ? kDone : kLocalFileNotWritten;
}

}  // namespace

int16_t ecr_command(char* ip, char* file, int32_t mode, char* buffer, int32_t buffer_length) try {
  if (mode < ECR_INFO_MODE || mode > ECR_FISCAL_CLOSURE_MODE) return kUnknownCommand;
  Frame reply;
  const std::int16_t code = run(textOf(ip), textOf(file), static_cast<std::uint8_t>(mode), reply);
  if (mode != ECR_SEND_MODE && mode != ECR_FETCH_MODE && code == kDone)
    copyReply(reply.data, buffer, buffer_length);
  return code;
} catch (const std::bad_alloc&) {
  return kNoResources;
} catch (...) {
  return kGarbledReply;
}

void ecr_get_err(int16_t code, char* text) {
  if (text == nullptr) return;
  const char* const told = message(code);
  std::memcpy(text, told, std::strlen(told) + 1);
}
